#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/decimal.h"
#include "fatture/importo_esatto.h"

// Electronic invoices as values: what a document says, and nothing that follows from it.
namespace cu::fatture {

// Where something is: 0 and "" for what is not known.
struct Posto {
  std::string file;           // "archivio.zip, IT01_1.xml" for a member of an archive
  std::size_t documento = 0;  // which of the file's documents, from 1
  std::size_t riga = 0;       // of the XML text, from 1
  std::string elemento;       // "DatiRitenuta/ImportoRitenuta"
};
// 'lotto.xml, documento 2, riga 41, elemento DatiRitenuta/ImportoRitenuta': the parts that are known.
std::string descrizione(const Posto& posto);

// What there is to say of a file or of a document. `codice` is one of the stable codes of an import.
struct Rilievo {
  std::string codice;
  Posto posto;
  std::string testo;    // a sentence in Italian without place, code and full stop
  bool avviso = false;  // a warning, although the code is an error otherwise
};
// 'lotto.xml, riga 41, elemento Data: 2017-02-30 non è una data (V01).'
std::string detto(const Rilievo& rilievo);

struct Sede {
  std::string indirizzo;
  std::string civico;
  std::string cap;
  std::string comune;
  std::string provincia;
  std::string nazione;  // two letters
};

struct Soggetto {
  std::string paese;  // of the VAT number, two letters
  std::string partitaIva;
  std::string codiceFiscale;
  std::string denominazione;  // or name and surname
  std::string nome;
  std::string cognome;
  std::string regime;  // "RF01"
  Sede sede;
  bool stabileOrganizzazione = false;
  bool rappresentanteFiscale = false;

  std::string nominativo() const;
};

struct AltroDato {
  std::string tipo;
  std::string testo;
  std::optional<ImportoEsatto> numero;
};

struct Linea {
  std::string numero;
  std::string descrizione;
  std::optional<ImportoEsatto> prezzoTotale;
  std::optional<Decimal> aliquotaIva;
  bool ritenuta = false;
  std::string natura;  // "N1"; "" where VAT is due
  std::vector<AltroDato> altriDati;
};

struct Ritenuta {
  std::string tipo;  // "RT01"
  std::optional<Decimal> importo;
  std::optional<Decimal> aliquota;
  std::string causale;
  std::size_t riga = 0;
};

struct Cassa {
  std::string tipo;  // "TC22"
  std::optional<Decimal> aliquota;
  std::optional<Decimal> importo;
  std::optional<Decimal> imponibile;
  std::optional<Decimal> aliquotaIva;
  bool ritenuta = false;
  std::string natura;
  std::size_t riga = 0;
};

// A discount or an increase of the whole document.
struct Sconto {
  std::string tipo;  // "SC" or "MG"
  std::optional<Decimal> percentuale;
  std::optional<ImportoEsatto> importo;
};

// That stamp duty is due. Whether the payee charges it is said by a line alone.
struct Bollo {
  std::string virtuale;
  std::optional<Decimal> importo;
};

struct Riepilogo {
  std::optional<Decimal> aliquotaIva;
  std::string natura;
  std::optional<Decimal> speseAccessorie;
  std::optional<ImportoEsatto> arrotondamento;
  std::optional<Decimal> imponibile;
  std::optional<Decimal> imposta;
  std::string esigibilita;
};

// When and how the payee asks to be paid. There is no date of an actual payment in a document.
struct Scadenza {
  std::string modalita;
  std::optional<Date> data;
  std::optional<Decimal> importo;
};

struct DocumentoCollegato {
  std::string numero;
  std::optional<Date> data;
};

// One document: a file can have several of the same seller and buyer.
struct Fattura {
  Posto posto;  // its first line
  Soggetto cedente;
  Soggetto committente;
  bool semplificata = false;  // the payee's data and the document's identity are all that is read
  std::string tipo;           // "TD01"
  std::string divisa;
  std::optional<Date> data;
  std::string numero;
  std::vector<Ritenuta> ritenute;
  std::vector<Cassa> casse;
  std::optional<Bollo> bollo;
  std::vector<Sconto> sconti;
  std::optional<Decimal> totale;
  std::optional<Decimal> arrotondamento;
  std::vector<std::string> causali;
  std::vector<DocumentoCollegato> collegate;
  std::vector<Linea> linee;
  std::vector<Riepilogo> riepiloghi;
  std::vector<Scadenza> scadenze;
  std::vector<Rilievo> rilievi;

  bool conErrori() const;
};

enum class Genere : std::uint8_t {
  Fatture,
  Notifica,  // of the exchange system: receipts, rejections, outcomes
  Metadati,
  Altro,       // nothing that an import reads
  Illeggibile  // the messages say why
};

// A file as it was read.
struct Letto {
  std::string nome;
  std::string cartella;  // of the file, or of the archive that holds it, as the caller named it; "" for none
  std::uint64_t dimensione = 0;
  std::string sha256;  // of the file, 64 digits
  std::string
      sha256Contenuto;  // of what its envelopes hold: the same for a signed file and for what was signed
  Genere genere = Genere::Illeggibile;
  std::string titolo;  // what it is, in Italian: "ricevuta di consegna"
  std::vector<Fattura> fatture;
  std::vector<Rilievo> rilievi;  // of the file as a whole

  bool conErrori() const;  // of the file or of a document
};

// Beyond any of these a file is rejected with F05.
struct Limiti {
  std::size_t byte = std::size_t{20} << 20U;  // of a file, and of what an envelope holds
  int profondita = 40;                        // of elements
  std::size_t documenti = 10000;              // in a file
  std::size_t elementi = 2'000'000;           // in a file
  std::size_t testo = 10000;                  // characters of a text that is read
  std::size_t gruppi = 20000;                 // of one kind in a document: lines, blocks
  int buste = 4;                              // one within another
};

}  // namespace cu::fatture
