#pragma once

#include <string_view>
#include <vector>

#include "support/fake_session.h"
#include "support/table.h"
#include "support/work_table.h"

namespace cu::test {

// A column of ModuloXContoIndividuale after its key, in the order of the table.
inline constexpr std::string_view kModuleColumns[] = {"NumeroModulo",
                                                      "IDCodicePerNonSoggetti",
                                                      "AnnoModulo",
                                                      "SommeNonSoggette",
                                                      "ImponibileAnniPrec",
                                                      "RitenuteAnniPrec",
                                                      "Anticipazione",
                                                      "ContributiCaricoAzienda",
                                                      "ContributiCaricoPercipiente",
                                                      "AltriContributi",
                                                      "ImportoAltriContributi",
                                                      "ContributiDovuti",
                                                      "ContributiVersati",
                                                      "AltriSoggettiCodiceFiscale",
                                                      "AltriSoggettiImponibile",
                                                      "AltriSoggettiRitenuteAcconto",
                                                      "AltriSoggettiRitenuteImposta",
                                                      "AltriSoggettiRitenuteSospese",
                                                      "AltriSoggettiAddRegionAcconto",
                                                      "AltriSoggettiAddRegionImposta",
                                                      "AltriSoggettiAddRegionSospesa",
                                                      "AltriSoggettiAddComunAcconto",
                                                      "AltriSoggettiAddComunImposta",
                                                      "AltriSoggettiAddComunSospesa",
                                                      "CodiceFiscaleLavoroAutonomo",
                                                      "CodiceFiscalePignoramentoTerzi",
                                                      "CodiceFiscaleIndennitaEsproprio",
                                                      "PignoramentoTerziCodiceFiscale1",
                                                      "PignoramentoTerziSommeErogate1",
                                                      "PignoramentoTerziRitenuteOperate1",
                                                      "PignoramentoTerziRitenuteNonOperate1",
                                                      "PignoramentoTerziSommeNonTassate1",
                                                      "PignoramentoTerziCodiceFiscale2",
                                                      "PignoramentoTerziSommeErogate2",
                                                      "PignoramentoTerziRitenuteOperate2",
                                                      "PignoramentoTerziRitenuteNonOperate2",
                                                      "PignoramentoTerziSommeNonTassate2",
                                                      "IndennitaEsproprioSommeCorrisposte1",
                                                      "IndennitaEsproprioRitenuteOperate1",
                                                      "AltreIndennitaSommeCorrisposte1",
                                                      "AltreIndennitaRitenuteOperate1",
                                                      "IndennitaEsproprioSommeCorrisposte2",
                                                      "IndennitaEsproprioRitenuteOperate2",
                                                      "AltreIndennitaSommeCorrisposte2",
                                                      "AltreIndennitaRitenuteOperate2"};

// The result of "SELECT *, Anticipazione AS Eliminato"; a row contains the values that are not null,
// including its id. The flag Eliminato is the database's copy.
inline Table moduleTable(const std::vector<WorkRow>& rows) {
  Table table;
  const auto typeOf = [](std::string_view name) {
    if (name.find("CodiceFiscale") != std::string_view::npos) return ValueType::Text;
    for (const std::string_view whole :
         {"NumeroModulo", "IDCodicePerNonSoggetti", "AnnoModulo", "Anticipazione", "AltriContributi",
          "PignoramentoTerziRitenuteNonOperate1", "PignoramentoTerziRitenuteNonOperate2"}) {
      if (name == whole) return ValueType::Integer;
    }
    return ValueType::Decimal;
  };
  for (const std::string_view key :
       {"IDModuloXContoIndividuale", "IDAnagrafica", "IDAzienda", "IDCausalePagamento", "Anno"}) {
    table.columns.push_back({std::string(key), ValueType::Integer});
  }
  for (const std::string_view name : kModuleColumns)
    table.columns.push_back({std::string(name), typeOf(name)});
  table.columns.push_back({"Eliminato", ValueType::Integer});
  for (const WorkRow& row : rows) {
    std::vector<Value> cells;
    for (const auto& column : table.columns) {
      const auto cell = row.find(column.name == "Eliminato" ? std::string("Anticipazione") : column.name);
      cells.push_back(cell == row.end() ? Value() : cell->second);
    }
    table.rows.push_back(std::move(cells));
  }
  return table;
}

// The answers to an editor's queries while it opens and is confirmed: no modules, two codes, one payee.
inline void answerEditors(FakeDatabase& database) {
  database.internal.answerContaining("FROM ModuloXContoIndividuale WHERE Anno = ", moduleTable({}));
  database.internal.answerContaining("SELECT Codice FROM CodicePerNonSoggetti", Table({"Codice"}, {}));
  database.own.answerContaining("FROM CodicePerNonSoggetti",
                                Table({"IDCodicePerNonSoggetti", "Descrizione"},
                                      {{whole(1), text("1 - Uno")}, {whole(2), text("2 - Due")}}));
  database.own.answerContaining(
      "FROM RepPercipienteCD",
      Table({"IDAnagrafica", "Codice", "Anagrafica"}, {{whole(1), text("P1"), text("Rossi Mario")}}));
  database.own.answerContaining("FROM CausalePagamento",
                                Table({"IDCausalePagamento", "Codice", "CausalePagamento"},
                                      {{whole(1), text("A"), text("Lavoro autonomo")}}));
}

}  // namespace cu::test
