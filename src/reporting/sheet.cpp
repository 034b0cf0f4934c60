#include "reporting/sheet.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstring>
#include <ctime>
#include <iterator>
#include <string>
#include <vector>

#include "base/text.h"
#include "reporting/form_values.h"
#include "reporting/italian.h"
#include "reporting/report_error.h"
#include "reporting/table.h"

namespace cu::reporting {
namespace {

constexpr int kMostRows = 1048576;  // per sheet
constexpr double kCharactersPerShare = 0.75;
constexpr std::size_t kLongestSheetName = 31;

// The library formats numbers by the process's locale; the file format requires a decimal point.
class PlainNumbers {
 public:
  PlainNumbers() : before_(std::setlocale(LC_NUMERIC, nullptr)) { std::setlocale(LC_NUMERIC, "C"); }
  ~PlainNumbers() { std::setlocale(LC_NUMERIC, before_.c_str()); }
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;

 private:
  std::string before_;
};

void checkWritten(lxw_error code) {
  if (code == LXW_NO_ERROR) return;
  throw Error(kErrorReportOutput, "Impossibile scrivere la tabella: " + std::string(lxw_strerror(code)) +
                                      " (codice " + fromInteger(static_cast<std::int64_t>(code)) + ").");
}

// The title, as far as it is a valid sheet name.
std::string sheetName(const std::string& title) {
  std::string name;
  for (const char c : title) {
    const bool allowed = static_cast<unsigned char>(c) >= 0x20 && std::strchr("[]:*?/\\'", c) == nullptr;
    name += allowed ? c : ' ';
  }
  const std::string_view cut = trim(leftCodePoints(trim(name), kLongestSheetName));
  return cut.empty() ? "Stampa" : std::string(cut);
}

// Converts a date and time for the library, which would otherwise use the machine's.
std::time_t secondsOf(Date day, TimeOfDay time) {
  constexpr std::int32_t kFirstDay = 25569;  // 1 January 1970
  return ((static_cast<std::time_t>(day.serial() - kFirstDay) * 24 + time.hour) * 60 + time.minute) * 60 +
         time.second;
}

class Sheet {
 public:
  Sheet(const std::string& path, const std::string& title, const std::string& creator, std::time_t created) {
    // Rows are freed from memory as the next one begins.
    lxw_workbook_options options = {};
    options.constant_memory = LXW_TRUE;
    book_ = workbook_new_opt(path.c_str(), &options);
    if (book_ == nullptr) checkWritten(LXW_ERROR_MEMORY_MALLOC_FAILED);
    sheet_ = workbook_add_worksheet(book_, sheetName(title).c_str());
    if (sheet_ == nullptr) checkWritten(LXW_ERROR_MEMORY_MALLOC_FAILED);
    std::string titleCopy = title;
    std::string creatorCopy = creator;
    lxw_doc_properties properties = {};
    properties.title = titleCopy.data();
    properties.author = creatorCopy.data();
    properties.created = created;
    workbook_set_properties(book_, &properties);
    head_ = workbook_add_format(book_);
    format_set_bold(head_);
    format_set_bg_color(head_, 0xECF2F6);
    format_set_bottom(head_, LXW_BORDER_THIN);
    format_set_text_wrap(head_);
    amount_ = workbook_add_format(book_);
    format_set_num_format(amount_, "#,##0.00");
    date_ = workbook_add_format(book_);
    format_set_num_format(date_, "dd/mm/yyyy");
    worksheet_freeze_panes(sheet_, 1, 0);
  }
  ~Sheet() {
    if (book_ != nullptr) workbook_close(book_);
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  void column(const QString& caption, double width) {
    worksheet_set_column(sheet_, column_, column_, width, nullptr);
    checkWritten(worksheet_write_string(sheet_, 0, column_++, caption.toStdString().c_str(), head_));
  }
  void beginRow() {
    if (++row_ >= kMostRows) {
      throw Error(kErrorReportOutput, "La tabella ha più righe di quante un foglio ne contenga: 1.048.575.");
    }
    column_ = 0;
  }
  void empty() { ++column_; }
  void text(const QString& value) {
    const lxw_col_t at = column_++;
    if (!value.isEmpty())
      checkWritten(worksheet_write_string(sheet_, place(), at, value.toStdString().c_str(), nullptr));
  }
  void integer(std::int64_t value) {
    checkWritten(worksheet_write_number(sheet_, place(), column_++, static_cast<double>(value), nullptr));
  }
  void amount(Decimal value) {
    checkWritten(worksheet_write_number(sheet_, place(), column_++, value.toDouble(), amount_));
  }
  // The file also counts days since 30 December 1899.
  void date(Date value) {
    checkWritten(worksheet_write_number(sheet_, place(), column_++, value.serial(), date_));
  }
  void close() {
    lxw_workbook* const book = book_;
    book_ = nullptr;
    checkWritten(workbook_close(book));
  }

 private:
  lxw_row_t place() const { return static_cast<lxw_row_t>(row_); }
  lxw_workbook* book_ = nullptr;
  lxw_worksheet* sheet_ = nullptr;
  lxw_format* head_ = nullptr;
  lxw_format* amount_ = nullptr;
  lxw_format* date_ = nullptr;
  int row_ = 0;
  lxw_col_t column_ = 0;
};

void writeCell(Sheet& sheet, const ReportColumn& column, const ColumnValue& value, const Rows& rows) {
  if (value.isTemplate()) {
    sheet.text(value.text(rows));
    return;
  }
  switch (column.format) {
    case ColumnFormat::Amount:
      sheet.amount(value.amount(rows));
      return;
    case ColumnFormat::Integer:
      if (value.cell(rows).isNull()) {
        sheet.empty();
      } else {
        sheet.integer(value.cell(rows).integer());
      }
      return;
    case ColumnFormat::Date:
      if (value.cell(rows).date() == Date()) {
        sheet.empty();
      } else {
        sheet.date(value.cell(rows).date());
      }
      return;
    case ColumnFormat::Text:
      sheet.text(value.text(rows));
      return;
  }
}

void writeTable(Sheet& sheet, const LayoutInput& input) {
  std::vector<const ReportColumn*> columns;
  for (const ReportColumn& each : input.definition.sheetColumns) columns.push_back(&each);
  for (const ReportColumn& each : input.definition.columns) columns.push_back(&each);
  std::vector<ColumnValue> values;
  for (const ReportColumn* column : columns) {
    values.emplace_back(*column, input.rows);
    sheet.column(fromUtf8(column->caption), column->width * kCharactersPerShare);
  }
  for (std::size_t row = 0; row < input.rows.size(); ++row) {
    input.report("Scrittura delle righe", row, input.rows.size());
    input.rows.move(row);
    sheet.beginRow();
    for (std::size_t i = 0; i < columns.size(); ++i) writeCell(sheet, *columns[i], values[i], input.rows);
  }
}

constexpr std::array<std::pair<const char*, const char*>, 5> kFormColumns = {
    {{"Anno", "Anno"},
     {"Codice percipiente", "CodicePercipiente"},
     {"Codice fiscale", "CodiceFiscale"},
     {"Cognome o denominazione", "Anagrafica"},
     {"Nome", "Nome"}}};

// The boxes of the amounts in a year's layout, in order.
std::vector<LaidBox> amountBoxes(const ReportDefinition& definition, std::int32_t year,
                                 const modello::Modello& form) {
  std::vector<LaidBox> boxes;
  for (const LaidSection& section : layOut(definition, FormPart::Amounts, year, form)) {
    for (const std::vector<LaidBox>& row : section.rows) {
      std::copy_if(row.begin(), row.end(), std::back_inserter(boxes),
                   [](const LaidBox& box) { return box.main != nullptr; });
    }
  }
  return boxes;
}

void writeModule(Sheet& sheet, const LayoutInput& input, std::int64_t module,
                 const std::vector<LaidBox>& boxes, const auto& values) {
  sheet.beginRow();
  sheet.integer(input.rows.get("Anno").integer());
  for (std::size_t i = 1; i < kFormColumns.size(); ++i) sheet.text(input.rows.text(kFormColumns[i].second));
  sheet.integer(module);
  for (const LaidBox& box : boxes) {
    const BoxValue value = values.of(box);
    if (value.amount) {
      sheet.amount(*value.amount);
    } else {
      sheet.text(value.text);
    }
  }
}

void writeForms(Sheet& sheet, const LayoutInput& input) {
  if (input.rows.size() == 0) return;
  input.rows.move(0);
  const std::vector<LaidBox> boxes =
      amountBoxes(input.definition, static_cast<std::int32_t>(input.rows.get("Anno").integer()), input.form);
  for (const auto& [caption, field] : kFormColumns) sheet.column(QString::fromUtf8(caption), 20);
  sheet.column("Modulo", 8);
  for (const LaidBox& box : boxes) {
    sheet.column(QString::number(box.main->numero) + ' ' + fromUtf8(box.box->caption), 16);
  }
  for (std::size_t row = 0; row < input.rows.size(); ++row) {
    input.report("Scrittura dei moduli", row, input.rows.size());
    input.rows.move(row);
    writeModule(sheet, input, 1, boxes, MainModuleValues(input.rows, input.form));
    Rows modules = readModules(input.connection, input.rows);
    for (std::size_t i = 0; i < modules.size(); ++i) {
      modules.move(i);
      writeModule(sheet, input, static_cast<std::int64_t>(i) + 2, boxes,
                  FurtherModuleValues(modules, input.rows));
    }
  }
}

}  // namespace

void writeSheet(const std::string& path, const LayoutInput& input, const std::string& creator) {
  const PlainNumbers numbers;
  Sheet sheet(path, input.definition.title, creator, secondsOf(input.today, input.now));
  switch (input.definition.layout) {
    case LayoutKind::List:
    case LayoutKind::Certificate:
      writeTable(sheet, input);
      break;
    case LayoutKind::Form:
      writeForms(sheet, input);
      break;
  }
  sheet.close();
}

}  // namespace cu::reporting
