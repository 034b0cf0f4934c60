#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "modello/anni.h"

namespace cu::reporting {

// The definition of a report: the source of its rows, their groups, its columns. Read from a file of
// data/reports/ (data/README.md describes the keys).

enum class LayoutKind {
  List,         // lines under group headings, with totals
  Certificate,  // a letter for each payee, with a table
  Form,         // numbered boxes
};

enum class ColumnFormat { Text, Integer, Date, Amount };

// A column of the rows with its sign.
struct Term {
  std::string field;
  bool negative = false;
};

struct ReportColumn {
  std::string caption;
  ColumnFormat format = ColumnFormat::Text;
  std::vector<Term> terms;  // one, or the amounts to sum
  double width = 1;         // share of the table's width
  bool total = false;
};

// Rows with the same `key` form a group. Texts contain fields of the rows in braces: "{Codice} {Anagrafica}".
struct ReportGroup {
  std::vector<std::string> key;
  std::string title;
  std::string note;        // second line of the heading
  std::string total;       // caption of its totals; empty for none
  bool totalOfOne = true;  // whether a group that contains a single line has totals too
};

// A column that is not in the view.
struct ComputedField {
  std::string name;
  std::string sql;  // an expression in the server's dialect over the view and the joined tables
};

// The words of a heading for a selection by one of the fields: "%1" is the limit; in `range` it is the lower
// and "%2" the upper one.
struct SelectionWords {
  std::vector<std::string> fields;
  std::string all;  // without a limit
  std::string one;  // equal limits
  std::string from;
  std::string to;
  std::string range;
};

// A box of the ministerial form, by its column; modello defines its content and its years.
struct FormBox {
  std::string field;  // its column in the main module; empty for a space between boxes
  std::string caption;
  modello::Anni years;  // where its place depends on the layout of a year
  double width = 1;
};

enum class FormPart { Identity, Amounts };

struct FormSection {
  FormPart part = FormPart::Amounts;
  std::string title;
  modello::Anni years;  // as for a box; a section without a box in a year's form is omitted too
  std::vector<std::vector<FormBox>> rows;
};

struct ReportDefinition {
  std::string name;  // "ContoIndividuale.rpt"
  std::int32_t objectType = 0;
  std::int32_t number = 0;
  std::string view;
  std::string title;
  LayoutKind layout = LayoutKind::List;
  std::string introduction;  // of a certificate; fields in braces
  std::string joins;         // after FROM and the view
  std::vector<ComputedField> computed;
  std::vector<std::string> order;
  std::vector<ReportGroup> groups;
  std::vector<ReportColumn> columns;
  std::vector<ReportColumn> sheetColumns;  // precede the others in a table for a spreadsheet
  std::string grandTotal;                  // caption of the grand totals; empty for none
  std::vector<SelectionWords> selection;   // the parts of a list's heading, in order
  std::vector<FormSection> sections;
};

// Raises Error (kErrorReportDefinition) with file, place and expected value for anything invalid.
ReportDefinition parseDefinition(std::string_view text, const std::string& file);

// The fields in braces of a text, in order.
std::vector<std::string> fieldsOf(std::string_view text);

}  // namespace cu::reporting
