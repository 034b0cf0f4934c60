#include "tabelle/lettore_xml.h"

#include <cstring>
#include <utility>

#include "tabelle/errore.h"

namespace cu::tabelle {
namespace {

constexpr int kProfonditaMassima = 100;
// A cell has at most 32,767 characters, each written as a reference of some bytes.
constexpr std::size_t kTrattoMassimo = std::size_t{1} << 20U;

}  // namespace

void aggiungiUtf8(std::string& testo, QStringView aggiunta) {
  const std::size_t prima = testo.size();
  for (const QChar c : aggiunta) {
    if (c.unicode() >= 0x80) {
      testo.resize(prima);
      testo += aggiunta.toUtf8().toStdString();
      return;
    }
    testo += static_cast<char>(c.unicode());
  }
}

DispositivoMembro::DispositivoMembro(ArchivioZip::Membro membro, const Posto& posto)
    : membro_(std::move(membro)), posto_(posto) {
  open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

void DispositivoMembro::verifica() const {
  if (errore_) std::rethrow_exception(errore_);
}

void DispositivoMembro::misuraTratto(const char* dove, std::size_t letti) {
  const char* ultimo = dove;
  for (const char* p = dove; p < dove + letti; ultimo = ++p) {
    p = static_cast<const char*>(std::memchr(p, '>', static_cast<std::size_t>(dove + letti - p)));
    if (p == nullptr) break;
    tratto_ = 0;
  }
  tratto_ += static_cast<std::size_t>(dove + letti - ultimo);
  if (tratto_ > kTrattoMassimo) throw ErroreTabella("F05", posto_, "Il file ha un testo troppo lungo");
}

qint64 DispositivoMembro::readData(char* dove, qint64 quanti) {
  if (errore_ || finito_) return errore_ ? -1 : 0;
  try {
    const std::size_t letti = membro_.leggi(dove, static_cast<std::size_t>(quanti));
    finito_ = letti == 0 && quanti > 0;
    misuraTratto(dove, letti);
    return static_cast<qint64>(letti);
  } catch (...) {
    errore_ = std::current_exception();
    return -1;
  }
}

LettoreXml::LettoreXml(ArchivioZip& archivio, std::size_t membro, const Posto& posto)
    : dispositivo_(archivio.apri(membro), posto), posto_(posto), parte_(archivio.nomeMembro(membro)) {
  lettore_.setDevice(&dispositivo_);
}

void LettoreXml::malformato() {
  dispositivo_.verifica();
  throw ErroreTabella("F03", posto_, "Il file è danneggiato (" + parte_ + ")");
}

bool LettoreXml::avanza() {
  for (;;) {
    const QXmlStreamReader::TokenType segno = lettore_.readNext();
    switch (segno) {
      case QXmlStreamReader::DTD:
        throw ErroreTabella("F04", posto_, "Il file ha una definizione di tipo (DTD), che non è ammessa");
      case QXmlStreamReader::Invalid:
      case QXmlStreamReader::EntityReference:
        malformato();
      case QXmlStreamReader::StartElement:
        if (++profondita_ > kProfonditaMassima) malformato();
        return true;
      case QXmlStreamReader::EndElement:
        --profondita_;
        return true;
      case QXmlStreamReader::Characters:
        return true;
      case QXmlStreamReader::EndDocument: {
        char resto = 0;
        if (dispositivo_.read(&resto, 1) > 0) malformato();
        dispositivo_.verifica();
        return false;
      }
      default:
        break;
    }
  }
}

QStringView LettoreXml::attributo(QLatin1String nome) const {
  const QXmlStreamAttributes tutti = lettore_.attributes();
  for (const QXmlStreamAttribute& attributo : tutti) {
    if (attributo.name() == nome && attributo.prefix().isEmpty()) return attributo.value();
  }
  return {};
}

QStringView LettoreXml::relazione() const {
  const QXmlStreamAttributes tutti = lettore_.attributes();
  for (const QXmlStreamAttribute& attributo : tutti) {
    if (attributo.name() == QLatin1String("id") &&
        attributo.namespaceUri().endsWith(QLatin1String("/relationships"))) {
      return attributo.value();
    }
  }
  return {};
}

bool LettoreXml::vero(QLatin1String attributo) const {
  const QStringView valore = this->attributo(attributo);
  return valore == QLatin1String("1") || valore == QLatin1String("true");
}

void LettoreXml::salta() {
  const int livello = profondita_ - 1;
  while (profondita_ > livello) {
    if (!avanza()) malformato();
  }
}

}  // namespace cu::tabelle
