#include "telematic/query_cu.h"

#include <initializer_list>

#include "modello/moduli.h"

namespace cu::telematico {
namespace {

std::string unisci(std::initializer_list<std::string_view> pezzi) {
  std::string testo;
  for (const std::string_view pezzo : pezzi) testo += pezzo;
  return testo;
}

}  // namespace

std::string queryPrincipale(std::string_view tabellaLavoro, std::string_view righe) {
  const std::string_view T = tabellaLavoro;
  const std::string origine = righe.empty() ? std::string(T) : unisci({"(", righe, ") ", T});
  return unisci({
      "SELECT ",
      T,
      ".*, Anag.Anagrafica, Anag.Nome, Anag.PersonaFisica,",
      " Anag.EMailInternet, Anag.Telefono, Anag.Fax, CG.CodiceFiscaleSocieta,",
      " CASE WHEN ISNULL(Anag.CodiceFiscale, '') = '' THEN Anag.PartitaIva ELSE Anag.CodiceFiscale END",
      " AS CodiceFiscale,",
      " Anag.Cap, Anag.Indirizzo, Anag.Sesso, Anag.DataNascita, NonResidente,",
      " AnagRapp.Anagrafica AS AnagraficaRapp, AnagRapp.Nome AS NomeRapp,",
      " AnagRapp.CodiceFiscale AS CodiceFiscaleRapp, CodiceCarica.Codice CodiceCarica,",
      " CASE WHEN ISNULL(AnagAz.CodiceFiscale, '') = '' THEN AnagAz.PartitaIva ELSE AnagAz.CodiceFiscale END",
      " AS CodiceFiscaleAz,",
      " AnagAz.Anagrafica AS AnagraficaAz, AnagAz.PersonaFisica AS PersonaFisicaAz, AnagAz.Nome AS NomeAz,",
      " AnagAz.Cap AS CapAz, AnagAz.Indirizzo IndirizzoAz, ComAz.Comune ComuneAz,",
      " ProvAz.Provincia SiglaProvinciaAz,",
      " AnagAz.Telefono TelefonoAz, AnagAz.Fax FaxAz, AnagAz.EMailInternet EMailInternetAz,",
      " CASE WHEN ISNULL(NazNascita.Nazione, '') = '' OR UPPER(NazNascita.Nazione) = 'ITALIA'",
      " THEN ProvNascita.Provincia ELSE 'EE' END AS ProvinciaNascita,",
      " CASE WHEN ISNULL(NazNascita.Nazione, '') = '' OR UPPER(NazNascita.Nazione) = 'ITALIA'",
      " THEN ComNascita.Comune ELSE NazNascita.Nazione END AS ComuneNascita,",
      " ComRes.Comune AS ComuneRes, CodiceCategoriaParticolare, EventoEccezionale.CodiceEventoEccezionale,",
      " ComuneResidenzaAnnoPrec, ComuneResidenzaAnnoCorr, SiglaProvResidenzaAnnoPrec,",
      " SiglaProvResidenzaAnnoCorr,",
      " CodiceAttivita.CodiceAttivita, CodiceFiscaleRappresentante, CodiceIdentificazioneFiscaleEstero,",
      " NazRes.PrefissoInternazionale PrefissoInternazionaleRes,",
      " EEAz.CodiceEventoEccezionale AS CodiceEventoEccezionaleAz",
      " FROM ",
      origine,
      " INNER JOIN Anagrafica Anag ON ",
      T,
      ".IDAnagrafica = Anag.IDAnagrafica",
      " LEFT JOIN ConfigurazioneGenerale CG ON ",
      T,
      ".IDAzienda = CG.IDAzienda",
      " LEFT JOIN Anagrafica AnagRapp ON CG.IDAnagraficaRappresentante = AnagRapp.IDAnagrafica",
      " LEFT JOIN CodiceCarica ON CG.IDCodiceCaricaRappresentante = CodiceCarica.IDCodiceCarica",
      " LEFT JOIN Azienda ON ",
      T,
      ".IDAzienda = Azienda.IDAzienda",
      " LEFT JOIN Anagrafica AnagAz ON Azienda.IDAnagrafica = AnagAz.IDAnagrafica",
      " LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita = ComNascita.IDComune",
      " LEFT JOIN Provincia ProvNascita ON ComNascita.IDProvincia = ProvNascita.IDProvincia",
      " LEFT JOIN Nazione NazNascita ON Anag.IDNazionalita = NazNascita.IDNazione",
      " LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune",
      " LEFT JOIN Provincia ProvRes ON ComRes.IDProvincia = ProvRes.IDProvincia",
      " LEFT JOIN Nazione NazRes ON Anag.IDNazione = NazRes.IDNazione",
      " LEFT JOIN Comune ComAz ON AnagAz.IDComune = ComAz.IDComune",
      " LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia = ProvAz.IDProvincia",
      " LEFT JOIN CategoriaParticolare ON ",
      T,
      ".IDCategoriaParticolare = CategoriaParticolare.IDCategoriaParticolare",
      " LEFT JOIN EventoEccezionale ON ",
      T,
      ".IDEventoEccezionale = EventoEccezionale.IDEventoEccezionale",
      " LEFT JOIN Filiale ON CG.IDFilialePrevalente = Filiale.IDFiliale",
      " LEFT JOIN AttivitaAzienda ON Filiale.IDAttivitaAzienda = AttivitaAzienda.IDAttivitaAzienda",
      " LEFT JOIN AttivitaAziendaPerPeriodoIva",
      " ON AttivitaAzienda.IDAttivitaAzienda = AttivitaAziendaPerPeriodoIva.IDAttivitaAzienda",
      " LEFT JOIN PeriodoIva ON AttivitaAziendaPerPeriodoIva.IDPeriodoIva = PeriodoIva.IDPeriodoIva",
      " LEFT JOIN CodiceAttivita",
      " ON AttivitaAziendaPerPeriodoIva.IDCodiceAttivita = CodiceAttivita.IDCodiceAttivita",
      " LEFT JOIN ConfigurazioneCompensiATerzi CT ON ",
      T,
      ".IDAzienda = CT.IDAzienda",
      " LEFT JOIN EventoEccezionale EEAz ON CT.IDEventoEccezionale = EEAz.IDEventoEccezionale",
      " WHERE ",
      T,
      ".Anno = PeriodoIva.Anno AND ",
      T,
      ".IDAzienda = PeriodoIva.IDAzienda",
      " AND Selezionato <> 0",
      " ORDER BY Anag.Anagrafica, Anag.Nome, IDAnagrafica, Codice",
  });
}

std::string queryModuli(std::int64_t anno, std::int64_t idAnagrafica, std::int64_t idAzienda,
                        std::int64_t idCausalePagamento) {
  // The fund of a module is that of its payee.
  return modello::fnSelectModuli(
      {{{"Anno", anno},
        {"IDAnagrafica", idAnagrafica},
        {"IDAzienda", idAzienda},
        {"IDCausalePagamento", idCausalePagamento}}},
      ", CUCodiceFiscale, CUDenominazioneEntePrevidenziale, CUCodiceEntePrevidenziale,"
      " CUDenominazioneEntePrevidenziale, CUCodiceCategoriaEntePrevidenziale",
      " INNER JOIN Percipiente ON ModuloXContoIndividuale.IDAzienda = Percipiente.IDAzienda"
      " AND ModuloXContoIndividuale.IDAnagrafica = Percipiente.IDAnagrafica"
      " LEFT JOIN CUEntePrevidenziale"
      " ON Percipiente.IDCUEntePrevidenziale = CUEntePrevidenziale.IDCUEntePrevidenziale"
      " LEFT JOIN CUCategoriaEntePrevidenziale"
      " ON Percipiente.IDCUCategoriaEntePrevidenziale = "
      "CUCategoriaEntePrevidenziale.IDCUCategoriaEntePrevidenziale");
}

}  // namespace cu::telematico
