#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace cu::xml {

// What a document is made of, in its order, and the ways in which it can end. After those, and after Dtd,
// there is nothing more to read.
enum class Segno : std::uint8_t {
  Inizio,         // of an element
  Fine,           // of an element, of an empty one too
  Testo,          // a part of a text, in as many parts as it likes; marked sections are texts
  Dtd,            // a document type definition begins
  FineDocumento,  // after the last byte
  Incompleto,     // the bytes end before the document
  EntitaIgnota,   // a reference to an entity that is not defined
  Malformato,
};

// UnoAUno: names are given as they are written, prefix included, whatever the prefixes mean. Risolti:
// prefixes have to be declared, names are given without them.
enum class Spazi : std::uint8_t { UnoAUno, Risolti };

// Reads an XML text of any length in little memory, event by event. No entity is ever expanded but the five
// of the language and those of single characters.
class LettoreEventi {
 public:
  // The next bytes, at most `quanti`; 0 at the end. What it raises passes through avanza().
  using Sorgente = std::function<std::size_t(char* dove, std::size_t quanti)>;
  // `codifica` in place of what the text declares; empty to follow that: UTF-8, UTF-16, ISO-8859-1, US-ASCII.
  LettoreEventi(Sorgente sorgente, Spazi spazi, const char* codifica = nullptr);
  ~LettoreEventi();
  LettoreEventi(const LettoreEventi&) = delete;
  LettoreEventi& operator=(const LettoreEventi&) = delete;

  Segno avanza();
  Segno segno() const;

  // The following are of the present event, in UTF-8, and valid until the next one.
  std::string_view nome() const;   // of Inizio and Fine
  std::string_view testo() const;  // of Testo
  // Of Inizio; "" for an attribute that is not there. With Spazi::Risolti those without a prefix.
  std::string_view attributo(std::string_view nome) const;
  // With Spazi::Risolti: the attribute of that name whose namespace ends so.
  std::string_view attributoDi(std::string_view codaSpazio, std::string_view nome) const;
  // From 1: the line in which an element's tag ends, a text begins, a fault is.
  std::size_t riga() const;

 private:
  struct Stato;
  std::unique_ptr<Stato> stato_;
};

}  // namespace cu::xml
