#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/decimal.h"
#include "fatture/compensi.h"
#include "fatture/fattura.h"
#include "fatture/raccolta.h"
#include "host/progress.h"
#include "intake/lettura_righe.h"
#include "intake/opzioni_fatture.h"

namespace cu::intake {

// A document of an invoice file, as far as a plan needs it.
struct DocumentoLetto {
  std::size_t numero = 0;  // in its file, from 1
  std::string tipo;        // "TD01"
  std::string fattura;     // its number
  Date data;
  fatture::Soggetto cedente;
  fatture::Soggetto committente;
  bool forfettario = false;  // a seller in the flat-rate scheme without tax
  // RT01 on a firm, or RT02 on a person: "RT01"; "" where the tax is of the right kind or there is none.
  std::string ritenutaAltrui;
};

// Beside a row: the payment of a document with one reason.
struct RigaFattura {
  std::size_t documento = 0;  // index of FattureLette::documenti, and of the rows of the payees
  // What the document can mean, each explained in words. The row's amounts are those of the first one.
  std::vector<fatture::Candidato> proposte;
  bool decisa = false;              // the first one is the payment; otherwise a person chooses
  bool contributoDerivato = false;  // the total of a contribution, from the payee's third
  Decimal spese;                    // of a flat-rate seller: which part of the sums not subject are expenses
};

// What the reading of an invoice file has beside its rows.
struct FattureLette {
  std::string sha256Contenuto;  // 64 digits: the same for a signed file and for what was signed; "" for none
  std::vector<DocumentoLetto> documenti;
  std::vector<RigaFattura> righe;  // one for each row
  // One row for each document: the seller as a payee, with what follows from the fiscal code (Elenco::
  // Percipienti). What is wrong with one counts only where the payee is new.
  Lettura percipienti;
};

// Turns invoice files into readings of payments. One row is one payment: a document gives one for each
// reason, and what gives none (a notification, another kind of document, a seller without tax) is one row
// that is left out, with its reason. A row of a document that cannot be read has its errors. DataPagamento is
// in no row: the plan finds it (OpzioniFatture). Knows no database.
class LettoreFatture {
 public:
  // The day by which a birth date follows from a fiscal code.
  explicit LettoreFatture(Date oggi) : oggi_(oggi) {}
  Lettura leggi(fatture::Letto&& letto);

 private:
  Date oggi_;
  std::shared_ptr<tabelle::Deposito> testi_;  // of all files
};

struct LettureFatture {
  std::vector<Lettura> letture;  // one for each invoice, notification and file that cannot be read
  fatture::Ignorati ignorati;    // what else was met in folders and archives, counted
};
// Reads files, folders and archives in the order given. Reports the number of files so far; an exception of
// the sink ends it. Raises nothing of its own.
LettureFatture leggiFatture(const std::vector<std::string>& percorsi, Date oggi,
                            ProgressSink* avanzamento = nullptr, const fatture::LimitiRaccolta& limiti = {});

struct TavolaDate {
  std::vector<DataPagata> date;
  std::vector<Messaggio> messaggi;  // with their places
  bool conErrori() const;
};
// Reads the table of dates: CodicePercipiente, CodiceFiscale or PartitaIva, NumeroDocumento, DataDocumento,
// DataPagamento, by the names of the columns of payments. Other columns are ignored.
TavolaDate leggiDate(std::string_view byte, const std::string& nome, const Mappatura& mappatura, Date oggi);

}  // namespace cu::intake
