#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/file_letto.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/json_confronto.h"
#include "lettura/esame.h"

namespace cu {
namespace {

using lettura::Certificato;

constexpr ParoleConfronto kParole = {"nel vecchio", "nel nuovo"};

Confrontata confrontata(const Certificato& certificato, const char* stato) {
  return {certificato.percipiente, certificato.nome, certificato.causale(), stato, {}};
}

class Vecchi : public lettura::Ascoltatore {
 public:
  explicit Vecchi(lettura::Accostamento& accostamento) : accostamento_(accostamento) {}
  void certificato(const Certificato& certificato) override { accostamento_.aggiungi(certificato); }

 private:
  lettura::Accostamento& accostamento_;
};

class Nuovi : public lettura::Ascoltatore {
 public:
  Nuovi(lettura::Accostamento& accostamento, ListaConfronto& lista)
      : accostamento_(accostamento), lista_(lista) {}
  void certificato(const Certificato& nuovo) override {
    const auto vecchio = accostamento_.togli(nuovo);
    if (!vecchio) {
      lista_.aggiungi(confrontata(nuovo, "only in new"), "solo nel nuovo", kParole);
      return;
    }
    Confrontata esito = confrontata(nuovo, "equal");
    esito.caselle = lettura::diverse(*vecchio, nuovo);
    if (!esito.caselle.empty()) esito.stato = "changed";
    lista_.aggiungi(esito, "cambiata", kParole);
  }

 private:
  lettura::Accostamento& accostamento_;
  ListaConfronto& lista_;
};

}  // namespace

int comandoDiff(const OpzioniDiff& opzioni) {
  try {
    FileLetto vecchio(opzioni.vecchio);
    FileLetto nuovo(opzioni.nuovo);
    lettura::Accostamento accostamento;
    ListaConfronto lista(opzioni.json);
    Vecchi vecchi(accostamento);
    Nuovi nuovi(accostamento, lista);
    static_cast<void>(lettura::esamina(vecchio, nullptr, &vecchi));
    static_cast<void>(lettura::esamina(nuovo, nullptr, &nuovi));
    accostamento.rimasti([&](const Certificato& rimasto) {
      lista.aggiungi(confrontata(rimasto, "only in old"), "solo nel vecchio", kParole);
    });
    lista.fine("diverse");
    return lista.uguali() ? kRiuscito : kRifiutato;
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
