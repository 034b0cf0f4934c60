#include <zip.h>

#include <cstdlib>

#include "tabelle/prova.h"

namespace cu::tabelle::prova {

std::string zipDi(const Membri& membri, const std::string& password) {
  zip_source_t* const memoria = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  zip_source_keep(memoria);
  zip_t* const zip = zip_open_from_source(memoria, ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (const auto& [nome, contenuto] : membri) {
    zip_source_t* const sorgente = zip_source_buffer(zip, contenuto.data(), contenuto.size(), 0);
    const zip_int64_t indice = zip_file_add(zip, nome.c_str(), sorgente, ZIP_FL_ENC_UTF_8);
    if (!password.empty()) {
      zip_file_set_encryption(zip, static_cast<zip_uint64_t>(indice), ZIP_EM_AES_256, password.c_str());
    }
  }
  EXPECT_EQ(zip_close(zip), 0);
  EXPECT_EQ(zip_source_open(memoria), 0);
  zip_source_seek(memoria, 0, SEEK_END);
  std::string byte(static_cast<std::size_t>(zip_source_tell(memoria)), '\0');
  zip_source_seek(memoria, 0, SEEK_SET);
  EXPECT_EQ(zip_source_read(memoria, byte.data(), byte.size()), static_cast<zip_int64_t>(byte.size()));
  zip_source_close(memoria);
  zip_source_free(memoria);
  return byte;
}

Membri membriDi(const Cartella& cartella) {
  const std::string testa = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)";
  std::string relazioni = cartella.relazioni;
  Membri membri;
  if (!cartella.testi.empty()) {
    membri.emplace_back("xl/sharedStrings.xml", testa + "<sst>" + cartella.testi + "</sst>");
    relazioni += R"(<Relationship Id="t" Type="http://x/sharedStrings" Target="sharedStrings.xml"/>)";
  }
  if (!cartella.stili.empty()) {
    membri.emplace_back("xl/styles.xml", testa + "<styleSheet>" + cartella.stili + "</styleSheet>");
    relazioni += R"(<Relationship Id="s" Type="http://x/styles" Target="/xl/styles.xml"/>)";
  }
  membri.emplace_back("xl/workbook.xml", testa +
                                             R"(<workbook xmlns:r="http://x/officeDocument/relationships">)" +
                                             cartella.proprieta + "<sheets>" + cartella.fogli + "</sheets>" +
                                             cartella.dopo + "</workbook>");
  membri.emplace_back("xl/_rels/workbook.xml.rels",
                      testa + "<Relationships>" + relazioni + "</Relationships>");
  membri.emplace_back("xl/worksheets/sheet1.xml", testa + "<worksheet>" + cartella.foglio + "</worksheet>");
  return membri;
}

std::string xlsxDi(const Cartella& cartella) { return zipDi(membriDi(cartella)); }

std::string xlsxDiRighe(const std::string& righe) {
  Cartella cartella;
  cartella.foglio = "<sheetData>" + righe + "</sheetData>";
  return xlsxDi(cartella);
}

}  // namespace cu::tabelle::prova
