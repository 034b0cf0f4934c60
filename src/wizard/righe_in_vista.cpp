#include "wizard/righe_in_vista.h"

#include <utility>

#include "base/text.h"

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

RowState statoConModuli(std::function<std::string()> istruzione) {
  return {.name = "Con moduli",
          .meaning = "La certificazione ha altri moduli oltre al primo: si vedono nell'editor.",
          .mark = RowMark::More,
          .fields = {"IDAnagrafica", "IDCausalePagamento"},
          .statement = std::move(istruzione)};
}

}  // namespace

std::string fnSelectConModuli(std::int32_t idAzienda, std::int32_t anno) {
  return "SELECT IDAnagrafica, IDCausalePagamento FROM ModuloXContoIndividuale WHERE IDAzienda = " +
         fromInteger(idAzienda) + " AND Anno = " + fromInteger(anno);
}

void descriviRighe(Grid& griglia, std::function<std::string()> conModuli) {
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
      statoConModuli(std::move(conModuli)),
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
