#include "riscontro/annullamenti.h"

#include <algorithm>

#include "base/windows1252.h"
#include "lettura/caselle.h"
#include "lettura/testate.h"
#include "modello/riconoscimento.h"
#include "riscontro/riga_composta.h"

namespace cu::riscontro {

namespace {

constexpr std::size_t kValore = modello::kLarghezzaCella - static_cast<int>(modello::kLunghezzaCodice);

void ponCella(RigaComposta& riga, const lettura::Caselle& caselle, const lettura::Valore& valore) {
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
  RigaComposta riga({modello::kTipoD});
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
  righe.push_back(RigaComposta({modello::kTipoA}, a1252(fornitura.invio.recordA)).fatta());
  // The layout of the supply that was filed, whatever the later ones have.
  const std::string presentato = a1252(fornitura.invio.recordB);
  const modello::Modello& modello = modello::modelloDelRecordB(fornitura.invio.anno, presentato);
  RigaComposta b(modello::tipoB(fornitura.invio.anno, modello), presentato);
  b.testo("Fornitura rel. invio certif. da ann.", "1");
  b.testo("Fornitura rel. invio certif. da sost.", "0");
  b.numero("N° comun. certif. lav. aut. e provv.", quante);
  righe.push_back(b.fatta());
  const std::string agente(
      lettura::leggi(righe.back(), lettura::tratto(modello::kTipoBInizio, "Cod. Fisc. Sost. imposta")));
  const lettura::Caselle caselle(fornitura.invio.anno, modello);
  std::size_t numero = 0;
  for (const Registrata& registrata : fornitura.certificate) {
    righe.push_back(rigaD(registrata, ++numero, agente, fornitura.firma.toDdmmyyyy(), caselle));
  }
  RigaComposta z({modello::kTipoZ});
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
