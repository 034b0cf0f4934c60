#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "intake/lettura_fatture.h"
#include "intake/riga_in_corso.h"
#include "intake/soggetti.h"

namespace cu::intake {

// The sellers of invoices who are no payees yet: each is proposed once for all of their documents.
class PercipientiNuovi {
 public:
  PercipientiNuovi(Piano& piano, const ArchivioLetto& archivio, const Soggetti& soggetti);

  // Of the seller of a document: with a VAT number alone, the fiscal code that other documents have with it,
  // where neither these nor the database have another one.
  Chiavi chiavi(const RigaLetta& cedente) const;

  // Proposes the seller of a row's document, for whom no payee was found; the row has the index and the
  // messages. False where a person has to decide first, or the payee cannot be as the document says.
  bool proponi(RigaInCorso& corso);

  // Gives them their codes, once all rows are judged.
  void codici();

 private:
  struct Proposto {
    std::size_t file = 0;  // the document that it is taken from
    std::size_t documento = 0;
    bool giudicato = false;
    std::size_t voce = kSenzaVoce;
    std::vector<Messaggio> messaggi;  // that stop it, on each row
    std::vector<Candidato> candidati;
  };

  std::string chiave(const RigaLetta& cedente) const;
  void raccogliCodici();
  void osserva(const Lettura& lettura, std::size_t file);
  void giudica(RigaInCorso& corso, Proposto& proposto);
  void comune(RigaInCorso& corso, RigaLetta& letta) const;
  std::string spiegazione(const RigaPiano& riga, const schede::SchedaPercipiente& nuovo) const;

  Piano& piano_;
  const ArchivioLetto& archivio_;
  const Soggetti& soggetti_;
  // The fiscal codes that the documents and the database have with a document's VAT number, each once.
  struct CodiciIva {
    std::vector<std::string> codici;
    bool neiDocumenti = false;  // some of them
  };
  std::map<std::string, CodiciIva> codiciDellIva_;
  std::map<std::string, Proposto> proposti_;
};

}  // namespace cu::intake
