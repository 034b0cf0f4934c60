#include "reporting/definition.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reporting/library.h"
#include "reporting/report_error.h"
#include "suite/catalogo_stampe.h"

namespace cu::reporting {
namespace {

constexpr const char* kGood = R"toml(
name = "Prova.rpt"
object_type = 246
definition = 9
view = "RepContoIndividuale"
title = "Prova"
layout = "list"
order = ["Anno"]
[[group]]
key = ["IDAnagrafica"]
title = "{Anagrafica}"
[[column]]
caption = "Anno"
format = "integer"
field = "Anno"
width = 10
)toml";

std::string refusal(const std::string& text) {
  try {
    parseDefinition(text, "prova.toml");
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), kErrorReportDefinition);
    return error.description();
  }
  ADD_FAILURE() << "accepted:\n" << text;
  return {};
}

std::string changed(const std::string& from, const std::string& to) {
  std::string text = kGood;
  const std::size_t at = text.find(from);
  if (at == std::string::npos) throw std::runtime_error("no " + from);
  return text.replace(at, from.size(), to);
}

TEST(Definition, IsRead) {
  const ReportDefinition read = parseDefinition(kGood, "prova.toml");
  EXPECT_EQ(read.name, "Prova.rpt");
  EXPECT_EQ(read.objectType, 246);
  EXPECT_EQ(read.number, 9);
  EXPECT_EQ(read.view, "RepContoIndividuale");
  EXPECT_EQ(read.layout, LayoutKind::List);
  ASSERT_EQ(read.columns.size(), 1U);
  EXPECT_EQ(read.columns[0].format, ColumnFormat::Integer);
}

struct Fault {
  const char* from;
  const char* to;
  const char* told;
};

class DefinitionFaults : public testing::TestWithParam<Fault> {};

TEST_P(DefinitionFaults, AreTold) {
  EXPECT_EQ(refusal(changed(GetParam().from, GetParam().to)),
            std::string("Definizione della stampa prova.toml") + GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    EachFault, DefinitionFaults,
    testing::Values(
        Fault{"layout =", "layout", ", riga 7, colonna 8: il testo non è TOML valido."},
        Fault{"view = \"RepContoIndividuale\"\n", "", ": view: manca, atteso un testo tra virgolette."},
        Fault{"title = \"Prova\"", "title = 7", ": title: tipo sbagliato, atteso un testo tra virgolette."},
        Fault{"title = \"Prova\"", "title = \"\"", ": title: è vuoto, atteso un testo tra virgolette."},
        Fault{"object_type = 246", "object_type = 0",
              ": object_type: valore non ammesso, atteso un numero intero maggiore di zero."},
        Fault{"object_type = 246", "object_type = 99999999999",
              ": object_type: valore non ammesso, atteso un numero intero maggiore di zero."},
        Fault{"layout = \"list\"", "layout = \"lista\"",
              ": layout: valore \"lista\" sconosciuto, atteso uno di questi: list, certificate, form."},
        Fault{"layout = \"list\"", "layout = \"form\"", ": section: manca, atteso almeno una sezione."},
        Fault{"layout = \"list\"", "layout = \"certificate\"",
              ": introduction: manca, atteso il testo della certificazione."},
        Fault{"order = [\"Anno\"]", "order = []", ": order: è vuoto, atteso un elenco di testi."},
        Fault{"order = [\"Anno\"]", "order = [1]", ": order: tipo sbagliato, atteso un elenco di testi."},
        Fault{"format = \"integer\"", "format = \"year\"",
              ": column 1: format: valore \"year\" sconosciuto, atteso uno di questi: text, integer, date, "
              "amount."},
        Fault{"field = \"Anno\"", "field = [\"Anno\", \"Altro\"]",
              ": column 1: field: somma di campi che non sono importi, atteso un solo campo."},
        Fault{"width = 10", "width = -1",
              ": column 1: width: valore non ammesso, atteso un numero maggiore di zero."},
        Fault{"width = 10", "width = 10\ntotal = true",
              ": column 1: total: solo gli importi hanno un totale, atteso format = \"amount\"."},
        Fault{"width = 10", "width = 10\ncolour = 1",
              ": column 1: colour: chiave sconosciuta, atteso uno di questi nomi: caption, format, field, "
              "width, "
              "total."},
        Fault{"[[group]]", "[[gruppo]]",
              ": gruppo: chiave sconosciuta, atteso uno di questi nomi: name, object_type, definition, view, "
              "title, "
              "layout, introduction, joins, order, grand_total, computed, group, column, sheet_column, "
              "section, selection."}));

constexpr const char* kSelection =
    "[[selection]]\nfield = [\"Anno\", \"Altro\"]\nall = \"tutti\"\none = \"nel %1\"\nfrom = \"dal %1\"\n"
    "to = \"al %1\"\nrange = \"dal %1 al %2\"\n";

TEST(Definition, HasWordsForASelection) {
  const ReportDefinition read = parseDefinition(std::string(kGood) + kSelection, "prova.toml");
  ASSERT_EQ(read.selection.size(), 1U);
  const SelectionWords& words = read.selection[0];
  EXPECT_EQ(words.fields, (std::vector<std::string>{"Anno", "Altro"}));
  EXPECT_EQ(words.all + '|' + words.one + '|' + words.from + '|' + words.to + '|' + words.range,
            "tutti|nel %1|dal %1|al %1|dal %1 al %2");
}

TEST(Definition, NeedsAPlaceForEachBoundOfASelection) {
  const auto without = [](const std::string& from, const std::string& to) {
    std::string text = kGood + std::string(kSelection);
    text.replace(text.find(from), from.size(), to);
    return refusal(text);
  };
  const std::string place = "Definizione della stampa prova.toml: selection 1: ";
  EXPECT_EQ(without("nel %1", "nel"), place + "one: manca il posto di un estremo, atteso un testo con %1.");
  EXPECT_EQ(without("dal %1 al %2", "%1"),
            place + "range: manca il posto di un estremo, atteso un testo con %2.");
  EXPECT_EQ(without("field = [\"Anno\", \"Altro\"]\n", ""),
            place + "field: manca, atteso il nome di un campo, o più nomi.");
  EXPECT_EQ(without("all = \"tutti\"\n", ""), place + "all: manca, atteso un testo tra virgolette.");
}

std::string formWith(const std::string& box) {
  return "name = \"F.rpt\"\nobject_type = 1\ndefinition = 1\nview = \"V\"\ntitle = \"F\"\nlayout = "
         "\"form\"\norder = "
         "[\"A\"]\n[[section]]\npart = \"amounts\"\ntitle = \"S\"\nrows = [ [ " +
         box + " ] ]\n";
}

TEST(Definition, TellsTheBoxThatIsWrong) {
  EXPECT_EQ(
      refusal(formWith("{ field = \"CodiceFiscaleAz\", caption = \"C\", width = 1 }")),
      "Definizione della stampa prova.toml: section 1, riga 1, casella 1: field: valore \"CodiceFiscaleAz\" "
      "sconosciuto, atteso la colonna di una casella di questa parte del modello.");
  EXPECT_EQ(
      refusal(formWith("{ width = 1 }, { field = \"Codice\", caption = \"C\", width = 1, "
                       "years = \"2015-2016\" }")),
      "Definizione della stampa prova.toml: section 1, riga 1, casella 2: years: valore \"2015-2016\" non "
      "ammesso, atteso anni come \"2015\", \"2015-\" o \"-2016\".");
  EXPECT_EQ(refusal(formWith("7")),
            "Definizione della stampa prova.toml: section 1: rows: tipo sbagliato, atteso righe di caselle, "
            "come [ [ { "
            "field = ..., width = 1 } ] ].");
}

TEST(Definition, IsRefusedInOneLineWhateverItHolds) {
  EXPECT_EQ(
      refusal(changed("layout =", "\"chi\\nave\" = 1\nlayout =")),
      "Definizione della stampa prova.toml: chi ave: chiave sconosciuta, atteso uno di questi nomi: name, "
      "object_type, definition, view, title, layout, introduction, joins, order, grand_total, computed, "
      "group, column, sheet_column, section, selection.");
  EXPECT_EQ(
      refusal(changed("\"list\"", "\"\"\"li\nst\"\"\"")),
      "Definizione della stampa prova.toml: layout: valore \"li st\" sconosciuto, atteso uno di questi: "
      "list, certificate, form.");
}

TEST(Definition, OfEachReportOfTheSuitesCatalogueIsCarried) {
  ReportLibrary library(embeddedDefinitionFiles());
  const CatalogoStampe catalogue;
  std::size_t listed = 0;
  for (const int type : {246, 247, 342}) {
    for (const ReportInfo& report : catalogue.reports(type)) {
      EXPECT_EQ(library.find(report.name, type, report.definition).name, report.name);
      ++listed;
    }
  }
  EXPECT_EQ(embeddedDefinitionFiles().size(), listed);
}

TEST(ReportLibrary, RefusesAReportUnderAnotherNumber) {
  ReportLibrary library(embeddedDefinitionFiles());
  try {
    library.find("ContoIndividuale.rpt", 247, 2461);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(
        error.description(),
        "Definizione della stampa ContoIndividuale.rpt: appartiene al tipo oggetto 246 con il numero 2461, "
        "richiesta per il tipo 247 con il numero 2461.");
  }
}

TEST(ReportLibrary, RefusesAReportThatItDoesNotHave) {
  ReportLibrary library(embeddedDefinitionFiles());
  try {
    library.find("Altro.rpt", 246, 1);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), kErrorReportDefinition);
    EXPECT_EQ(error.description(), "Definizione della stampa \"Altro.rpt\": non esiste.");
  }
}

TEST(ReportLibrary, ABrokenFileDoesNotKeepTheOthersFromPrinting) {
  ReportLibrary library({{"rotta.toml", "name ="}, {"buona.toml", kGood}});
  EXPECT_EQ(library.find("Prova.rpt", 246, 9).title, "Prova");
  EXPECT_THROW(library.find("Rotta.rpt", 246, 1), Error);
}

}  // namespace
}  // namespace cu::reporting
