#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/value.h"
#include "intake/colonne.h"
#include "intake/mappatura.h"
#include "intake/messaggi.h"
#include "tabelle/deposito.h"
#include "tabelle/tabella.h"

namespace cu::intake {

enum class StatoCampo : std::uint8_t {
  Dato,
  Svuotato,  // the cell has "-" alone: the value is null
};

// A field that the row has something for: a column without one is to be left as it is.
struct Campo {
  std::uint8_t colonna = 0;
  StatoCampo stato = StatoCampo::Dato;
  // Not in the file: from a fiscal code, from other fields. It is reported, and never replaces what the
  // database has.
  bool derivato = false;
  CellView valore;  // of the column's type; a text is valid as long as any copy of its Lettura
};

struct RigaLetta {
  std::size_t numero = 0;    // as the file counts, the heading included; of an invoice, its document's
  std::vector<Campo> campi;  // ordered by column, one for each
  std::vector<Messaggio> messaggi;
  std::string esclusa;  // why the row is left out; "" where it is not

  const Campo* campo(std::uint8_t colonna) const;
  template <class C>
  const Campo* campo(C colonna) const {
    return campo(static_cast<std::uint8_t>(colonna));
  }
  // Null where there is none and where the field is to be emptied.
  template <class C>
  CellView valore(C colonna) const {
    const Campo* const suo = campo(colonna);
    return suo != nullptr ? suo->valore : CellView();
  }
  // With a value.
  template <class C>
  bool ha(C colonna) const {
    return !valore(colonna).isNull();
  }
  template <class C>
  bool svuota(C colonna) const {
    const Campo* const suo = campo(colonna);
    return suo != nullptr && suo->stato == StatoCampo::Svuotato;
  }
  bool conErrori() const;
};

struct FattureLette;

// What a file gives: typed rows in order, and what there is to say of the file and its columns. Knows neither
// the database nor what a row means there.
struct Lettura {
  Elenco elenco = Elenco::Compensi;
  std::string file;    // its name without folders
  std::string foglio;  // "" for a text
  std::uint64_t dimensione = 0;
  std::string sha256;  // 64 digits
  std::vector<RigaLetta> righe;
  std::vector<Messaggio> messaggi;
  // The heading as the file has it, by the column's rank; "" for a column that it lacks. Several that add up
  // are joined by " + ".
  std::vector<std::string> intestazioni;

  // Keeps a text for a field that the file does not have as it is.
  CellView conserva(std::string_view testo);
  bool conErrori() const;  // of the file or of a row
  // Whether the file could not be read at all: it gives no rows, and messages that say why.
  bool illeggibile() const;

  // Of a file with electronic invoices (lettura_fatture.h); null for a table.
  std::shared_ptr<const FattureLette> fatture;

  // As the file has it; the list's own name for a column that the file lacks.
  std::string nomeColonna(std::uint8_t colonna) const;

  std::shared_ptr<const void> testi;  // of the table; with the next one it owns the texts of the fields
  std::shared_ptr<tabelle::Deposito> aggiunti;
};

// Reads the rows of a table by their columns. Reported are:
//   C01  a column or a value that is required, but a company's representative, C02 one given twice, C03 one
//   that nobody asks for V01 to V10, all of them but V05 of codes that only the database knows P01, P02, P07
//   and what the fiscal code says of name, sex and birth date: P03, P04, P05 F03  what the table reports of
//   its rows
// Derived are a payee's PersonaFisica, Sesso and DataNascita from the fiscal code, the date as late as a
// person of 14 years can have it on the day `oggi`, and Nome from a Cognome that holds both. Places, and what
// a list of the database decides, are the plan's. Size and digest of the file are set by the caller.
Lettura leggiRighe(const tabelle::Tabella& tabella, Elenco elenco, const Mappatura& mappatura, Date oggi);

// Reads the bytes of a file, for whose places `nome` is. One that is no table gives a reading without rows
// that has its error: F01, F02, F03 or F05.
Lettura leggiFile(std::string_view byte, const std::string& nome, Elenco elenco, const Mappatura& mappatura,
                  Date oggi);
// The same for one that could not even be opened.
Lettura letturaFallita(const std::string& nome, Elenco elenco, Messaggio messaggio);

}  // namespace cu::intake
