// Any bytes as the definition of a report: rejected in one line that names the file, or printed, as pages and
// as a table, from a view that has all the fields used.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "modello/modello.h"
#include "reporting/definition.h"
#include "reporting/library.h"
#include "reporting/pdf_reports.h"
#include "reporting/report_error.h"
#include "support/fixed_clock.h"
#include "support/memory_file_system.h"
#include "support/scripted_front_end.h"
#include "support/table.h"

namespace {

using cu::Value;
using cu::reporting::ReportDefinition;

constexpr std::size_t kRows = 5;

[[noreturn]] void fault(const std::string& what) {
  std::fprintf(stderr, "%s\n", what.c_str());
  std::abort();
}

bool isLine(std::string_view text) {
  for (const char c : text) {
    if (static_cast<unsigned char>(c) < 0x20) return false;
  }
  return true;
}

void check(bool kept, const char* what) {
  if (!kept) fault(what);
}

void checkColumns(const std::vector<cu::reporting::ReportColumn>& columns) {
  for (const auto& column : columns) {
    check(!column.caption.empty() && !column.terms.empty() && column.width > 0, "a column without its due");
    for (const auto& term : column.terms) check(!term.field.empty(), "a field without a name");
  }
}

// The invariants of every accepted definition.
void checkRules(const ReportDefinition& definition) {
  check(!definition.name.empty() && !definition.view.empty() && !definition.title.empty() &&
            definition.objectType > 0 && definition.number > 0 && !definition.order.empty(),
        "a definition without its head");
  checkColumns(definition.columns);
  checkColumns(definition.sheetColumns);
  for (const auto& group : definition.groups) {
    check(!group.key.empty() && !group.title.empty(), "a group without a key");
  }
  if (definition.layout == cu::reporting::LayoutKind::Form) {
    check(!definition.sections.empty(), "a form without a section");
  } else {
    check(!definition.columns.empty() && !definition.groups.empty(), "a table without columns");
  }
  for (const auto& section : definition.sections) {
    check(!section.rows.empty(), "a section without rows");
    for (const auto& row : section.rows) {
      check(!row.empty(), "a row without boxes");
      for (const auto& box : row) check(box.width > 0, "a box without width");
    }
  }
}

// The fields that a definition reads, and those that every layout reads.
std::vector<cu::Column> fieldsOf(const ReportDefinition& definition) {
  std::vector<std::string> names = {"IDAnagrafica",
                                    "IDCausalePagamento",
                                    "Anno",
                                    "IDAzienda",
                                    "Path1",
                                    "Path2",
                                    "Path3",
                                    "PersonaFisica",
                                    "NonResidente",
                                    "Codice",
                                    "Anticipazione",
                                    "NonResidenteSchumacker",
                                    "TipoComunicazione",
                                    "DataImpegno",
                                    "Anagrafica",
                                    "Nome",
                                    "CodiceFiscale",
                                    "AnagraficaAz",
                                    "NomeAz",
                                    "NomeRapp",
                                    "AnagraficaRapp",
                                    "CognomeRapp",
                                    "Carica",
                                    "ProtocolloAnnSost",
                                    "ProgressivoAnnSost",
                                    "Indirizzo",
                                    "Cap",
                                    "Comune",
                                    "Provincia",
                                    "Nazione",
                                    "Telefono",
                                    "EMailInternet",
                                    "PartitaIva",
                                    "CodiceFiscaleIntermediario",
                                    "ContributiCaricoAzienda",
                                    "ContributiCaricoPercipiente",
                                    "ImportoAltriContributi",
                                    "ContributiDovuti",
                                    "ContributiVersati"};
  const auto add = [&](std::string_view text) {
    for (std::string& field : cu::reporting::fieldsOf(text)) names.push_back(std::move(field));
  };
  for (const auto& group : definition.groups) {
    names.insert(names.end(), group.key.begin(), group.key.end());
    add(group.title);
    add(group.note);
  }
  add(definition.introduction);
  for (const auto* columns : {&definition.columns, &definition.sheetColumns}) {
    for (const auto& column : *columns) {
      for (const auto& term : column.terms) {
        names.push_back(term.field);
        add(term.field);
      }
    }
  }
  for (const auto& computed : definition.computed) names.push_back(computed.name);
  names.insert(names.end(), definition.order.begin(), definition.order.end());
  // A box reads more columns than the one that identifies it.
  for (const auto& campo : cu::modello::kModello.campi) {
    for (const std::string_view column : campo.altre) {
      if (!column.empty()) names.emplace_back(column);
    }
    if (!campo.colonna.empty()) names.emplace_back(campo.colonna);
  }
  for (const auto& section : definition.sections) {
    for (const auto& row : section.rows) {
      for (const auto& box : row) {
        if (!box.field.empty()) names.push_back(box.field);
      }
    }
    add(section.title);
  }
  std::vector<cu::Column> columns;
  std::set<std::string> known;
  for (std::string& name : names) {
    if (known.insert(cu::lowerAscii(name)).second) columns.push_back({std::move(name)});
  }
  return columns;
}

// Answers each query with the same few rows, in which all kinds of values alternate.
class AnyRows : public cu::Connection {
 public:
  explicit AnyRows(std::vector<cu::Column> columns) {
    using cu::test::amount;
    using cu::test::day;
    using cu::test::text;
    using cu::test::whole;
    const std::vector<Value> values = {
        whole(2),
        text("ENTE NAZIONALE DI PREVIDENZA E ASSISTENZA DEI MEDICI"),
        amount("-1234567.8901"),
        Value(),
        whole(2015),
        day(2016, 2, 29),
        text("\xc3\xa8"),
        text("senza alcun blank nonostante la lunghezza del testo\nin due righe"),
        whole(1),
        amount("0")};
    rows_.columns = std::move(columns);
    for (std::size_t row = 0; row < kRows; ++row) {
      auto& cells = rows_.rows.emplace_back();
      for (std::size_t column = 0; column < rows_.columns.size(); ++column) {
        // Two consecutive rows agree in most of their cells, so that groups form.
        cells.push_back(values[(column + row / 2 + (column % 5 == 0 ? row : 0)) % values.size()]);
      }
    }
  }
  std::int64_t Execute(std::string_view) override { return -1; }
  void Query(std::string_view source, cu::RowStore& rows) override {
    if (source.ends_with(" WHERE 1 = 0")) {
      cu::test::Table(rows_.columns).fill(rows);
    } else {
      rows_.fill(rows);
    }
  }
  void BeginRead() override {}
  void EndRead() noexcept override {}

 private:
  cu::test::Table rows_;
};

void print(const ReportDefinition& definition, std::string_view text) {
  cu::test::ScriptedFrontEnd screen;
  cu::test::MemoryFileSystem files;
  const cu::test::FixedClock clock(2018, 3, 5);
  cu::PdfReports reports({screen, files, clock, "Quadrivio"}, {{"p.toml", std::string(text)}});
  AnyRows connection(fieldsOf(definition));
  for (const std::int32_t code : {3, 0}) {
    const auto engine = reports.create();
    engine->setSession(12, 1, 1);
    engine->setConnection(connection);
    engine->setObjectType(definition.objectType);
    engine->setReportFile(definition.name);
    engine->setDefinition(definition.number);
    engine->setSelectionFormula("{__ViewName.Anno} = 2016");
    engine->setOutputPath("/stampa");
    try {
      engine->run(code);
      if (files.files["/stampa"].size() < 100) fault("nothing was written");
    } catch (const cu::Error& error) {
      if (!isLine(error.description())) fault("told in more than a line: " + error.description());
    }
    if (files.openNow != 0) fault("a file was left open");
    files.files.erase("/stampa");
    if (!files.files.empty()) fault("a file was left behind: " + files.files.begin()->first);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  ReportDefinition definition;
  try {
    definition = cu::reporting::parseDefinition(text, "p.toml");
  } catch (const cu::Error& error) {
    if (error.number() != cu::kErrorReportDefinition) fault("another error: " + error.description());
    if (!error.description().starts_with("Definizione della stampa p.toml")) fault(error.description());
    if (!isLine(error.description())) fault("told in more than a line: " + error.description());
    return 0;
  }
  checkRules(definition);
  print(definition, text);
  return 0;
}
