#include "intake/storico.h"

#include <map>

#include "base/text.h"
#include "schede/conteggio.h"
#include "schede/righe.h"

namespace cu::intake {
namespace {

using schede::haTabella;
using schede::idIn;

Lotto lottoDa(const CellView* riga) {
  constexpr std::size_t kPrimoConteggio = 6;
  Lotto lotto;
  lotto.id = idIn(riga[0]);
  lotto.idAzienda = idIn(riga[1]);
  lotto.elenco = elencoDaNome(riga[2].text()).value_or(Elenco::Compensi);
  lotto.momento = riga[3].toText();
  lotto.utente = riga[4].toText();
  lotto.annullato = riga[5].text() == "annullata";
  for (std::size_t i = 0; i < lotto.conteggi.size(); ++i) {
    lotto.conteggi[i] = static_cast<std::size_t>(riga[kPrimoConteggio + i].integer());
  }
  return lotto;
}

}  // namespace

bool haStoricoLeggibile(Connection& connessione) {
  return haTabella(connessione, "CuImportazione") && haTabella(connessione, "CuImportazioneFile") &&
         haTabella(connessione, "CuImportazioneRiga") && haTabella(connessione, "CuImportazioneConto");
}

bool haStorico(Connection& connessione) {
  return haStoricoLeggibile(connessione) && haTabella(connessione, "CuImportazioneContenuto");
}

std::vector<Lotto> storico(Connection& connessione, std::optional<std::int32_t> idAzienda) {
  std::vector<Lotto> lotti;
  if (!haStoricoLeggibile(connessione)) return lotti;
  std::string quali;
  if (idAzienda) quali = " WHERE IDAzienda IS NULL OR IDAzienda = " + fromInteger(*idAzienda);
  RowStore righe;
  connessione.Query(
      "SELECT IDImportazione, IDAzienda, Elenco, Momento, Utente, Stato, Nuovi, Uguali, Diversi, DaDecidere, "
      "Errori,"
      " Esclusi FROM CuImportazione" +
          quali + " ORDER BY IDImportazione",
      righe);
  std::array<CellView, 12> celle;
  std::map<std::int32_t, std::size_t> posti;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    lotti.push_back(lottoDa(celle.data()));
    posti.emplace(lotti.back().id, i);
  }
  RowStore file;
  connessione.Query(
      "SELECT IDImportazione, Nome, Dimensione, Impronta FROM CuImportazioneFile ORDER BY IDImportazione, "
      "Numero",
      file);
  for (std::size_t i = 0; i < file.size(); ++i) {
    file.read(i, celle.data());
    const auto suo = posti.find(idIn(celle[0]));
    if (suo == posti.end()) continue;
    lotti[suo->second].file.push_back(
        {celle[1].toText(), static_cast<std::uint64_t>(celle[2].integer()), celle[3].toText()});
  }
  return lotti;
}

Result<> prontoPerImportare(Connection& connessione, Elenco elenco, const RichiestaPiano& richiesta) {
  if (!richiesta.databaseEstraneo && !schede::archivioProprio(connessione)) {
    return Result<>::refused(
        {"estraneo",
         "Il database non è stato creato da questo programma: in quello di un'altra suite è lei a "
         "numerare le righe. Per importare lo stesso, indicare --foreign-database.",
         ""});
  }
  if (!haStorico(connessione)) {
    return Result<>::refused(
        {"senza storico",
         "Il database non ha le tabelle delle importazioni. Aggiungerle con «cuctl upgrade».", ""});
  }
  const bool azienda =
      elenco == Elenco::Aziende ||
      schede::quante(connessione, "Azienda", " WHERE IDAzienda = " + fromInteger(richiesta.idAzienda)) > 0;
  if (!azienda) return Result<>::refused({"azienda", "L'azienda indicata non è nel database.", ""});
  return Done{};
}

}  // namespace cu::intake
