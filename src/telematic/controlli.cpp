#include "telematic/controlli.h"

#include <string_view>

#include "base/text.h"
#include "data/recordset.h"
#include "host/conversioni.h"
#include "telematic/requisiti.h"

namespace cu {
namespace {

constexpr std::string_view kGenerico = "Generico";
constexpr std::string_view kIntermediario = "Intermediario";
constexpr std::string_view kAzienda = "Azienda";
constexpr std::string_view kPercipiente = "Percipiente";

bool vuoto(const Recordset& riga, std::string_view colonna) {
  const CellView campo = riga.Get(colonna);
  return campo.isNull() || (campo.type() == ValueType::Text && campo.text().empty());
}

bool riguarda(SoggettoRequisito soggetto, const Recordset& riga, std::string_view personaFisica) {
  switch (soggetto) {
    case SoggettoRequisito::Ogni:
      return true;
    case SoggettoRequisito::PersonaFisica:
      return riga.Get(personaFisica).flag();
    case SoggettoRequisito::NonPersonaFisica:
      return !riga.Get(personaFisica).flag();
    case SoggettoRequisito::NatoInItalia:
      // A person born abroad has a country instead of a municipality.
      return riga.Get(personaFisica).flag() &&
             (vuoto(riga, "NazioneNascita") || equalsNoCase(riga.Get("NazioneNascita").text(), "ITALIA"));
    case SoggettoRequisito::NonResidente:
      break;
  }
  return riga.Get("NonResidente").flag();
}

}  // namespace

Controlli::Controlli(Connection& connessione, const Conversioni& utilita)
    : connessione_(connessione), utilita_(utilita) {}

void Controlli::esegui(const DatiControllo& dati, std::int32_t idAzienda, const std::string& tabella) {
  mancanti_ = mancantiSulloSchermo(dati);
  esegui(idAzienda, tabella);
}

void Controlli::esegui(std::int32_t idAzienda, const std::string& tabella) {
  controllaAzienda(idAzienda);
  controllaPercipienti(fnQueryPercipienti(tabella));
}

void Controlli::eseguiSuiConti(std::int32_t idAzienda, std::int32_t anno) {
  controllaAzienda(idAzienda);
  controllaPercipienti(fnQueryPercipienti(idAzienda, anno));
}

std::vector<DatoMancante> Controlli::mancantiSulloSchermo(const DatiControllo& dati) {
  std::vector<DatoMancante> mancanti;
  const auto manca = [&](std::string_view sezione, const char* campo, const char* messaggio) {
    mancanti.push_back({campo, std::string(sezione), "", "", messaggio});
  };
  if (dati.dataFirma.empty()) manca(kGenerico, "Data della firma", "Data della firma non presente");
  if (!dati.usoIntermediari) return mancanti;
  if (trim(dati.codiceFiscaleIntermediario).empty()) {
    manca(kIntermediario, "Codice fiscale", "Codice fiscale intermediario non presente");
  }
  if (dati.dataImpegno.empty()) manca(kIntermediario, "Data dell'impegno", "Data dell'impegno non presente");
  return mancanti;
}

void Controlli::controllaAzienda(std::int32_t idAzienda) {
  Recordset azienda;
  azienda.Open(connessione_, utilita_.fnAnsi2jet(fnQueryAzienda(idAzienda)), LockType::BatchOptimistic);
  if (!azienda.Eof()) {
    codFisc_ = utilita_.toText(azienda.Get("CodFisc"));
    for (const Requisito& requisito : kRequisitiAzienda) {
      if (!riguarda(requisito.soggetto, azienda, "PersonaFisicaAz") || !vuoto(azienda, requisito.colonna))
        continue;
      mancanti_.push_back({std::string(requisito.campo), std::string(kAzienda),
                           utilita_.toText(azienda.Get(requisito.denominazione)), codFisc_,
                           std::string(requisito.messaggio)});
    }
  }
  azienda.Close();
}

void Controlli::controllaPercipienti(const std::string& query) {
  Recordset percipienti;
  percipienti.Open(connessione_, utilita_.fnAnsi2jet(query), LockType::BatchOptimistic);
  for (; !percipienti.Eof(); percipienti.MoveNext()) {
    for (const Requisito& requisito : kRequisitiPercipiente) {
      if (!vuoto(percipienti, requisito.colonna) ||
          !riguarda(requisito.soggetto, percipienti, "PersonaFisica")) {
        continue;
      }
      mancanti_.push_back({std::string(requisito.campo), std::string(kPercipiente),
                           utilita_.toText(percipienti.Get(requisito.denominazione)),
                           utilita_.toText(percipienti.Get("CodiceFiscale")),
                           std::string(requisito.messaggio)});
    }
  }
  percipienti.Close();
}

std::string Controlli::fnQueryAzienda(std::int32_t idAzienda) {
  return "SELECT CASE WHEN ISNULL(Anagrafica.CodiceFiscale, '') = '' THEN Anagrafica.PartitaIva"
         " ELSE Anagrafica.CodiceFiscale END AS CodFisc,"
         " Anagrafica.Anagrafica AS AnagAz, Anagrafica.PersonaFisica AS PersonaFisicaAz, Anagrafica.Nome AS "
         "NomeAz,"
         " ComAz.Comune ComuneAz, ProvAz.Provincia SiglaProvinciaAz,"
         " AnagRapp.Anagrafica AS AnagraficaRapp, AnagRapp.Nome AS NomeRapp,"
         " AnagRapp.CodiceFiscale AS CodiceFiscaleRapp, CodiceCarica.Codice CodiceCarica"
         " FROM Anagrafica"
         " INNER JOIN Azienda ON Anagrafica.IDAnagrafica = Azienda.IDAnagrafica"
         " LEFT JOIN Comune ComAz ON Anagrafica.IDComune = ComAz.IDComune"
         " LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia = ProvAz.IDProvincia"
         " LEFT JOIN ConfigurazioneGenerale CG ON Azienda.IDAzienda = CG.IDAzienda"
         " LEFT JOIN Anagrafica AnagRapp ON CG.IDAnagraficaRappresentante = AnagRapp.IDAnagrafica"
         " LEFT JOIN CodiceCarica ON CG.IDCodiceCaricaRappresentante = CodiceCarica.IDCodiceCarica"
         " WHERE Azienda.IDAzienda = " +
         fromInteger(idAzienda);
}

namespace {

// The payees of the rows of a table or view that meet a condition.
std::string queryPercipienti(const std::string& tabella, const std::string& condizione) {
  return "SELECT DISTINCT Anag.Sesso, Anag.DataNascita, NonResidente, Anag.Indirizzo, Anag.PersonaFisica,"
         " Anag.Anagrafica, Anag.Nome, Anag.Anagrafica + ' ' + ISNULL(Anag.Nome,'') AS AnagPercipiente,"
         " CASE WHEN ISNULL(Anag.CodiceFiscale, '') = '' THEN Anag.PartitaIva ELSE Anag.CodiceFiscale END AS"
         " CodiceFiscale,"
         " ComNascita.Comune AS ComuneNascita, ComRes.Comune AS ComuneRes, NazNasc.Nazione AS NazioneNascita,"
         " CodiceIdentificazioneFiscaleEstero, NazRes.PrefissoInternazionale PrefissoInternazionaleRes"
         " FROM " +
         tabella + " INNER JOIN Anagrafica Anag ON " + tabella +
         ".IDAnagrafica = Anag.IDAnagrafica"
         " LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita = ComNascita.IDComune"
         " LEFT JOIN Provincia ProvNascita ON ComNascita.IDProvincia = ProvNascita.IDProvincia"
         " LEFT JOIN Nazione NazNasc ON Anag.IDNazionalita = NazNasc.IDNazione"
         " LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune"
         " LEFT JOIN Provincia ProvRes ON ComRes.IDProvincia = ProvRes.IDProvincia"
         " LEFT JOIN Nazione NazRes ON Anag.IDNazione = NazRes.IDNazione"
         " WHERE " +
         condizione;
}

}  // namespace

std::string Controlli::fnQueryPercipienti(const std::string& tabella) {
  return queryPercipienti(tabella, "Selezionato <> 0");
}

std::string Controlli::fnQueryPercipienti(std::int32_t idAzienda, std::int32_t anno) {
  return queryPercipienti("RepContoIndividuale", "RepContoIndividuale.IDAzienda = " + fromInteger(idAzienda) +
                                                     " AND RepContoIndividuale.Anno = " + fromInteger(anno));
}

}  // namespace cu
