#include "intake/soggetti.h"

#include <algorithm>

#include "base/codice_fiscale.h"
#include "base/text.h"
#include "intake/testo_cella.h"

namespace cu::intake {
namespace {

using Trovati = std::vector<const schede::SchedaPercipiente*>;

std::string perIndice(std::string_view testo) { return lowerAscii(trim(testo)); }

std::string perNome(std::string_view cognome, std::string_view nome) {
  return lettereDiCodice(cognome) + lettereDiCodice(nome);
}

bool contraddice(std::string_view uno, std::string_view altro) {
  return !uno.empty() && !altro.empty() && !equalsNoCase(uno, altro);
}

std::string cheSi(const schede::SchedaPercipiente& percipiente) {
  return percipiente.codice + " " + detto(percipiente.anagrafica);
}

template <class C>
Chiavi chiaviIn(const RigaLetta& riga, C codice, C codiceFiscale, C partitaIva) {
  return {std::string(riga.valore(codice).text()),
          std::string(riga.valore(codiceFiscale).text()),
          std::string(riga.valore(partitaIva).text()),
          false,
          {},
          {}};
}

}  // namespace

Chiavi chiaviDi(const RigaLetta& percipiente) {
  using enum ColonnaPercipiente;
  return chiaviIn(percipiente, Codice, CodiceFiscale, PartitaIva);
}

Chiavi chiaviDelCompenso(const RigaLetta& compenso) {
  using enum ColonnaCompenso;
  Chiavi chiavi = chiaviIn(compenso, CodicePercipiente, CodiceFiscale, PartitaIva);
  chiavi.scegliPerIva = chiavi.codice.empty() && chiavi.codiceFiscale.empty();
  return chiavi;
}

Chiavi chiaviDelCedente(const RigaLetta& percipiente) {
  Chiavi chiavi = chiaviDi(percipiente);
  chiavi.scegliPerIva = chiavi.codiceFiscale.empty();
  chiavi.codiceEstero = percipiente.valore(ColonnaPercipiente::CodiceFiscaleEstero).text();
  return chiavi;
}

void NumeriPercipienti::osserva(const std::string& codice) {
  constexpr std::size_t kMassimo = 15;
  const std::size_t numero = codice.find_last_not_of("0123456789") + 1;
  const std::size_t cifre = codice.size() - numero;
  if (cifre == 0 || cifre > kMassimo) return;
  prefisso_ = codice.substr(0, numero);
  Numeri& suoi = numeri_[lowerAscii(prefisso_)];
  suoi.ultimo = std::max(suoi.ultimo, leadingInteger(std::string_view(codice).substr(numero)));
  suoi.larghezza = std::max(suoi.larghezza, cifre);
}

std::string NumeriPercipienti::prossimo() {
  constexpr std::size_t kSoloCifre = 5;
  Numeri& suoi = numeri_[lowerAscii(prefisso_)];
  const std::size_t larghezza = prefisso_.empty() ? std::max(kSoloCifre, suoi.larghezza) : suoi.larghezza;
  std::string numero = fromInteger(++suoi.ultimo);
  if (numero.size() < larghezza) numero.insert(0, larghezza - numero.size(), '0');
  return prefisso_ + numero;
}

Soggetti::Soggetti(std::span<const schede::SchedaPercipiente> percipienti) {
  const auto metti = [](Indice& indice, std::string chiave, const schede::SchedaPercipiente* suo) {
    if (!chiave.empty()) indice[std::move(chiave)].push_back(suo);
  };
  for (const schede::SchedaPercipiente& percipiente : percipienti) {
    const schede::SchedaAnagrafica& a = percipiente.anagrafica;
    metti(perCodice_, perIndice(percipiente.codice), &percipiente);
    metti(perCodiceFiscale_, perIndice(a.codiceFiscale), &percipiente);
    metti(perPartitaIva_, perIndice(a.partitaIva), &percipiente);
    metti(perCodiceEstero_, perIndice(percipiente.codiceFiscaleEstero), &percipiente);
    metti(perNome_, perNome(a.anagrafica, a.nome), &percipiente);
    perId_.emplace(a.id, &percipiente);
  }
}

const schede::SchedaPercipiente* Soggetti::diId(std::int32_t idAnagrafica) const {
  const auto suo = perId_.find(idAnagrafica);
  return suo == perId_.end() ? nullptr : suo->second;
}

const Trovati& Soggetti::cerca(const Indice& indice, const std::string& chiave) {
  static const Trovati kNessuno;
  const auto trovati = indice.find(chiave);
  return trovati == indice.end() ? kNessuno : trovati->second;
}

bool Soggetti::trova(RigaInCorso& corso, const Chiavi& chiavi,
                     const schede::SchedaPercipiente*& trovato) const {
  const Trovati& conCodice = cerca(perCodice_, perIndice(chiavi.codice));
  const Trovati& conFiscale = cerca(perCodiceFiscale_, perIndice(chiavi.codiceFiscale));
  Trovati conIva = cerca(perPartitaIva_, perIndice(chiavi.partitaIva));
  Trovati conEstero = cerca(perCodiceEstero_, perIndice(chiavi.codiceEstero));
  // A VAT number is no key where several payees have it, or its payee another fiscal code.
  if (conIva.size() > 1 && !chiavi.scegliPerIva) conIva.clear();
  for (Trovati* trovati : {&conIva, &conEstero}) {
    std::erase_if(*trovati, [&](const schede::SchedaPercipiente* suo) {
      return contraddice(suo->anagrafica.codiceFiscale, chiavi.codiceFiscale);
    });
  }
  if (chiavi.codiciDellIva.size() > 1 && conIva.size() < 2) {
    if (conCodice.empty() && conFiscale.empty() && contesa(corso, chiavi, conIva)) return false;
    conIva.clear();
  }
  for (const Trovati* trovati : {&conCodice, &conFiscale, static_cast<const Trovati*>(&conIva),
                                 static_cast<const Trovati*>(&conEstero)}) {
    if (trovati->empty()) continue;
    if (trovato != nullptr) {
      if (std::find(trovati->begin(), trovati->end(), trovato) != trovati->end()) continue;
      corso.segnala(Codice::P10,
                    "un codice indica " + cheSi(*trovato) + ", un altro " + cheSi(*trovati->front()));
      return false;
    }
    if (trovati->size() > 1) {
      candidati(corso, *trovati,
                fromInteger(static_cast<std::int64_t>(trovati->size())) + " percipienti in archivio hanno " +
                    (trovati == &conCodice    ? "il codice " + mostrato(chiavi.codice)
                     : trovati == &conFiscale ? "il codice fiscale " + mostrato(chiavi.codiceFiscale)
                                              : "la partita IVA " + mostrato(chiavi.partitaIva)));
      return false;
    }
    trovato = trovati->front();
  }
  return true;
}

// Whether a person has to choose: nothing but the VAT number means the payee, or a payee has only that.
bool Soggetti::contesa(RigaInCorso& corso, const Chiavi& chiavi, const Trovati& conIva) const {
  if (corso.decisione().nuovoPercipiente || (!chiavi.codiceFiscale.empty() && conIva.empty())) return false;
  std::string codici;
  for (const std::string& uno : chiavi.codiciDellIva) codici += (codici.empty() ? "" : ", ") + uno;
  candidati(corso, conIva,
            "la partita IVA " + mostrato(chiavi.partitaIva) + " è di più codici fiscali, " + codici);
  return true;
}

Trovati Soggetti::omonimi(const Chiavi& chiavi, std::string_view cognome, std::string_view nome) const {
  Trovati possibili = cerca(perNome_, perNome(cognome, nome));
  std::erase_if(possibili, [&](const schede::SchedaPercipiente* suo) {
    return contraddice(suo->anagrafica.codiceFiscale, chiavi.codiceFiscale) ||
           contraddice(suo->anagrafica.partitaIva, chiavi.partitaIva);
  });
  return possibili;
}

void Soggetti::candidati(RigaInCorso& corso, const Trovati& possibili, const std::string& perche) const {
  std::string elenco;
  for (const schede::SchedaPercipiente* suo : possibili) {
    if (!elenco.empty()) elenco += "; ";
    elenco += cheSi(*suo);
    corso.riga().candidati.push_back({suo->anagrafica.id, cheSi(*suo)});
  }
  corso.segnala(Codice::P09, elenco.empty() ? perche : perche + ": " + elenco);
}

}  // namespace cu::intake
