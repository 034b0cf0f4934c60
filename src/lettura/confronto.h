#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lettura/certificato.h"

// Certificate against certificate, whatever their order and their numbers.
namespace cu::lettura {

struct CasellaDiversa {
  int modulo = 1;
  std::string campo;  // code of the cell; of a head the record and the field: "B Denominazione"
  std::string vecchio;
  std::string nuovo;
};

// The cells that differ, by module and code. The signature and its date are not compared. `soloD` compares
// the cells of record D alone, as an annulment has no others.
std::vector<CasellaDiversa> diverse(const Certificato& vecchio, const Certificato& nuovo, bool soloD = false);

enum class EsitoConfronto : std::uint8_t { Uguale, Diverso, SoloVecchio, SoloNuovo };

// A certificate and its counterpart; null where there is none. Both live until the call returns.
struct Coppia {
  const Certificato* vecchio = nullptr;
  const Certificato* nuovo = nullptr;
  EsitoConfronto esito = EsitoConfronto::Uguale;
  std::vector<CasellaDiversa> caselle;

  const Certificato& uno() const { return nuovo != nullptr ? *nuovo : *vecchio; }
};
using RiceviCoppia = std::function<void(const Coppia&)>;

// Pairs the certificates of one side with those of the other, by payee and reason; equal keys in their order.
class Accostamento {
 public:
  void aggiungi(Certificato certificato);
  // The counterpart, which is taken out; nothing where there is none. Of several with the same payee and
  // reason the one with the same cells, else the first. An annulment, which has no reason, pairs with any of
  // its payee.
  std::optional<Certificato> togli(const Certificato& certificato);
  // Those that nobody has asked for, in the order in which they were added.
  void rimasti(const std::function<void(const Certificato&)>& chiama) const;

 private:
  struct Posto {
    Certificato certificato;
    bool tolto = false;
  };
  std::vector<Posto> posti_;
  std::unordered_map<std::string, std::vector<std::size_t>> perChiave_;
};

}  // namespace cu::lettura
