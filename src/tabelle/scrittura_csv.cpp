#include "base/text.h"
#include "tabelle/csv.h"
#include "tabelle/scrittura.h"

namespace cu::tabelle {
namespace {

std::string importoCsv(Decimal importo) {
  std::string testo = importo.toText();
  const std::size_t punto = testo.find('.');
  const std::size_t decimali = punto == std::string::npos ? 0 : testo.size() - punto - 1;
  return decimali < 2 ? importo.toFixed(2, ',') : importo.toFixed(static_cast<int>(decimali), ',');
}

std::string testoCsv(std::string_view testo) {
  std::string scritto = somigliaAFormula(testo) ? "'" : "";
  scritto += testo;
  // Every separator that a reader may look for is quoted.
  if (scritto.find_first_of(";,\t\"\r\n\x1a") == std::string::npos) return scritto;
  std::string quotato = "\"";
  for (const char c : scritto) quotato += c == '"' ? std::string(2, c) : std::string(1, c);
  return quotato + '"';
}

std::string valoreCsv(const CellView& valore) {
  switch (valore.type()) {
    case ValueType::Null:
      return {};
    case ValueType::Integer:
      return valore.toText();
    case ValueType::Decimal:
      return importoCsv(valore.decimal());
    case ValueType::Text:
      return testoCsv(valore.text());
    case ValueType::Date:
      return valore.date() == Date() ? std::string() : valore.date().toIso();
  }
  return {};
}

}  // namespace

std::string scriviCsv(const TabellaDaScrivere& tabella) {
  std::string testo = "\xef\xbb\xbf";
  for (std::size_t i = 0; i < tabella.colonne.size(); ++i) {
    if (i > 0) testo += ';';
    testo += testoCsv(tabella.colonne[i]);
  }
  testo += "\r\n";
  for (const std::vector<Value>& riga : tabella.righe) {
    for (std::size_t i = 0; i < tabella.colonne.size(); ++i) {
      if (i > 0) testo += ';';
      if (i < riga.size()) testo += valoreCsv(riga[i].view());
    }
    testo += "\r\n";
  }
  return testo;
}

}  // namespace cu::tabelle
