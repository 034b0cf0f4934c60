#include "apps/esame/dopo_scrittura.h"

#include <exception>
#include <filesystem>
#include <functional>
#include <utility>

#include "apps/comune/elenco_luoghi.h"
#include "apps/comune/file_letto.h"
#include "apps/comune/sha256.h"
#include "base/error.h"
#include "base/text.h"
#include "riscontro/registro.h"

namespace cu {
namespace {

using PerOgnuno = std::function<void(const lettura::Certificato&)>;

// Passes on what is read. A failure to keep it does not end the reading, whose findings are known all the
// same.
class Inoltro : public lettura::Ascoltatore {
 public:
  Inoltro(riscontro::Invio& invio, const PerOgnuno& uno) : invio_(invio), uno_(uno) {}
  void fornitura(const lettura::Fornitura& fornitura) override { invio_.recordA = fornitura.testo; }
  void sostituto(const lettura::Sostituto& sostituto) override { invio_.recordB = sostituto.testo; }
  void certificato(const lettura::Certificato& certificato) override {
    if (guasto_) return;
    try {
      uno_(certificato);
    } catch (const std::exception&) {
      guasto_ = std::current_exception();
    }
  }
  void fine() const {
    if (guasto_) std::rethrow_exception(guasto_);
  }

 private:
  riscontro::Invio& invio_;
  const PerOgnuno& uno_;
  std::exception_ptr guasto_;
};

// Reports how much of the file has been read, and sums its bytes.
class LetturaSeguita : public lettura::Sorgente {
 public:
  LetturaSeguita(const std::string& percorso, ProgressSink* avanzamento)
      : file_(percorso), avanzamento_(avanzamento) {}
  std::size_t leggi(char* dove, std::size_t quanti) override {
    constexpr std::uint64_t kKilobyte = 1024;
    const std::size_t letti = file_.leggi(dove, quanti);
    somma_.aggiungi({dove, letti});
    letti_ += letti;
    if (avanzamento_ != nullptr)
      avanzamento_->progress("Controllo del file (kB)", letti_ / kKilobyte, file_.dimensione() / kKilobyte);
    return letti;
  }
  std::string impronta() { return somma_.cifre(); }

 private:
  FileLetto file_;
  ProgressSink* avanzamento_;
  std::uint64_t letti_ = 0;
  Sha256 somma_;
};

// "2018-03-05 10:30:00"
std::string momento(const Clock& orologio) {
  const TimeOfDay ora = orologio.now();
  const auto due = [](int numero) { return (numero < 10 ? "0" : "") + fromInteger(numero); };
  return orologio.today().toIso() + " " + due(ora.hour) + ":" + due(ora.minute) + ":" + due(ora.second);
}

class DopoLaScrittura {
 public:
  DopoLaScrittura(Connection& connessione, const Clock& orologio, const FileAppenaScritto& file)
      : registro_(connessione), orologio_(orologio), file_(file) {}

  // Each certificate goes to the record as it is read: all of them would take more memory than the rest of
  // the run.
  DopoScrittura esegui() {
    try {
      if (registro_.presente()) registra();
    } catch (const std::exception& errore) {
      dopo_.guasto = asError(errore).description();
    }
    if (dopo_.letto) return std::move(dopo_);
    try {
      LetturaSeguita letto(file_.percorso, file_.avanzamento);
      esamina(letto, nullptr);
    } catch (const std::exception& errore) {
      // Why it cannot be read says more than why it is not on record.
      dopo_.guasto = asError(errore).description();
    }
    return std::move(dopo_);
  }

 private:
  void esamina(lettura::Sorgente& letto, lettura::Ascoltatore* ascoltatore) {
    // Made once: a run for many companies reads as many files.
    static const ElencoLuoghi luoghi;
    dopo_.rilievi = lettura::esamina(letto, &luoghi, ascoltatore, &file_.modello).rilievi;
    dopo_.letto = true;
  }

  void registra() {
    riscontro::Invio invio;
    invio.idAzienda = file_.idAzienda;
    invio.anno = file_.anno;
    invio.tipo = static_cast<std::int32_t>(file_.tipo);
    invio.nome = std::filesystem::path(file_.percorso).filename().string();
    invio.momento = momento(orologio_);
    registro_.registraLetto(invio, [this](riscontro::Invio& suo, const PerOgnuno& uno) {
      LetturaSeguita letto(file_.percorso, file_.avanzamento);
      Inoltro inoltro(suo, uno);
      esamina(letto, &inoltro);
      inoltro.fine();
      suo.impronta = letto.impronta();
      if (file_.avanzamento != nullptr)
        file_.avanzamento->progress("Registrazione delle certificazioni", 0, 0);
    });
    dopo_.registrato = true;
  }

  riscontro::Registro registro_;
  const Clock& orologio_;
  const FileAppenaScritto& file_;
  DopoScrittura dopo_;
};

}  // namespace

DopoScrittura dopoScrittura(Connection& connessione, const Clock& orologio, const FileAppenaScritto& file) {
  return DopoLaScrittura(connessione, orologio, file).esegui();
}

}  // namespace cu
