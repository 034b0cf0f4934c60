#include "apps/importazione/colonne_scelte.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/importazione/assistente.h"
#include "apps/importazione/posto_importazione.h"
#include "apps/importazione/righe_errate.h"

namespace cu {
namespace {

using test::avanza;
using test::finoAllaProva;
using test::svolgi;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ColonneScelteTest : public testing::Test {
 protected:
  Assistente conTesto(const std::string& testo) const {
    Assistente assistente(posto.ambiente());
    assistente.aggiungi({posto.file("f.csv", testo)});
    svolgi(assistente);
    return assistente;
  }
  const test::PostoImportazione posto;
};

TEST_F(ColonneScelteTest, TellsColumnsOfTheSameTitleApart) {
  Assistente assistente =
      conTesto("CodicePercipiente;Causale;DataPagamento;Onorario;Onorario\nP001;A;20/03/2018;1000;7\n");
  avanza(assistente);
  avanza(assistente);
  EXPECT_THAT(assistente.impedimento(), HasSubstr("scegliere qui sotto quale vale"));
  intake::Mappatura mappatura = assistente.file().front().mappatura;
  const auto onorario = static_cast<std::uint8_t>(intake::ColonnaCompenso::Onorario);
  cambiaFonte(mappatura, onorario, {{"Onorario (2)"}, {}, intake::Segno::ComeScritto});
  assistente.cambiaMappatura(0, mappatura);
  svolgi(assistente);
  EXPECT_THAT(assistente.impedimento(), IsEmpty());
  const auto scelte = colonneScelte(assistente.file().front(), *assistente.lettura(0));
  EXPECT_THAT(scelte[onorario].intestazioni, ElementsAre("Onorario (2)"));
  EXPECT_THAT(scelte[onorario].esempi, ElementsAre("7,00"));
  EXPECT_EQ(assistente.lettura(0)->messaggi.front().colonna, "Onorario (1)") << "the other one is not used";
}

TEST_F(ColonneScelteTest, KnowsWhatElseAHeadingIsUsedFor) {
  Assistente assistente =
      conTesto("CodicePercipiente;Causale;DataPagamento;Onorario\nP001;A;20/03/2018;1000\n");
  avanza(assistente);
  avanza(assistente);
  auto scelte = colonneScelte(assistente.file().front(), *assistente.lettura(0));
  const intake::Colonna& lordo = intake::colonna(intake::ColonnaCompenso::Lordo);
  EXPECT_THAT(altriUsi(scelte, lordo, "Onorario").perdono, ElementsAre("Onorario"));
  EXPECT_THAT(altriUsi(scelte, intake::colonna(intake::ColonnaCompenso::Onorario), "Onorario").perdono,
              IsEmpty());
  intake::Mappatura mappatura = assistente.file().front().mappatura;
  cambiaFonte(mappatura, lordo.indice, {{"Onorario"}, {}, intake::Segno::ComeScritto});
  assistente.cambiaMappatura(0, mappatura);
  svolgi(assistente);
  scelte = colonneScelte(assistente.file().front(), *assistente.lettura(0));
  EXPECT_FALSE(scelte[static_cast<std::size_t>(intake::ColonnaCompenso::Onorario)].presente());
  const auto altri = altriUsi(scelte, intake::colonna(intake::ColonnaCompenso::Netto), "Onorario");
  EXPECT_THAT(altri.tengono, ElementsAre("Lordo"));
  EXPECT_THAT(altri.perdono, IsEmpty());
}

TEST_F(ColonneScelteTest, CountsTheValuesThatCannotBeRead) {
  Assistente assistente = conTesto(
      "CodicePercipiente;Causale;DataPagamento;Onorario\nP001;A;20/03/2018;1.234,50\nP002;A;20/03/2018;x\n");
  avanza(assistente);
  avanza(assistente);
  const auto scelte = colonneScelte(assistente.file().front(), *assistente.lettura(0));
  const ColonnaScelta& onorario = scelte[static_cast<std::size_t>(intake::ColonnaCompenso::Onorario)];
  EXPECT_EQ(onorario.valori, 0U);
  EXPECT_EQ(onorario.respinti, 2U);
  EXPECT_THAT(onorario.primoRespinto, HasSubstr("1.234,50"));
  EXPECT_THAT(onorario.primoRespinto, HasSubstr("nel passo Lettura"));
}

TEST_F(ColonneScelteTest, RowsThatAreStillWrongHaveTheirReasonOnce) {
  Assistente assistente =
      conTesto("CodicePercipiente;Causale;DataPagamento;Onorario;Errore\nP999;A;20/03/2018;7;prima\n");
  finoAllaProva(assistente);
  const auto errate = righeErrate(*assistente.piano(), 0, *assistente.file().front().tabella);
  EXPECT_THAT(errate.colonne,
              ElementsAre("CodicePercipiente", "Causale", "DataPagamento", "Onorario", "Errore"));
  EXPECT_THAT(errate.righe.at(0).back().view().text(), HasSubstr("(P12)"));
}

}  // namespace
}  // namespace cu
