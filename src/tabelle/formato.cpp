#include "tabelle/formato.h"

#include <string>

#include "base/ascii.h"
#include "base/text.h"
#include "tabelle/errore.h"

namespace cu::tabelle {
namespace {

constexpr std::string_view kSalva = ": salvarlo come XLSX o CSV";

struct FormaNota {
  std::string_view inizio;
  std::string_view nome;
};

constexpr FormaNota kForme[] = {
    {"%pdf-", "un documento PDF"},    {"{\\rtf", "un documento RTF"}, {"<?xml", "un documento XML"},
    {"<!doctype", "una pagina HTML"}, {"<html", "una pagina HTML"},   {"<table", "una pagina HTML"},
};

// The directory of an OLE file has the names of its parts in UTF-16.
bool haParte(std::string_view byte, std::string_view nome) {
  std::string largo;
  for (const char c : nome) {
    largo += c;
    largo += '\0';
  }
  return byte.find(largo) != std::string_view::npos;
}

}  // namespace

bool cominciaCon(std::string_view testo, std::string_view inizio) {
  return lowerAscii(testo.substr(0, inizio.size())) == inizio;
}

Contenitore riconosci(std::string_view byte, std::string_view nome) {
  using namespace std::string_view_literals;
  const Posto posto{std::string(nome), {}, 0, 0};
  if (byte.empty()) throw ErroreTabella("F01", posto, "Il file è vuoto");
  if (byte.starts_with("PK\3\4"sv) || byte.starts_with("PK\5\6"sv)) return Contenitore::Zip;
  if (byte.starts_with("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1"sv)) return Contenitore::Ole;
  std::string_view testa = byte.substr(0, 1024);
  if (testa.starts_with("\xef\xbb\xbf"sv)) testa.remove_prefix(3);
  while (!testa.empty() && (testa.front() == ' ' || testa.front() == '\r' || testa.front() == '\n')) {
    testa.remove_prefix(1);
  }
  for (const FormaNota& forma : kForme) {
    if (cominciaCon(testa, forma.inizio)) {
      throw ErroreTabella("F02", posto,
                          "Il file è " + std::string(forma.nome) + ", non una tabella" + std::string(kSalva));
    }
  }
  return Contenitore::Testo;
}

void rifiutaOle(std::string_view byte, std::string_view nome) {
  const Posto posto{std::string(nome), {}, 0, 0};
  if (haParte(byte, "EncryptedPackage")) {
    throw ErroreTabella("F03", posto,
                        "La cartella di lavoro è protetta da una password: salvarla senza protezione");
  }
  if (haParte(byte, "Workbook") || haParte(byte, "Book")) {
    throw ErroreTabella("F02", posto,
                        "Il file è una cartella di lavoro nel vecchio formato XLS" + std::string(kSalva));
  }
  throw ErroreTabella("F02", posto, "Il file è un documento di un altro programma, non una tabella");
}

}  // namespace cu::tabelle
