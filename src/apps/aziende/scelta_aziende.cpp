#include "apps/aziende/scelta_aziende.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>
#include <utility>

#include "apps/comune/connessioni.h"
#include "apps/comune/tavola.h"
#include "base/ascii.h"
#include "base/error.h"
#include "base/text.h"
#include "data/database.h"

namespace cu {
namespace {

// A run of another company may keep a file of the embedded engine for as long as its largest change takes.
constexpr int kAttesa = 600;  // seconds

// What is not a letter or a digit could mean something in a path.
std::string nomeDiCartella(std::string_view testo) {
  std::string nome;
  for (const char c : testo) nome += isLetter(c) || isDigit(c) || c == '-' || c == '_' ? c : '_';
  return nome;
}

// The file's name without its extension, or the name in the connection text.
std::string nomeDi(const Profilo::Database& database) {
  std::string nome;
  if (database.motore == Profilo::Motore::Sqlite) {
    nome = std::filesystem::path(database.origine).stem().string();
  } else {
    constexpr std::string_view kChiave = "database=";
    const std::size_t dove = lowerAscii(database.origine).find(kChiave);
    if (dove != std::string::npos) {
      nome = database.origine.substr(dove + kChiave.size());
      if (const std::size_t fine = nome.find(';'); fine != std::string::npos) nome.resize(fine);
    }
  }
  nome = nomeDiCartella(nome);
  return nome.empty() ? "database" : nome;
}

bool unNumero(const std::string& richiesta) {
  constexpr std::size_t kCifre = 9;  // a VAT number has eleven
  return richiesta.size() <= kCifre && std::all_of(richiesta.begin(), richiesta.end(), isDigit);
}

bool corrisponde(const AziendaTrovata& azienda, const std::string& richiesta) {
  if (unNumero(richiesta)) return azienda.azienda == leadingInteger(richiesta);
  return equalsNoCase(trim(azienda.codiceFiscale), richiesta);
}

// Raises SceltaErrata.
void controllaRichiesta(const std::vector<DatabaseScelto>& database, const std::string& richiesta) {
  bool trovata = false;
  for (const DatabaseScelto& uno : database) {
    std::vector<std::string> numeri;
    for (const AziendaTrovata& azienda : uno.aziende) {
      if (corrisponde(azienda, richiesta)) numeri.push_back(fromInteger(azienda.azienda));
    }
    trovata = trovata || !numeri.empty();
    if (numeri.size() < 2) continue;
    std::string elenco;
    for (const std::string& numero : numeri) elenco.append(elenco.empty() ? "" : ", ").append(numero);
    std::string detto = "Più aziende hanno il codice fiscale ";
    detto.append(richiesta).append(": ").append(elenco).append(". Indicare --company con il numero.");
    throw SceltaErrata(detto);
  }
  if (!trovata) {
    throw SceltaErrata("Nessuna azienda " + richiesta +
                       " nel database: --company vuole il codice fiscale o il numero di un'azienda.");
  }
}

// The company's code; its number too where the code is not that of one company alone.
std::string cartellaDi(const DatabaseScelto& database, const AziendaTrovata& azienda) {
  const std::string codice(trim(azienda.codiceFiscale));
  const std::string numero = fromInteger(azienda.azienda);
  if (codice.empty()) return "azienda-" + numero;
  const auto uguali = std::count_if(
      database.aziende.begin(), database.aziende.end(),
      [&](const AziendaTrovata& altra) { return equalsNoCase(trim(altra.codiceFiscale), codice); });
  return nomeDiCartella(upperAscii(codice)) + (uguali > 1 ? "-" + numero : "");
}

// "traccia.sql" becomes "traccia-3.sql".
std::string tracciaPer(const std::string& traccia, const std::string& coda) {
  if (traccia.empty()) return traccia;
  const std::filesystem::path percorso(traccia);
  return (percorso.parent_path() / (percorso.stem().string() + "-" + coda + percorso.extension().string()))
      .string();
}

// Also by another path to the same file.
bool lostesso(const Profilo::Database& uno, const Profilo::Database& altro) {
  if (uno.motore != altro.motore) return false;
  if (uno.origine == altro.origine) return true;
  std::error_code nonEsiste;
  return uno.motore == Profilo::Motore::Sqlite &&
         std::filesystem::equivalent(uno.origine, altro.origine, nonEsiste);
}

void togliDoppi(std::vector<Profilo::Database>& database) {
  for (auto uno = database.begin(); uno != database.end();) {
    const bool doppio =
        std::any_of(database.begin(), uno, [&](const auto& altro) { return lostesso(*uno, altro); });
    uno = doppio ? database.erase(uno) : std::next(uno);
  }
}

}  // namespace

std::vector<DatabaseScelto> leggiDatabase(std::vector<Profilo::Database> database, AperturaDatabase apri,
                                          const std::function<void(const std::string& testo)>& escluso) {
  togliDoppi(database);
  std::vector<DatabaseScelto> letti;
  std::set<std::string> nomi;
  for (Profilo::Database& uno : database) {
    const std::string suo = nomeDi(uno);
    std::string nome = suo;
    for (int volta = 2; !nomi.insert(lowerAscii(nome)).second; ++volta) nome = suo + "-" + fromInteger(volta);
    chiediPassword(uno);
    letti.push_back({nome, uno, {}});
    try {
      letti.back().aziende = aziendeDelDatabase(*apri(uno));
    } catch (const DatabaseError& errore) {
      if (!escluso || database.size() < 2) throw;
      escluso(nome + ": " + errore.description());
    }
  }
  return letti;
}

std::vector<AziendaScelta> scegliAziende(const std::vector<DatabaseScelto>& database,
                                         const std::vector<std::string>& richieste) {
  for (const std::string& richiesta : richieste) controllaRichiesta(database, richiesta);
  std::vector<AziendaScelta> scelte;
  for (std::size_t i = 0; i < database.size(); ++i) {
    for (const AziendaTrovata& azienda : database[i].aziende) {
      const bool chiesta = std::any_of(richieste.begin(), richieste.end(), [&](const std::string& richiesta) {
        return corrisponde(azienda, richiesta);
      });
      if (!richieste.empty() && !chiesta) continue;
      std::string cartella = cartellaDi(database[i], azienda);
      if (database.size() > 1) {
        cartella = (std::filesystem::path(database[i].nome) / cartella).string();
      }
      scelte.push_back({i, azienda, std::move(cartella)});
    }
  }
  return scelte;
}

std::int32_t numeroSessione(std::int32_t utente, std::int32_t azienda) {
  constexpr std::int32_t kPrimo = 1000000000;
  constexpr std::int32_t kUtenti = 10000;
  constexpr std::int32_t kAziende = 100000;
  if (utente >= 0 && utente < kUtenti && azienda >= 0 && azienda < kAziende) {
    return kPrimo + utente * kAziende + azienda;
  }
  // Larger numbers have no place side by side: spread over the numbers above those.
  constexpr std::int32_t kSparsi = 2000000000;
  constexpr std::uint64_t kQuanti = 147483647;
  // The mixer of the generator SplitMix64: every bit of both reaches every bit of the sum.
  std::uint64_t somma =
      (std::uint64_t{static_cast<std::uint32_t>(utente)} << 32U) | static_cast<std::uint32_t>(azienda);
  somma = (somma ^ (somma >> 30U)) * 0xBF58476D1CE4E5B9U;
  somma = (somma ^ (somma >> 27U)) * 0x94D049BB133111EBU;
  somma ^= somma >> 31U;
  return kSparsi + static_cast<std::int32_t>(somma % kQuanti);
}

Profilo profiloPer(const Profilo& profilo, const std::vector<DatabaseScelto>& database,
                   const AziendaScelta& scelta) {
  const DatabaseScelto& suo = database[scelta.database];
  Profilo per = profilo;
  const bool delProfilo =
      scelta.azienda.azienda == profilo.sessione.azienda && suo.database.origine == profilo.database.origine;
  per.database = suo.database;
  per.database.secondiAttesa = kAttesa;
  per.sessione.azienda = scelta.azienda.azienda;
  if (!delProfilo) per.sessione.filiale = scelta.azienda.filiale;
  per.sessione.utente = numeroSessione(profilo.sessione.utente, scelta.azienda.azienda);
  const std::string numero = fromInteger(scelta.azienda.azienda);
  per.traccia = tracciaPer(profilo.traccia, database.size() > 1 ? suo.nome + "-" + numero : numero);
  return per;
}

std::string dettaAzienda(const std::vector<DatabaseScelto>& database, const AziendaScelta& scelta) {
  const std::string codice(trim(scelta.azienda.codiceFiscale));
  const std::string prima = database.size() > 1 ? database[scelta.database].nome + ", " : std::string();
  return prima + suUnaRiga(scelta.azienda.nome) + " (" + (codice.empty() ? "senza codice fiscale" : codice) +
         ", azienda " + fromInteger(scelta.azienda.azienda) + ")";
}

}  // namespace cu
