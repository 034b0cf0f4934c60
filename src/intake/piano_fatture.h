#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "intake/date_pagamento.h"
#include "intake/identita_fatture.h"
#include "intake/lettura_fatture.h"
#include "intake/percipienti_nuovi.h"
#include "intake/riga_in_corso.h"
#include "intake/soggetti.h"
#include "tabelle/deposito.h"

namespace cu::intake {

// What a row of an invoice is as a row of payments.
struct FatturaPronta {
  RigaLetta letta;                // with its date, its reason and the amounts decided on
  std::int32_t idAnagrafica = 0;  // negative for a new payee
  bool dataProposta = false;      // it is the document's
  bool sola = false;              // the document's only payment
  bool decisa = false;            // what it pays is certain, or a person has chosen it
  // When a payment of the document was made that the database has. `manca` says why there is no other date:
  // this one is taken only if the row turns out to be that payment.
  std::optional<Date> noto{};
  std::string manca{};
};

// Leaves the date of payment to a person (R12).
void dataDaDecidere(RigaInCorso& corso, const std::string& perche);

// What a document can mean, as the amounts of a payment.
std::vector<schede::Importi> importiProposti(const RigaFattura& riga);

// Decides, before a row of an invoice is planned like any other: whose document it is, who is paid, when, for
// which reason and how much.
class PianoFatture {
 public:
  PianoFatture(Piano& piano, const ArchivioLetto& archivio, const Soggetti& soggetti,
               const IdentitaFatture& identita);

  // Of a row that the reading leaves out: whether the company has issued it, or
  // another one has received it.
  void tralasciata(RigaInCorso& corso) const;
  // Of a row that is not left out. nullopt where the row is judged with that: it has its state.
  std::optional<FatturaPronta> prepara(RigaInCorso& corso);
  // Once all rows are judged.
  void codici() { nuovi_.codici(); }

 private:
  struct Documento;

  bool dellAzienda(RigaInCorso& corso, const DocumentoLetto& documento) const;
  bool scegliProposta(RigaInCorso& corso, const Documento& sua, FatturaPronta& pronta) const;
  bool trova(RigaInCorso& corso, const Documento& sua, const schede::SchedaPercipiente*& trovato) const;
  std::optional<Date> nota(const RigaInCorso& corso, const Documento& sua, const FatturaPronta& pronta) const;
  void data(RigaInCorso& corso, const Documento& sua, FatturaPronta& pronta) const;
  DatePagamento::Trovate nellaTavola(const Documento& sua) const;
  void diceAltraData(RigaInCorso& corso, const Documento& sua) const;
  std::string mancaNellaTavola(const Documento& sua, const DatePagamento::Trovate& trovate) const;
  bool dataPossibile(RigaInCorso& corso, const Documento& sua, Date pagamento) const;
  bool fuoriAnno(RigaInCorso& corso, const Documento& sua, Date pagamento) const;
  std::string causaleScelta(const RigaInCorso& corso, const Documento& sua) const;
  void causale(RigaInCorso& corso, const Documento& sua, FatturaPronta& pronta);
  const std::string* causaleAbituale(const Documento& sua) const;

  Piano& piano_;
  const ArchivioLetto& archivio_;
  const Soggetti& soggetti_;
  const IdentitaFatture& identita_;
  PercipientiNuovi nuovi_;
  DatePagamento date_;
  DocumentiOmonimi omonimi_;
  std::map<std::string, std::string> causali_;  // of single payees, by codes in small letters
  tabelle::Deposito testi_;                     // of the rows while they are planned
};

}  // namespace cu::intake
