#include "riscontro/conti.h"

#include <map>
#include <utility>

#include "base/text.h"
#include "base/windows1252.h"
#include "data/presenza.h"
#include "modello/restituzioni.h"
#include "riscontro/atteso.h"
#include "worklist/tabella_lavoro.h"

namespace cu::riscontro {
namespace {

constexpr std::string_view kPersona =
    "SELECT Anag.Anagrafica, Anag.Nome, Anag.PersonaFisica,"
    " CASE WHEN ISNULL(Anag.CodiceFiscale, '') = '' THEN Anag.PartitaIva ELSE Anag.CodiceFiscale END"
    " AS CodiceFiscale,"
    " Anag.Indirizzo, Anag.Sesso, Anag.DataNascita,"
    " CASE WHEN ISNULL(NazNascita.Nazione, '') = '' OR UPPER(NazNascita.Nazione) = 'ITALIA'"
    " THEN ProvNascita.Provincia ELSE 'EE' END AS ProvinciaNascita,"
    " CASE WHEN ISNULL(NazNascita.Nazione, '') = '' OR UPPER(NazNascita.Nazione) = 'ITALIA'"
    " THEN ComNascita.Comune ELSE NazNascita.Nazione END AS ComuneNascita,"
    " ComRes.Comune AS ComuneRes, NazRes.PrefissoInternazionale AS PrefissoInternazionaleRes,"
    " CategoriaParticolare.CodiceCategoriaParticolare, EventoEccezionale.CodiceEventoEccezionale, Conti.*"
    " FROM (";

constexpr std::string_view kLegami =
    ") Conti INNER JOIN Anagrafica Anag ON Conti.IDAnagrafica = Anag.IDAnagrafica"
    " LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita = ComNascita.IDComune"
    " LEFT JOIN Provincia ProvNascita ON ComNascita.IDProvincia = ProvNascita.IDProvincia"
    " LEFT JOIN Nazione NazNascita ON Anag.IDNazionalita = NazNascita.IDNazione"
    " LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune"
    " LEFT JOIN Nazione NazRes ON Anag.IDNazione = NazRes.IDNazione"
    " LEFT JOIN CategoriaParticolare ON Conti.IDCategoriaParticolare = "
    "CategoriaParticolare.IDCategoriaParticolare"
    " LEFT JOIN EventoEccezionale ON Conti.IDEventoEccezionale = EventoEccezionale.IDEventoEccezionale"
    " ORDER BY Anag.Anagrafica, Anag.Nome, Conti.IDAnagrafica, Conti.Codice";

CaselleProprie caselleProprie(Connection& connessione, const Esercizio& esercizio) {
  if (!modello::haCaselleProprie(esercizio.modello)) return CaselleProprie::Nessuna;
  return haTabella(connessione, modello::kTabellaPropria) ? CaselleProprie::Lette : CaselleProprie::Vuote;
}

std::string domandaConti(const Esercizio& esercizio, const Conversioni& utilita, CaselleProprie proprie) {
  Filtri filtri;
  filtri.anno = fromInteger(esercizio.anno);
  std::string domanda(kPersona);
  domanda += fnSelectCompensi(filtri, esercizio.idAzienda, utilita, proprie);
  domanda += kLegami;
  return domanda;
}

std::string domandaAzienda(const Esercizio& esercizio) {
  return "SELECT CASE WHEN ISNULL(AnagAz.CodiceFiscale, '') = '' THEN AnagAz.PartitaIva"
         " ELSE AnagAz.CodiceFiscale END AS CodiceFiscaleAz,"
         " AnagAz.Anagrafica AS AnagraficaAz, AnagAz.Nome AS NomeAz, AnagAz.Cap AS CapAz,"
         " AnagAz.Indirizzo AS IndirizzoAz, ComAz.Comune AS ComuneAz, ProvAz.Provincia AS SiglaProvinciaAz,"
         " AnagAz.Telefono AS TelefonoAz, AnagAz.Fax AS FaxAz, AnagAz.EMailInternet AS EMailInternetAz"
         " FROM Azienda INNER JOIN Anagrafica AnagAz ON Azienda.IDAnagrafica = AnagAz.IDAnagrafica"
         " LEFT JOIN Comune ComAz ON AnagAz.IDComune = ComAz.IDComune"
         " LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia = ProvAz.IDProvincia"
         " WHERE Azienda.IDAzienda = " +
         fromInteger(esercizio.idAzienda);
}

std::string domandaAttivita(const Esercizio& esercizio) {
  return "SELECT CodiceAttivita.CodiceAttivita FROM ConfigurazioneGenerale CG"
         " INNER JOIN Filiale ON CG.IDFilialePrevalente = Filiale.IDFiliale"
         " INNER JOIN AttivitaAzienda ON Filiale.IDAttivitaAzienda = AttivitaAzienda.IDAttivitaAzienda"
         " INNER JOIN AttivitaAziendaPerPeriodoIva"
         " ON AttivitaAzienda.IDAttivitaAzienda = AttivitaAziendaPerPeriodoIva.IDAttivitaAzienda"
         " INNER JOIN PeriodoIva ON AttivitaAziendaPerPeriodoIva.IDPeriodoIva = PeriodoIva.IDPeriodoIva"
         " INNER JOIN CodiceAttivita"
         " ON AttivitaAziendaPerPeriodoIva.IDCodiceAttivita = CodiceAttivita.IDCodiceAttivita"
         " WHERE CG.IDAzienda = " +
         fromInteger(esercizio.idAzienda) +
         " AND PeriodoIva.IDAzienda = " + fromInteger(esercizio.idAzienda) +
         " AND PeriodoIva.Anno = " + fromInteger(esercizio.anno);
}

std::string domandaModuli(const Esercizio& esercizio) {
  return "SELECT ModuloXContoIndividuale.*, CodicePerNonSoggetti.Codice AS CodicePerNonSoggetti,"
         " CUCodiceFiscale, CUDenominazioneEntePrevidenziale, CUCodiceEntePrevidenziale,"
         " CUCodiceCategoriaEntePrevidenziale"
         " FROM ModuloXContoIndividuale"
         " INNER JOIN Percipiente ON ModuloXContoIndividuale.IDAzienda = Percipiente.IDAzienda"
         " AND ModuloXContoIndividuale.IDAnagrafica = Percipiente.IDAnagrafica"
         " LEFT JOIN CUEntePrevidenziale"
         " ON Percipiente.IDCUEntePrevidenziale = CUEntePrevidenziale.IDCUEntePrevidenziale"
         " LEFT JOIN CUCategoriaEntePrevidenziale ON Percipiente.IDCUCategoriaEntePrevidenziale ="
         " CUCategoriaEntePrevidenziale.IDCUCategoriaEntePrevidenziale"
         " LEFT JOIN CodicePerNonSoggetti"
         " ON ModuloXContoIndividuale.IDCodicePerNonSoggetti = CodicePerNonSoggetti.IDCodicePerNonSoggetti"
         " WHERE ModuloXContoIndividuale.IDAzienda = " +
         fromInteger(esercizio.idAzienda) +
         " AND ModuloXContoIndividuale.Anno = " + fromInteger(esercizio.anno) +
         " ORDER BY ModuloXContoIndividuale.IDModuloXContoIndividuale";
}

using Chiave = std::pair<std::int64_t, std::int64_t>;  // payee and reason
using Celle = std::vector<lettura::Valore>;

std::map<Chiave, std::vector<Celle>> leggiModuli(Connection& connessione, const Esercizio& esercizio) {
  CelleAttese attese(modello::Record::H, esercizio.anno, false, esercizio.modello);
  std::map<Chiave, std::vector<Celle>> moduli;
  perRiga(
      connessione, domandaModuli(esercizio), [&](const Columns& colonne) { attese.lega(colonne); },
      [&](const RigaConto& riga) {
        moduli[{riga["IDAnagrafica"].integer(), riga["IDCausalePagamento"].integer()}].push_back(
            attese.di(riga));
      });
  return moduli;
}

// The cells of the company, the same in every certificate.
Celle leggiAzienda(Connection& connessione, const Esercizio& esercizio) {
  CelleAttese attese(modello::Record::D, esercizio.anno, true, esercizio.modello);
  Celle azienda;
  const auto lega = [&](const Columns& colonne) { attese.lega(colonne); };
  const auto aggiungi = [&](const RigaConto& riga) {
    for (lettura::Valore& valore : attese.di(riga)) {
      if (valore.codice.starts_with("DA001")) azienda.push_back(std::move(valore));
    }
  };
  perRiga(connessione, domandaAzienda(esercizio), lega, aggiungi);
  perRiga(connessione, domandaAttivita(esercizio), lega, aggiungi);
  return azienda;
}

// Makes an account of each row.
class LettoreConti {
 public:
  LettoreConti(Connection& connessione, const Esercizio& esercizio)
      : azienda_(leggiAzienda(connessione, esercizio)),
        moduli_(leggiModuli(connessione, esercizio)),
        inD_(modello::Record::D, esercizio.anno, true, esercizio.modello),
        inH_(modello::Record::H, esercizio.anno, true, esercizio.modello) {}

  void lega(const Columns& colonne) {
    inD_.lega(colonne);
    inH_.lega(colonne);
    anagrafica_ = colonne.find("IDAnagrafica");
    causale_ = colonne.find("IDCausalePagamento");
    codiceFiscale_ = colonne.find("CodiceFiscale");
    protocollo_ = colonne.find("ProtocolloAnnSost");
    progressivo_ = colonne.find("ProgressivoAnnSost");
  }

  Conto conto(const RigaConto& riga) {
    Conto conto;
    conto.idAnagrafica = riga.a(anagrafica_).integer();
    conto.idCausale = riga.a(causale_).integer();
    conto.protocollo = testoNelFile(riga.a(protocollo_));
    conto.progressivo = testoNelFile(riga.a(progressivo_));
    lettura::Certificato& certificato = conto.certificato;
    certificato.numero = ++numero_;
    const std::string codice = maiuscolo1252(a1252(riga.a(codiceFiscale_).toText()));
    certificato.percipiente = da1252(trimRight(std::string_view(codice).substr(0, 16)));
    certificato.celle = azienda_;
    for (lettura::Valore& valore : inD_.di(riga)) {
      if (!valore.codice.starts_with("DA001")) certificato.celle.push_back(std::move(valore));
    }
    certificato.nome = certificato.valore("DA002002");
    if (const std::string& nome = certificato.valore("DA002003"); !nome.empty())
      certificato.nome += " " + nome;
    certificato.moduli.push_back({1, 0, inH_.di(riga)});
    const auto altri = moduli_.find({conto.idAnagrafica, conto.idCausale});
    if (altri == moduli_.end()) return conto;
    for (Celle& celle : altri->second) {
      certificato.moduli.push_back({static_cast<int>(certificato.moduli.size()) + 1, 0, std::move(celle)});
    }
    return conto;
  }

 private:
  Celle azienda_;
  std::map<Chiave, std::vector<Celle>> moduli_;
  CelleAttese inD_;
  CelleAttese inH_;
  std::size_t anagrafica_ = Columns::kNone;
  std::size_t causale_ = Columns::kNone;
  std::size_t codiceFiscale_ = Columns::kNone;
  std::size_t protocollo_ = Columns::kNone;
  std::size_t progressivo_ = Columns::kNone;
  int numero_ = 0;
};

}  // namespace

std::string codiceFiscaleAzienda(Connection& connessione, std::int32_t idAzienda) {
  std::string codice;
  perRiga(connessione, domandaAzienda({.idAzienda = idAzienda}),
          [&](const RigaConto& riga) { codice = riga["CodiceFiscaleAz"].toText(); });
  return codice;
}

void leggiConti(Connection& connessione, const Esercizio& esercizio, const Conversioni& utilita,
                const std::function<void(Conto)>& ricevi) {
  const ReadScope lettura(connessione);
  LettoreConti lettore(connessione, esercizio);
  perRiga(
      connessione, domandaConti(esercizio, utilita, caselleProprie(connessione, esercizio)),
      [&](const Columns& colonne) { lettore.lega(colonne); },
      [&](const RigaConto& riga) { ricevi(lettore.conto(riga)); });
}

}  // namespace cu::riscontro
