#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "data/database.h"
#include "host/progress.h"
#include "intake/lettura_righe.h"
#include "intake/messaggi.h"
#include "intake/opzioni_fatture.h"
#include "schede/schede.h"

namespace cu::intake {

enum class StatoRiga : std::uint8_t { Nuovo, Uguale, Diverso, DaDecidere, Errore, Escluso };
inline constexpr std::size_t kStatiRiga = 6;
std::string_view nome(StatoRiga stato);  // "nuovo", "da decidere"

// What is done with rows that the database has with other values.
enum class SuDiversi : std::uint8_t { Rifiuta, Salta, Aggiorna };

// A row of a reading.
struct Posizione {
  std::size_t file = 0;                                                   // index of the reading
  std::size_t riga = 0;                                                   // index of the row in it
  friend auto operator<=>(const Posizione&, const Posizione&) = default;  // NOLINT(modernize-use-nullptr)
};

// What a person has decided of a row.
struct Decisione {
  bool esclusa = false;
  std::int32_t idAnagrafica = 0;  // the payee that the row means; 0 where none was chosen
  bool nuovoPercipiente = false;  // none of the candidates
  std::int32_t idComune = 0;      // the place, of several with the name
  bool sovrascriviConto = false;  // the account's corrections by hand are given up
  // Of an invoice: when it was paid, with which reason, which of its proposals (RigaFattura::proposte) is
  // right, or the amounts themselves.
  std::optional<Date> pagamento{};
  std::string causale{};
  std::optional<std::size_t> proposta{};
  std::optional<schede::Importi> importi{};
};

struct RichiestaPiano {
  std::int32_t idAzienda = 0;  // not for companies
  std::optional<int> anno;     // payments of other years are left out
  SuDiversi diversi = SuDiversi::Rifiuta;
  std::set<Codice> accettati;     // warnings
  bool databaseEstraneo = false;  // the database may be one that this program has not created
  Date oggi;
  std::map<Posizione, Decisione> decisioni;
  OpzioniFatture fatture{};
};

struct ArchivioLetto;

struct Candidato {
  std::int32_t id = 0;  // of a payee (IDAnagrafica) or a place
  std::string testo;    // "P001 Bianchi Luca, BNCLCU70A01L781X"
};

inline constexpr std::size_t kSenzaVoce = static_cast<std::size_t>(-1);

struct RigaPiano {
  Posizione posizione;
  StatoRiga stato = StatoRiga::Errore;
  // The record that it writes or found: an index of aziende, percipienti or compensi.
  std::size_t voce = kSenzaVoce;
  std::int32_t conto = -1;             // payments: an index of conti
  std::vector<std::uint8_t> derivati;  // columns whose values do not come from the file
  std::vector<Messaggio> messaggi;     // those of the reading are there too
  std::vector<Candidato> candidati;
  std::string esclusa;  // why the row is left out; "" where a message says it
  // Invoices: in words, how the amounts follow from the document, and what else was derived.
  std::vector<std::string> spiegazioni;
  // Invoices: the payee that is proposed as new, an index of percipienti, which several rows can share.
  std::size_t percipienteNuovo = kSenzaVoce;
};

// A record of the database before and after; an id of 0 in `dopo` is a new one.
template <class Scheda>
struct Voce {
  std::optional<Scheda> prima;
  Scheda dopo;
  std::size_t riga = 0;  // index of the planned row
};
// Beside a payee: what the lists do not have, and the import adds.
struct AccantoPercipiente {
  std::string localitaEstera;                           // a town abroad
  std::string enteCodiceFiscale, enteNome, enteCodice;  // a fund
  std::string categoria;                                // a fund's category
  std::string categoriaParticolare, evento;             // codes of the company's own
};
// Beside a company, likewise.
struct AccantoAzienda {
  std::string evento;
};
// Beside a payment.
struct AccantoCompenso {
  std::string riferimento;
  std::optional<std::int32_t> idCodiceNonSoggette;  // 0: to be emptied
};

struct ContoPiano {
  std::int32_t idAnagrafica = 0;
  std::int32_t idCausale = 0;
  int anno = 0;
  std::string percipiente;  // its code
  std::string causale;
  std::optional<schede::Importi> prima;
  schede::Importi dopo{};
  std::int32_t codicePrima = 0;  // of the sums not subject, of the account
  std::int32_t codiceDopo = 0;
};

// What the checks before the telematic file would still report.
struct MancantePiano {
  std::string percipiente;  // its code; "" for the company
  int controllo = 0;        // 4 to 11 of the company, 12 to 18 of a payee
  std::string testo;
};

// What an import would do: the preview, the test and the import use the same one. It can be kept; whether the
// database has changed since is checked when it is applied.
struct Piano {
  Elenco elenco = Elenco::Compensi;
  RichiestaPiano richiesta;
  std::shared_ptr<const std::vector<Lettura>> letture;
  std::vector<RigaPiano> righe;     // in the order of the files and their rows
  std::vector<Messaggio> messaggi;  // of the files, of the database, of accounts
  std::vector<Voce<schede::SchedaAzienda>> aziende;
  std::vector<AccantoAzienda> accantoAziende;  // one for each of aziende
  // Of payments: the new payees of invoices. -1 - i is the IDAnagrafica of percipienti[i] in payments and
  // accounts until it is written, which it is where a payment of it is.
  std::vector<Voce<schede::SchedaPercipiente>> percipienti;
  std::vector<AccantoPercipiente> accantoPercipienti;  // one for each of percipienti
  std::vector<Voce<schede::SchedaCompenso>> compensi;
  std::vector<AccantoCompenso> accantoCompensi;  // one for each of compensi
  std::vector<ContoPiano> conti;                 // those that change
  std::vector<MancantePiano> mancanti;
  std::shared_ptr<const ArchivioLetto> archivio;  // the rows of the database that the plan relies on

  std::array<std::size_t, kStatiRiga> conteggi() const;
  std::size_t quante(StatoRiga stato) const { return conteggi()[static_cast<std::size_t>(stato)]; }
  // Whether it can be applied: no errors, nothing to decide, no warnings but accepted ones.
  bool applicabile() const;
  // Whether there is anything to write.
  bool scrive() const;
  // Of the warnings that stop it: each code once.
  std::set<Codice> avvisiDaAccettare() const;
  const RigaLetta& letta(const RigaPiano& riga) const {
    return (*letture)[riga.posizione.file].righe[riga.posizione.riga];
  }
  // Where the row is: file, sheet, and its number or that of its document.
  PostoMessaggio posto(const RigaPiano& riga) const;
  // Of a payment or an account, be it one that is proposed as new; null for none.
  const schede::SchedaPercipiente* percipiente(std::int32_t idAnagrafica) const;
};

// The columns of the list and their texts, as reports show them: amounts with a point, dates in ISO form.
using ValoriRiga = std::vector<std::pair<std::string, std::string>>;
ValoriRiga chiave(const Piano& piano, const RigaPiano& riga);
ValoriRiga valori(const Piano& piano, const RigaPiano& riga);
// The same of the payee that an invoice's row proposes as new; nothing where it proposes none.
ValoriRiga valoriPercipienteNuovo(const Piano& piano, const RigaPiano& riga);
// The amounts of an account under the columns of the list of payments.
ValoriRiga importi(const schede::Importi& importi);

// Plans the rows of one kind of list. Reads each table once, writes nothing. Raises DatabaseError, and Error
// for a database that is not ready (storico.h); whatever a person can correct is a message of the plan. An
// exception of the sink ends it.
Piano pianifica(Connection& connessione, std::vector<Lettura> letture, const RichiestaPiano& richiesta,
                ProgressSink* avanzamento = nullptr);

}  // namespace cu::intake
