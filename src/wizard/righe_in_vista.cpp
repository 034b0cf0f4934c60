#include "wizard/righe_in_vista.h"

#include "modello/regole.h"

namespace cu {
namespace {

bool inBianco(const CellView& cella) { return cella.isNull() || cella.text().empty(); }
bool acceso(std::span<const CellView> celle) { return celle[0].flag(); }
bool spento(std::span<const CellView> celle) { return !celle[0].flag(); }
// The database takes blanks for an empty text.
bool senzaRiferimento(std::span<const CellView> celle) {
  const auto vuoto = [](const CellView& cella) {
    return cella.text().find_first_not_of(' ') == std::string_view::npos;
  };
  return vuoto(celle[0]) || vuoto(celle[1]);
}

// What the check before the file reports of a payee, as far as a line has it: its fiscal code is the VAT
// number where there is no other, and its payee's name begins with the surname.
bool manca(std::span<const CellView> celle) {
  return inBianco(celle[0]) || celle[0].text().front() == ' ' || inBianco(celle[1]);
}

// The gross is the sum of its addends and of the further modules, unless it was corrected by itself. As
// loaded it also contains the refunded expenses, which the editor leaves out.
bool altriModuli(std::span<const CellView> celle) {
  Decimal resto = celle[0].decimal();
  for (const CellView& addendo : celle.subspan(2)) resto = resto - addendo.decimal();
  return !resto.isZero() && resto != celle[1].decimal();
}

RowState statoAltriModuli() {
  RowState stato{.name = "Altri moduli o lordo diverso",
                 .meaning =
                     "L'ammontare lordo non è la somma delle caselle della riga: comprende somme di altri "
                     "moduli, o è stato corretto. Un modulo senza somme non soggette non si vede da qui.",
                 .mark = RowMark::More,
                 .fields = {std::string(modello::kLordo), "SpeseRimborsate"},
                 .holds = altriModuli,
                 .column = std::string(modello::kLordo)};
  for (const std::string_view addendo : modello::kAddendiLordo) stato.fields.emplace_back(addendo);
  return stato;
}

}  // namespace

void descriviRighe(Grid& griglia) {
  griglia.chosenField = "Selezionato";
  griglia.subjectField = "IDAnagrafica";
  griglia.subjects = "percipienti";
  griglia.searched = {{"CodiceFiscale", "codice fiscale"}, {"CodicePercipiente", "codice"}};
  griglia.states = {
      {.name = "Scelte",
       .meaning = "La riga è scelta: entra nel file.",
       .fields = {"Selezionato"},
       .holds = acceso},
      {.name = "Non scelte",
       .meaning = "La riga non è scelta: resta fuori dal file.",
       .mark = RowMark::LeftOut,
       .fields = {"Selezionato"},
       .holds = spento},
      {.name = "Modificate",
       .meaning = "La riga è stata corretta dopo il caricamento.",
       .mark = RowMark::Changed,
       .fields = {"Modificato"},
       .holds = acceso},
      {.name = "Senza protocollo",
       .meaning = "Manca il protocollo o il progressivo della certificazione da annullare o sostituire.",
       .mark = RowMark::NoReference,
       .fields = {"ProtocolloAnnSost", "ProgressivoAnnSost"},
       .holds = senzaRiferimento,
       .column = "ProtocolloAnnSost"},
      statoAltriModuli(),
      {.name = "Dati mancanti",
       .meaning =
           "Manca il codice fiscale o il cognome: con la riga scelta il controllo ferma il file. Gli altri "
           "dati dell'anagrafica li vede solo il controllo.",
       .mark = RowMark::Lacking,
       .fields = {"AnagraficaPerc", "CodiceFiscale"},
       .holds = manca},
  };
  griglia.sums = {
      {"lordo", {"AmmontareLordo"}},
      {"imponibile", {"Imponibile"}},
      {"ritenute", {"RitenuteAcconto", "RitenuteImposta"}},
      {"addizionali", {"AddRegionAcconto", "AddRegionImposta", "AddComunAcconto", "AddComunImposta"}}};
}

}  // namespace cu
