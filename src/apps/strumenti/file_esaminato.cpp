#include "apps/strumenti/file_esaminato.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "apps/comune/elenco_luoghi.h"
#include "apps/comune/file_letto.h"
#include "apps/esame/json_lettura.h"
#include "apps/esame/natura_file.h"
#include "apps/strumenti/conteggi.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "modello/riconoscimento.h"

namespace cu::strumenti {
namespace {

using lettura::Certificato;

constexpr std::size_t kBloccoRiletto = std::size_t{1} << 16U;

std::int64_t momentoDi(const std::string& percorso) {
  std::error_code errore;
  const auto momento = std::filesystem::last_write_time(percorso, errore);
  return errore ? 0 : momento.time_since_epoch().count();
}

class ConIndice : public lettura::Sorgente {
 public:
  ConIndice(FileLetto& file, IndiceRighe& indice, const FileEsaminato::Avanza& avanza, const char* che)
      : file_(file), indice_(indice), avanza_(avanza), che_(che) {}
  std::size_t leggi(char* dove, std::size_t quanti) override {
    const std::size_t letti = file_.leggi(dove, quanti);
    indice_.aggiungi(dove, letti);
    byte_ += letti;
    if (avanza_) avanza_(che_, byte_, file_.dimensione());
    return letti;
  }

 private:
  FileLetto& file_;
  IndiceRighe& indice_;
  const FileEsaminato::Avanza& avanza_;
  const char* che_;
  std::uint64_t byte_ = 0;
};

class Elenco : public lettura::Ascoltatore {
 public:
  Elenco(std::vector<lettura::Sostituto>& sostituti, std::vector<RigaCertificato>& certificati)
      : sostituti_(sostituti), certificati_(certificati) {}
  void sostituto(const lettura::Sostituto& sostituto) override { sostituti_.push_back(sostituto); }
  void certificato(const Certificato& certificato) override {
    RigaCertificato riga;
    riga.numero = certificato.numero;
    riga.riga = certificato.riga;
    riga.ultima = certificato.riga;
    for (const lettura::Modulo& modulo : certificato.moduli) riga.ultima = std::max(riga.ultima, modulo.riga);
    riga.sostituto = sostituti_.empty() ? 0 : sostituti_.size() - 1;
    riga.percipiente = certificato.percipiente;
    riga.nome = certificato.nome;
    riga.causale = certificato.causale();
    riga.operazione = certificato.operazione;
    riga.protocollo = certificato.protocollo;
    riga.progressivo = certificato.progressivo;
    const auto centesimi = [&](const char* codice) {
      return lettura::centesimiDi(certificato.valore(codice));
    };
    riga.lordo = centesimi("AU001004");
    riga.nonSoggette = lettura::nonSoggette(certificato);
    riga.imponibile = centesimi("AU001008");
    riga.acconto = centesimi("AU001009");
    riga.imposta = centesimi("AU001010");
    certificati_.push_back(std::move(riga));
  }

 private:
  std::vector<lettura::Sostituto>& sostituti_;
  std::vector<RigaCertificato>& certificati_;
};

class Uno : public lettura::Ascoltatore {
 public:
  void certificato(const Certificato& certificato) override {
    if (letti++ == 0) primo = certificato;
  }
  Certificato primo;
  std::size_t letti = 0;
};

class DaTesto : public lettura::Sorgente {
 public:
  explicit DaTesto(const std::string& testo) : testo_(testo) {}
  std::size_t leggi(char* dove, std::size_t quanti) override {
    const std::size_t n = std::min(quanti, testo_.size() - letti_);
    std::memcpy(dove, testo_.data() + letti_, n);
    letti_ += n;
    return n;
  }

 private:
  const std::string& testo_;
  std::size_t letti_ = 0;
};

// The first bytes, at most.
std::string inizioDi(const std::string& percorso) {
  FileLetto file(percorso);
  std::string inizio(kInizioFile, '\0');
  inizio.resize(file.leggi(inizio.data(), inizio.size()));
  return inizio;
}

[[noreturn]] void cambiato(const std::string& percorso) {
  throw FileIlleggibile(percorso + ": il file è cambiato da quando è stato letto. Ricaricarlo.");
}

}  // namespace

void IndiceRighe::aggiungi(const char* byte, std::size_t quanti) {
  const char* da = byte;
  const char* const fine = byte + quanti;
  while (da < fine) {
    const auto* const trovato =
        static_cast<const char*>(std::memchr(da, '\n', static_cast<std::size_t>(fine - da)));
    if (trovato == nullptr) break;
    da = trovato + 1;
    ++riga_;
    if ((riga_ - 1) % kPasso == 0) inizi_.push_back(letti_ + static_cast<std::uint64_t>(da - byte));
  }
  letti_ += quanti;
}

IndiceRighe::Punto IndiceRighe::prima(std::int64_t riga) const {
  const auto voluto = static_cast<std::size_t>(std::max<std::int64_t>(0, riga - 1) / kPasso);
  const std::size_t posto = std::min(voluto, inizi_.size() - 1);
  return {static_cast<std::int64_t>(posto) * kPasso + 1, inizi_[posto]};
}

FileEsaminato FileEsaminato::leggi(const std::string& percorso, const Avanza& avanza, const char* che) {
  FileEsaminato file;
  file.percorso_ = percorso;
  file.modificato_ = momentoDi(percorso);
  const std::string inizio = inizioDi(percorso);
  FileLetto letto(percorso);
  file.dimensione_ = letto.dimensione();
  if (const std::string natura = naturaDi(inizio); !natura.empty()) {
    file.estraneo_ = "Questo è " + natura + ", non un file telematico della Certificazione Unica.";
    return file;
  }
  ConIndice sorgente(letto, file.indice_, avanza, che);
  Elenco elenco(file.sostituti_, file.certificati_);
  const ElencoLuoghi luoghi;
  file.esito_ = lettura::esamina(sorgente, &luoghi, &elenco);
  file.dimensione_ = file.esito_.byteLetti;
  const bool riconosciuto = file.esito_.fornitura.codice.starts_with("CUR") || !file.certificati_.empty();
  const bool nessunaRiga =
      file.esito_.rilievi.quanti(lettura::Regola::L01) >= static_cast<std::size_t>(file.esito_.righe);
  if (file.dimensione_ > 0 && !riconosciuto && nessunaRiga && !cominciaComeRecordA(inizio)) {
    file.estraneo_ =
        "Questo non è un file telematico della Certificazione Unica: nessuna delle sue righe ne ha la forma.";
    file.esito_.rilievi = {};
    return file;
  }
  file.rilievi_ = file.esito_.rilievi.ordinati();
  file.ordinaRilievi();
  return file;
}

void FileEsaminato::ordinaRilievi() {
  std::stable_partition(rilievi_.begin(), rilievi_.end(), [this](const lettura::Rilievo& rilievo) {
    return !certificatoDi(rilievo).has_value();
  });
  for (const lettura::Rilievo& rilievo : rilievi_) {
    const auto quale = certificatoDi(rilievo);
    if (!quale) continue;
    const bool errore = lettura::voce(rilievo.regola).gravita == lettura::Gravita::Errore;
    ++(errore ? certificati_[*quale].errori : certificati_[*quale].avvisi);
  }
}

std::optional<std::size_t> FileEsaminato::certificatoDi(std::int64_t riga) const {
  const auto dopo = std::upper_bound(
      certificati_.begin(), certificati_.end(), riga,
      [](std::int64_t cercata, const RigaCertificato& certificato) { return cercata < certificato.riga; });
  if (dopo == certificati_.begin()) return std::nullopt;
  const auto trovato = dopo - 1;
  if (riga > trovato->ultima) return std::nullopt;
  return static_cast<std::size_t>(trovato - certificati_.begin());
}

std::optional<std::size_t> FileEsaminato::certificatoDi(const lettura::Rilievo& rilievo) const {
  using lettura::Regola;
  const Regola regola = rilievo.regola;
  if (regola == Regola::L04 || regola == Regola::O04 || regola == Regola::O05) return std::nullopt;
  return certificatoDi(rilievo.riga);
}

std::vector<std::string> FileEsaminato::righe(std::int64_t prima, std::int64_t ultima) const {
  FileLetto controllo(percorso_);
  if (controllo.dimensione() != dimensione_ || momentoDi(percorso_) != modificato_) cambiato(percorso_);
  std::ifstream file(percorso_, std::ios::binary);
  const IndiceRighe::Punto punto = indice_.prima(prima);
  file.seekg(static_cast<std::streamoff>(punto.byte));
  std::vector<std::string> trovate;
  std::vector<char> blocco(kBloccoRiletto);
  std::string corrente;
  std::int64_t numero = punto.riga;
  const auto chiudi = [&] {
    if (!corrente.empty() && corrente.back() == '\r') corrente.pop_back();
    if (numero >= prima) trovate.push_back(corrente);
    corrente.clear();
    ++numero;
  };
  while (numero <= ultima) {
    file.read(blocco.data(), static_cast<std::streamsize>(blocco.size()));
    const auto letti = static_cast<std::size_t>(file.gcount());
    for (std::size_t i = 0; i < letti && numero <= ultima; ++i) {
      if (blocco[i] == '\n') {
        chiudi();
      } else if (numero >= prima && corrente.size() < lettura::kRigaMassima) {
        corrente += blocco[i];
      }
    }
    if (letti < blocco.size()) break;
  }
  if (numero <= ultima) chiudi();
  return trovate;
}

std::string FileEsaminato::riga(std::int64_t numero) const {
  std::vector<std::string> una = righe(numero, numero);
  return una.empty() ? std::string() : std::move(una.front());
}

Certificato FileEsaminato::rileggi(std::size_t certificato) const {
  const RigaCertificato& voluto = certificati_.at(certificato);
  // The year comes from the file's own record A, the agent from its record B.
  std::string testo = a1252(esito_.fornitura.testo) + "\r\n";
  std::int64_t prime = testo.size() > 2 ? 1 : 0;
  if (prime == 0) testo.clear();
  if (voluto.sostituto < sostituti_.size() && !sostituti_[voluto.sostituto].testo.empty()) {
    testo += a1252(sostituti_[voluto.sostituto].testo) + "\r\n";
    ++prime;
  }
  for (const std::string& riga : righe(voluto.riga, voluto.ultima)) testo += riga + "\r\n";
  DaTesto sorgente(testo);
  Uno uno;
  static_cast<void>(lettura::esamina(sorgente, nullptr, &uno));
  if (uno.letti == 0) cambiato(percorso_);
  const std::int64_t scarto = voluto.riga - 1 - prime;
  uno.primo.riga += scarto;
  for (lettura::Modulo& modulo : uno.primo.moduli) modulo.riga += scarto;
  return uno.primo;
}

const modello::Modello& FileEsaminato::modello() const {
  if (!anno() || sostituti_.empty()) return modello::kModello;
  return modello::modelloDelRecordB(*anno(), a1252(sostituti_.front().testo));
}

std::string intestazione(const FileEsaminato& file) {
  const lettura::Esito& esito = file.esito();
  if (!file.estraneo().empty()) return file.percorso() + "\n" + alPlurale(file.dimensione(), "byte", "byte");
  std::string testo;
  if (esito.fornitura.codice.empty()) {
    testo = "Fornitura non riconosciuta";
  } else {
    testo = "Fornitura " + esito.fornitura.codice;
    if (file.anno()) testo += ", compensi del " + fromInteger(*file.anno());
    testo += ", " + tipoFornitura(esito.annullamenti, esito.sostituzioni);
  }
  for (const lettura::Sostituto& sostituto : file.sostituti()) {
    testo +=
        file.sostituti().size() > 1 ? "" : " · sostituto " + sostituto.codiceFiscale + " " + sostituto.nome;
  }
  if (file.sostituti().size() > 1)
    testo += " · " + alPlurale(file.sostituti().size(), "sostituto", "sostituti");
  testo += "\n" + alPlurale(file.certificati().size(), "certificazione", "certificazioni") + ", " +
           alPlurale(static_cast<std::uint64_t>(esito.righe), "riga", "righe") + ", " +
           alPlurale(file.dimensione(), "byte", "byte") + ": " + dettiRilievi(esito.rilievi);
  return testo;
}

std::string stranezza(const FileEsaminato& file) {
  if (!file.estraneo().empty()) return file.estraneo();
  if (file.dimensione() == 0) return "Il file è vuoto.";
  if (!file.certificati().empty()) return {};
  if (file.esito().fornitura.codice.empty()) {
    return "Questo non è un file telematico della Certificazione Unica: manca il record A e non ci sono "
           "certificazioni. Sotto c'è quello che si è potuto leggere.";
  }
  return "Nel file non c'è nessuna certificazione leggibile.";
}

}  // namespace cu::strumenti
