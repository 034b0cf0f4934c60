#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "intake/lettura_fatture.h"
#include "intake/piano.h"

// The payments of electronic invoices as a window shows them.
namespace cu {

// The document of a row; null for a row of a table, and for a file that gives none.
const intake::DocumentoLetto* documentoDellaRiga(const intake::Piano& piano, const intake::RigaPiano& riga);

// What a row of an invoice, or a file that cannot be read, has become of its document.
struct DocumentoMostrato {
  enum class Stato : std::uint8_t { DaScegliere, SenzaCausale, Errore, Letto, Escluso };
  Stato stato = Stato::Letto;
  std::size_t riga = intake::kSenzaVoce;  // of the plan; none for a file that gives no rows
  std::string file;                       // 'lotto.xml, documento 2'
  std::string cedente;
  std::string codice;  // the seller's fiscal code or VAT number
  std::string tipo;    // "parcella", "nota di credito"
  std::string numero;
  Date data;
  std::string causale;
  std::optional<Decimal> lordo;
  std::optional<Decimal> imponibile;
  std::optional<Decimal> ritenute;
  std::vector<std::string> spiegazioni;  // how the amounts follow, and what else was derived
  std::vector<std::string> proposte;     // of a document that does not add up: what it can mean
  std::optional<std::size_t> scelta;     // which of them a person has chosen
  std::string messaggi;
};
// In the order of the plan's rows, after the files without any.
std::vector<DocumentoMostrato> documentiMostrati(const intake::Piano& piano);
// "? da scegliere": a sign and a word.
std::string detto(DocumentoMostrato::Stato stato);

// Of a row of an invoice, as far as its amounts are certain: of several proposals none is until one is
// chosen.
std::optional<Decimal> lordoDelDocumento(const intake::Piano& piano, const intake::RigaPiano& riga);
// What a message says of a row, where a person has chosen among the proposals that it names without them.
std::string testoMostrato(const intake::Messaggio& messaggio);

// When a payment of an invoice was made, as far as it is known.
struct PagamentoMostrato {
  // Of a row that is left out no date is missing.
  enum class Origine : std::uint8_t { Nessuna, Manca, Proposta, Data };
  Origine origine = Origine::Manca;
  Date giorno;            // day 0 for none
  bool avanti = false;    // January: the document may be of the year before, and so the tax
  bool indietro = false;  // December: the payment may have been made in the next year
  // Whether the row takes a date: one that is left out for another reason than its date is no payment, and
  // one with errors and without any date would not be imported by it.
  bool scrivibile = true;
};
// Of each row of a plan of payments; nothing of other lists, whose rows are no payments.
std::vector<PagamentoMostrato> pagamentiMostrati(const intake::Piano& piano);

// The payments of a year, of the rows that have a date; none in a plan of another list.
struct SommaAnno {
  int anno = 0;
  std::size_t pagamenti = 0;
  std::size_t proposti = 0;   // of them, those with a date that is only proposed
  std::size_t alConfine = 0;  // paid in December or January
  Decimal lordo;
  Decimal ritenute;
};
std::vector<SommaAnno> sommePerAnno(const intake::Piano& piano);

// A day as a person writes it: "20/3/2017", "20-03-17", "2017-03-20". A year of two digits is the
// latest one up to `ultimoAnno`; nullopt for no day.
std::optional<Date> giornoScritto(std::string_view testo, int ultimoAnno);

// The code by which a profile knows the seller of a document.
std::string chiaveCedente(const intake::Piano& piano, const intake::RigaPiano& riga);

}  // namespace cu
