#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/importazione/file_importato.h"
#include "intake/lettura_righe.h"
#include "intake/mappatura.h"
#include "tabelle/lettura.h"

namespace cu {

// A file that a person has chosen to import, and how it is read.
struct FileScelto {
  std::string percorso;
  std::string nome;                                         // without folders
  std::shared_ptr<const FileImportatoInMemoria> contenuto;  // null where it cannot be read
  std::vector<std::string> fogli;                           // of a workbook, those that are not hidden first
  intake::Mappatura mappatura;
  std::string profilo;  // the file of the profile that its heading has found; "" for none
  std::string nota;     // what a person should know of the profiles; "" for nothing

  std::shared_ptr<const tabelle::Tabella> tabella;  // null where it is none
  std::string guasto;                               // then why; a sentence with place and code
  std::string impronta;                             // of the heading; "" without a table

  bool leggibile() const { return contenuto != nullptr; }
};

// Reads a file and, by the profile that is found for its heading in the folder, its table. Nothing is raised
// for a file or a profile that is wrong: the result says what is.
FileScelto caricaFile(const std::string& percorso, intake::Elenco elenco, const std::string& cartellaMappe);
// The same of a file that was read already.
void cercaProfilo(FileScelto& file, intake::Elenco elenco, const std::string& cartellaMappe);
// Reads the table anew, after the way of reading has changed.
void rileggiTabella(FileScelto& file);

// Whether a path can only be one of electronic invoices: a folder, or a name that tables do not have.
bool paionoFatture(const std::string& percorso);
// Its last part; a folder's too, however it is written.
std::string nomeMostrato(const std::string& percorso);

// The kind of list that the headings of a table are for; nothing where several fit alike.
std::optional<intake::Elenco> elencoProbabile(const tabelle::Tabella& tabella);

// The typed rows of a file; those of one that is no table say so.
intake::Lettura leggiRigheDi(const FileScelto& file, intake::Elenco elenco, Date oggi);

}  // namespace cu
