#include "fatture/archivio_prova_support.h"

#include <zip.h>

#include <stdexcept>

namespace cu::fatture::prova {

std::string zipDi(const Membri& membri) {
  zip_source_t* const sorgente = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  zip_source_keep(sorgente);
  zip_t* const zip = zip_open_from_source(sorgente, ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (const auto& [nome, byte] : membri) {
    const zip_int64_t indice = zip_file_add(
        zip, nome.c_str(), zip_source_buffer(zip, byte.data(), byte.size(), 0), ZIP_FL_ENC_UTF_8);
    if (indice < 0) throw std::runtime_error("zip: " + nome);
  }
  if (zip_close(zip) != 0) throw std::runtime_error("zip");
  zip_source_open(sorgente);
  zip_source_seek(sorgente, 0, SEEK_END);
  std::string byte(static_cast<std::size_t>(zip_source_tell(sorgente)), '\0');
  zip_source_seek(sorgente, 0, SEEK_SET);
  zip_source_read(sorgente, byte.data(), byte.size());
  zip_source_free(sorgente);
  return byte;
}

}  // namespace cu::fatture::prova
