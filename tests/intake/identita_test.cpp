// Whose payment a row is, by each form that the keys of payees have.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "banco.h"

namespace cu::intake {
namespace {

using prova::Banco;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// G1 and G2 are a VAT group, E1 is foreign.
constexpr std::string_view kSoggettiDiProva =
    "Codice;CodiceFiscale;PartitaIva;Cognome;NonResidente;Nazione\n"
    "V1;07643520567;07643520567;Ditta Uno;;\n"
    "G1;05979361218;12345670017;Gruppo Uno;;\n"
    "G2;04123450233;12345670017;Gruppo Due;;\n"
    "E1;;DE812345678;Bauer GmbH;S;Germania\n";

const std::string& conSoggetti() {
  static const std::unique_ptr<Banco> fatto = [] {
    auto banco = std::make_unique<Banco>(prova::riempito());
    const auto contro = banco->importa(Elenco::Percipienti, kSoggettiDiProva);
    if (!contro.empty()) throw std::logic_error(contro.front());
    banco->chiudi();
    return banco;
  }();
  static const std::string file = fatto->file();
  return file;
}

struct CasoChiave {
  const char* nome;
  const char* codice;
  const char* codiceFiscale;
  const char* partitaIva;
  const char* atteso;     // the payee's code, or the row's state
  const char* messaggio;  // how the only message begins; "" for none
};

class ChiaveDiUnCompenso : public testing::TestWithParam<CasoChiave> {};

TEST_P(ChiaveDiUnCompenso, FindsItsPayee) {
  const CasoChiave& caso = GetParam();
  Banco banco{conSoggetti()};
  const Piano suo =
      banco.piano(Elenco::Compensi,
                  std::string("CodicePercipiente;CodiceFiscale;PartitaIva;Causale;DataPagamento;Onorario\n") +
                      caso.codice + ";" + caso.codiceFiscale + ";" + caso.partitaIva + ";A;2017-09-20;100\n");
  std::string trovato(nome(suo.righe[0].stato));
  if (suo.righe[0].voce != kSenzaVoce) {
    trovato = banco.uno("SELECT Codice FROM Percipiente WHERE IDAnagrafica = " +
                        std::to_string(suo.compensi[suo.righe[0].voce].dopo.idAnagrafica));
  }
  EXPECT_EQ(trovato, caso.atteso);
  if (std::string_view(caso.messaggio).empty()) {
    EXPECT_THAT(Banco::messaggi(suo), IsEmpty());
  } else {
    EXPECT_THAT(Banco::messaggi(suo), ElementsAre(StartsWith(caso.messaggio)));
  }
}

constexpr CasoChiave kCasiChiave[] = {
    {"vatNumberOnly", "", "", "07643520567", "V1", ""},
    {"fiscalCodeOnly", "", "RSSMRA80A01H501U", "", "P1", ""},
    {"fiscalCodeOfAFirm", "", "00743110157", "", "P2", ""},
    {"lowerCase", "", "rssmra80a01h501u", "", "P1", ""},
    {"codeInLowerCase", "p1", "", "", "P1", ""},
    {"blanksAndHyphens", "", "RSS MRA 80A01 H501-U", "", "P1", ""},
    {"countryPrefix", "", "", "IT07643520567", "V1", ""},
    {"countryPrefixApart", "", "", "it 0764 3520567", "V1", ""},
    {"tenDigits", "", "", "7643520567", "V1", "2: V09 PartitaIva: 7643520567 ha perso gli zeri iniziali"},
    {"digitsLost", "", "", "7,64352E+09", "errore",
     "2: V09 PartitaIva: 7,64352E+09 è un numero di cui il foglio elettronico ha perso le cifre"},
    {"vatGroup", "", "", "12345670017", "da decidere",
     "2: P09: 2 percipienti in archivio hanno la partita IVA 12345670017: G1 Gruppo Uno"},
    {"vatGroupWithAFiscalCode", "", "04123450233", "12345670017", "G2", ""},
    {"vatNumberOfAnotherFiscalCode", "", "00743110157", "07643520567", "P2", ""},
    {"vatGroupWithACode", "P1", "", "12345670017", "P1", ""},
    {"vatGroupWithAnUnknownFiscalCode", "", "05979361219", "12345670017", "errore",
     "2: P12: nessun percipiente dell'azienda ha il codice 05979361219, 12345670017"},
    {"foreign", "E1", "", "", "E1", ""},
    {"foreignVatNumber", "", "", "DE812345678", "E1", ""},
    {"conflict", "P1", "00743110157", "", "errore", "2: P10: un codice indica P1 Rossi Mario"},
    {"unknown", "", "", "05979361218", "errore",
     "2: P12: nessun percipiente dell'azienda ha il codice 05979361218"},
    {"wrongControlLetter", "", "RSSMRA80A01H501X", "", "errore",
     "2: P12: nessun percipiente dell'azienda ha il codice RSSMRA80A01H501X; l'ultimo carattere di "
     "RSSMRA80A01H501X dovrebbe essere U"},
};

INSTANTIATE_TEST_SUITE_P(Chiavi, ChiaveDiUnCompenso, testing::ValuesIn(kCasiChiave),
                         [](const auto& caso) { return caso.param.nome; });

}  // namespace
}  // namespace cu::intake
