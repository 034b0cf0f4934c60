#include "apps/esame/natura_file.h"

#include <array>

#include "base/text.h"

namespace cu {
namespace {

struct Segno {
  std::string_view inizio;
  const char* nome;
};

using namespace std::string_view_literals;
constexpr std::array kSegni = {
    Segno{"%PDF-"sv, "un documento PDF"},
    Segno{"\x89PNG\r\n"sv, "un'immagine PNG"},
    Segno{"\xff\xd8\xff"sv, "un'immagine JPEG"},
    Segno{"GIF8"sv, "un'immagine GIF"},
    Segno{"II*\0"sv, "un'immagine TIFF"},
    Segno{"MM\0*"sv, "un'immagine TIFF"},
    Segno{"PK\3\4"sv, "un archivio ZIP"},
    Segno{"PK\5\6"sv, "un archivio ZIP"},
    Segno{"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1"sv, "un documento di un programma per ufficio"},
    Segno{"{\\rtf"sv, "un documento RTF"},
    Segno{"\x1f\x8b"sv, "un archivio compresso"},
    Segno{"7z\xbc\xaf"sv, "un archivio compresso"},
    Segno{"Rar!"sv, "un archivio compresso"},
    Segno{"SQLite format 3"sv, "un database"},
};

// A ZIP archive is a workbook or a document where it has their parts.
std::string archivio(std::string_view inizio) {
  const auto contiene = [&](std::string_view parte) { return inizio.find(parte) != std::string_view::npos; };
  if (contiene("xl/")) return "un foglio elettronico XLSX";
  if (contiene("word/")) return "un documento DOCX";
  if (contiene("[Content_Types].xml") || contiene("_rels/")) return "un foglio o un documento per ufficio";
  if (contiene("opendocument.spreadsheet")) return "un foglio elettronico ODS";
  if (contiene("opendocument")) return "un documento per ufficio";
  return "un archivio ZIP";
}

bool marcato(std::string_view testo) {
  if (testo.starts_with("\xef\xbb\xbf")) testo.remove_prefix(3);
  while (!testo.empty() && (testo.front() == ' ' || testo.front() == '\r' || testo.front() == '\n')) {
    testo.remove_prefix(1);
  }
  const std::string basso = lowerAscii(testo.substr(0, 16));
  return basso.starts_with("<?xml") || basso.starts_with("<!doctype") || basso.starts_with("<html");
}

}  // namespace

std::string naturaDi(std::string_view inizio) {
  for (const Segno& segno : kSegni) {
    if (!inizio.starts_with(segno.inizio)) continue;
    return inizio.starts_with("PK") ? archivio(inizio) : segno.nome;
  }
  return marcato(inizio) ? "un documento XML o HTML" : "";
}

bool cominciaComeRecordA(std::string_view inizio) {
  constexpr std::size_t kRiservato = 15;
  const std::string_view testa = inizio.substr(0, kRiservato);
  return testa.starts_with('A') && testa.find_first_not_of(' ', 1) == std::string_view::npos;
}

}  // namespace cu
