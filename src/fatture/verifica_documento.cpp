#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "base/ascii.h"
#include "base/codice_fiscale.h"
#include "fatture/campi_fattura.h"

namespace cu::fatture {
namespace {

// The number of an Italian firm as the lists have it: programs prefix the country, or lose leading zeros.
void aggiustaPartitaIva(InLettura& l, Soggetto& soggetto, const char* elemento) {
  constexpr std::size_t kCifre = 11;
  std::string& numero = soggetto.partitaIva;
  if (soggetto.paese != "IT" || numero.size() == kCifre) return;
  if (numero.size() == kCifre + 2 && numero.starts_with("IT")) {
    numero.erase(0, 2);
    return;
  }
  if (numero.size() < 7 || numero.size() > kCifre || !std::all_of(numero.begin(), numero.end(), isDigit))
    return;
  const std::string riempito = std::string(kCifre - numero.size(), '0') + numero;
  if (!controlloGiusto(riempito)) return;
  l.posto.elemento = elemento;
  l.rileva("V09", "la partita IVA " + numero + " ha perso gli zeri iniziali: " + riempito, true);
  numero = riempito;
}

void chiedi(InLettura& l, bool manca, const char* elemento) {
  if (!manca) return;
  l.posto.elemento = elemento;
  l.rileva("C01", "l'elemento manca o è vuoto");
}

// An amount that is there but is none has a message of its own already.
bool giaRilevato(const Fattura& fattura, std::string_view elemento, std::size_t riga) {
  return std::any_of(fattura.rilievi.begin(), fattura.rilievi.end(), [&](const Rilievo& uno) {
    return uno.posto.elemento == elemento && (riga == 0 || uno.posto.riga >= riga);
  });
}

void verificaBlocchi(InLettura& l) {
  for (const Ritenuta& una : l.corpo.ritenute) {
    l.posto.riga = una.riga;
    chiedi(l, una.tipo.empty(), "DatiRitenuta/TipoRitenuta");
    chiedi(l, una.causale.empty(), "DatiRitenuta/CausalePagamento");
    for (const auto& [valore, elemento] : {std::pair(una.importo, "DatiRitenuta/ImportoRitenuta"),
                                           std::pair(una.aliquota, "DatiRitenuta/AliquotaRitenuta")})
      chiedi(l, !valore && !giaRilevato(l.corpo, elemento, una.riga), elemento);
  }
  for (const Cassa& una : l.corpo.casse) {
    l.posto.riga = una.riga;
    constexpr const char* kImporto = "DatiCassaPrevidenziale/ImportoContributoCassa";
    chiedi(l, una.tipo.empty(), "DatiCassaPrevidenziale/TipoCassa");
    chiedi(l, !una.importo && !giaRilevato(l.corpo, kImporto, una.riga), kImporto);
  }
}

}  // namespace

void verificaDocumento(InLettura& l) {
  Fattura& corpo = l.corpo;
  l.posto = corpo.posto;
  l.posto.riga = 0;  // the parties are elsewhere
  aggiustaPartitaIva(l, corpo.cedente, "CedentePrestatore/DatiAnagrafici/IdFiscaleIVA/IdCodice");
  aggiustaPartitaIva(l, corpo.committente, "CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA/IdCodice");
  chiedi(l, corpo.cedente.partitaIva.empty() && corpo.cedente.codiceFiscale.empty(),
         "CedentePrestatore/DatiAnagrafici/IdFiscaleIVA");
  chiedi(l, corpo.cedente.nominativo().empty(), "CedentePrestatore/DatiAnagrafici/Anagrafica");
  chiedi(l, corpo.committente.partitaIva.empty() && corpo.committente.codiceFiscale.empty(),
         "CessionarioCommittente/DatiAnagrafici");
  l.posto.riga = corpo.posto.riga;
  chiedi(l, corpo.tipo.empty(), "DatiGeneraliDocumento/TipoDocumento");
  chiedi(l, corpo.numero.empty(), "DatiGeneraliDocumento/Numero");
  constexpr const char* kData = "DatiGeneraliDocumento/Data";
  chiedi(l, !corpo.data && !giaRilevato(corpo, kData, 0), kData);
  chiedi(l, corpo.divisa.empty(), "DatiGeneraliDocumento/Divisa");
  if (!corpo.divisa.empty() && corpo.divisa != "EUR") {
    l.posto.elemento = "DatiGeneraliDocumento/Divisa";
    l.rileva("V05", "la divisa è " + corpo.divisa + ": si leggono solo documenti in euro");
  }
  if (corpo.semplificata) return;
  l.posto.elemento.clear();
  chiedi(l, corpo.linee.empty(), "DatiBeniServizi/DettaglioLinee");
  constexpr const char* kPrezzo = "DettaglioLinee/PrezzoTotale";
  for (const Linea& una : corpo.linee) {
    if (una.prezzoTotale || giaRilevato(corpo, kPrezzo, 0)) continue;
    l.posto.elemento = kPrezzo;
    l.rileva("C01", "nella linea " + una.numero + " manca l'importo");
  }
  verificaBlocchi(l);
}

}  // namespace cu::fatture
