#include "riscontro/scritte.h"

#include <map>
#include <string>
#include <utility>

namespace cu::riscontro {
namespace {

// A payee may have a reason twice: the second one is counted apart.
class Numerate {
 public:
  std::string chiave(const lettura::Certificato& certificato) {
    std::string sua = certificato.percipiente + "\n" + certificato.causale() + "\n";
    sua += std::to_string(++volte_[sua]);
    return sua;
  }
  void daCapo() { volte_.clear(); }

 private:
  std::map<std::string, int> volte_;
};

}  // namespace

Scritte scritte(Registro& registro, const Esercizio& esercizio, const Conversioni& utilita) {
  std::map<std::string, bool> registrate;  // whether one of them was sent
  Numerate delFile;
  std::int64_t invio = 0;
  for (const Registrata& una : registro.certificate(esercizio.idAzienda, esercizio.anno, false)) {
    if (std::exchange(invio, una.idInvio) != una.idInvio) delFile.daCapo();
    if (!una.ordinaria()) continue;
    registrate[delFile.chiave(una.certificato)] |= una.stato != Stato::Scritta;
  }
  Scritte somma;
  Numerate deiConti;
  leggiConti(registro.connessione(), esercizio, utilita, [&](const Conto& conto) {
    ++somma.conti;
    const auto trovata = registrate.find(deiConti.chiave(conto.certificato));
    if (trovata == registrate.end()) return;
    ++somma.scritte;
    if (trovata->second) ++somma.inviate;
  });
  return somma;
}

}  // namespace cu::riscontro
