#include "apps/assistente/pagina.h"

#include <QLabel>

#include "apps/strumenti/conteggi.h"

namespace cu::assistente {
namespace {

// Thousands marks in "-1234567,50".
QString conMigliaia(QString testo) {
  constexpr qsizetype kGruppo = 3;
  const qsizetype primo = testo.startsWith(u'-') ? 1 : 0;
  for (qsizetype i = testo.indexOf(u',') - kGruppo; i > primo; i -= kGruppo) testo.insert(i, u'.');
  return testo;
}

}  // namespace

QLabel* etichetta(const char* testo, QWidget* di, QWidget* parent) {
  auto* const fatta = new QLabel(QString::fromUtf8(testo), parent);
  fatta->setBuddy(di);
  return fatta;
}

QString importoDa(Decimal importo) { return conMigliaia(qs(importo.toFixed(2, ','))); }

QString importoDaTesto(const std::string& testo) {
  const auto importo = Decimal::parse(testo);
  return testo.empty() || !importo ? qs(testo) : importoDa(*importo);
}

QString giornoDaTesto(const std::string& testo) {
  const auto giorno = Date::parseIso(testo);
  return giorno ? qs(giorno->toItalian()) : qs(testo);
}

QString quante(std::size_t numero, const char* una, const char* piu) {
  return qs(strumenti::alPlurale(numero, una, piu));
}

}  // namespace cu::assistente
