#include "telematic/cu_ele.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/error.h"
#include "support/cur_reader.h"
#include "telematic/prova.h"

namespace cu {
namespace {

using test::Contenuti;
using test::CurFile;
using test::FakeConnection;
using test::text;
using test::whole;

constexpr const char* kFile = "/cu/CUR_01234567890_2016.cur";
const Date kFirma = Date::fromYmd(2017, 2, 28).value();

// The main query, with the name of the work table inserted.
const std::string kQueryPrincipale =
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

std::string queryModuli(int anno, int anagrafica, int azienda, int causale) {
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

Contenuti certificato(int anagrafica, int causale, const std::string& nome, const std::string& codice) {
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

using Testi = std::vector<std::string>;

TEST_F(CUEleTest, SendsTheQueriesWordForWordInOrder) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 4, "Rossi", "M")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(database().texts(),
            (Testi{kQueryPrincipale, queryModuli(2016, 7, 1, 3), queryModuli(2016, 9, 1, 4)}));
  EXPECT_TRUE(database().texts(FakeConnection::Kind::Execute).empty());
  EXPECT_TRUE(prova_.database.main.sent.empty());
  EXPECT_TRUE(prova_.database.own.sent.empty());
}

TEST_F(CUEleTest, EveryStatementPassesTheSuitesAdaptation) {
  prova_.utilita.adapt = [](const std::string& statement) { return "/*adattata*/" + statement; };
  database().answerContaining("/*adattata*/SELECT tmpprequadrivio12.*",
                              test::rispostaPrincipale({certificato(7, 3, "Bianchi", "A")}));
  EXPECT_TRUE(crea());
  EXPECT_EQ(prova_.utilita.adapted, (Testi{kQueryPrincipale, queryModuli(2016, 7, 1, 3)}));
  EXPECT_EQ(database().texts(),
            (Testi{"/*adattata*/" + kQueryPrincipale, "/*adattata*/" + queryModuli(2016, 7, 1, 3)}));
}

TEST_F(CUEleTest, ReadsTheWholeRunFromOneStateOfTheDatabase) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 4, "Rossi", "M")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(database().reads, 1);
  EXPECT_EQ(database().readDepth, 0);
  for (const FakeConnection::Sent& testo : database().sent) EXPECT_TRUE(testo.insideRead);
}

TEST_F(CUEleTest, WithoutRowsNoFileIsTouchedAndTheRunWentThrough) {
  prova_.files.files[kFile] = "vecchio";
  righe({});
  EXPECT_TRUE(crea());
  EXPECT_TRUE(prova_.files.opened.empty());
  EXPECT_EQ(prova_.files.files.at(kFile), "vecchio");
  EXPECT_EQ(ele_.rifiuto(), "");
}

TEST_F(CUEleTest, AFolderThatNoLongerExistsIsToldAndNothingIsWritten) {
  prova_.files.folders.clear();
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_FALSE(crea());
  EXPECT_EQ(ele_.rifiuto(), "Attenzione! Il percorso per il salvataggio dei files è inesistente!");
  EXPECT_TRUE(prova_.files.files.empty());
  EXPECT_EQ(database().sent.size(), 1U);
  EXPECT_EQ(database().readDepth, 0);
}

TEST_F(CUEleTest, AnExistingFileIsReplacedWithoutAQuestion) {
  prova_.files.files[kFile] = std::string(100000, 'x');
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().types(), "ABDHZ");
  EXPECT_EQ(ele_.rifiuto(), "");
}

TEST_F(CUEleTest, TwoReasonsOfOnePayeeAreTwoCertificates) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(7, 4, "Bianchi", "M")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().types(), "ABDHDHZ");
  EXPECT_EQ(letto().line('D', 1).at(42, 5), "00001");
  EXPECT_EQ(letto().line('D', 2).at(42, 5), "00002");
  EXPECT_EQ(letto().line('H', 2).at(42, 5), "00002");
  EXPECT_EQ(moduliDi('H'), (Testi{"00000001", "00000001"}));
}

TEST_F(CUEleTest, ModuleNumbersRestartWithEveryCertificate) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(8, 3, "Neri", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(8, 3, {{{"AnnoModulo", whole(2010)}}, {{"AnnoModulo", whole(2011)}}});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().types(), "ABDHDHHHDHZ");
  EXPECT_EQ(moduliDi('H'), (Testi{"00000001", "00000001", "00000002", "00000003", "00000001"}));
  EXPECT_EQ(letto().line('Z').at(34, 9), "000000003");
  EXPECT_EQ(letto().line('Z').at(52, 9), "000000005");
  EXPECT_EQ(letto().line('H', 3).value("AU001002"), "            2010");
  EXPECT_EQ(letto().line('H', 4).value("AU001002"), "            2011");
  for (std::size_t n : {2U, 3U, 4U}) {
    EXPECT_EQ(letto().line('H', n).at(26, 16), "CF8             ");
    EXPECT_EQ(letto().line('H', n).at(42, 5), "00002");
  }
}

TEST_F(CUEleTest, AnAnnulmentHasNoAmounts) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(7, 3, {{{"AnnoModulo", whole(2010)}}});
  EXPECT_TRUE(crea(2));
  EXPECT_EQ(letto().types(), "ABDDZ");
  EXPECT_EQ(letto().line('Z').at(34, 9), "000000002");
  EXPECT_EQ(letto().line('Z').at(52, 9), "000000000");
  EXPECT_EQ(letto().line('B').at(91, 2), "10");
  EXPECT_EQ(letto().line('D', 1).at(84, 1), "A");
  EXPECT_EQ(letto().line('D', 1).at(47, 17), "17030512345678901");
  EXPECT_EQ(letto().line('D', 1).at(64, 6), "000042");
  EXPECT_EQ(database().texts(), Testi{kQueryPrincipale});
}

TEST_F(CUEleTest, AReplacementHasAmountsAndAnSInEveryCertificate) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  EXPECT_TRUE(crea(3));
  EXPECT_EQ(letto().types(), "ABDHDHZ");
  EXPECT_EQ(letto().line('B').at(91, 2), "01");
  for (std::size_t n : {1U, 2U}) {
    EXPECT_EQ(letto().line('D', n).at(84, 1), "S");
    EXPECT_EQ(letto().line('D', n).at(47, 17), "17030512345678901");
  }
}

TEST_F(CUEleTest, AnOrdinarySupplyHasNoReferences) {
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_TRUE(crea(1));
  EXPECT_EQ(letto().line('B').at(91, 2), "00");
  EXPECT_EQ(letto().line('D').at(84, 1), " ");
  EXPECT_EQ(letto().line('D').at(47, 17), "00000000000000000");
  EXPECT_EQ(letto().line('D').at(64, 6), "000000");
}

TEST_F(CUEleTest, TheFrontispieceCountsTheCertificates) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(8, 3, "Neri", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(8, 3, {{}, {}});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().line('B').at(402, 8), "00000003");
}

TEST_F(CUEleTest, TheSenderIsTheIntermediaryOrTheCompany) {
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().line('A').at(21, 2), "01");
  EXPECT_EQ(letto().line('A').at(23, 16), "01234567890     ");
  EXPECT_EQ(letto().line('B').at(437, 1), "0");
  EXPECT_EQ(letto().line('B').at(412, 16), "INTERMED00000001");
  EXPECT_EQ(letto().line('B').at(428, 1), "2");
  EXPECT_EQ(letto().line('B').at(429, 8), "01032017");

  CUEle altra(prova_.ambiente());
  altra.setFilePathName(kFile);
  dati_.UsoIntermediari = true;
  altra.setDati(dati_);
  EXPECT_TRUE(altra.Create(kFirma));
  EXPECT_EQ(letto().line('A').at(21, 2), "10");
  EXPECT_EQ(letto().line('A').at(23, 16), "INTERMED00000001");
  EXPECT_EQ(letto().line('B').at(2, 16), "01234567890     ");
  EXPECT_EQ(letto().line('B').at(437, 1), "1");
}

TEST_F(CUEleTest, CertificatesStandInTheOrderOfTheQuery) {
  righe({certificato(9, 3, "Zeta", "A"), certificato(7, 3, "Alfa", "B"), certificato(8, 3, "Mu", "C")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().line('D', 1).value("DA002002"), "ZETA");
  EXPECT_EQ(letto().line('D', 2).value("DA002002"), "ALFA");
  EXPECT_EQ(letto().line('D', 3).value("DA002002"), "MU");
}

TEST_F(CUEleTest, EveryLineIs1900BytesFromAToZWithTheMarkAtItsEnd) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "N")});
  moduli(9, 3, {{}});
  EXPECT_TRUE(crea());
  const CurFile file = letto();
  EXPECT_EQ(file.lines().front().type(), 'A');
  EXPECT_EQ(file.lines().back().type(), 'Z');
  for (const test::CurLine& linea : file.lines()) EXPECT_EQ(linea.at(1898, 1), "A");
}

TEST_F(CUEleTest, TheSignatureReachesEveryCertificate) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "N")});
  EXPECT_TRUE(crea());
  for (std::size_t n : {1U, 2U}) EXPECT_EQ(letto().line('D', n).value("DA003001"), "        28022017");
}

TEST_F(CUEleTest, TheFileIsClosedWhenTheRunIsOver) {
  righe({certificato(7, 3, "Bianchi", "A")});
  EXPECT_TRUE(crea());
  EXPECT_EQ(prova_.files.openNow, 0);
  EXPECT_EQ(ele_.FileName(), "CUR_01234567890_2016.cur");
  EXPECT_EQ(ele_.FilePathName(), kFile);
}

TEST_F(CUEleTest, EachCertificateIsFollowedByItsOwnModules) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(7, 3, {{{"AnnoModulo", whole(2010)}}});
  moduli(9, 3, {{{"AnnoModulo", whole(2011)}}, {{"AnnoModulo", whole(2012)}}});
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().types(), "ABDHHDHHHZ");
  EXPECT_EQ(letto().line('H', 2).value("AU001002"), "            2010");
  EXPECT_EQ(letto().line('H', 4).value("AU001002"), "            2011");
  EXPECT_EQ(letto().line('H', 5).value("AU001002"), "            2012");
}

TEST_F(CUEleTest, ModuleRowsOfAnotherShapeAreReadByTheirOwnNames) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  moduli(7, 3, {{{"AnnoModulo", whole(2010)}}});
  std::vector<std::string> girate(test::kColonneModulo.rbegin(), test::kColonneModulo.rend());
  database().answer(queryModuli(2016, 9, 1, 3), test::risposta(girate, {{{"AnnoModulo", whole(2012)}}}));
  EXPECT_TRUE(crea());
  EXPECT_EQ(letto().line('H', 2).values().size(), 1U);
  EXPECT_EQ(letto().line('H', 4).value("AU001002"), "            2012");
}

// Errors.

TEST_F(CUEleTest, ADatabaseThatRefusesTheMainQueryStopsBeforeAnyFile) {
  database().refuseContaining("tmpprequadrivio12");
  EXPECT_THROW(static_cast<void>(crea()), DatabaseError);
  EXPECT_TRUE(prova_.files.opened.empty());
  EXPECT_EQ(database().readDepth, 0);
}

TEST_F(CUEleTest, ADatabaseThatFailsHalfwayLeavesTheLinesBeforeWithoutAZ) {
  righe({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")});
  database().refuseContaining("IDAnagrafica = 9");
  EXPECT_THROW(static_cast<void>(crea()), DatabaseError);
  EXPECT_EQ(letto().types(), "ABDHDH");
  EXPECT_EQ(prova_.files.openNow, 0);
  EXPECT_EQ(database().readDepth, 0);
}

TEST_F(CUEleTest, AValueThatCannotBeWrittenStopsThereAndTheLinesBeforeStay) {
  Contenuti male = certificato(9, 4, "Rossi", "M");
  male["CodiceEventoEccezionale"] = text("12345678901234567");
  righe({certificato(7, 3, "Bianchi", "A"), male, certificato(11, 3, "Verdi", "A")});
  try {
    static_cast<void>(crea());
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 5);
    for (const char* parte : {"Rossi", "M", "DA002009"}) {
      EXPECT_NE(error.description().find(parte), std::string::npos) << error.description();
    }
  }
  EXPECT_EQ(letto().types(), "ABDH");
  EXPECT_EQ(prova_.files.openNow, 0);
}

TEST_F(CUEleTest, AFullDiskAtAnyLineRisesAndTheLinesBeforeStay) {
  const std::string tutte = "ABDHDHZ";
  for (std::size_t n = 0; n < tutte.size(); ++n) {
    test::Prova prova(2016);
    prova.files.folders.insert("/cu");
    prova.database.internal.answerContaining("FROM ModuloXContoIndividuale", test::rispostaModuli({}));
    prova.database.internal.answer(
        kQueryPrincipale,
        test::rispostaPrincipale({certificato(7, 3, "Bianchi", "A"), certificato(9, 3, "Rossi", "A")}));
    prova.files.failNth(test::MemoryFileSystem::Operation::Write, static_cast<int>(n) + 1, 61);
    CUEle ele(prova.ambiente());
    ele.setFilePathName(kFile);
    ele.setDati(dati_);
    try {
      static_cast<void>(ele.Create(kFirma));
      FAIL();
    } catch (const FileError& error) {
      EXPECT_EQ(error.number(), 61);
    }
    EXPECT_EQ(CurFile(prova.files.files.at(kFile)).types(), tutte.substr(0, n));
    EXPECT_EQ(prova.files.openNow, 0);
  }
}

TEST_F(CUEleTest, AShortWriteRisesAndLeavesWhatFitted) {
  righe({certificato(7, 3, "Bianchi", "A")});
  prova_.files.limitSpace(1900 * 2 + 100);
  EXPECT_THROW(static_cast<void>(crea()), FileError);
  EXPECT_EQ(prova_.files.files.at(kFile).size(), 3900U);
  EXPECT_EQ(prova_.files.files.at(kFile).substr(3800, 1), "D");
}

TEST_F(CUEleTest, ACloseThatFailsRises) {
  righe({certificato(7, 3, "Bianchi", "A")});
  prova_.files.failNth(test::MemoryFileSystem::Operation::Close, 1, 61);
  EXPECT_THROW(static_cast<void>(crea()), FileError);
  EXPECT_EQ(prova_.files.openNow, 0);
}

TEST_F(CUEleTest, AnErrorIsToldAlsoWhenTheCloseBehindItFailsToo) {
  righe({certificato(7, 3, "Bianchi", "A")});
  prova_.files.failNth(test::MemoryFileSystem::Operation::Write, 2, 61, "il primo");
  prova_.files.failNth(test::MemoryFileSystem::Operation::Close, 1, 57, "il secondo");
  try {
    static_cast<void>(crea());
    FAIL();
  } catch (const FileError& error) {
    EXPECT_EQ(error.number(), 61);
    EXPECT_EQ(error.description(), "il primo");
  }
}

}  // namespace
}  // namespace cu
