#include "tabelle/lettore_xml.h"

#include <cstring>

#include "tabelle/errore.h"

namespace cu::tabelle {
namespace {

constexpr int kProfonditaMassima = 100;
// A cell has at most 32,767 characters, each written as a reference of some bytes.
constexpr std::size_t kTrattoMassimo = std::size_t{1} << 20U;

}  // namespace

LettoreXml::LettoreXml(ArchivioZip& archivio, std::size_t membro, const Posto& posto)
    : membro_(archivio.apri(membro)),
      lettore_([this](char* dove, std::size_t quanti) { return leggi(dove, quanti); }, xml::Spazi::Risolti),
      posto_(posto),
      parte_(archivio.nomeMembro(membro)) {}

std::size_t LettoreXml::leggi(char* dove, std::size_t quanti) {
  const std::size_t letti = membro_.leggi(dove, quanti);
  const char* ultimo = dove;
  for (const char* p = dove; p < dove + letti; ultimo = ++p) {
    p = static_cast<const char*>(std::memchr(p, '>', static_cast<std::size_t>(dove + letti - p)));
    if (p == nullptr) break;
    tratto_ = 0;
  }
  tratto_ += static_cast<std::size_t>(dove + letti - ultimo);
  if (tratto_ > kTrattoMassimo) throw ErroreTabella("F05", posto_, "Il file ha un testo troppo lungo");
  return letti;
}

void LettoreXml::malformato() {
  throw ErroreTabella("F03", posto_, "Il file è danneggiato (" + parte_ + ")");
}

bool LettoreXml::avanza() {
  switch (lettore_.avanza()) {
    case xml::Segno::Inizio:
      if (++profondita_ > kProfonditaMassima) malformato();
      return true;
    case xml::Segno::Fine:
      --profondita_;
      return true;
    case xml::Segno::Testo:
      return true;
    case xml::Segno::FineDocumento:
      return false;
    case xml::Segno::Dtd:
      throw ErroreTabella("F04", posto_, "Il file ha una definizione di tipo (DTD), che non è ammessa");
    case xml::Segno::Incompleto:
    case xml::Segno::EntitaIgnota:
    case xml::Segno::Malformato:
      break;
  }
  malformato();
}

bool LettoreXml::vero(std::string_view attributo) const {
  const std::string_view valore = this->attributo(attributo);
  return valore == "1" || valore == "true";
}

void LettoreXml::salta() {
  const int livello = profondita_ - 1;
  while (profondita_ > livello) {
    if (!avanza()) malformato();
  }
}

}  // namespace cu::tabelle
