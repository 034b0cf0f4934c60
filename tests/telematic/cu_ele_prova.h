#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/cur_reader.h"
#include "telematic/cu_ele.h"
#include "telematic/prova.h"

// A run over rows that the test gives.
namespace cu::corsa {

using test::Contenuti;
using test::CurFile;
using test::FakeConnection;
using test::text;
using test::whole;

inline constexpr const char* kFile = "/cu/CUR_01234567890_2016.cur";
inline const Date kFirma = Date::fromYmd(2017, 2, 28).value();

// The main query, with the name of the work table in its places.
inline const std::string kQueryPrincipale =
    "SELECT tmpprequadrivio12.*, Anag.Anagrafica, Anag.Nome, Anag.PersonaFisica, Anag.EMailInternet,"
    " Anag.Telefono, Anag.Fax, CG.CodiceFiscaleSocieta, CASE WHEN ISNULL(Anag.CodiceFiscale, '') ="
    " '' THEN Anag.PartitaIva ELSE Anag.CodiceFiscale END AS CodiceFiscale, Anag.Cap,"
    " Anag.Indirizzo, Anag.Sesso, Anag.DataNascita, NonResidente, AnagRapp.Anagrafica AS"
    " AnagraficaRapp, AnagRapp.Nome AS NomeRapp, AnagRapp.CodiceFiscale AS CodiceFiscaleRapp,"
    " CodiceCarica.Codice CodiceCarica, CASE WHEN ISNULL(AnagAz.CodiceFiscale, '') = '' THEN"
    " AnagAz.PartitaIva ELSE AnagAz.CodiceFiscale END AS CodiceFiscaleAz, AnagAz.Anagrafica AS"
    " AnagraficaAz, AnagAz.PersonaFisica AS PersonaFisicaAz, AnagAz.Nome AS NomeAz, AnagAz.Cap AS"
    " CapAz, AnagAz.Indirizzo IndirizzoAz, ComAz.Comune ComuneAz, ProvAz.Provincia SiglaProvinciaAz,"
    " AnagAz.Telefono TelefonoAz, AnagAz.Fax FaxAz, AnagAz.EMailInternet EMailInternetAz, CASE WHEN"
    " ISNULL(NazNascita.Nazione, '') = '' OR UPPER(NazNascita.Nazione) = 'ITALIA' THEN"
    " ProvNascita.Provincia ELSE 'EE' END AS ProvinciaNascita, CASE WHEN ISNULL(NazNascita.Nazione,"
    " '') = '' OR UPPER(NazNascita.Nazione) = 'ITALIA' THEN ComNascita.Comune ELSE"
    " NazNascita.Nazione END AS ComuneNascita, ComRes.Comune AS ComuneRes,"
    " CodiceCategoriaParticolare, EventoEccezionale.CodiceEventoEccezionale,"
    " ComuneResidenzaAnnoPrec, ComuneResidenzaAnnoCorr, SiglaProvResidenzaAnnoPrec,"
    " SiglaProvResidenzaAnnoCorr, CodiceAttivita.CodiceAttivita, CodiceFiscaleRappresentante,"
    " CodiceIdentificazioneFiscaleEstero, NazRes.PrefissoInternazionale PrefissoInternazionaleRes,"
    " EEAz.CodiceEventoEccezionale AS CodiceEventoEccezionaleAz FROM tmpprequadrivio12 INNER JOIN"
    " Anagrafica Anag ON tmpprequadrivio12.IDAnagrafica = Anag.IDAnagrafica LEFT JOIN"
    " ConfigurazioneGenerale CG ON tmpprequadrivio12.IDAzienda = CG.IDAzienda LEFT JOIN Anagrafica"
    " AnagRapp ON CG.IDAnagraficaRappresentante = AnagRapp.IDAnagrafica LEFT JOIN CodiceCarica ON"
    " CG.IDCodiceCaricaRappresentante = CodiceCarica.IDCodiceCarica LEFT JOIN Azienda ON"
    " tmpprequadrivio12.IDAzienda = Azienda.IDAzienda LEFT JOIN Anagrafica AnagAz ON"
    " Azienda.IDAnagrafica = AnagAz.IDAnagrafica LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita"
    " = ComNascita.IDComune LEFT JOIN Provincia ProvNascita ON ComNascita.IDProvincia ="
    " ProvNascita.IDProvincia LEFT JOIN Nazione NazNascita ON Anag.IDNazionalita ="
    " NazNascita.IDNazione LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune LEFT JOIN"
    " Provincia ProvRes ON ComRes.IDProvincia = ProvRes.IDProvincia LEFT JOIN Nazione NazRes ON"
    " Anag.IDNazione = NazRes.IDNazione LEFT JOIN Comune ComAz ON AnagAz.IDComune = ComAz.IDComune"
    " LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia = ProvAz.IDProvincia LEFT JOIN"
    " CategoriaParticolare ON tmpprequadrivio12.IDCategoriaParticolare ="
    " CategoriaParticolare.IDCategoriaParticolare LEFT JOIN EventoEccezionale ON"
    " tmpprequadrivio12.IDEventoEccezionale = EventoEccezionale.IDEventoEccezionale LEFT JOIN"
    " Filiale ON CG.IDFilialePrevalente = Filiale.IDFiliale LEFT JOIN AttivitaAzienda ON"
    " Filiale.IDAttivitaAzienda = AttivitaAzienda.IDAttivitaAzienda LEFT JOIN"
    " AttivitaAziendaPerPeriodoIva ON AttivitaAzienda.IDAttivitaAzienda ="
    " AttivitaAziendaPerPeriodoIva.IDAttivitaAzienda LEFT JOIN PeriodoIva ON"
    " AttivitaAziendaPerPeriodoIva.IDPeriodoIva = PeriodoIva.IDPeriodoIva LEFT JOIN CodiceAttivita"
    " ON AttivitaAziendaPerPeriodoIva.IDCodiceAttivita = CodiceAttivita.IDCodiceAttivita LEFT JOIN"
    " ConfigurazioneCompensiATerzi CT ON tmpprequadrivio12.IDAzienda = CT.IDAzienda LEFT JOIN"
    " EventoEccezionale EEAz ON CT.IDEventoEccezionale = EEAz.IDEventoEccezionale WHERE"
    " tmpprequadrivio12.Anno = PeriodoIva.Anno AND tmpprequadrivio12.IDAzienda ="
    " PeriodoIva.IDAzienda AND Selezionato <> 0 ORDER BY Anag.Anagrafica, Anag.Nome, IDAnagrafica,"
    " Codice";

inline std::string queryModuli(int anno, int anagrafica, int azienda, int causale) {
  return "SELECT ModuloXContoIndividuale.*, CodicePerNonSoggetti.Codice AS CodicePerNonSoggetti,"
         " CUCodiceFiscale, CUDenominazioneEntePrevidenziale, CUCodiceEntePrevidenziale,"
         " CUDenominazioneEntePrevidenziale, CUCodiceCategoriaEntePrevidenziale FROM"
         " ModuloXContoIndividuale LEFT JOIN CodicePerNonSoggetti ON"
         " ModuloXContoIndividuale.IDCodicePerNonSoggetti = CodicePerNonSoggetti.IDCodicePerNonSoggetti"
         " INNER JOIN Percipiente ON ModuloXContoIndividuale.IDAzienda = Percipiente.IDAzienda AND"
         " ModuloXContoIndividuale.IDAnagrafica = Percipiente.IDAnagrafica LEFT JOIN CUEntePrevidenziale"
         " ON Percipiente.IDCUEntePrevidenziale = CUEntePrevidenziale.IDCUEntePrevidenziale LEFT JOIN"
         " CUCategoriaEntePrevidenziale ON Percipiente.IDCUCategoriaEntePrevidenziale ="
         " CUCategoriaEntePrevidenziale.IDCUCategoriaEntePrevidenziale WHERE ModuloXContoIndividuale.Anno"
         " = " +
         std::to_string(anno) + " AND ModuloXContoIndividuale.IDAnagrafica = " + std::to_string(anagrafica) +
         " AND ModuloXContoIndividuale.IDAzienda = " + std::to_string(azienda) +
         " AND ModuloXContoIndividuale.IDCausalePagamento = " + std::to_string(causale);
}

inline Contenuti certificato(int anagrafica, int causale, const std::string& nome,
                             const std::string& codice) {
  return {{"Anno", whole(2016)},
          {"IDAnagrafica", whole(anagrafica)},
          {"IDAzienda", whole(1)},
          {"IDCausalePagamento", whole(causale)},
          {"Anagrafica", text(nome)},
          {"Codice", text(codice)},
          {"CodiceFiscale", text("CF" + std::to_string(anagrafica))},
          {"AnagraficaAz", text("Alfa")},
          {"ProtocolloAnnSost", text("17030512345678901")},
          {"ProgressivoAnnSost", text("000042")}};
}

class CUEleTest : public testing::Test {
 protected:
  CUEleTest() {
    prova_.files.folders.insert("/cu");
    database().answerContaining("FROM ModuloXContoIndividuale", test::rispostaModuli({}));
    ele_.setFileName("CUR_01234567890_2016.cur");
    ele_.setFilePathName(kFile);
  }
  FakeConnection& database() { return prova_.database.internal; }
  void righe(const std::vector<Contenuti>& contenuti) {
    database().answer(kQueryPrincipale, test::rispostaPrincipale(contenuti));
  }
  void moduli(int anagrafica, int causale, const std::vector<Contenuti>& contenuti) {
    database().answer(queryModuli(2016, anagrafica, 1, causale), test::rispostaModuli(contenuti));
  }
  bool crea(std::int32_t tipo = 1) {
    dati_.TipoComunicazione = static_cast<Comunicazione>(tipo);
    ele_.setDati(dati_);
    return ele_.Create(kFirma);
  }
  CurFile letto() { return CurFile(prova_.files.files.at(kFile)); }
  std::vector<std::string> moduliDi(char tipo) {
    std::vector<std::string> numeri;
    const CurFile file = letto();
    for (const test::CurLine& linea : file.lines()) {
      if (linea.type() == tipo) numeri.push_back(linea.at(18, 8));
    }
    return numeri;
  }

  test::Prova prova_{2016};
  DatiFornitura dati_{.UsoIntermediari = false,
                      .CodiceFiscaleAzienda = "01234567890",
                      .CodiceFiscaleIntermediario = "intermed00000001",
                      .TipoComIntermediario = "2",
                      .DataImpegnoIntermediario = Date::fromYmd(2017, 3, 1).value()};
  CUEle ele_{prova_.ambiente()};
};

}  // namespace cu::corsa
