#pragma once

// For the sources of this room only: the libraries behind it are not visible outside.

#include <QIODevice>
#include <QXmlStreamReader>
#include <exception>
#include <string>

#include "tabelle/archivio_zip.h"
#include "tabelle/tabella.h"

namespace cu::tabelle {

// The bytes of an archive's member as Qt reads them. An exception must not pass through Qt: it is kept.
class DispositivoMembro : public QIODevice {
 public:
  DispositivoMembro(ArchivioZip::Membro membro, const Posto& posto);
  bool isSequential() const override { return true; }
  // Raises what stopped the reading.
  void verifica() const;

 protected:
  qint64 readData(char* dove, qint64 quanti) override;
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  void misuraTratto(const char* dove, std::size_t letti);

  ArchivioZip::Membro membro_;
  Posto posto_;
  std::exception_ptr errore_;
  std::size_t tratto_ = 0;  // bytes since the last end of a tag
  bool finito_ = false;
};

// Appends as UTF-8. What is in a sheet is ASCII for the most part, and needs no memory of its own.
void aggiungiUtf8(std::string& testo, QStringView aggiunta);
inline std::string inUtf8(QStringView testo) {
  std::string esito;
  aggiungiUtf8(esito, testo);
  return esito;
}

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
  bool inizio(QLatin1String nome) const { return lettore_.isStartElement() && lettore_.name() == nome; }
  bool fine(QLatin1String nome) const { return lettore_.isEndElement() && lettore_.name() == nome; }
  bool testo() const { return lettore_.isCharacters(); }
  QStringView caratteri() const { return lettore_.text(); }
  // Of the element that has just begun, without regard to the namespace; empty for none. Valid until the next
  // advance.
  QStringView attributo(QLatin1String nome) const;
  // The identifier of a relationship, whose name is that of another attribute too.
  QStringView relazione() const;
  bool vero(QLatin1String attributo) const;
  // Passes over the element that has just begun.
  void salta();

 private:
  [[noreturn]] void malformato();

  DispositivoMembro dispositivo_;
  QXmlStreamReader lettore_;
  Posto posto_;
  std::string parte_;
  int profondita_ = 0;
};

}  // namespace cu::tabelle
