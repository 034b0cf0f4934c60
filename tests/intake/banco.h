#pragma once

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "archive/archivio.h"
#include "archive/archivio_di_prova.h"
#include "archive/ricostruzione.h"
#include "archive/schema.h"
#include "intake/annulla.h"
#include "intake/applica.h"
#include "intake/esporta.h"
#include "intake/letta.h"
#include "intake/piano.h"
#include "intake/storico.h"
#include "sqlite/sqlite_connection.h"
#include "support/temp_folder.h"

namespace cu::intake::prova {

// A database of its own for each test, copied from one that is made once.
class Banco {
 public:
  explicit Banco(ContenutoArchivio contenuto = ContenutoArchivio::Vuoto) : Banco(modello(contenuto)) {}
  // A copy of another one, whose connection is left alone.
  explicit Banco(const std::string& file) : connessione_(apri(file)), host_(*connessione_) {}

  Connection& operator*() { return *connessione_; }
  Connection* operator->() { return connessione_.get(); }
  DatabaseHost& host() { return host_; }
  void chiudi() { connessione_.reset(); }

  RichiestaPiano richiesta = [] {
    RichiestaPiano sua;
    sua.idAzienda = 1;
    sua.oggi = giorno(2018, 3, 5);
    return sua;
  }();

  Piano piano(Elenco elenco, std::string_view byte, const std::string& file = "f.csv") {
    std::vector<Lettura> letture;
    letture.push_back(letta(elenco, byte, {}, file));
    letture.back().sha256 = file + std::string(byte.size(), 'x');
    return pianifica(*connessione_, std::move(letture), richiesta);
  }
  Result<Applicato> applica(const Piano& piano, bool prova = false) {
    RicostruzioneContiIndividuali ricostruzione;
    return intake::applica(host_, ricostruzione, piano,
                           {.prova = prova, .utente = "anna", .momento = "2018-03-05 10:30:00"});
  }
  // Plans and applies with all warnings accepted; the texts of what prevents it.
  std::vector<std::string> importa(Elenco elenco, std::string_view byte, const std::string& file = "f.csv") {
    for (const VoceCodice& voce : kVociCodici) {
      if (voce.gravita == Gravita::Avviso) richiesta.accettati.insert(voce.codice);
    }
    const Piano suo = piano(elenco, byte, file);
    const Result<Applicato> esito = applica(suo);
    richiesta.accettati.clear();
    return esito ? std::vector<std::string>() : messaggi(suo);
  }
  Result<Annullato> annulla(std::int32_t lotto, bool prova = false) {
    RicostruzioneContiIndividuali ricostruzione;
    return intake::annulla(host_, ricostruzione,
                           {.lotto = lotto, .prova = prova, .momento = "2018-03-06 09:00:00"});
  }

  // "2: R01 ...": the messages of the rows, after those of the plan.
  static std::vector<std::string> messaggi(const Piano& piano) {
    std::vector<std::string> detti;
    for (const Messaggio& m : piano.messaggi) detti.push_back(detto(m));
    for (const RigaPiano& riga : piano.righe) {
      for (const Messaggio& m : riga.messaggi) {
        detti.push_back(std::to_string(piano.letta(riga).numero) + ": " + detto(m));
      }
    }
    return detti;
  }
  static std::string detto(const Messaggio& m) {
    return std::string(voce(m.codice).sigla) + (m.colonna.empty() ? "" : " " + m.colonna) + ": " + m.testo;
  }
  // "nuovo uguale errore"
  static std::string stati(const Piano& piano) {
    std::string testo;
    for (const RigaPiano& riga : piano.righe) {
      if (!testo.empty()) testo += ' ';
      testo += nome(riga.stato);
    }
    return testo;
  }

  // All rows of the suite's tables, sorted: the history aside.
  std::vector<std::string> contenuto() {
    std::vector<std::string> righe;
    for (const OggettoSchema& oggetto : oggettiSchema()) {
      if (oggetto.vista) continue;
      // Imports add towns to the municipalities, and change none.
      const bool comuni = oggetto.nome == "Comune";
      const test::Righe lette(*connessione_,
                              comuni ? "SELECT * FROM Comune WHERE IDComune > 13999" : oggetto.nome);
      for (std::size_t i = 0; i < lette.size(); ++i) {
        std::string riga(oggetto.nome);
        for (const std::string& colonna : lette.names()) {
          riga += lette.isNull(i, colonna) ? "\tnull" : "\t'" + lette.text(i, colonna);
        }
        righe.push_back(riga);
      }
    }
    std::sort(righe.begin(), righe.end());
    return righe;
  }
  std::string file() const { return cartella_ / "prova.db"; }
  std::string uno(std::string_view domanda) {
    const test::Righe righe(*connessione_, domanda);
    return righe.size() == 0 ? "-" : righe.text(0, righe.names().front());
  }
  std::int64_t quante(std::string_view tabella) {
    return test::number(*connessione_, "SELECT COUNT(*) FROM " + std::string(tabella));
  }

 private:
  static std::string modello(ContenutoArchivio contenuto) {
    static std::map<ContenutoArchivio, std::string> fatti;
    static const test::TempFolder cartella;
    std::string& file = fatti[contenuto];
    if (file.empty()) {
      file = cartella / ("modello" + std::to_string(fatti.size()) + ".db");
      creaArchivio(*SqliteConnection::create(file), contenuto, {.percipienti = 300});
    }
    return file;
  }
  std::unique_ptr<SqliteConnection> apri(const std::string& file) {
    std::filesystem::copy_file(file, cartella_ / "prova.db");
    return SqliteConnection::open(cartella_ / "prova.db");
  }

  test::TempFolder cartella_;
  std::unique_ptr<SqliteConnection> connessione_;
  test::OneConnectionHost host_;
};

inline constexpr std::string_view kAziende =
    "CodiceFiscale;Denominazione;Indirizzo;Cap;Comune;Provincia;CodiceAttivita;RappresentanteCodiceFiscale;"
    "RappresentanteCognome;RappresentanteNome;RappresentanteCarica\n"
    "12345670017;Esempio S.r.l.;Via Roma 1;00184;Roma;RM;692011;RSSMRA80A01H501U;Rossi;Mario;1\n";
inline constexpr std::string_view kPercipienti =
    "Codice;CodiceFiscale;Cognome;Nome;Indirizzo;Cap;Comune;Provincia\n"
    "P1;RSSMRA80A01H501U;Rossi;Mario;Via Garibaldi 7;00184;Roma;RM\n"
    "P2;00743110157;Ditta S.n.c.;;Via Po 1;10123;Torino;TO\n";
inline constexpr std::string_view kCompensi =
    "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;DataDocumento;Onorario;SommeNonSoggette;"
    "RitenutaAcconto\n"
    "P1;A;2017-03-20;1/2017;2017-03-15;1000,00;2,00;200,00\n"
    "P1;A;2017-06-20;2/2017;2017-06-15;500,00;;100,00\n"
    "P2;A;2016-06-20;7;2016-06-15;300,00;;60,00\n";

// The file of a database with a company, two payees and three payments, made by imports.
inline const std::string& riempito() {
  static const std::unique_ptr<Banco> fatto = [] {
    auto banco = std::make_unique<Banco>();
    for (const auto& [elenco, byte] :
         {std::pair(Elenco::Aziende, kAziende), std::pair(Elenco::Percipienti, kPercipienti),
          std::pair(Elenco::Compensi, kCompensi)}) {
      const std::vector<std::string> contro =
          banco->importa(elenco, byte, "base" + std::string(nome(elenco)) + ".csv");
      if (!contro.empty()) throw std::logic_error(contro.front());
    }
    banco->chiudi();
    return banco;
  }();
  static const std::string file = fatto->file();
  return file;
}

}  // namespace cu::intake::prova
