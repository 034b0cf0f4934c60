#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "data/database.h"
#include "lettura/certificato.h"

// What was filed: each file written, each certificate of it, and what the authority has answered.
namespace cu::riscontro {

enum class Stato : std::uint8_t { Scritta, Inviata, Accettata, Scartata, Annullata, Sostituita };
std::string_view nome(Stato stato);                     // "scritta"
std::optional<Stato> statoDi(std::string_view parola);  // of the same words

// A file that was written.
struct Invio {
  std::int64_t id = 0;
  std::int32_t idAzienda = 0;
  std::int32_t anno = 0;
  std::int32_t tipo = 1;  // 1 ordinary, 2 annulments, 3 replacements
  std::string nome;
  std::string impronta;   // SHA-256 of the file, 64 hexadecimal digits
  std::string momento;    // "2018-03-05 10:30:00"
  std::string dataInvio;  // "2018-03-06"; "" as long as it is not sent
  std::int64_t certificazioni = 0;
  std::int64_t moduli = 0;
  std::string recordA;  // as written
  std::string recordB;
};

// A certificate of such a file.
struct Registrata {
  std::int64_t id = 0;
  std::int64_t idInvio = 0;
  lettura::Certificato certificato;  // protocol and progressive are those that it refers to
  Stato stato = Stato::Scritta;
  std::string protocollo;  // given by the authority
  std::string progressivo;
  std::string motivo;  // of a rejection
  bool ordinaria() const { return certificato.operazione.empty(); }
};

// The tables of a database. Errors of the database rise as they are; without the tables every call but
// presente() raises one.
class Registro {
 public:
  explicit Registro(Connection& connessione) : connessione_(connessione) {}

  bool presente();

  // In one transaction; the id of the file.
  std::int64_t registra(const Invio& invio, const std::vector<lettura::Certificato>& certificati);
  // Reads a file: passes on each certificate, which is not kept, and completes the file's own facts in
  // `invio` before it returns.
  using Lettura =
      std::function<void(Invio& invio, const std::function<void(const lettura::Certificato&)>& uno)>;
  // The same of a file that is read meanwhile; read anew where the transaction has to begin again.
  std::int64_t registraLetto(const Invio& invio, const Lettura& lettura);
  // The last file with the content.
  std::optional<Invio> cerca(std::string_view impronta);
  std::vector<Invio> invii(std::int32_t idAzienda);
  // Marks the file, and those of its certificates that are only written.
  void segnaInviato(std::int64_t idInvio, Date giorno);

  // Whether the file and all of its certificates are no more than written.
  bool soloScritto(std::int64_t idInvio);
  // Takes out such a file with its certificates, in one transaction; false where it was sent meanwhile.
  bool togli(std::int64_t idInvio);

  // The certificates of a company, of one year or of all, in the order in which they were written; `conCelle`
  // with their contents.
  std::vector<Registrata> certificate(std::int32_t idAzienda, std::optional<std::int32_t> anno,
                                      bool conCelle);
  void aggiorna(const Registrata& registrata, Date giorno);

  Connection& connessione() { return connessione_; }

 private:
  std::int64_t registraUna(Invio invio, const Lettura& lettura);
  std::string causaleDi(const lettura::Certificato& certificato, std::int32_t idAzienda);
  std::int64_t massimo(std::string_view tabella, std::string_view colonna);
  void leggiModuli(std::int32_t idAzienda, std::optional<std::int32_t> anno,
                   std::vector<Registrata>& registrate);

  Connection& connessione_;
};

// Sixteen hexadecimal digits of the cells, the signature and its date left out.
std::string improntaCelle(const lettura::Certificato& certificato);

}  // namespace cu::riscontro
