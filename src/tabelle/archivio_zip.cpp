#include "tabelle/archivio_zip.h"

#include <zip.h>

#include <utility>

#include "base/text.h"
#include "tabelle/errore.h"

namespace cu::tabelle {
namespace {

// Below this size a member's ratio is of no harm: much white space compresses well.
constexpr std::uint64_t kRapportoDa = std::uint64_t{16} << 20U;

}  // namespace

struct ArchivioZip::Archivio {
  std::string nome;
  Limiti limiti;
  std::uint64_t espansi = 0;
  zip_t* zip = nullptr;

  Archivio(std::string_view suo, const Limiti& suoi) : nome(suo), limiti(suoi) {}
  Archivio(const Archivio&) = delete;
  Archivio& operator=(const Archivio&) = delete;
  ~Archivio() {
    if (zip != nullptr) zip_discard(zip);
  }
  [[noreturn]] void errore(const std::string& codice, const std::string& testo) const {
    throw ErroreTabella(codice, {nome, {}, 0, 0}, testo);
  }
  [[noreturn]] void danneggiato(const std::string& parte) const {
    errore("F03", "Il file è danneggiato o incompleto" + (parte.empty() ? "" : " (" + parte + ")"));
  }
};

struct ArchivioZip::Membro::Stato {
  Archivio* archivio = nullptr;
  zip_file_t* file = nullptr;
  std::string nome;
  std::uint64_t compressi = 0;
  std::uint64_t letti = 0;

  Stato() = default;
  Stato(const Stato&) = delete;
  Stato& operator=(const Stato&) = delete;
  ~Stato() {
    if (file != nullptr) zip_fclose(file);
  }
};

ArchivioZip::ArchivioZip(std::string_view byte, std::string_view nome, const Limiti& limiti)
    : archivio_(std::make_unique<Archivio>(nome, limiti)) {
  zip_source_t* const sorgente = zip_source_buffer_create(byte.data(), byte.size(), 0, nullptr);
  if (sorgente == nullptr) throw std::bad_alloc();
  archivio_->zip = zip_open_from_source(sorgente, ZIP_RDONLY, nullptr);
  if (archivio_->zip == nullptr) {
    zip_source_free(sorgente);
    archivio_->danneggiato({});
  }
  if (membri() > limiti.membri) {
    archivio_->errore(
        "F05", "L'archivio ha più di " + fromInteger(static_cast<std::int64_t>(limiti.membri)) + " parti");
  }
}

ArchivioZip::~ArchivioZip() = default;

std::size_t ArchivioZip::membri() const {
  return static_cast<std::size_t>(zip_get_num_entries(archivio_->zip, 0));
}

std::string ArchivioZip::nomeMembro(std::size_t indice) const {
  const char* const nome = zip_get_name(archivio_->zip, indice, ZIP_FL_ENC_GUESS);
  return nome == nullptr ? std::string() : std::string(nome);
}

std::optional<std::size_t> ArchivioZip::trova(const std::string& nome) const {
  const zip_int64_t indice = zip_name_locate(archivio_->zip, nome.c_str(), ZIP_FL_NOCASE);
  if (indice < 0) return std::nullopt;
  return static_cast<std::size_t>(indice);
}

ArchivioZip::Membro ArchivioZip::apri(std::size_t indice) {
  auto stato = std::make_unique<Membro::Stato>();
  stato->archivio = archivio_.get();
  stato->nome = nomeMembro(indice);
  zip_stat_t fatti;
  zip_stat_init(&fatti);
  if (zip_stat_index(archivio_->zip, indice, 0, &fatti) != 0) archivio_->danneggiato(stato->nome);
  if ((fatti.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && fatti.encryption_method != ZIP_EM_NONE) {
    archivio_->errore("F03", "Il file è protetto da una password: salvarlo senza protezione");
  }
  stato->compressi = fatti.comp_size;
  stato->file = zip_fopen_index(archivio_->zip, indice, 0);
  if (stato->file == nullptr) archivio_->danneggiato(stato->nome);
  return Membro(std::move(stato));
}

ArchivioZip::Membro::Membro(std::unique_ptr<Stato> stato) : stato_(std::move(stato)) {}
ArchivioZip::Membro::Membro(Membro&&) noexcept = default;
ArchivioZip::Membro::~Membro() = default;

std::size_t ArchivioZip::Membro::leggi(char* dove, std::size_t quanti) {
  Archivio& archivio = *stato_->archivio;
  const zip_int64_t letti = zip_fread(stato_->file, dove, quanti);
  if (letti < 0) archivio.danneggiato(stato_->nome);
  const auto aggiunti = static_cast<std::uint64_t>(letti);
  stato_->letti += aggiunti;
  archivio.espansi += aggiunti;
  if (archivio.espansi > archivio.limiti.espansi) {
    archivio.errore("F05", "Il contenuto del file, una volta espanso, supera " +
                               fromInteger(static_cast<std::int64_t>(archivio.limiti.espansi >> 20U)) +
                               " MB");
  }
  if (stato_->letti > kRapportoDa && stato_->letti / archivio.limiti.rapporto > stato_->compressi) {
    archivio.errore("F05", "Il contenuto del file è compresso più di " +
                               fromInteger(static_cast<std::int64_t>(archivio.limiti.rapporto)) + ":1 (" +
                               stato_->nome + ")");
  }
  return static_cast<std::size_t>(aggiunti);
}

}  // namespace cu::tabelle
