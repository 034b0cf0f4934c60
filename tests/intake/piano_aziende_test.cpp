#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "banco.h"

namespace cu::intake {
namespace {

using prova::Banco;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kSenzaRappresentante = "CodiceFiscale;Denominazione;Comune;Provincia;Email\n";

TEST(PianoAziendeTest, ANewFirmNeedsItsRepresentative) {
  Banco banco;
  const Piano piano = banco.piano(Elenco::Aziende,
                                  "CodiceFiscale;Denominazione;Comune;Provincia;RappresentanteCognome\n"
                                  "04123450233;Bottega;Verona;VR;Bertoldi\n");
  EXPECT_EQ(Banco::stati(piano), "errore");
  std::vector<std::string> mancano;
  for (const Messaggio& uno : piano.righe[0].messaggi) {
    if (uno.codice == Codice::C01) mancano.push_back(uno.colonna);
  }
  EXPECT_THAT(mancano,
              ElementsAre("RappresentanteCodiceFiscale", "RappresentanteNome", "RappresentanteCarica"));
}

TEST(PianoAziendeTest, AnUpdateMayLeaveTheRepresentativeOut) {
  Banco banco(prova::riempito());
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  const Piano piano = banco.piano(Elenco::Aziende, std::string(kSenzaRappresentante) +
                                                       "12345670017;Esempio S.r.l.;Roma;RM;a@b.example\n");
  EXPECT_EQ(Banco::stati(piano), "diverso");
  ASSERT_TRUE(banco.applica(piano));
  EXPECT_EQ(banco.uno("SELECT IDCodiceCaricaRappresentante FROM ConfigurazioneGenerale"), "1");
  EXPECT_EQ(banco.uno("SELECT Anagrafica FROM Anagrafica WHERE CodiceFiscale = 'RSSMRA80A01H501U'"), "Rossi");
  EXPECT_EQ(banco.uno("SELECT EMailInternet FROM Anagrafica WHERE CodiceFiscale = '12345670017'"),
            "a@b.example");
}

TEST(PianoAziendeTest, AnUpdateCannotEmptyTheRepresentative) {
  Banco banco(prova::riempito());
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  const Piano piano = banco.piano(Elenco::Aziende,
                                  "CodiceFiscale;Denominazione;Comune;Provincia;RappresentanteCarica\n"
                                  "12345670017;Esempio S.r.l.;Roma;RM;-\n");
  EXPECT_EQ(Banco::stati(piano), "errore");
  EXPECT_THAT(Banco::messaggi(piano), ::testing::Contains(HasSubstr("C01 RappresentanteCarica")));
}

TEST(PianoAziendeTest, APersonNeedsNoRepresentative) {
  Banco banco;
  const Piano piano = banco.piano(Elenco::Aziende,
                                  "CodiceFiscale;Cognome;Nome;Comune;Provincia\n"
                                  "RSSMRA80A01H501U;Rossi;Mario;Roma;RM\n");
  EXPECT_EQ(Banco::stati(piano), "nuovo");
  EXPECT_THAT(Banco::messaggi(piano), IsEmpty());
}

}  // namespace
}  // namespace cu::intake
