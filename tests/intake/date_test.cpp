#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "intake/letta.h"

namespace cu::intake {
namespace {

using prova::detti;
using prova::letta;
using Righe = std::vector<std::string>;

// A table of payments with these dates of payment.
Lettura conDate(const Righe& date, const Mappatura& mappatura = {}) {
  std::string testo = "CodicePercipiente;Causale;DataPagamento;Onorario\n";
  for (const std::string& data : date) testo += "P1;A;" + data + ";100\n";
  return letta(Elenco::Compensi, testo, mappatura);
}

Righe date(const Lettura& lettura) {
  Righe tutte;
  for (const RigaLetta& riga : lettura.righe) {
    const CellView data = riga.valore(ColonnaCompenso::DataPagamento);
    tutte.push_back(data.isNull() ? "none" : data.date().toIso());
  }
  return tutte;
}

struct CasoData {
  const char* nome;
  Righe scritte;
  Righe lette;
};

class DateScritte : public testing::TestWithParam<CasoData> {};

TEST_P(DateScritte, AreReadInOneOrder) { EXPECT_EQ(date(conDate(GetParam().scritte)), GetParam().lette); }

const CasoData kCasiData[] = {
    {"dayFirst", {"25/03/2017", "05/03/2017"}, {"2017-03-25", "2017-03-05"}},
    {"monthFirst", {"03/25/2017", "05/03/2017"}, {"2017-03-25", "2017-05-03"}},
    {"shortNumbers", {"25/3/2017", "5/3/2017"}, {"2017-03-25", "2017-03-05"}},
    {"hyphens", {"25-03-2017"}, {"2017-03-25"}},
    {"fullStops", {"31.12.17"}, {"2017-12-31"}},
    {"blanks", {"31 12 2017"}, {"2017-12-31"}},
    {"iso", {"2017-03-05"}, {"2017-03-05"}},
    {"isoDecidesNothing", {"2017-03-05", "25/12/2016"}, {"2017-03-05", "2016-12-25"}},
    {"isoWithSlashes", {"2017/03/05"}, {"2017-03-05"}},
    {"isoCompact", {"20170305"}, {"2017-03-05"}},
    {"compactDayFirst", {"25032017"}, {"2017-03-25"}},
    {"isoWithTime", {"2017-03-05T10:30:00", "2017-03-05 10:30"}, {"2017-03-05", "2017-03-05"}},
    {"withTime", {"25/03/2017 00:00:00"}, {"2017-03-25"}},
    {"sameInBothOrders", {"05/05/2017"}, {"2017-05-05"}},
    {"monthByName", {"5 marzo 2017", "05-Mar-2017", "1 dic 16"}, {"2017-03-05", "2017-03-05", "2016-12-01"}},
    {"serialNumber", {"42799"}, {"2017-03-05"}},
    {"yearOfTwoDigits", {"25/12/19", "25/12/20"}, {"2019-12-25", "1920-12-25"}},
    {"noSuchDay", {"25/12/2017", "31/02/2017"}, {"2017-12-25", "none"}},
    {"oneOutOfOrder", {"25/12/2017", "26/12/2017", "12/27/2017"}, {"2017-12-25", "2017-12-26", "none"}},
    {"noDate",
     {"domani", "12/2017", "1/2/3/2017", "0", "25/12/0217"},
     {"none", "none", "none", "none", "none"}},
};

INSTANTIATE_TEST_SUITE_P(Date, DateScritte, testing::ValuesIn(kCasiData),
                         [](const auto& caso) { return caso.param.nome; });

TEST(DateErrate, AreReportedWithTheirValue) {
  EXPECT_EQ(detti(conDate({"25/12/2017", "31/02/2017"})),
            Righe{"f.csv, riga 3, colonna \"DataPagamento\": 31/02/2017 non è una data (V01)."});
}

TEST(ColonnaAmbigua, IsReportedWithTheOptionAndInEachOfItsRows) {
  const Lettura lettura = conDate({"2017-03-05", "05/03/2017", "06/03/2017"});
  EXPECT_EQ(
      detti(lettura),
      (Righe{"f.csv, colonna \"DataPagamento\": non è certo se 05/03/2017 abbia prima il giorno o il mese: "
             "indicarlo con --dates dmy, mdy o ymd (V02).",
             "f.csv, riga 3, colonna \"DataPagamento\": non è certo se 05/03/2017 abbia prima il giorno o il "
             "mese (V02).",
             "f.csv, riga 4, colonna \"DataPagamento\": non è certo se 06/03/2017 abbia prima il giorno o il "
             "mese (V02)."}));
  EXPECT_EQ(date(lettura), (Righe{"2017-03-05", "none", "none"}));
  EXPECT_TRUE(lettura.conErrori());
}

TEST(ColonnaAmbigua, IsSoForAsManyDatesOfEachOrder) {
  EXPECT_EQ(detti(conDate({"25/03/2017", "03/26/2017"})).front(),
            "f.csv, colonna \"DataPagamento\": non è certo se 25/03/2017 abbia prima il giorno o il mese: "
            "indicarlo "
            "con --dates dmy, mdy o ymd (V02).");
}

TEST(ColonnaAmbigua, IsAConstantOfTheProfileToo) {
  Mappatura mappatura;
  mappatura.colonne[static_cast<std::uint8_t>(ColonnaCompenso::DataDocumento)].costante = "05/03/2017";
  EXPECT_THAT(detti(conDate({"2017-03-05"}, mappatura)),
              ::testing::ElementsAre(::testing::HasSubstr("--dates dmy, mdy o ymd (V02)"),
                                     ::testing::HasSubstr("riga 2, colonna \"DataDocumento\": non è certo")));
  mappatura.colonne[static_cast<std::uint8_t>(ColonnaCompenso::DataDocumento)].costante = "25/03/2017";
  EXPECT_EQ(detti(conDate({"2017-03-05"}, mappatura)), Righe{});
}

TEST(NascitaRespinta, IsNotDerivedFromTheFiscalCode) {
  const Lettura lettura = letta(Elenco::Percipienti,
                                "Codice;CodiceFiscale;Cognome;Nome;DataNascita;Sesso\n"
                                "P1;RSSMRA80A01H501U;Rossi;Mario;03/01/1980;M\n"
                                "P2;RSSMRA80A01H501U;Rossi;Mario;;Q\n");
  EXPECT_EQ(
      prova::righe(lettura),
      (Righe{"Codice=P1|CodiceFiscale=RSSMRA80A01H501U|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso=M",
             "Codice=P2|CodiceFiscale=RSSMRA80A01H501U|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|"
             "DataNascita*=01/01/1980"}));
}

TEST(OrdineDichiarato, HoldsForTheWholeColumn) {
  Mappatura mappatura;
  mappatura.date = OrdineData::GiornoMeseAnno;
  EXPECT_EQ(date(conDate({"05/03/2017", "03/25/2017"}, mappatura)), (Righe{"2017-03-05", "none"}));
  mappatura.date = OrdineData::MeseGiornoAnno;
  EXPECT_EQ(date(conDate({"05/03/2017", "2017-03-25"}, mappatura)), (Righe{"2017-05-03", "2017-03-25"}));
  mappatura.date = OrdineData::AnnoMeseGiorno;
  EXPECT_EQ(date(conDate({"17/03/05", "17.03.25"}, mappatura)), (Righe{"2017-03-05", "2017-03-25"}));
}

TEST(OrdineDiUnaColonna, IsItsOwn) {
  const Lettura lettura = letta(Elenco::Compensi,
                                "CodicePercipiente;Causale;DataPagamento;DataDocumento;Onorario\n"
                                "P1;A;25/03/2017;03/02/2017;1\n"
                                "P1;A;05/03/2017;02/25/2017;1\n");
  EXPECT_EQ(detti(lettura), Righe{});
  EXPECT_EQ(date(lettura), (Righe{"2017-03-25", "2017-03-05"}));
  EXPECT_EQ(lettura.righe[0].valore(ColonnaCompenso::DataDocumento).date().toIso(), "2017-03-02");
}

TEST(NascitaConAnnoBreve, IsThatOfAPersonOldEnough) {
  const Lettura lettura = letta(Elenco::Percipienti,
                                "Codice;PartitaIva;Cognome;DataNascita\n"
                                "P1;00743110157;X;25/12/03\n"
                                "P2;00743110157;Y;25/12/05\n");
  EXPECT_EQ(lettura.righe[0].valore(ColonnaPercipiente::DataNascita).date().toIso(), "2003-12-25");
  EXPECT_EQ(lettura.righe[1].valore(ColonnaPercipiente::DataNascita).date().toIso(), "1905-12-25");
}

}  // namespace
}  // namespace cu::intake
