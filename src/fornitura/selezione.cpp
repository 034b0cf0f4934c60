#include "fornitura/selezione.h"

#include <algorithm>

#include "base/text.h"
#include "telematic/intermediario.h"
#include "worklist/riferimenti.h"

namespace cu::fornitura {
namespace {

Result<> controllaTesto(const char* casella, const std::string& testo, std::size_t massimo,
                        bool (*ammesso)(char32_t)) {
  const bool filtrato = ammesso == nullptr || std::all_of(testo.begin(), testo.end(), [ammesso](char c) {
                          return ammesso(static_cast<unsigned char>(c));
                        });
  if (filtrato && codePoints(testo) <= massimo) return Done{};
  return Result<>::refused(
      {"testo-non-ammesso", std::string(casella) + ": il testo \"" + testo + "\" non è ammesso", casella});
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
  Result<> esito = controllaTesto("frmProtocollo.txtProtocollo", richiesta.protocollo, kMassimoProtocollo,
                                  tastoRiferimento);
  return esito ? controllaTesto("frmProtocollo.txtProgressivo", richiesta.progressivo, kMassimoProgressivo,
                                tastoRiferimento)
               : esito;
}

Result<> controllaCodiceIntermediario(const std::string& codiceFiscale) {
  return controllaTesto("frmWizard.txtCodiceFiscale", codiceFiscale, kMassimoCodiceIntermediario, nullptr);
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
