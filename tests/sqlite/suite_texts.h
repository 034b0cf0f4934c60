#pragma once

#include <array>
#include <string>
#include <string_view>

#include "suite_columns.h"

// The statements of the system as they reach the database, for the tests and the benchmark of the embedded
// engine. They are independent: none of it comes from the code that composes them.
namespace cu::sqlite::test {

// "@" is replaced by the name of the work table.
inline constexpr std::string_view kMainQuery =
    "SELECT @.*, Anag.Anagrafica, Anag.Nome, Anag.PersonaFisica, Anag.EMailInternet,"
    " Anag.Telefono, Anag.Fax, CG.CodiceFiscaleSocieta, CASE WHEN ISNULL(Anag.CodiceFiscale,"
    " '') = '' THEN Anag.PartitaIva ELSE Anag.CodiceFiscale END AS CodiceFiscale, Anag.Cap,"
    " Anag.Indirizzo, Anag.Sesso, Anag.DataNascita, NonResidente, AnagRapp.Anagrafica AS"
    " AnagraficaRapp, AnagRapp.Nome AS NomeRapp, AnagRapp.CodiceFiscale AS CodiceFiscaleRapp,"
    " CodiceCarica.Codice CodiceCarica, CASE WHEN ISNULL(AnagAz.CodiceFiscale, '') = '' THEN"
    " AnagAz.PartitaIva ELSE AnagAz.CodiceFiscale END AS CodiceFiscaleAz, AnagAz.Anagrafica AS"
    " AnagraficaAz, AnagAz.PersonaFisica AS PersonaFisicaAz, AnagAz.Nome AS NomeAz, AnagAz.Cap"
    " AS CapAz, AnagAz.Indirizzo IndirizzoAz, ComAz.Comune ComuneAz, ProvAz.Provincia"
    " SiglaProvinciaAz, AnagAz.Telefono TelefonoAz, AnagAz.Fax FaxAz, AnagAz.EMailInternet"
    " EMailInternetAz, CASE WHEN ISNULL(NazNascita.Nazione, '') = '' OR"
    " UPPER(NazNascita.Nazione) = 'ITALIA' THEN ProvNascita.Provincia ELSE 'EE' END AS"
    " ProvinciaNascita, CASE WHEN ISNULL(NazNascita.Nazione, '') = '' OR"
    " UPPER(NazNascita.Nazione) = 'ITALIA' THEN ComNascita.Comune ELSE NazNascita.Nazione END"
    " AS ComuneNascita, ComRes.Comune AS ComuneRes, CodiceCategoriaParticolare,"
    " EventoEccezionale.CodiceEventoEccezionale, ComuneResidenzaAnnoPrec,"
    " ComuneResidenzaAnnoCorr, SiglaProvResidenzaAnnoPrec, SiglaProvResidenzaAnnoCorr,"
    " CodiceAttivita.CodiceAttivita, CodiceFiscaleRappresentante,"
    " CodiceIdentificazioneFiscaleEstero, NazRes.PrefissoInternazionale"
    " PrefissoInternazionaleRes, EEAz.CodiceEventoEccezionale AS CodiceEventoEccezionaleAz"
    " FROM @ INNER JOIN Anagrafica Anag ON @.IDAnagrafica = Anag.IDAnagrafica LEFT JOIN"
    " ConfigurazioneGenerale CG ON @.IDAzienda = CG.IDAzienda LEFT JOIN Anagrafica AnagRapp ON"
    " CG.IDAnagraficaRappresentante = AnagRapp.IDAnagrafica LEFT JOIN CodiceCarica ON"
    " CG.IDCodiceCaricaRappresentante = CodiceCarica.IDCodiceCarica LEFT JOIN Azienda ON"
    " @.IDAzienda = Azienda.IDAzienda LEFT JOIN Anagrafica AnagAz ON Azienda.IDAnagrafica ="
    " AnagAz.IDAnagrafica LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita ="
    " ComNascita.IDComune LEFT JOIN Provincia ProvNascita ON ComNascita.IDProvincia ="
    " ProvNascita.IDProvincia LEFT JOIN Nazione NazNascita ON Anag.IDNazionalita ="
    " NazNascita.IDNazione LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune LEFT"
    " JOIN Provincia ProvRes ON ComRes.IDProvincia = ProvRes.IDProvincia LEFT JOIN Nazione"
    " NazRes ON Anag.IDNazione = NazRes.IDNazione LEFT JOIN Comune ComAz ON AnagAz.IDComune ="
    " ComAz.IDComune LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia = ProvAz.IDProvincia LEFT"
    " JOIN CategoriaParticolare ON @.IDCategoriaParticolare ="
    " CategoriaParticolare.IDCategoriaParticolare LEFT JOIN EventoEccezionale ON"
    " @.IDEventoEccezionale = EventoEccezionale.IDEventoEccezionale LEFT JOIN Filiale ON"
    " CG.IDFilialePrevalente = Filiale.IDFiliale LEFT JOIN AttivitaAzienda ON"
    " Filiale.IDAttivitaAzienda = AttivitaAzienda.IDAttivitaAzienda LEFT JOIN"
    " AttivitaAziendaPerPeriodoIva ON AttivitaAzienda.IDAttivitaAzienda ="
    " AttivitaAziendaPerPeriodoIva.IDAttivitaAzienda LEFT JOIN PeriodoIva ON"
    " AttivitaAziendaPerPeriodoIva.IDPeriodoIva = PeriodoIva.IDPeriodoIva LEFT JOIN"
    " CodiceAttivita ON AttivitaAziendaPerPeriodoIva.IDCodiceAttivita ="
    " CodiceAttivita.IDCodiceAttivita LEFT JOIN ConfigurazioneCompensiATerzi CT ON @.IDAzienda"
    " = CT.IDAzienda LEFT JOIN EventoEccezionale EEAz ON CT.IDEventoEccezionale ="
    " EEAz.IDEventoEccezionale WHERE @.Anno = PeriodoIva.Anno AND @.IDAzienda ="
    " PeriodoIva.IDAzienda AND Selezionato <> 0 ORDER BY Anag.Anagrafica, Anag.Nome,"
    " IDAnagrafica, Codice";

inline constexpr std::string_view kPayeeQuery =
    "SELECT DISTINCT Anag.Sesso, Anag.DataNascita, NonResidente, Anag.Indirizzo,"
    " Anag.PersonaFisica, Anag.Anagrafica, Anag.Nome, Anag.Anagrafica + ' ' +"
    " ISNULL(Anag.Nome,'') AS AnagPercipiente, CASE WHEN ISNULL(Anag.CodiceFiscale, '') = ''"
    " THEN Anag.PartitaIva ELSE Anag.CodiceFiscale END AS CodiceFiscale, ComNascita.Comune AS"
    " ComuneNascita, ComRes.Comune AS ComuneRes, NazNasc.Nazione AS NazioneNascita,"
    " CodiceIdentificazioneFiscaleEstero, NazRes.PrefissoInternazionale"
    " PrefissoInternazionaleRes FROM @ INNER JOIN Anagrafica Anag ON @.IDAnagrafica ="
    " Anag.IDAnagrafica LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita ="
    " ComNascita.IDComune LEFT JOIN Provincia ProvNascita ON ComNascita.IDProvincia ="
    " ProvNascita.IDProvincia LEFT JOIN Nazione NazNasc ON Anag.IDNazionalita ="
    " NazNasc.IDNazione LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune LEFT JOIN"
    " Provincia ProvRes ON ComRes.IDProvincia = ProvRes.IDProvincia LEFT JOIN Nazione NazRes"
    " ON Anag.IDNazione = NazRes.IDNazione WHERE Selezionato <> 0";

// Each "@" is a value: year, payee, company, reason.
inline constexpr std::string_view kModuleQuery =
    "SELECT ModuloXContoIndividuale.*, CodicePerNonSoggetti.Codice AS CodicePerNonSoggetti,"
    " CUCodiceFiscale, CUDenominazioneEntePrevidenziale, CUCodiceEntePrevidenziale,"
    " CUDenominazioneEntePrevidenziale, CUCodiceCategoriaEntePrevidenziale FROM"
    " ModuloXContoIndividuale LEFT JOIN CodicePerNonSoggetti ON"
    " ModuloXContoIndividuale.IDCodicePerNonSoggetti ="
    " CodicePerNonSoggetti.IDCodicePerNonSoggetti INNER JOIN Percipiente ON"
    " ModuloXContoIndividuale.IDAzienda = Percipiente.IDAzienda AND"
    " ModuloXContoIndividuale.IDAnagrafica = Percipiente.IDAnagrafica LEFT JOIN"
    " CUEntePrevidenziale ON Percipiente.IDCUEntePrevidenziale ="
    " CUEntePrevidenziale.IDCUEntePrevidenziale LEFT JOIN CUCategoriaEntePrevidenziale ON"
    " Percipiente.IDCUCategoriaEntePrevidenziale ="
    " CUCategoriaEntePrevidenziale.IDCUCategoriaEntePrevidenziale WHERE"
    " ModuloXContoIndividuale.Anno = @ AND ModuloXContoIndividuale.IDAnagrafica = @ AND"
    " ModuloXContoIndividuale.IDAzienda = @ AND ModuloXContoIndividuale.IDCausalePagamento = @";

// The company's number is appended.
inline constexpr std::string_view kCompanyQuery =
    "SELECT CASE WHEN ISNULL(Anagrafica.CodiceFiscale, '') = '' THEN Anagrafica.PartitaIva"
    " ELSE Anagrafica.CodiceFiscale END AS CodFisc, Anagrafica.Anagrafica AS AnagAz,"
    " Anagrafica.PersonaFisica AS PersonaFisicaAz, Anagrafica.Nome AS NomeAz, ComAz.Comune"
    " ComuneAz, ProvAz.Provincia SiglaProvinciaAz, AnagRapp.Anagrafica AS AnagraficaRapp,"
    " AnagRapp.Nome AS NomeRapp, AnagRapp.CodiceFiscale AS CodiceFiscaleRapp,"
    " CodiceCarica.Codice CodiceCarica FROM Anagrafica INNER JOIN Azienda ON"
    " Anagrafica.IDAnagrafica = Azienda.IDAnagrafica LEFT JOIN Comune ComAz ON"
    " Anagrafica.IDComune = ComAz.IDComune LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia ="
    " ProvAz.IDProvincia LEFT JOIN ConfigurazioneGenerale CG ON Azienda.IDAzienda ="
    " CG.IDAzienda LEFT JOIN Anagrafica AnagRapp ON CG.IDAnagraficaRappresentante ="
    " AnagRapp.IDAnagrafica LEFT JOIN CodiceCarica ON CG.IDCodiceCaricaRappresentante ="
    " CodiceCarica.IDCodiceCarica WHERE Azienda.IDAzienda = ";

inline std::string with(std::string_view text, std::string_view value) {
  std::string result;
  for (const char c : text) {
    if (c == '@') {
      result += value;
    } else {
      result += c;
    }
  }
  return result;
}

inline std::string mainQuery(std::string_view table) { return with(kMainQuery, table); }
inline std::string payeeQuery(std::string_view table) { return with(kPayeeQuery, table); }

inline std::string moduleQuery(int year, int payee, int company, int reason) {
  const std::array<int, 4> values = {year, payee, company, reason};
  std::string result;
  std::size_t next = 0;
  for (const char c : kModuleQuery) {
    if (c == '@') {
      result += std::to_string(values[next++]);
    } else {
      result += c;
    }
  }
  return result;
}

inline std::string dropWorkTable(std::string_view table) {
  return with(
      "if exists (select * from dbo.sysobjects where id = object_id(N'[dbo].[@]') AND type in ('N','U')) "
      "drop table [dbo].[@]",
      table);
}

inline std::string createWorkTable(std::string_view table) {
  std::string text = with("CREATE TABLE [dbo].[@] ", table);
  for (const WorkColumn& column : kWorkColumns) {
    text += &column == &kWorkColumns.front() ? " ([" : " , [";
    text += column.name;
    text += "] [";
    text += column.type;
    text += column.nullable ? "] NULL" : "] NOT NULL";
  }
  return text + with(
                    " CONSTRAINT [PK_@] PRIMARY KEY CLUSTERED ([IDAnagrafica] ASC, [IDCausalePagamento] ASC, "
                    "[Anno]) "
                    "WITH (IGNORE_DUP_KEY = OFF) ON [PRIMARY]) ON [PRIMARY]",
                    table);
}

inline std::string selectLines(std::string_view filter) {
  std::string text = "SELECT ";
  for (const WorkColumn& column : kWorkColumns) {
    if (&column != &kWorkColumns.front()) text += ", ";
    text += *column.source == 0 ? column.name : column.source;
  }
  return text + " FROM RepContoIndividuale" + std::string(filter);
}

inline std::string fillWorkTable(std::string_view table, std::string_view filter) {
  return "INSERT INTO " + std::string(table) + " " + selectLines(filter);
}

inline std::string writeAccounts(std::string_view table) {
  return with(
      "UPDATE ContoIndividuale SET SommeNonSoggetteRegConv = CItmp.SommeRegimeConvenzionale, "
      "SommeNonSoggette = "
      "CItmp.SommeNonSoggetteARitenuta, OnorarioProvvigioni = CItmp.Imponibile + "
      "CItmp.QuotaProvvigioniNonSoggette, "
      "RitenutaAcconto = CItmp.RitenuteAcconto, RitenutaImposta = CItmp.RitenuteImposta, "
      "QuotaProvvigioniNonSoggette = CItmp.QuotaProvvigioniNonSoggette, ContributoPrevidenziale = "
      "CItmp.ContributiCaricoAzienda + CItmp.ContributiCaricoPercipiente, RitenutaPrevidenziale13 = "
      "CItmp.ContributiCaricoPercipiente FROM ContoIndividuale CI INNER JOIN @ CItmp ON CI.IDAnagrafica = "
      "CItmp.IDAnagrafica AND CI.IDCausalePagamento = CItmp.IDCausalePagamento AND CI.Anno = CItmp.Anno AND "
      "CI.IDAzienda = CItmp.IDAzienda WHERE CItmp.Modificato <> 0 AND CItmp.Selezionato <> 0",
      table);
}

inline std::string writeAdditionalData(std::string_view table) {
  std::string update;
  std::string columns = "IDAnagrafica, IDCausalePagamento, Anno, IDAzienda";
  std::string values = "CItmp.IDAnagrafica, CItmp.IDCausalePagamento, CItmp.Anno, CItmp.IDAzienda";
  for (const std::string column : kAdditionalData) {
    if (!update.empty()) update += ", ";
    update += column + " = CItmp." + column;
    columns += ", " + column;
    values += ", CItmp." + column;
  }
  return with(
             "EXEC('MERGE INTO ContoIndividualeDatiAggiuntivi CI USING @ CItmp ON (CI.IDAnagrafica = "
             "CItmp.IDAnagrafica AND CI.IDCausalePagamento = CItmp.IDCausalePagamento AND CI.Anno = "
             "CItmp.Anno AND "
             "CI.IDAzienda = CItmp.IDAzienda) WHEN MATCHED AND CItmp.Modificato <> 0 AND CItmp.Selezionato "
             "<> 0 THEN "
             "UPDATE SET ",
             table) +
         update + " WHEN NOT MATCHED AND CItmp.Modificato <> 0 AND CItmp.Selezionato <> 0 THEN INSERT (" +
         columns + ") VALUES (" + values + ");')";
}

}  // namespace cu::sqlite::test
