#include "apps/importazione/scrittura_tabella.h"

#include "base/text.h"
#include "suite/support_log.h"

namespace cu {
namespace {

bool finisceIn(const std::string& file, std::string_view estensione) {
  return file.size() > estensione.size() &&
         equalsNoCase(std::string_view(file).substr(file.size() - estensione.size()), estensione);
}

}  // namespace

bool fileDiTabella(const std::string& file) { return fileDiUnaTabella(file) || finisceIn(file, ".xlsx"); }

bool fileDiUnaTabella(const std::string& file) { return finisceIn(file, ".csv"); }

void scriviTabelle(const std::string& file, const std::vector<tabelle::TabellaDaScrivere>& tabelle,
                   NewFile lettori) {
  logged({.operation = "file", .detail = "tabella"}, [&] {
    replaceFile(file,
                fileDiUnaTabella(file) ? tabelle::scriviCsv(tabelle.front())
                                       : tabelle::componiXlsx(tabelle, {.file = file}),
                lettori);
  });
}

}  // namespace cu
