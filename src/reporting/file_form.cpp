#include "reporting/file_form.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

#include "modello/modello.h"
#include "reporting/form_boxes.h"
#include "reporting/form_values.h"
#include "reporting/library.h"

namespace cu::reporting {
namespace {

constexpr const char* kFormReport = "CertificazioneUnica.rpt";
constexpr std::int32_t kFormType = 342;
constexpr std::int32_t kFormNumber = 3421;

const ReportDefinition& formDefinition() {
  static ReportLibrary library(embeddedDefinitionFiles());
  return library.find(kFormReport, kFormType, kFormNumber);
}

std::string codeOf(const modello::Campo& campo) {
  const modello::Codice code = modello::codice(campo);
  return {code.data(), code.size()};
}

std::set<std::string> allCodes() {
  std::set<std::string> codes;
  for (const modello::Campo& campo : modello::kModello.campi) codes.insert(codeOf(campo));
  return codes;
}

const std::string& cellText(const FormOfFile::Cells& cells, std::string_view code) {
  static const std::string kNone;
  const auto found = std::find_if(cells.begin(), cells.end(),
                                  [code](const FormOfFile::Cell& cell) { return cell.code == code; });
  return found == cells.end() ? kNone : found->text;
}

Date dayOf(const std::string& ddmmyyyy) {
  constexpr std::size_t kDigits = 8;
  if (ddmmyyyy.size() != kDigits) return {};
  const std::string italian = ddmmyyyy.substr(0, 2) + "/" + ddmmyyyy.substr(2, 2) + "/" + ddmmyyyy.substr(4);
  return Date::parseItalian(italian).value_or(Date());
}

// Answers the two statements of the layout with the cells of one certificate.
class CellsConnection final : public Connection {
 public:
  explicit CellsConnection(const FormOfFile& form) : form_(form) {}
  std::int64_t Execute(std::string_view) override { return 0; }
  void Query(std::string_view source, RowStore& rows) override {
    if (source == kFileModules) {
      modules(rows);
    } else {
      certificate(rows);
    }
  }

 private:
  using Row = std::map<std::string, Value>;

  static void put(const Row& row, RowStore& rows) {
    rows.beginRow();
    for (const auto& [name, value] : row) {
      const CellView cell = value.view();
      if (cell.type() == ValueType::Integer) {
        rows.integer(cell.integer());
      } else if (cell.type() == ValueType::Date) {
        rows.date(cell.date());
      } else {
        rows.text(cell.text());
      }
    }
    rows.endRow();
  }
  static void name(const Row& row, RowStore& rows) {
    std::vector<Column> columns;
    for (const auto& [name, value] : row) columns.push_back({name, value.type()});
    rows.setColumns(std::make_shared<const Columns>(std::move(columns)));
  }
  static Row cellsOf(const FormOfFile::Cells& cells) {
    static const std::set<std::string> kCodes = allCodes();
    Row row;
    for (const std::string& code : kCodes) row.emplace(code, Value::ofText(cellText(cells, code)));
    return row;
  }

  void certificate(RowStore& rows) const {
    FormOfFile::Cells cells = form_.identity;
    if (!form_.modules.empty()) {
      cells.insert(cells.end(), form_.modules.front().begin(), form_.modules.front().end());
    }
    Row row = cellsOf(cells);
    const auto text = [&row](const char* column, const std::string& value) {
      row.emplace(column, Value::ofText(value));
    };
    const auto number = [&row](const char* column, std::int64_t value) {
      row.emplace(column, Value::ofInteger(value));
    };
    number("Anno", form_.year);
    number("Path1", form_.kind);
    number("Path2", form_.intermediary.empty() ? 0 : 1);
    row.emplace("Path3", Value::ofDate(dayOf(cellText(cells, "DA003001"))));
    text("ProtocolloAnnSost", form_.protocol);
    text("ProgressivoAnnSost", form_.progressive);
    number("PersonaFisica", 1);
    text("CodiceFiscale", cellText(cells, "DA002001"));
    text("Anagrafica", cellText(cells, "DA002002"));
    text("Nome", cellText(cells, "DA002003"));
    text("AnagraficaAz", cellText(cells, "DA001002"));
    text("NomeAz", cellText(cells, "DA001003"));
    text("NomeRapp", form_.representative);
    text("AnagraficaRapp", {});
    text("CodiceFiscaleIntermediario", form_.intermediary);
    number("TipoComunicazione", form_.commitment);
    row.emplace("DataImpegno", Value::ofDate(form_.commitmentDay));
    name(row, rows);
    put(row, rows);
  }

  void modules(RowStore& rows) const {
    name(cellsOf({}), rows);
    for (std::size_t i = 1; i < form_.modules.size(); ++i) put(cellsOf(form_.modules[i]), rows);
  }

  const FormOfFile& form_;
};

}  // namespace

std::unique_ptr<PreviewPages> drawFormOfFile(const FormOfFile& form, const std::string& creator,
                                             std::vector<FormPlace>* places) {
  CellsConnection cells(form);
  Rows rows(cells, kFileCertificate);
  const Company company;
  const LayoutInput input{formDefinition(), rows,    company,    {}, {}, {}, cells, true,
                          places,           nullptr, *form.table};
  return std::make_unique<PreviewPages>(input, creator);
}

std::string boxCaption(const std::string& code, std::int32_t year, const modello::Modello& table) {
  if (code == "DA003001") return "Data della firma";
  if (code == "DA003002") return "Firma";
  for (const FormPart part : {FormPart::Identity, FormPart::Amounts}) {
    for (const LaidSection& section : layOut(formDefinition(), part, year, table)) {
      for (const std::vector<LaidBox>& row : section.rows) {
        for (const LaidBox& box : row) {
          if (box.main != nullptr && codeOf(*box.main) == code) return box.box->caption;
        }
      }
    }
  }
  return {};
}

}  // namespace cu::reporting
