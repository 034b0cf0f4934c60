#include "worklist/tabella_lavoro.h"

#include <string_view>

#include "base/text.h"
#include "host/conversioni.h"
#include "modello/restituzioni.h"
#include "worklist/colonne.h"

namespace cu {
namespace {

std::string_view nomeTipo(Tipo tipo) {
  switch (tipo) {
    case Tipo::Int:
      return "int";
    case Tipo::Note:
      return "Note";
    case Tipo::Descrizione:
      return "Descrizione";
    case Tipo::Importo:
      return "Importo";
    case Tipo::SiNo:
      break;
  }
  return "SiNo";
}

bool vuoto(const std::string& codice) { return trim(codice).empty(); }

}  // namespace

std::string fnNomeTabellaLavoro(std::int32_t idUtente) { return "tmpprequadrivio" + fromInteger(idUtente); }

std::string fnEliminaTabella(const std::string& nome) {
  return "if exists (select * from dbo.sysobjects where id = object_id(N'[dbo].[" + nome +
         "]') AND type in ('N','U')) drop table [dbo].[" + nome + "]";
}

std::string fnCreaTabella(const std::string& nome, bool proprie) {
  std::string testo = "CREATE TABLE [dbo].[" + nome + "] ";
  std::string_view prima = " (";
  const auto aggiungi = [&](const ColonnaLavoro& colonna) {
    testo.append(prima).append("[").append(colonna.nome).append("] [").append(nomeTipo(colonna.tipo));
    testo.append(colonna.nonNullo ? "] NOT NULL" : "] NULL");
    prima = " , ";
  };
  for (const ColonnaLavoro& colonna : kColonneLavoro) aggiungi(colonna);
  if (proprie) {
    for (const ColonnaLavoro& colonna : kColonneProprie) aggiungi(colonna);
  }
  return testo + " CONSTRAINT [PK_" + nome +
         "] PRIMARY KEY CLUSTERED ([IDAnagrafica] ASC, [IDCausalePagamento] ASC, [Anno])"
         " WITH (IGNORE_DUP_KEY = OFF) ON [PRIMARY]) ON [PRIMARY]";
}

std::string fnRigaMancante() {
  return "La tabella di lavoro non contiene più questa riga: un'altra sessione dello stesso utente l'ha "
         "ricreata. Chiudere l'altra sessione, tornare al primo passo e ricaricare i compensi.";
}

std::string fnCorrezioniMancanti(std::int64_t righe, std::int64_t attese) {
  return "Non tutte le correzioni sono arrivate nei conti: ne sono state memorizzate " + fromInteger(righe) +
         " su " + fromInteger(attese) +
         ". Un'altra sessione dello stesso utente ha ricreato la tabella di lavoro, oppure un conto è stato "
         "eliminato dopo il caricamento. Chiudere l'altra sessione, se c'è, tornare al primo passo, "
         "ricaricare i compensi e ripetere le correzioni che mancano.";
}

std::string fnRigheLavoro(const std::string& nome) {
  return "SELECT IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, Selezionato, Modificato FROM " + nome;
}

std::string fnTabellaAltrui() {
  return "La tabella di lavoro non contiene più i compensi mostrati qui: un'altra sessione dello stesso "
         "utente vi ha caricato i suoi. Nessun file è stato creato e nulla è stato memorizzato. Chiudere "
         "l'altra "
         "sessione, tornare al primo passo senza memorizzare, ricaricare i compensi e ripetere le "
         "correzioni.";
}

std::optional<std::string> fnAltraSessione(const DatabaseError& errore, const std::string& nome) {
  if (lowerAscii(errore.description()).find(lowerAscii(nome)) == std::string::npos) return std::nullopt;
  if (errore.kind() == DatabaseErrorKind::Missing || errore.kind() == DatabaseErrorKind::Exists) {
    return "La tabella di lavoro non è più quella di questa sessione: un'altra sessione dello stesso utente "
           "la "
           "sta ricreando. Chiudere l'altra sessione, tornare al primo passo e ricaricare i compensi.";
  }
  if (errore.kind() == DatabaseErrorKind::Duplicate) {
    return "La tabella di lavoro contiene già uno di questi compensi: un'altra sessione dello stesso utente "
           "la "
           "sta riempiendo, oppure i conti danno lo stesso compenso due volte. Chiudere l'altra sessione e "
           "ripetere l'operazione.";
  }
  return std::nullopt;
}

std::string fnIntervalli(const Filtri& filtri, const std::string& causale, const Conversioni& utilita) {
  std::string testo;
  if (filtri.perCodice) {
    if (!vuoto(filtri.codiceDa)) testo += " AND CodicePercipiente >= " + utilita.literal(filtri.codiceDa);
    if (!vuoto(filtri.codiceA)) testo += " AND CodicePercipiente <= " + utilita.literal(filtri.codiceA);
  } else if (filtri.perNome) {
    // The limit is present when its code is, although the name is compared.
    if (!vuoto(filtri.codiceDa)) testo += " AND Anagrafica >= " + utilita.literal(filtri.descrizioneDa);
    if (!vuoto(filtri.codiceA)) testo += " AND Anagrafica <= " + utilita.literal(filtri.descrizioneA);
  }
  if (!vuoto(filtri.causaleDa)) testo += " AND " + causale + " >= " + utilita.literal(filtri.causaleDa);
  if (!vuoto(filtri.causaleA)) testo += " AND " + causale + " <= " + utilita.literal(filtri.causaleA);
  return testo;
}

std::string fnSelectCompensi(const Filtri& filtri, std::int32_t idAzienda, const Conversioni& utilita,
                             CaselleProprie proprie) {
  std::string testo = "SELECT";
  std::string_view prima = " ";
  for (const ColonnaLavoro& colonna : kColonneLavoro) {
    testo.append(prima).append(colonna.sorgente.empty() ? colonna.nome : colonna.sorgente);
    prima = ", ";
  }
  if (proprie != CaselleProprie::Nessuna) {
    for (const ColonnaLavoro& colonna : kColonneProprie) {
      testo.append(prima).append(
          modello::fnColonnaPropria(colonna.nome, "RepContoIndividuale", proprie == CaselleProprie::Lette));
    }
  }
  testo += " FROM RepContoIndividuale WHERE Anno = ";
  testo += trim(filtri.anno);
  testo += " AND IDAzienda = " + fromInteger(idAzienda);
  return testo + fnIntervalli(filtri, "Codice", utilita);
}

}  // namespace cu
