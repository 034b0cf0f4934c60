#include <algorithm>
#include <utility>

#include "base/text.h"
#include "base/windows1252.h"
#include "lettura/esaminatore.h"
#include "lettura/valori.h"

// Records D and H.
namespace cu::lettura {
namespace {

constexpr Tratto kAgente = tratto(modello::kTipoD, "Cod. Fisc. Sost. imposta");
constexpr Tratto kProgressivoModulo = tratto(modello::kTipoD, "Progressivo modulo");
constexpr Tratto kPercipiente = tratto(modello::kTipoD, "Cod. Fisc. Percipiente");
constexpr Tratto kNumero = tratto(modello::kTipoD, "Progressivo Certificazione");
constexpr Tratto kProtocollo = tratto(modello::kTipoD, "Prot. ass. da Serv. telem.-Id. invio");
constexpr Tratto kProgressivo = tratto(modello::kTipoD, "Progr. ass. da Serv. telem. alla singola CU");
constexpr Tratto kOperazione = tratto(modello::kTipoD, "Tipo op.: ann./sost.");
static_assert(tratto(modello::kTipoH, "Cod. Fisc. Percipiente").posizione == kPercipiente.posizione);
static_assert(tratto(modello::kTipoH, "Progressivo Certificazione").posizione == kNumero.posizione);
static_assert(tratto(modello::kTipoH, "Progressivo modulo").posizione == kProgressivoModulo.posizione);
constexpr Tratto kInizioRiga{1, modello::kLarghezzaRecord};

// -1 for what is no number.
int numeroIn(std::string_view riga, Tratto tratto) { return static_cast<int>(numero(leggi(riga, tratto))); }

int numeroLetto(std::string_view riga, Tratto tratto) { return std::max(0, numeroIn(riga, tratto)); }

bool zeri(std::string_view testo) { return testo.find_first_not_of("0 ") == std::string_view::npos; }

std::string_view primi16(std::string_view testo) { return testo.substr(0, 16); }

std::string daZeri(std::string_view testo) { return zeri(testo) ? std::string() : da1252(trimRight(testo)); }

std::vector<Valore> valori(const CelleRiga& celle) {
  std::vector<Valore> valori;
  valori.reserve(celle.quante());
  bool inOrdine = true;
  for (const Cella& cella : celle) {
    const auto stesso = [&](const Valore& v) { return v.codice == cella.codice; };
    inOrdine = inOrdine && (valori.empty() || valori.back().codice < cella.codice);
    if (!inOrdine && std::any_of(valori.begin(), valori.end(), stesso)) continue;
    valori.push_back({std::string(cella.codice), da1252(cella.testo)});
  }
  return valori;
}

}  // namespace

// The agent's code is held by B, by the head of each D and by its cell: what two of them agree on is right.
void Esaminatore::agenteDi(std::string_view testa) {
  const Cella* const cella = celle_.trova(modello::Quadro::Azienda, 1);
  const std::string_view daCella = cella == nullptr ? std::string_view() : primi16(cella->testo);
  const std::string_view dellaTesta = trimRight(testa);
  corrente_.agente = testa;
  if (!std::exchange(agente_.codiceNoto, true)) agente_.codice = testa;
  std::string_view atteso = trimRight(agente_.codice);
  const bool primo = !std::exchange(agente_.confermato, true);
  if (dellaTesta != atteso && primo && daCella == dellaTesta) {
    segnala_.campoDi(agente_.riga, 'B', Regola::H01, kAgente, "Cod. Fisc. Sost. imposta", [&] {
      return "Il codice fiscale del sostituto è " + citato(atteso) + " nel record B e " + citato(dellaTesta) +
             " nelle certificazioni.";
    });
    agente_.codice = testa;
    atteso = trimRight(agente_.codice);
  }
  if (dellaTesta != atteso) {
    segnala_.campo(Regola::H01, kAgente, "Cod. Fisc. Sost. imposta", [&] {
      return "Il codice fiscale del sostituto è " + citato(dellaTesta) + " invece di " + citato(atteso) + ".";
    });
  } else if (cella != nullptr && daCella != atteso) {
    segnala_.campo(Regola::H01, CelleRiga::tratto(*cella), cella->codice, [&] {
      return "Il codice fiscale del sostituto è " + citato(daCella) + " invece di " + citato(atteso) + ".";
    });
  }
}

void Esaminatore::percipienteDi(std::string_view riga) {
  const Cella* const cella = celle_.trova(modello::Quadro::Percipiente, 1);
  corrente_.percipiente = trimRight(leggi(riga, kPercipiente));
  if (cella == nullptr) return;
  corrente_.daCella = primi16(cella->testo);
  if (!segnala_.leggibile(kPercipiente)) corrente_.percipiente = corrente_.daCella;
  corrente_.cella = CelleRiga::tratto(*cella);
  corrente_.testaIncerta = corrente_.daCella != corrente_.percipiente && segnala_.leggibile(kPercipiente) &&
                           segnala_.leggibile(corrente_.cella);
}

void Esaminatore::numeroDi(std::string_view riga) {
  corrente_.numero = numeroIn(riga, kNumero);
  corrente_.precedente = agente_.ultimo;
  if (corrente_.numero < 0) return;
  const auto posto = static_cast<std::size_t>(corrente_.numero);
  if (corrente_.numero <= agente_.ultimo || agente_.visti.test(posto)) {
    segnala_.campo(Regola::O06, kInizioRiga, "Progressivo Certificazione", [&] {
      return "La certificazione " + std::to_string(corrente_.numero) + " segue la " +
             std::to_string(agente_.ultimo) + ": i numeri devono crescere, ognuno una volta.";
    });
  }
  agente_.visti.set(posto);
  agente_.ultimo = corrente_.numero;
}

void Esaminatore::fuoriPosto(std::int64_t riga) {
  segnala_.campoDi(riga, 'D', Regola::H07, kOperazione, "Tipo op.: ann./sost.", [&] {
    return std::string(agente_.correttiva
                           ? "Una certificazione ordinaria sta fra annullamenti e sostituzioni."
                           : "Un annullamento o una sostituzione sta fra certificazioni ordinarie.");
  });
}

// A certificate of another kind than the agent's record declares is out of place as soon as one is in its
// place; where none is, the record is wrong.
void Esaminatore::operazioneDi(std::string_view riga) {
  corrente_.operazione = leggi(riga, kOperazione).front();
  if (corrente_.operazione != ' ' && corrente_.operazione != 'A' && corrente_.operazione != 'S') return;
  const bool correzione = corrente_.operazione != ' ';
  if (correzione) {
    std::vector<std::int64_t>& sue = agente_.correzioni.at(corrente_.operazione == 'A' ? 0 : 1);
    if (sue.size() < Rilievi::kMassimoPerRegola) sue.push_back(segnala_.numero());
  }
  if (!agente_.presente && agente_.certificazioni == 1) agente_.correttiva = correzione;
  if (correzione == agente_.correttiva) {
    agente_.alSuoPosto = true;
    for (const std::int64_t altra : std::exchange(agente_.fuori, {})) fuoriPosto(altra);
  } else if (agente_.alSuoPosto) {
    fuoriPosto(segnala_.numero());
  } else if (agente_.fuori.size() < Rilievi::kMassimoPerRegola) {
    agente_.fuori.push_back(segnala_.numero());
  }
}

void Esaminatore::protocolloDi(std::string_view riga) {
  const bool correzione = corrente_.operazione == 'A' || corrente_.operazione == 'S';
  const auto campo = [&](Tratto dove, std::string_view nome, const char* detto) {
    const std::string_view valore = leggi(riga, dove);
    if (zeri(valore) != correzione) return;
    segnala_.campo(correzione ? Regola::H04 : Regola::H05, dove, nome, [&] {
      return correzione ? "Un annullamento o una sostituzione non ha " + std::string(detto) + "."
                        : "Una certificazione ordinaria ha " + std::string(detto) + " " +
                              citato(trimRight(valore)) + ".";
    });
  };
  campo(kProtocollo, "Prot. ass. da Serv. telem.-Id. invio", "il protocollo");
  campo(kProgressivo, "Progr. ass. da Serv. telem. alla singola CU", "il progressivo");
}

void Esaminatore::recordD(std::string_view riga, bool affidabile) {
  chiudiCertificato();
  if (!caselle_) caselle_.emplace(std::nullopt);
  corrente_.aperto = true;
  corrente_.affidabile = affidabile;
  corrente_.riga = segnala_.numero();
  ++agente_.certificazioni;
  celle_.leggi(riga, modello::Record::D, *caselle_, true, segnala_);
  operazioneDi(riga);
  if (affidabile) {
    agenteDi(leggi(riga, kAgente));
    percipienteDi(riga);
    numeroDi(riga);
    protocolloDi(riga);
    if (numeroIn(riga, kProgressivoModulo) != 1 && numeroIn(riga, kProgressivoModulo) >= 0) {
      segnala_.campo(Regola::O07, kInizioRiga, "Progressivo modulo",
                     [] { return std::string("Il record D di una certificazione è sempre del modulo 1."); });
    }
  }
  congruenza_.percipiente(celle_, segnala_);
  if (ascoltatore_ != nullptr) raccogliD(riga);
}

void Esaminatore::raccogliD(std::string_view riga) {
  if (agente_.sostituto.codiceFiscale.empty())
    agente_.sostituto.codiceFiscale = da1252(trimRight(corrente_.agente));
  annunciaSostituto();
  Certificato& c = corrente_.certificato;
  c.numero = numeroLetto(riga, kNumero);
  c.riga = corrente_.riga;
  c.percipiente = da1252(trimRight(leggi(riga, kPercipiente)));
  c.operazione = da1252(trimRight(leggi(riga, kOperazione)));
  c.protocollo = daZeri(leggi(riga, kProtocollo));
  c.progressivo = daZeri(leggi(riga, kProgressivo));
  c.celle = valori(celle_);
  c.nome = valoreDi(c.celle, "DA002002");
  const std::string& nome = valoreDi(c.celle, "DA002003");
  if (!nome.empty()) c.nome += " " + nome;
}

// The payee of a record H decides which of the two that record D has is wrong.
void Esaminatore::decidiTesta(std::string_view percipiente) {
  if (!std::exchange(corrente_.testaIncerta, false)) return;
  const bool testaGiusta = percipiente != corrente_.daCella;
  const std::string_view giusto = testaGiusta ? corrente_.percipiente : corrente_.daCella;
  const std::string_view errato = testaGiusta ? corrente_.daCella : corrente_.percipiente;
  segnala_.campoDi(corrente_.riga, 'D', Regola::H02, testaGiusta ? corrente_.cella : kPercipiente,
                   testaGiusta ? "DA002001" : "Cod. Fisc. Percipiente", [&] {
                     return "Il codice fiscale del percipiente è " + citato(errato) + " invece di " +
                            citato(giusto) + ".";
                   });
  if (!testaGiusta) corrente_.percipiente = corrente_.daCella;
}

void Esaminatore::confrontaConD(std::string_view riga) {
  const std::string_view agente = leggi(riga, kAgente);
  if (agente != agente_.codice && agente != corrente_.agente) {
    segnala_.campo(Regola::H01, kAgente, "Cod. Fisc. Sost. imposta", [&] {
      return "Il codice fiscale del sostituto è " + citato(trimRight(agente)) + " invece di " +
             citato(trimRight(agente_.codice)) + ".";
    });
  }
  const std::string_view percipiente = trimRight(leggi(riga, kPercipiente));
  decidiTesta(percipiente);
  if (percipiente != corrente_.percipiente) {
    segnala_.campo(Regola::H02, kPercipiente, "Cod. Fisc. Percipiente", [&] {
      return "Il percipiente è " + citato(percipiente) + ", nel record D " + citato(corrente_.percipiente) +
             ".";
    });
  }
  const auto suo = numeroIn(riga, kNumero);
  if (suo < 0 || corrente_.numero < 0 || suo == corrente_.numero) return;
  const auto testo = [&] {
    return "Il numero della certificazione è " + std::to_string(corrente_.numero) + " nel record D e " +
           std::to_string(suo) + " nel record H.";
  };
  // The number that follows the one before is right.
  if (corrente_.moduli == 0 && suo == corrente_.precedente + 1) {
    segnala_.campoDi(corrente_.riga, 'D', Regola::H02, kNumero, "Progressivo Certificazione", testo);
    agente_.visti.reset(static_cast<std::size_t>(corrente_.numero));
    agente_.visti.set(static_cast<std::size_t>(suo));
    corrente_.numero = suo;
    agente_.ultimo = suo;
  } else {
    segnala_.campo(Regola::H02, kNumero, "Progressivo Certificazione", testo);
  }
}

void Esaminatore::numeroDelModulo(std::string_view riga) {
  const auto modulo = numeroIn(riga, kProgressivoModulo);
  const int atteso = corrente_.moduli + 1;
  const bool giusto = modulo < 0 || modulo == atteso || modulo == corrente_.ultimoModulo + 1;
  if (!giusto && corrente_.affidabile) {
    segnala_.campo(Regola::O07, kInizioRiga, "Progressivo modulo", [&] {
      return "Il modulo è il " + std::to_string(modulo) + ", atteso il " + std::to_string(atteso) + ".";
    });
  }
  corrente_.ultimoModulo = modulo < 0 ? atteso : modulo;
}

void Esaminatore::importiAnnullati() {
  const auto importo = [](const Cella& cella) {
    return cella.casella->natura == Natura::Importo || cella.casella->natura == Natura::ImportoConSegno;
  };
  const Cella* const primo = std::find_if(celle_.begin(), celle_.end(), importo);
  if (corrente_.operazione != 'A' || primo == celle_.end()) return;
  segnala_.campo(Regola::H06, CelleRiga::tratto(*primo), primo->codice,
                 [] { return std::string("Un annullamento non ha importi: i record H non servono."); });
}

void Esaminatore::recordH(std::string_view riga, bool affidabile) {
  if (!caselle_) caselle_.emplace(std::nullopt);
  if (!affidabile) corrente_.affidabile = false;
  if (corrente_.aperto && corrente_.affidabile) confrontaConD(riga);
  if (corrente_.aperto && affidabile) {
    numeroDelModulo(riga);
  } else {
    corrente_.ultimoModulo = numeroLetto(riga, kProgressivoModulo);
  }
  const bool primo = (corrente_.moduli == 0 && corrente_.affidabile) || corrente_.ultimoModulo < 2;
  ++corrente_.moduli;
  celle_.leggi(riga, modello::Record::H, *caselle_, primo, segnala_);
  importiAnnullati();
  congruenza_.modulo(celle_, primo, segnala_);
  if (ascoltatore_ != nullptr && corrente_.aperto) raccogliH(riga);
}

void Esaminatore::raccogliH(std::string_view riga) {
  corrente_.certificato.moduli.push_back(
      {numeroLetto(riga, kProgressivoModulo), segnala_.numero(), valori(celle_)});
}

void Esaminatore::chiudiCertificato() {
  if (!corrente_.aperto) {
    corrente_ = {};
    return;
  }
  decidiTesta({});
  congruenza_.fine(corrente_.affidabile, segnala_);
  if (corrente_.moduli == 0 && corrente_.operazione != 'A' && corrente_.affidabile) {
    segnala_.campoDi(corrente_.riga, 'D', Regola::K07, kInizioRiga, "AU001001", [] {
      return std::string("La certificazione non ha un record H, e quindi nemmeno la causale.");
    });
  }
  if (ascoltatore_ != nullptr) ascoltatore_->certificato(corrente_.certificato);
  corrente_ = {};
}

}  // namespace cu::lettura
