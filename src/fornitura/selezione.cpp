#include "fornitura/selezione.h"

#include <algorithm>

#include "base/text.h"
#include "telematic/intermediario.h"
#include "worklist/riferimenti.h"

namespace cu::fornitura {
namespace {

// A text for one of the wizard's boxes, which the box itself would not take.
struct TestoDiCasella {
  const char* casella;
  const char* nome;  // for a person who has no box before him
  std::size_t massimo;
  bool (*ammesso)(char32_t);  // null: any character
};

Result<> controllaTesto(const TestoDiCasella& sua, const std::string& testo) {
  const bool filtrato = sua.ammesso == nullptr || std::all_of(testo.begin(), testo.end(), [&sua](char c) {
                          return sua.ammesso(static_cast<unsigned char>(c));
                        });
  if (filtrato && codePoints(testo) <= sua.massimo) return Done{};
  return Result<>::refused({"testo-non-ammesso",
                            std::string(sua.nome) + " «" + testo + "» non è ammesso: al massimo " +
                                fromInteger(static_cast<std::int64_t>(sua.massimo)) +
                                (sua.ammesso == nullptr ? " caratteri." : " cifre."),
                            sua.casella});
}

}  // namespace

Result<> seleziona(Compensi& compensi, const RichiestaSelezione& richiesta) {
  if (richiesta.tutte) {
    compensi.sbSelezionaTutto(richiesta.azione);
    return Done{};
  }
  if (richiesta.posizioni.empty()) {
    compensi.sbSelezionaRiga(richiesta.azione);
  } else {
    compensi.sbInvertiRighe(richiesta.posizioni);
  }
  compensi.sbContaSelezionati();
  return Done{};
}

Result<> controllaSelezione(Compensi& compensi, Comunicazione tipo) {
  if (compensi.fnNessunaSelezione()) {
    return Result<>::refused({"nessuna-selezione",
                              "Per poter proseguire è necessario selezionare almeno un elemento.",
                              "grdCompensi"});
  }
  if (tipo != Comunicazione::Ordinaria && compensi.fnProtocolliMancanti()) {
    return Result<>::refused({"riferimenti-mancanti",
                              "Per il tipo operazione annullamento o sostituzione il\r\n"
                              "protocollo è obbligatorio. Verificare che in tutti gli\r\n"
                              "elementi selezionati sia stato correttamente indicato.",
                              "cmdProtocollo"});
  }
  return Done{};
}

Result<> controllaRiferimenti(const RichiestaRiferimenti& richiesta) {
  Result<> esito =
      controllaTesto({"frmProtocollo.txtProtocollo", "Il protocollo", kMassimoProtocollo, tastoRiferimento},
                     richiesta.protocollo);
  return esito ? controllaTesto({"frmProtocollo.txtProgressivo", "Il progressivo", kMassimoProgressivo,
                                 tastoRiferimento},
                                richiesta.progressivo)
               : esito;
}

Result<> controllaCodiceIntermediario(const std::string& codiceFiscale) {
  return controllaTesto({"frmWizard.txtCodiceFiscale", "Il codice fiscale dell'intermediario",
                         kMassimoCodiceIntermediario, nullptr},
                        codiceFiscale);
}

Result<std::size_t> correggiRiferimenti(Compensi& compensi, const RichiestaRiferimenti& richiesta) {
  return compensi.sbAggiornaProtocolli(richiesta.protocollo, richiesta.progressivo, richiesta.sovrascrivi);
}

Result<> correggi(Compensi& compensi) {
  compensi.sbAggiornaRiga();
  return Done{};
}

Result<std::size_t> memorizza(Compensi& compensi) { return compensi.sbMemorizzaModifiche(); }

}  // namespace cu::fornitura
