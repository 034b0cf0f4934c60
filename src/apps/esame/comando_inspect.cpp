#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/elenco_luoghi.h"
#include "apps/comune/file_letto.h"
#include "apps/comune/tabella_sostituibile.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/json_lettura.h"
#include "apps/esame/tabella_certificati.h"
#include "apps/esame/testo_rilievi.h"
#include "base/text.h"

namespace cu {
namespace {

using lettura::Certificato;
using lettura::Esito;
using lettura::Fornitura;
using lettura::Sostituto;

// Passes on the certificates that were asked for.
class Scelta : public lettura::Ascoltatore {
 public:
  explicit Scelta(std::optional<std::int64_t> quale) : quale_(quale) {}
  void certificato(const Certificato& certificato) final {
    ++contati_;
    if (!quale_ || *quale_ == contati_) mostra(certificato);
  }
  std::int64_t contati() const { return contati_; }

 protected:
  virtual void mostra(const Certificato& certificato) = 0;
  bool unaSola() const { return quale_.has_value(); }

 private:
  std::optional<std::int64_t> quale_;
  std::int64_t contati_ = 0;
};

// Written as the file is read: what is known at its end alone comes last.
class InJson : public Scelta {
 public:
  explicit InJson(const OpzioniInspect& opzioni) : Scelta(opzioni.certificazione) {
    std::cout << R"({"file":)" << nlohmann::ordered_json(opzioni.file).dump(-1, ' ', false, kNonUtf8)
              << R"(,"agents":[)";
  }
  void sostituto(const Sostituto& sostituto) override {
    chiudiSostituto();
    std::cout << (primoSostituto_ ? "" : ",") << R"({"fiscalCode":)"
              << nlohmann::ordered_json(sostituto.codiceFiscale).dump(-1, ' ', false, kNonUtf8)
              << R"(,"name":)" << nlohmann::ordered_json(sostituto.nome).dump(-1, ' ', false, kNonUtf8)
              << R"(,"certificates":[)";
    primoSostituto_ = false;
    aperto_ = true;
    primo_ = true;
  }
  void fine(const Esito& esito) {
    chiudiSostituto();
    nlohmann::ordered_json totali = nlohmann::ordered_json::object();
    for (std::size_t i = 0; i < esito.totali.size(); ++i) {
      const char lettera = static_cast<char>('A' + i);
      const bool nota = std::string_view("ABDHZ").find(lettera) != std::string_view::npos;
      if (nota || esito.totali[i] > 0) totali[std::string(1, lettera)] = esito.totali[i];
    }
    std::cout << R"(],"bytes":)" << esito.byteLetti << R"(,"lines":)" << esito.righe << R"(,"supply":)"
              << jsonFornitura(esito.fornitura, esito.annullamenti, esito.sostituzioni)
                     .dump(-1, ' ', false, kNonUtf8)
              << R"(,"totals":)" << totali.dump(-1, ' ', false, kNonUtf8) << R"(,"findings":)"
              << jsonRilievi(esito.rilievi).dump(-1, ' ', false, kNonUtf8) << "}\n";
  }

 private:
  void mostra(const Certificato& certificato) override {
    std::cout << (primo_ ? "" : ",") << jsonCertificato(certificato).dump(-1, ' ', false, kNonUtf8);
    primo_ = false;
  }
  void chiudiSostituto() {
    if (aperto_) std::cout << "]}";
    aperto_ = false;
  }

  bool primoSostituto_ = true;
  bool aperto_ = false;
  bool primo_ = true;
};

std::string largo(std::string_view testo, std::size_t colonne) {
  const std::size_t lettere = codePoints(testo);
  if (lettere > colonne) return std::string(leftCodePoints(testo, colonne - 1)) + "…";
  return std::string(testo) + std::string(colonne - lettere, ' ');
}

std::string aDestra(std::string_view testo, std::size_t colonne) {
  const std::size_t lettere = codePoints(testo);
  return std::string(lettere < colonne ? colonne - lettere : 0, ' ') + std::string(testo);
}

class InTesto : public Scelta {
 public:
  explicit InTesto(const OpzioniInspect& opzioni) : Scelta(opzioni.certificazione) {}
  void fornitura(const Fornitura& fornitura) override {
    std::cout << "Fornitura " << fornitura.codice;
    if (fornitura.annoFiscale) std::cout << ", compensi del " << *fornitura.annoFiscale;
    std::cout << ", inviata da " << fornitura.mittente << " (tipo " << fornitura.tipoMittente << ")\n";
  }
  void sostituto(const Sostituto& sostituto) override {
    std::cout << "Sostituto " << sostituto.codiceFiscale << " " << sostituto.nome << ", fornitura "
              << tipoFornitura(sostituto.annullamenti, sostituto.sostituzioni) << '\n';
    if (!unaSola()) {
      std::cout << riga({"N.", "Percipiente", "Nome", "Caus.", "Lordo", "Non soggette", "Imponibile",
                         "R. acconto", "R. imposta", "Op.", "Protocollo", "Progr."});
    }
  }

 private:
  static std::string riga(const std::vector<std::string>& celle) {
    constexpr std::array<std::size_t, 12> kLarghe = {6, 16, 30, 5, 13, 13, 13, 13, 13, 3, 17, 6};
    std::string testo;
    for (std::size_t i = 0; i < celle.size(); ++i) {
      const bool importo = (i >= 4 && i <= 8) || i == 0;
      testo += (i == 0 ? "" : "  ") +
               (importo ? aDestra(celle[i], kLarghe.at(i)) : largo(celle[i], kLarghe.at(i)));
    }
    testo.erase(testo.find_last_not_of(' ') + 1);
    return testo + "\n";
  }
  void mostra(const Certificato& certificato) override {
    if (unaSola()) {
      dettaglio(certificato);
      return;
    }
    const auto importo = [&](const char* codice) { return certificato.valore(codice); };
    std::cout << riga({fromInteger(certificato.numero), certificato.percipiente, certificato.nome,
                       certificato.causale(), importo("AU001004"),
                       lettura::importo(lettura::nonSoggette(certificato)), importo("AU001008"),
                       importo("AU001009"), importo("AU001010"), certificato.operazione,
                       certificato.protocollo, certificato.progressivo});
  }
  static void dettaglio(const Certificato& certificato) {
    std::cout << "Certificazione " << certificato.numero << ", riga " << certificato.riga << '\n';
    if (!certificato.operazione.empty()) {
      std::cout << "  Operazione " << certificato.operazione << ", protocollo " << certificato.protocollo
                << ", progressivo " << certificato.progressivo << '\n';
    }
    celle(certificato.celle);
    for (const lettura::Modulo& modulo : certificato.moduli) {
      std::cout << "  Modulo " << modulo.numero << ", riga " << modulo.riga << '\n';
      celle(modulo.celle);
    }
  }
  static void celle(const std::vector<lettura::Valore>& valori) {
    for (const lettura::Valore& valore : valori)
      std::cout << "    " << valore.codice << "  " << valore.testo << '\n';
  }
};

// Reads the file for the output, and for the tables where some were asked for.
Esito leggi(FileLetto& file, const OpzioniInspect& opzioni, lettura::Ascoltatore& uscita) {
  const ElencoLuoghi luoghi;
  if (opzioni.csv.empty() && opzioni.xlsx.empty()) return lettura::esamina(file, &luoghi, &uscita);
  TabellaCertificati tabella(&uscita);
  Esito esito = lettura::esamina(file, &luoghi, &tabella);
  if (!opzioni.csv.empty()) tabella.scriviCsv(opzioni.csv);
  if (!opzioni.xlsx.empty()) tabella.scriviXlsx(opzioni.xlsx);
  return esito;
}

std::int64_t inJson(FileLetto& file, const OpzioniInspect& opzioni) {
  InJson uscita(opzioni);
  uscita.fine(leggi(file, opzioni, uscita));
  return uscita.contati();
}

std::int64_t inTesto(FileLetto& file, const OpzioniInspect& opzioni) {
  InTesto uscita(opzioni);
  const Esito esito = leggi(file, opzioni, uscita);
  scriviRilievi(opzioni.file, esito.rilievi, std::cout);
  std::cout << "Righe " << esito.righe << ", byte " << esito.byteLetti << ", certificazioni "
            << uscita.contati() << "; " << dettoConteggio(esito.rilievi) << ".\n";
  return uscita.contati();
}

bool stesso(const std::string& uno, const std::string& altro) {
  std::error_code ignorato;
  return std::filesystem::path(uno).lexically_normal() == std::filesystem::path(altro).lexically_normal() ||
         std::filesystem::equivalent(uno, altro, ignorato);
}

// A table never takes the place of the file that is read, nor one table that of the other.
bool scrivibili(const OpzioniInspect& opzioni) {
  for (const std::string* const tabella : {&opzioni.csv, &opzioni.xlsx}) {
    if (tabella->empty() || !stesso(*tabella, opzioni.file)) continue;
    std::cerr << *tabella << ": è il file da leggere, la tabella non può prenderne il posto.\n";
    return false;
  }
  if (!opzioni.csv.empty() && !opzioni.xlsx.empty() && stesso(opzioni.csv, opzioni.xlsx)) {
    std::cerr << opzioni.csv << ": è indicato per tutte e due le tabelle.\n";
    return false;
  }
  return true;
}

// What is there and is no table stays.
bool sostituibili(const OpzioniInspect& opzioni) {
  for (const std::string* const tabella : {&opzioni.csv, &opzioni.xlsx}) {
    const std::string motivo = tabella->empty() ? std::string() : tabellaRifiutata(*tabella);
    if (motivo.empty()) continue;
    std::cerr << motivo << '\n';
    return false;
  }
  return true;
}

}  // namespace

int comandoInspect(const OpzioniInspect& opzioni) {
  if (!scrivibili(opzioni)) return kUsoSbagliato;
  if (!sostituibili(opzioni)) return kRifiutato;
  try {
    FileLetto file(opzioni.file);
    const std::int64_t contati = opzioni.json ? inJson(file, opzioni) : inTesto(file, opzioni);
    if (opzioni.certificazione && *opzioni.certificazione > contati) {
      std::cerr << opzioni.file << ": il file ha " << contati << " certificazioni.\n";
    }
    return kRiuscito;
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
