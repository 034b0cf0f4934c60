#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "modello/anni.h"

namespace cu::reporting {

// What a report is: where its rows come from, how they are grouped, what stands in its columns. Written in a
// file of data/reports/ (data/README.md tells the keys).

enum class LayoutKind {
  List,         // lines under headings of groups, with totals
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
  std::vector<Term> terms;  // one, or the amounts that are summed
  double width = 1;         // share of the table's width
  bool total = false;
};

// Rows that agree in `key` form a group. Texts hold fields of the rows in braces: "{Codice} {Anagrafica}".
struct ReportGroup {
  std::vector<std::string> key;
  std::string title;
  std::string note;        // second line of the heading
  std::string total;       // what stands before its totals; empty for none
  bool totalOfOne = true;  // whether a group of a single line below has totals too
};

// A column that the view does not have.
struct ComputedField {
  std::string name;
  std::string sql;  // an expression in the server's dialect over the view and the joined tables
};

// How a heading names the bounds of a selection by one of the fields: "%1" stands for the bound, in `range`
// for the lower one and "%2" for the upper one.
struct SelectionWords {
  std::vector<std::string> fields;
  std::string all;  // without a bound
  std::string one;  // both bounds the same
  std::string from;
  std::string to;
  std::string range;
};

// A box of the ministerial form by its column; what stands in it, and in which years it is there at all, the
// form itself says (modello).
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
  modello::Anni years;  // as of a box; a section none of whose boxes is in a year's form is not there either
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
  std::string joins;         // behind FROM and the view
  std::vector<ComputedField> computed;
  std::vector<std::string> order;
  std::vector<ReportGroup> groups;
  std::vector<ReportColumn> columns;
  std::vector<ReportColumn> sheetColumns;  // stand before the others in a table for a spreadsheet
  std::string grandTotal;                  // what stands before the totals of all; empty for none
  std::vector<SelectionWords> selection;   // what the heading of a list names, in order
  std::vector<FormSection> sections;
};

// Error (kErrorReportDefinition) with file, place and what was expected for anything that is not as it must
// be.
ReportDefinition parseDefinition(std::string_view text, const std::string& file);

// The fields that a text names in braces, in order.
std::vector<std::string> fieldsOf(std::string_view text);

}  // namespace cu::reporting
