#include "apps/importazione/esecuzione.h"

#include <algorithm>

#include "archive/ricostruzione.h"
#include "intake/applica.h"
#include "suite/orologio.h"
#include "suite/support_log.h"

namespace cu {
namespace {

using intake::Lettura;

std::string dueCifre(int numero) {
  return {static_cast<char>('0' + numero / 10), static_cast<char>('0' + numero % 10)};
}

}  // namespace

void tralasciaIllegibili(std::vector<Lettura>& letture) {
  if (std::all_of(letture.begin(), letture.end(), [](const Lettura& una) { return una.illeggibile(); }))
    return;
  for (Lettura& lettura : letture) {
    if (!lettura.illeggibile()) continue;
    for (intake::Messaggio& uno : lettura.messaggi) uno.gravita = intake::Gravita::Informazione;
  }
}

std::string momentoAttuale() {
  const OrologioSistema orologio;
  const TimeOfDay ora = orologio.now();
  return orologio.today().toIso() + ' ' + dueCifre(ora.hour) + ':' + dueCifre(ora.minute) + ':' +
         dueCifre(ora.second);
}

EsecuzionePiano eseguiPiano(DatabaseSuite& database, const intake::Piano& piano,
                            const RichiestaEsecuzione& richiesta, ProgressSink* avanzamento) {
  EsecuzionePiano eseguita;
  EsitoImportazione& esito = eseguita.esito;
  esito.applica = richiesta.applica;
  if (!piano.applicabile()) return eseguita;
  RicostruzioneContiIndividuali ricostruzione;
  const auto applicato =
      logged({.operation = "importazione",
              .detail = richiesta.applica ? "scrittura" : "prova",
              .rows = static_cast<std::int64_t>(piano.righe.size())},
             [&] {
               return intake::applica(
                   database, ricostruzione, piano,
                   {.prova = !richiesta.applica, .utente = richiesta.utente, .momento = momentoAttuale()},
                   avanzamento);
             });
  for (const Finding& rifiuto : applicato.refusals) eseguita.rifiuti.push_back(rifiuto.text);
  if (!applicato) return eseguita;
  esito.riuscita = true;
  esito.lotto = applicato->lotto;
  esito.applicata = richiesta.applica && esito.lotto.has_value();
  return eseguita;
}

Result<intake::Annullato> annullaLotto(DatabaseSuite& database, std::int32_t lotto, bool prova) {
  RicostruzioneContiIndividuali ricostruzione;
  return logged({.operation = "annullamento importazione", .detail = prova ? "prova" : "scrittura"}, [&] {
    return intake::annulla(database, ricostruzione,
                           {.lotto = lotto, .prova = prova, .momento = momentoAttuale()});
  });
}

}  // namespace cu
