#pragma once

#include <string>
#include <string_view>

#include "tabelle/archivio_zip.h"
#include "tabelle/tabella.h"
#include "xml/lettore_eventi.h"

namespace cu::tabelle {

// Reads a part of a workbook element by element. Names are compared without their namespaces, which differ
// between the two variants of the format. Every function raises ErroreTabella: F03 for what is not
// well-formed or too deep, F04 for a document type definition, F05 for an endless text or tag, and what the
// archive raises.
class LettoreXml {
 public:
  LettoreXml(ArchivioZip& archivio, std::size_t membro, const Posto& posto);

  // Advances to the next start or end of an element, or to a text; false at the end of the document, where
  // the member's checksum has been compared.
  bool avanza();
  bool inizio(std::string_view nome) const {
    return lettore_.segno() == xml::Segno::Inizio && lettore_.nome() == nome;
  }
  bool fine(std::string_view nome) const {
    return lettore_.segno() == xml::Segno::Fine && lettore_.nome() == nome;
  }
  bool testo() const { return lettore_.segno() == xml::Segno::Testo; }
  std::string_view caratteri() const { return lettore_.testo(); }
  // Of the element that has just begun, without regard to the namespace; empty for none. Valid until the next
  // advance.
  std::string_view attributo(std::string_view nome) const { return lettore_.attributo(nome); }
  // The identifier of a relationship, whose name is that of another attribute too.
  std::string_view relazione() const { return lettore_.attributoDi("/relationships", "id"); }
  bool vero(std::string_view attributo) const;
  // Passes over the element that has just begun.
  void salta();

 private:
  [[noreturn]] void malformato();
  std::size_t leggi(char* dove, std::size_t quanti);

  ArchivioZip::Membro membro_;
  std::size_t tratto_ = 0;  // bytes since the last end of a tag
  xml::LettoreEventi lettore_;
  Posto posto_;
  std::string parte_;
  int profondita_ = 0;
};

}  // namespace cu::tabelle
