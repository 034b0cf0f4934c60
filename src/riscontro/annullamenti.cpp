#include "riscontro/annullamenti.h"

#include <algorithm>

#include "base/text.h"
#include "base/windows1252.h"
#include "lettura/caselle.h"
#include "lettura/testate.h"

namespace cu::riscontro {

using lettura::Tratto;

namespace {

constexpr std::size_t kLarghezza = modello::kLarghezzaRecord;
constexpr std::size_t kValore = modello::kLarghezzaCella - static_cast<int>(modello::kLunghezzaCodice);

// A line that is filled in by the names of its fields.
class RigaDaComporre {
 public:
  explicit RigaDaComporre(modello::Tavola tavola) : tavola_(tavola), testo_(kLarghezza, ' ') {
    testo_.back() = 'A';
  }
  RigaDaComporre(modello::Tavola tavola, std::string testo) : tavola_(tavola), testo_(std::move(testo)) {
    testo_.resize(kLarghezza, ' ');
  }

  void testo(std::string_view campo, std::string_view valore) {
    const Tratto dove = lettura::tratto(tavola_, campo);
    std::string pieno(valore.substr(0, static_cast<std::size_t>(dove.lunghezza)));
    pieno.resize(static_cast<std::size_t>(dove.lunghezza), ' ');
    testo_.replace(static_cast<std::size_t>(dove.posizione - 1), pieno.size(), pieno);
  }
  // Filled with zeros; the digits at the right end stay.
  void numero(std::string_view campo, std::string_view cifre) {
    const auto largo = static_cast<std::size_t>(lettura::tratto(tavola_, campo).lunghezza);
    const std::string pieno = std::string(largo, '0') + std::string(cifre);
    testo(campo, std::string_view(pieno).substr(pieno.size() - largo));
  }
  void numero(std::string_view campo, std::size_t valore) {
    numero(campo, fromInteger(static_cast<std::int64_t>(valore)));
  }
  void cella(std::string_view codice, std::string_view valore) {
    const std::size_t posto =
        static_cast<std::size_t>(modello::kPrimaCella - 1) + usate_ * modello::kLarghezzaCella;
    if (usate_ == static_cast<std::size_t>(modello::kCelle)) return;
    testo_.replace(posto, codice.size(), codice);
    testo_.replace(posto + codice.size(), valore.size(), valore);
    ++usate_;
  }
  const std::string& fatta() const { return testo_; }

 private:
  modello::Tavola tavola_;
  std::string testo_;
  std::size_t usate_ = 0;
};

void ponCella(RigaDaComporre& riga, const lettura::Caselle& caselle, const lettura::Valore& valore) {
  const lettura::Casella* const casella = caselle.trova(modello::Record::D, valore.codice);
  std::string testo = a1252(valore.testo);
  if (casella != nullptr && aDestra(casella->natura) && testo.size() < kValore) {
    testo.insert(0, kValore - testo.size(), ' ');
  }
  riga.cella(valore.codice, std::string_view(testo).substr(0, kValore));
  for (std::size_t da = kValore; da < testo.size(); da += kValore - 1) {
    riga.cella(valore.codice, "+" + testo.substr(da, kValore - 1));
  }
}

std::string rigaD(const Registrata& registrata, std::size_t numero, std::string_view agente,
                  const std::string& firma, const lettura::Caselle& caselle) {
  RigaDaComporre riga(modello::kTipoD);
  riga.testo("Tipo Record", "D");
  riga.testo("Cod. Fisc. Sost. imposta", agente);
  riga.numero("Progressivo modulo", 1);
  riga.testo("Cod. Fisc. Percipiente", a1252(registrata.certificato.percipiente));
  riga.numero("Progressivo Certificazione", numero);
  riga.numero("Prot. ass. da Serv. telem.-Id. invio", registrata.protocollo);
  riga.numero("Progr. ass. da Serv. telem. alla singola CU", registrata.progressivo);
  riga.testo("Tipo op.: ann./sost.", "A");
  riga.testo("Flag conferma Singola Certif.", "0");
  for (lettura::Valore valore : registrata.certificato.celle) {
    if (valore.codice == "DA003001") valore.testo = firma;
    ponCella(riga, caselle, valore);
  }
  return riga.fatta();
}

}  // namespace

std::vector<std::string> righeAnnullamenti(const FornituraAnnullamenti& fornitura) {
  const std::size_t quante = fornitura.certificate.size();
  std::vector<std::string> righe;
  righe.push_back(RigaDaComporre(modello::kTipoA, a1252(fornitura.invio.recordA)).fatta());
  RigaDaComporre b(modello::kTipoBInizio, a1252(fornitura.invio.recordB));
  b.testo("Fornitura rel. invio certif. da ann.", "1");
  b.testo("Fornitura rel. invio certif. da sost.", "0");
  RigaDaComporre fineB(modello::kTipoBFine, b.fatta());
  fineB.numero("N° comun. certif. lav. aut. e provv.", quante);
  righe.push_back(fineB.fatta());
  const std::string agente(
      lettura::leggi(righe.back(), lettura::tratto(modello::kTipoBInizio, "Cod. Fisc. Sost. imposta")));
  const lettura::Caselle caselle(fornitura.invio.anno);
  std::size_t numero = 0;
  for (const Registrata& registrata : fornitura.certificate) {
    righe.push_back(rigaD(registrata, ++numero, agente, fornitura.firma.toDdmmyyyy(), caselle));
  }
  RigaDaComporre z(modello::kTipoZ);
  z.testo("Tipo Record", "Z");
  for (const char* campo : {"N° rec. Tipo C", "N° rec. Tipo G", "N° rec. Tipo H", "N° rec. Tipo L"}) {
    z.numero(campo, std::size_t{0});
  }
  z.numero("N° rec. Tipo B", 1);
  z.numero("N° rec. Tipo D", quante);
  righe.push_back(z.fatta());
  return righe;
}

}  // namespace cu::riscontro
