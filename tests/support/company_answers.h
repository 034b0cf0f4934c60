#pragma once

#include "support/fake_session.h"
#include "support/table.h"
#include "support/work_table.h"

namespace cu::test {

// The rows that the checks read for a company and a payee without missing data.
inline Table completeCompany() {
  return Table({"CodFisc", "AnagAz", "PersonaFisicaAz", "NomeAz", "ComuneAz", "SiglaProvinciaAz",
                "AnagraficaRapp", "NomeRapp", "CodiceFiscaleRapp", "CodiceCarica"},
               {{text("01234567890"), text("Quadrivio SRL"), whole(0), null(), text("Roma"), text("RM"),
                 text("Bianchi"), text("Ada"), text("BNCDAA70A41H501X"), text("1")}});
}
inline Table completePayee() {
  return Table({"Sesso", "DataNascita", "NonResidente", "Indirizzo", "PersonaFisica", "Anagrafica", "Nome",
                "AnagPercipiente", "CodiceFiscale", "ComuneNascita", "ComuneRes", "NazioneNascita",
                "CodiceIdentificazioneFiscaleEstero", "PrefissoInternazionaleRes"},
               {{text("M"), day(1970, 1, 1), whole(0), text("Via Roma 1"), whole(1), text("Rossi"),
                 text("Mario"), text("Rossi Mario"), text("RSSMRA70A01H501U"), text("Roma"), text("Roma"),
                 text("Italia"), null(), null()}});
}

// The numbers of selected lines in the work table, and of those without references.
struct Counts {
  int selected = 1;
  int withoutReferences = 0;
};

// The answers of such a company's database, with two lines to pay. The counts outlive the database.
inline void answerCompany(FakeDatabase& database, const Counts& counts) {
  database.own.answerContaining(
      "SELECT DISTINCT ContoIndividuale.Anno",
      Table({"Anno"}, {{whole(2016)}, {whole(2015)}, {whole(2014)}, {whole(2013)}}));
  // No table of this program's own.
  database.own.answerContaining("FROM dbo.sysobjects", Table({"COUNT"}, {{whole(0)}}));
  database.main.answerContaining("DefaultFilialePerTipoOggetto",
                                 Table({"IDDefaultFilialePerTipoOggetto"}, {}));
  database.main.answerContaining("FROM Anagrafica", Table({"IDAnagrafica", "Nome"}, {}));
  // The test for an empty print.
  database.main.answerContaining("FROM RepContoIndividuale", Table({"IDAzienda"}, {}));
  database.main.answerContaining("FROM RepCompenso", Table({"IDAzienda"}, {}));
  database.main.answerContaining("SELECT COUNT(Selezionato)", [&counts](std::string_view statement) {
    const bool references = statement.find("ISNULL") != std::string_view::npos;
    return Table({"COUNT"}, {{whole(references ? counts.withoutReferences : counts.selected)}});
  });
  database.main.answer("tmpprequadrivio12", workTable({workRow(1, 1), workRow(2, 1)}));
  database.internal.answerContaining("AS CodFisc", completeCompany());
  database.internal.answerContaining("SELECT DISTINCT Anag.Sesso", completePayee());
  database.internal.answerContaining("ORDER BY Anag.Anagrafica", Table({"Anno"}, {}));
  database.internal.answerContaining("FROM ConfigurazioneElencoCliFor", Table({"IDAzienda"}, {}));
}

}  // namespace cu::test
