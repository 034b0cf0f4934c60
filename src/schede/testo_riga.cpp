#include "schede/testo_riga.h"

#include "base/text.h"
#include "data/testo_protetto.h"

namespace cu::schede {
namespace {

void appendTestoValore(std::string& testo, const Value& valore) {
  const CellView cella = valore.view();
  switch (valore.type()) {
    case ValueType::Null:
      return;
    case ValueType::Text:
      testo += '\'';
      appendProtetto(testo, cella.text());
      return;
    case ValueType::Date:
      testo += cella.date().toIso();
      return;
    case ValueType::Integer:
    case ValueType::Decimal:
      testo += cella.toText();
      return;
  }
}

Value valoreDaTesto(TipoColonna tipo, std::string_view testo) {
  if (testo.empty()) return {};
  switch (tipo) {
    case TipoColonna::Testo:
      return Value::ofText(senzaProtezione(testo.substr(testo.front() == '\'' ? 1 : 0)));
    case TipoColonna::Giorno:
      return Value::ofDate(Date::parseIso(testo).value_or(Date()));
    case TipoColonna::Importo:
      return Value::ofDecimal(Decimal::parse(testo).value_or(Decimal()));
    case TipoColonna::Intero:
    case TipoColonna::Id:
    case TipoColonna::Flag:
      break;
  }
  return Value::ofInteger(leadingInteger(testo));
}

}  // namespace

std::string testoRiga(const Riga& riga) {
  std::string testo;
  for (std::size_t i = 0; i < riga.size(); ++i) {
    if (i > 0) testo += '\t';
    appendTestoValore(testo, riga[i]);
  }
  return testo;
}

Riga rigaDaTesto(const TabellaSuite& tabella, std::string_view testo) {
  Riga riga;
  riga.reserve(tabella.colonne.size());
  for (const ColonnaSuite& colonna : tabella.colonne) {
    const std::string_view campo = testo.substr(0, testo.find('\t'));
    riga.push_back(valoreDaTesto(colonna.tipo, campo));
    testo.remove_prefix(campo.size() < testo.size() ? campo.size() + 1 : testo.size());
  }
  return riga;
}

std::string testoChiave(const TabellaSuite& tabella, const Riga& riga) {
  std::string testo;
  for (std::size_t i = 0; i < tabella.chiavi; ++i) {
    if (i > 0) testo += ',';
    testo += riga[i].view().toText();
  }
  return testo;
}

}  // namespace cu::schede
