#include <filesystem>
#include <iostream>
#include <map>
#include <string_view>

#include "apps/aziende/processi.h"
#include "apps/aziende/scelta_aziende.h"
#include "apps/comune/connessioni.h"
#include "apps/comune/registro_programma.h"
#include "apps/comune/sessione_comando.h"
#include "apps/esame/registro_del_profilo.h"
#include "apps/esame/testo_rilievi.h"
#include "base/text.h"
#include "comandi.h"
#include "corsa_make.h"
#include "data/recordset.h"
#include "esito.h"
#include "fornitura/carico.h"
#include "riscontro/scritte.h"
#include "suite/file_system.h"
#include "suite/impostazioni.h"
#include "suite/testi.h"
#include "worklist/tabella_lavoro.h"

namespace cu {
namespace {

namespace fs = std::filesystem;

// How the run of one company has ended. The letters pass from the process that did it.
enum class Esito : char {
  Scritta = 's',
  ConErrori = 'e',    // written, and the check of the file finds errors
  SenzaModuli = 'm',  // written, and some of its forms are not
  GiaScritta = 'g',
  SenzaConti = 'c',
  Rifiutata = 'r'
};

struct EsitoAzienda {
  Esito esito = Esito::Rifiutata;
  std::string testo;  // one line
};

// A text with its line breaks, on one line.
std::string unaRiga(const std::string& testo) {
  std::string riga;
  for (const char c : righeDiTesto(testo)) riga += c == '\n' ? ' ' : c;
  return riga;
}

void aggiungi(std::string& elenco, const std::string& voce) {
  if (voce.empty()) return;
  if (!elenco.empty()) elenco += "; ";
  elenco += voce;
}

std::string dettiMancanti(const std::vector<DatoMancante>& mancanti) {
  constexpr std::size_t kDetti = 3;
  std::string elenco;
  for (std::size_t i = 0; i < mancanti.size() && i < kDetti; ++i) {
    const DatoMancante& uno = mancanti[i];
    aggiungi(elenco, uno.denominazione.empty() ? uno.messaggio : uno.denominazione + ": " + uno.messaggio);
  }
  if (mancanti.size() > kDetti) {
    aggiungi(elenco, "e altri " + fromInteger(static_cast<std::int64_t>(mancanti.size() - kDetti)));
  }
  return (fornitura::soloNonAttestati(mancanti) ? "alcuni dati non sono del modello dell'anno: "
                                                : "mancano dei dati: ") +
         elenco;
}

std::string ragioni(const CorsaMake& corsa, const Terminale& terminale) {
  std::string elenco;
  if (!corsa.mancanti.empty()) aggiungi(elenco, dettiMancanti(corsa.mancanti));
  for (const std::string& messaggio : terminale.messaggi) aggiungi(elenco, unaRiga(messaggio));
  for (const Terminale::Avviso& avviso : terminale.avvisi) {
    if (!avviso.passato) aggiungi(elenco, unaRiga(avviso.testo) + " (--yes per proseguire)");
  }
  aggiungi(elenco, corsa.motivo);
  return elenco.empty() ? "la procedura si è fermata prima della fine" : elenco;
}

std::string avvisi(const CorsaMake& corsa, const Terminale& terminale, const std::string& diPrima) {
  std::string elenco = diPrima;
  for (const Terminale::Avviso& avviso : terminale.avvisi) {
    if (avviso.passato) aggiungi(elenco, unaRiga(avviso.testo));
  }
  aggiungi(elenco, unaRiga(corsa.dopo.guasto));
  if (corsa.dopo.rilievi.errori() + corsa.dopo.rilievi.avvisi() > 0) {
    aggiungi(elenco, "controllo del file: " + dettoConteggio(corsa.dopo.rilievi));
  }
  return elenco.empty() ? elenco : "; avvisi: " + elenco;
}

EsitoAzienda dettaCorsa(const CorsaMake& corsa, const Terminale& terminale, const std::string& diPrima) {
  if (!corsa.riuscita) return {Esito::Rifiutata, "rifiutata: " + ragioni(corsa, terminale)};
  if (corsa.scritto->certificazioni == 0) {
    return {Esito::Rifiutata, "rifiutata: la selezione non dà certificazioni"};
  }
  if (!corsa.dopo.letto) {
    return {Esito::Rifiutata,
            "rifiutata: il file scritto non si può rileggere: " + unaRiga(corsa.dopo.guasto)};
  }
  const std::string scritto = corsa.scritto->percorso + ", certificazioni " +
                              fromInteger(static_cast<std::int64_t>(corsa.scritto->certificazioni)) +
                              avvisi(corsa, terminale, diPrima);
  if (!terminale.messaggi.empty()) {
    return {Esito::SenzaModuli,
            "scritta, ma senza tutti i moduli: " + scritto + "; errori: " + ragioni(corsa, terminale)};
  }
  if (corsa.dopo.rilievi.errori() > 0) {
    return {Esito::ConErrori, "scritta, ma il file ha errori: " + scritto};
  }
  return {Esito::Scritta, "scritta: " + scritto};
}

// Why a folder cannot be created, in Italian.
std::string dettoErroreCartella(const fs::path& cartella, const std::error_code& errore) {
  std::string motivo = "codice di sistema " + fromInteger(errore.value());
  if (errore == std::errc::permission_denied) motivo = "mancano i permessi";
  if (errore == std::errc::read_only_file_system) motivo = "il disco è di sola lettura";
  if (errore == std::errc::no_space_on_device) motivo = "sul disco non c'è spazio";
  if (errore == std::errc::not_a_directory || errore == std::errc::file_exists) {
    motivo = "c'è un file con quel nome";
  }
  return "la cartella «" + cartella.string() + "» non si può creare: " + motivo;
}

// The run of one company, in a process of its own.
class CorsaAzienda {
 public:
  CorsaAzienda(const OpzioniMake& opzioni, Profilo profilo, fs::path cartella)
      : opzioni_(opzioni), profilo_(std::move(profilo)), cartella_(std::move(cartella)) {}

  // Raises nothing.
  EsitoAzienda esegui() {
    try {
      if (const auto subito = giaFatta()) return *subito;
      return fai();
    } catch (const std::exception& errore) {
      return {Esito::Rifiutata, "rifiutata: " + unaRiga(asError(errore).description())};
    }
  }

 private:
  std::int32_t anno() const { return static_cast<std::int32_t>(leadingInteger(opzioni_.richiesta.anno)); }

  // What needs no run.
  std::optional<EsitoAzienda> giaFatta() {
    const auto connessione = apriConnessione(profilo_.database);
    const riscontro::Esercizio esercizio{profilo_.sessione.azienda, anno()};
    if (opzioni_.aziende->richieste.empty() && !haConti(*connessione, esercizio)) {
      return EsitoAzienda{Esito::SenzaConti, "nessun conto del " + opzioni_.richiesta.anno};
    }
    if (!opzioni_.aziende->soloMancanti) return {};
    riscontro::Registro registro(*connessione);
    if (!registro.presente()) throw SenzaRegistro();
    return opzioni_.richiesta.tipo == Comunicazione::Ordinaria ? ordinariaScritta(registro, esercizio)
                                                               : correzioneScritta(registro, esercizio);
  }

  static bool haConti(Connection& connessione, const riscontro::Esercizio& esercizio) {
    Recordset conti;
    conti.Open(connessione,
               "SELECT COUNT(*) FROM ContoIndividuale WHERE IDAzienda = " + fromInteger(esercizio.idAzienda) +
                   " AND Anno = " + fromInteger(esercizio.anno));
    return conti.Get(0).integer() > 0;
  }

  static std::optional<EsitoAzienda> ordinariaScritta(riscontro::Registro& registro,
                                                      const riscontro::Esercizio& esercizio) {
    Terminale terminale;
    const UtilitaItaliana utilita(terminale, "");
    const riscontro::Scritte scritte = riscontro::scritte(registro, esercizio, utilita);
    const auto numero = [](std::size_t quante) { return fromInteger(static_cast<std::int64_t>(quante)); };
    if (scritte.conti > 0 && scritte.scritte == scritte.conti) {
      std::string detto = "già scritta: certificazioni " + numero(scritte.scritte);
      if (scritte.scartate > 0) {
        detto += ", scartate " + numero(scritte.scartate) + " (si riscrivono da sole con «cuctl correct»)";
      }
      return EsitoAzienda{Esito::GiaScritta, detto};
    }
    if (scritte.inviate == 0) return {};
    return EsitoAzienda{Esito::Rifiutata, "rifiutata: altre certificazioni dell'anno sono già inviate; le " +
                                              numero(scritte.conti - scritte.scritte) +
                                              " nuove si scrivono da sole con «cuctl correct»"};
  }

  std::optional<EsitoAzienda> correzioneScritta(riscontro::Registro& registro,
                                                const riscontro::Esercizio& esercizio) const {
    const auto tipo = static_cast<std::int32_t>(opzioni_.richiesta.tipo);
    for (const riscontro::Invio& invio : registro.invii(esercizio.idAzienda)) {
      if (invio.anno == esercizio.anno && invio.tipo == tipo) {
        return EsitoAzienda{Esito::GiaScritta, "già scritta: " + invio.nome};
      }
    }
    return {};
  }

  // What the Agenzia already has of the year, and a new ordinary file would give it again; "" for nothing.
  std::string giaInviate() {
    if (opzioni_.richiesta.tipo != Comunicazione::Ordinaria) return {};
    const auto connessione = apriConnessione(profilo_.database);
    riscontro::Registro registro(*connessione);
    if (!registro.presente()) return {};
    Terminale terminale;
    const UtilitaItaliana utilita(terminale, "");
    const std::size_t presso =
        riscontro::scritte(registro, {profilo_.sessione.azienda, anno()}, utilita).presso;
    if (presso == 0) return {};
    return "certificazioni dell'anno già inviate: " + fromInteger(static_cast<std::int64_t>(presso)) +
           ", che un nuovo file ripeterebbe; solo ciò che manca lo scrive «cuctl correct»";
  }

  EsitoAzienda fai() {
    const std::string inviate = giaInviate();
    if (!inviate.empty() && !opzioni_.passaAvvisi) {
      return {Esito::Rifiutata, "rifiutata: " + inviate + " (--yes per proseguire)"};
    }
    std::error_code errore;
    const bool nuova = fs::create_directories(cartella_, errore);
    if (errore) return {Esito::Rifiutata, "rifiutata: " + dettoErroreCartella(cartella_, errore)};
    OpzioniMake opzioni = opzioni_;
    opzioni.richiesta.cartella = cartella_.string();
    Terminale terminale;
    terminale.passaAvvisi = opzioni.passaAvvisi;
    const CorsaMake corsa = eseguiMake(profilo_, opzioni, terminale, false);
    togliTabella();
    std::error_code ignorato;
    if (nuova && fs::is_empty(cartella_, ignorato)) fs::remove(cartella_, ignorato);
    return dettaCorsa(corsa, terminale, inviate);
  }

  // Nobody works in such a session again: its work table would remain.
  void togliTabella() noexcept {
    try {
      apriConnessione(profilo_.database)
          ->Execute(fnEliminaTabella(fnNomeTabellaLavoro(profilo_.sessione.utente)));
    } catch (...) {
      // The next run of the same company creates it anew.
    }
  }

  const OpzioniMake& opzioni_;
  Profilo profilo_;
  fs::path cartella_;
};

// The folder above those of the companies. What all runs share is created here, where nobody else does it.
fs::path cartellaComune(const OpzioniMake& opzioni, const Profilo& profilo) {
  FileSystemPiattaforma files;
  ImpostazioniToml impostazioni(profilo.impostazioni, files,
                                [](const std::string& avviso) { std::cerr << avviso << '\n'; });
  fs::create_directories(fs::path(profilo.documenti) / TestiItaliani().text(1264));
  if (!opzioni.richiesta.cartella.empty()) return opzioni.richiesta.cartella;
  return impostazioni.get(trim(TestiItaliani().text(1368)), kMenuSettings, "CU_Path", profilo.documenti);
}

EsitoAzienda letto(const EsitoProcesso& processo) {
  if (!processo.risposta || processo.risposta->empty()) {
    return {Esito::Rifiutata, "rifiutata: " + processo.motivo};
  }
  return {static_cast<Esito>(processo.risposta->front()), processo.risposta->substr(1)};
}

void scriviSomma(std::size_t tutte, std::map<Esito, std::size_t>& somma) {
  std::cout << "Aziende " << tutte << ": scritte " << somma[Esito::Scritta];
  if (somma[Esito::ConErrori] > 0) std::cout << ", scritte con errori nel file " << somma[Esito::ConErrori];
  if (somma[Esito::SenzaModuli] > 0)
    std::cout << ", scritte senza tutti i moduli " << somma[Esito::SenzaModuli];
  if (somma[Esito::GiaScritta] > 0) std::cout << ", già scritte " << somma[Esito::GiaScritta];
  if (somma[Esito::SenzaConti] > 0) std::cout << ", senza conti " << somma[Esito::SenzaConti];
  std::cout << ", rifiutate " << somma[Esito::Rifiutata];
  std::size_t fatte = 0;
  for (const auto& [esito, quante] : somma) fatte += quante;
  if (fatte < tutte) std::cout << ", non iniziate " << tutte - fatte;
  std::cout << ".\n" << std::flush;
  if (somma[Esito::SenzaModuli] > 0) {
    std::cerr << "Dove mancano dei moduli il file risulta scritto: tolta la causa, si rifanno indicando "
                 "l'azienda con "
                 "--company, senza --only-missing.\n";
  }
}

}  // namespace

int comandoMakeAziende(const OpzioniMake& opzioni) {
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  const auto indicati = databaseIndicati(*opzioni.aziende, profilo);
  if (!indicati) return kUsoSbagliato;
  bool esclusi = false;
  const std::vector<DatabaseScelto> database =
      leggiDatabase(*indicati, &apriConnessione, [&](const std::string& testo) {
        esclusi = true;
        std::cerr << testo << '\n';
      });
  std::vector<AziendaScelta> scelte;
  try {
    scelte = scegliAziende(database, opzioni.aziende->richieste);
  } catch (const SceltaErrata& errore) {
    std::cerr << errore.what() << '\n';
    return kRifiutato;
  }
  const fs::path cartella = cartellaComune(opzioni, profilo);
  std::map<Esito, std::size_t> somma;
  const bool tutte = eseguiInProcessi(
      scelte.size(), opzioni.lavori ? static_cast<std::size_t>(*opzioni.lavori) : unitaDiCalcolo(),
      [&](std::size_t quale) {
        const AziendaScelta& scelta = scelte[quale];
        const EsitoAzienda fatta =
            CorsaAzienda(opzioni, profiloPer(profilo, database, scelta), cartella / scelta.cartella).esegui();
        return static_cast<char>(fatta.esito) + fatta.testo;
      },
      [&](std::size_t quale, const EsitoProcesso& processo) {
        const EsitoAzienda fatta = letto(processo);
        ++somma[fatta.esito];
        std::cout << dettaAzienda(database, scelte[quale]) << ": " << fatta.testo << '\n' << std::flush;
      },
      [] {
        std::cerr << "Interrotta: si completano le aziende già iniziate. Un altro Ctrl+C ferma anche quelle."
                  << std::endl;
      });
  scriviSomma(scelte.size(), somma);
  if (!tutte) std::cerr << "Lo stesso comando con --only-missing fa le aziende che mancano.\n";
  const bool intere = !esclusi && somma[Esito::Rifiutata] + somma[Esito::SenzaModuli] == 0;
  return tutte && intere ? kRiuscito : kRifiutato;
}

}  // namespace cu
