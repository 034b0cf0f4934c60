#pragma once

#include <array>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/table.h"

namespace cu::test {

// A column of the user's work table: name, type in the database, and whether it may be null.
struct WorkColumn {
  std::string_view name;
  std::string_view type;
  bool nullable;
};

// clang-format off
inline constexpr std::array<WorkColumn, 101> kWorkColumns = {{
    {"Selezionato", "int", true},
    {"Modificato", "int", true},
    {"AnagraficaPerc", "Note", true},
    {"Nome", "Descrizione", true},
    {"Codice", "Descrizione", false},
    {"Anticipazione", "SiNo", false},
    {"CodiceFiscale", "Descrizione", false},
    {"AmmontareLordo", "Importo", true},
    {"SommeRegimeConvenzionale", "Importo", true},
    {"IDCodicePerNonSoggetti", "int", true},
    {"CodicePerNonSoggetti", "Descrizione", true},
    {"SommeNonSoggetteARitenuta", "Importo", true},
    {"Imponibile", "Importo", true},
    {"RitenuteAcconto", "Importo", true},
    {"RitenuteImposta", "Importo", true},
    {"RitenuteSospese", "Importo", true},
    {"AddRegionAcconto", "Importo", true},
    {"AddRegionImposta", "Importo", true},
    {"AddRegionSospesa", "Importo", true},
    {"AddComunAcconto", "Importo", true},
    {"AddComunImposta", "Importo", true},
    {"AddComunSospesa", "Importo", true},
    {"ImponibileAnniPrecedenti", "Importo", true},
    {"RitenuteAnniPrecedenti", "Importo", true},
    {"ContributiCaricoAzienda", "Importo", true},
    {"ContributiCaricoPercipiente", "Importo", true},
    {"SpeseRimborsate", "Importo", true},
    {"RitenuteRimborsate", "Importo", true},
    {"ProtocolloAnnSost", "Descrizione", true},
    {"ProgressivoAnnSost", "Descrizione", true},
    {"FusioneComuni", "Descrizione", true},
    {"FusioneComuniAnnoPrec", "Descrizione", true},
    {"IDComuneResidenzaAnnoPrec", "int", true},
    {"IDComuneResidenzaAnnoCorr", "int", true},
    {"ComuneResidenzaAnnoPrec", "Descrizione", true},
    {"ComuneResidenzaAnnoCorr", "Descrizione", true},
    {"SiglaProvResidenzaAnnoPrec", "Descrizione", true},
    {"SiglaProvResidenzaAnnoCorr", "Descrizione", true},
    {"CodiceComuneDiNascitaPrec", "Descrizione", true},
    {"CodiceComuneDiNascitaCorr", "Descrizione", true},
    {"IDCategoriaParticolare", "int", true},
    {"IDEventoEccezionale", "int", true},
    {"NonResidente", "SiNo", true},
    {"CodiceFiscaleRappresentante", "Descrizione", true},
    {"CodiceIdentificazioneFiscaleEstero", "Descrizione", true},
    {"QuotaProvvigioniNonSoggette", "Importo", true},
    {"IDTipoCausalePagamento", "int", true},
    {"CodiceAzPressoENPAM", "Descrizione", true},
    {"CodiceAzPressoENPAPI", "Descrizione", true},
    {"IDCUEntePrevidenziale", "int", true},
    {"IDCUCategoriaEntePrevidenziale", "int", true},
    {"CUCodiceFiscale", "Descrizione", true},
    {"CUDenominazioneEntePrevidenziale", "Note", true},
    {"CUCodiceEntePrevidenziale", "Descrizione", true},
    {"CUCodiceCategoriaEntePrevidenziale", "Descrizione", true},
    {"AltreIndennitaRitenuteOperate1", "Importo", true},
    {"AltreIndennitaRitenuteOperate2", "Importo", true},
    {"AltreIndennitaSommeCorrisposte1", "Importo", true},
    {"AltreIndennitaSommeCorrisposte2", "Importo", true},
    {"AltriContributi", "Importo", true},
    {"AltriSoggettiAddComunAcconto", "Importo", true},
    {"AltriSoggettiAddComunImposta", "Importo", true},
    {"AltriSoggettiAddComunSospesa", "Importo", true},
    {"AltriSoggettiAddRegionAcconto", "Importo", true},
    {"AltriSoggettiAddRegionImposta", "Importo", true},
    {"AltriSoggettiAddRegionSospesa", "Importo", true},
    {"AltriSoggettiCodiceFiscale", "Descrizione", true},
    {"AltriSoggettiImponibile", "Importo", true},
    {"AltriSoggettiRitenuteImposta", "Importo", true},
    {"AltriSoggettiRitenuteAcconto", "Importo", true},
    {"AltriSoggettiRitenuteSospese", "Importo", true},
    {"CodiceFiscaleIndennitaEsproprio", "Descrizione", true},
    {"CodiceFiscaleLavoroAutonomo", "Descrizione", true},
    {"CodiceFiscalePignoramentoTerzi", "Descrizione", true},
    {"ContributiDovuti", "Importo", true},
    {"ContributiVersati", "Importo", true},
    {"ImportoAltriContributi", "Importo", true},
    {"IndennitaEsproprioRitenuteOperate1", "Importo", true},
    {"IndennitaEsproprioRitenuteOperate2", "Importo", true},
    {"IndennitaEsproprioSommeCorrisposte1", "Importo", true},
    {"IndennitaEsproprioSommeCorrisposte2", "Importo", true},
    {"PignoramentoTerziCodiceFiscale1", "Descrizione", true},
    {"PignoramentoTerziCodiceFiscale2", "Descrizione", true},
    {"PignoramentoTerziRitenuteNonOperate1", "Importo", true},
    {"PignoramentoTerziSommeNonTassate1", "Importo", true},
    {"PignoramentoTerziRitenuteNonOperate2", "Importo", true},
    {"PignoramentoTerziSommeNonTassate2", "Importo", true},
    {"PignoramentoTerziRitenuteOperate1", "Importo", true},
    {"PignoramentoTerziRitenuteOperate2", "Importo", true},
    {"PignoramentoTerziSommeErogate1", "Importo", true},
    {"PignoramentoTerziSommeErogate2", "Importo", true},
    {"SommeCorrisposteDalCuratore", "Importo", true},
    {"SommeCorrispostePreFallimento", "Importo", true},
    {"NonResidenteSchumacker", "SiNo", true},
    {"CodiceFiscaleRappresentanteAzienda", "Descrizione", true},
    {"CodiceCarica", "Descrizione", true},
    {"CodicePercipiente", "Descrizione", true},
    {"IDAnagrafica", "int", false},
    {"IDCausalePagamento", "int", false},
    {"Anno", "int", false},
    {"IDAzienda", "int", false},
}};
// clang-format on

using WorkRow = std::map<std::string, Value, std::less<>>;  // column name to value

// A line as left by the load: selected, unchanged, with zeros in its amounts; `changes` contains the
// differences.
inline WorkRow workRow(std::int64_t idAnagrafica, std::int64_t idCausale, WorkRow changes = {}) {
  WorkRow row;
  for (const WorkColumn& column : kWorkColumns) {
    if (column.type == "Importo") row[std::string(column.name)] = amount("0");
  }
  row["Selezionato"] = whole(1);
  row["Modificato"] = whole(0);
  row["Anticipazione"] = whole(0);
  row["AnagraficaPerc"] = text("Rossi Mario");
  row["Nome"] = text("Mario");
  row["Codice"] = text("A");
  row["CodiceFiscale"] = text("RSSMRA70A01H501U");
  row["CodicePercipiente"] = text("P1");
  row["IDAnagrafica"] = whole(idAnagrafica);
  row["IDCausalePagamento"] = whole(idCausale);
  row["Anno"] = whole(2016);
  row["IDAzienda"] = whole(1);
  for (auto& [name, value] : changes) row[name] = std::move(value);
  return row;
}

// The result of reading the whole table.
inline Table workTable(const std::vector<WorkRow>& rows) {
  Table table;
  for (const WorkColumn& column : kWorkColumns) {
    ValueType type = ValueType::Text;
    if (column.type == "int" || column.type == "SiNo") type = ValueType::Integer;
    if (column.type == "Importo") type = ValueType::Decimal;
    table.columns.push_back({std::string(column.name), type});
  }
  for (const WorkRow& row : rows) {
    for (const auto& [name, value] : row) table.column(name);  // no columns other than these
    std::vector<Value> cells;
    for (const WorkColumn& column : kWorkColumns) {
      const auto found = row.find(column.name);
      cells.push_back(found == row.end() ? Value() : found->second);
    }
    table.rows.push_back(std::move(cells));
  }
  return table;
}

}  // namespace cu::test
