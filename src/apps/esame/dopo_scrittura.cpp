#include "apps/esame/dopo_scrittura.h"

#include <filesystem>
#include <utility>
#include <vector>

#include "apps/comune/elenco_luoghi.h"
#include "apps/comune/file_letto.h"
#include "apps/esame/impronta.h"
#include "base/error.h"
#include "base/text.h"
#include "riscontro/registro.h"

namespace cu {
namespace {

class Raccolta : public lettura::Ascoltatore {
 public:
  void fornitura(const lettura::Fornitura& fornitura) override { recordA = fornitura.testo; }
  void sostituto(const lettura::Sostituto& sostituto) override { recordB = sostituto.testo; }
  void certificato(const lettura::Certificato& certificato) override { certificati.push_back(certificato); }

  std::string recordA;
  std::string recordB;
  std::vector<lettura::Certificato> certificati;
};

// Reports how much of the file has been read.
class LetturaSeguita : public lettura::Sorgente {
 public:
  LetturaSeguita(FileLetto& file, ProgressSink* avanzamento) : file_(file), avanzamento_(avanzamento) {}
  std::size_t leggi(char* dove, std::size_t quanti) override {
    constexpr std::uint64_t kKilobyte = 1024;
    const std::size_t letti = file_.leggi(dove, quanti);
    letti_ += letti;
    if (avanzamento_ != nullptr)
      avanzamento_->progress("Controllo del file (kB)", letti_ / kKilobyte, file_.dimensione() / kKilobyte);
    return letti;
  }

 private:
  FileLetto& file_;
  ProgressSink* avanzamento_;
  std::uint64_t letti_ = 0;
};

// "2018-03-05 10:30:00"
std::string momento(const Clock& orologio) {
  const TimeOfDay ora = orologio.now();
  const auto due = [](int numero) { return (numero < 10 ? "0" : "") + fromInteger(numero); };
  return orologio.today().toIso() + " " + due(ora.hour) + ":" + due(ora.minute) + ":" + due(ora.second);
}

void registra(riscontro::Registro& registro, const Clock& orologio, const FileAppenaScritto& file,
              const Raccolta& raccolta) {
  const std::size_t tutte = raccolta.certificati.size();
  if (file.avanzamento != nullptr) file.avanzamento->progress("Registrazione delle certificazioni", 0, tutte);
  riscontro::Invio invio;
  invio.idAzienda = file.idAzienda;
  invio.anno = file.anno;
  invio.tipo = static_cast<std::int32_t>(file.tipo);
  invio.nome = std::filesystem::path(file.percorso).filename().string();
  invio.impronta = improntaFile(file.percorso);
  invio.momento = momento(orologio);
  invio.recordA = raccolta.recordA;
  invio.recordB = raccolta.recordB;
  registro.registra(invio, raccolta.certificati, [&file, tutte](std::size_t fatte) {
    if (file.avanzamento != nullptr)
      file.avanzamento->progress("Registrazione delle certificazioni", fatte, tutte);
  });
}

}  // namespace

DopoScrittura dopoScrittura(Connection& connessione, const Clock& orologio, const FileAppenaScritto& file) {
  DopoScrittura dopo;
  try {
    riscontro::Registro registro(connessione);
    const bool presente = registro.presente();
    Raccolta raccolta;
    // Made once: a run for many companies reads as many files.
    static const ElencoLuoghi luoghi;
    FileLetto sulDisco(file.percorso);
    LetturaSeguita letto(sulDisco, file.avanzamento);
    dopo.rilievi = lettura::esamina(letto, &luoghi, presente ? &raccolta : nullptr, &file.modello).rilievi;
    if (presente) registra(registro, orologio, file, raccolta);
    dopo.registrato = presente;
  } catch (const std::exception& errore) {
    dopo.guasto = asError(errore).description();
  }
  return dopo;
}

}  // namespace cu
