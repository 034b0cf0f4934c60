#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <tuple>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

// Every state with every event: listed events lead to their next state, all others have no effect.

using Stato = std::pair<int, int>;  // mode, step; {0, 0} after the form has been closed

enum class Evento {
  Informazioni,
  AbbandonaSi,
  AbbandonaNo,
  IndietroSi,
  IndietroNo,
  IndietroAnnulla,
  Avanti,
  AvantiRifiutato,
  Avvia,
  AvviaRifiutato,
  StampaCertificazione,
  TracciatoMinisteriale,
};

constexpr Stato kFine = {0, 0};

const std::map<std::pair<Stato, Evento>, Stato> kTabella = {
    {{{246, 0}, Evento::Avanti}, {246, 2}},
    {{{246, 0}, Evento::AvantiRifiutato}, {246, 2}},  // no year is required
    {{{246, 2}, Evento::IndietroSi}, {246, 0}},
    {{{246, 2}, Evento::IndietroNo}, {246, 0}},
    {{{246, 2}, Evento::IndietroAnnulla}, {246, 0}},
    {{{246, 2}, Evento::Avvia}, {246, 2}},
    {{{247, 0}, Evento::TracciatoMinisteriale}, {342, 0}},
    {{{342, 0}, Evento::StampaCertificazione}, {247, 0}},
    {{{247, 0}, Evento::Avanti}, {247, 2}},
    {{{247, 2}, Evento::IndietroSi}, {247, 0}},
    {{{247, 2}, Evento::IndietroNo}, {247, 0}},
    {{{247, 2}, Evento::IndietroAnnulla}, {247, 0}},
    {{{247, 2}, Evento::Avvia}, {247, 2}},
    {{{342, 0}, Evento::Avanti}, {342, 1}},
    {{{342, 1}, Evento::IndietroSi}, {342, 0}},
    {{{342, 1}, Evento::IndietroNo}, {342, 0}},
    {{{342, 1}, Evento::Avanti}, {342, 2}},
    {{{342, 2}, Evento::IndietroSi}, {342, 1}},
    {{{342, 2}, Evento::IndietroNo}, {342, 1}},
    {{{342, 2}, Evento::IndietroAnnulla}, {342, 1}},
    {{{342, 2}, Evento::Avvia}, {342, 0}},
};

Stato seguente(Stato stato, Evento evento) {
  if (evento == Evento::AbbandonaSi) return kFine;
  const auto voce = kTabella.find({stato, evento});
  return voce == kTabella.end() ? stato : voce->second;
}

class StateTable : public testing::TestWithParam<std::tuple<Stato, Evento>>, public WizardProva {
 protected:
  void porta(Stato stato) {
    const auto [modo, passo] = stato;
    if (modo == 342) {
      if (passo == 0) avviaCU();
      if (passo == 1) vaiAllaGriglia();
      if (passo == 2) vaiAllaFine();
      return;
    }
    avvia(modo);
    form().KRNCboEsCont0.setIndex(0);
    if (passo == 2) premi(form().cmdNav[3]);
  }

  void accade(Evento evento) {
    switch (evento) {
      case Evento::Informazioni:
        premi(form().cmdNav[0]);
        break;
      case Evento::AbbandonaSi:
        frontEnd.answers = {Answer::Yes};
        premi(form().cmdNav[1]);
        break;
      case Evento::AbbandonaNo:
        frontEnd.answers = {Answer::No};
        premi(form().cmdNav[1]);
        break;
      case Evento::IndietroSi:
        frontEnd.answers = {Answer::Yes};
        premi(form().cmdNav[2]);
        break;
      case Evento::IndietroNo:
        frontEnd.answers = {Answer::No};
        premi(form().cmdNav[2]);
        break;
      case Evento::IndietroAnnulla:
        frontEnd.answers = {Answer::Cancel};
        premi(form().cmdNav[2]);
        break;
      case Evento::Avanti:
        premi(form().cmdNav[3]);
        break;
      case Evento::AvantiRifiutato:
        // Neither a year nor a selected line.
        form().KRNCboEsCont0.setIndex(-1);
        conteggi.selected = 0;
        premi(form().cmdNav[3]);
        break;
      case Evento::Avvia:
        premi(form().cmdNav[4]);
        break;
      case Evento::AvviaRifiutato:
        form().dtDataFirma.setText("");
        premi(form().cmdNav[4]);
        break;
      case Evento::StampaCertificazione:
        premi(form().optstType[0]);
        break;
      case Evento::TracciatoMinisteriale:
        premi(form().optstType[1]);
        break;
    }
  }

  Stato stato() { return form().isOpen() ? Stato{globali().gIDFunzione, passo()} : kFine; }
};

TEST_P(StateTable, EventLeadsToTheNextState) {
  const auto [da, evento] = GetParam();
  porta(da);
  ASSERT_EQ(stato(), da);
  accade(evento);
  const Stato atteso = seguente(da, evento);
  EXPECT_EQ(stato(), atteso);
  EXPECT_TRUE(frontEnd.errors.empty());
  if (atteso == kFine) return;
  EXPECT_EQ(form().cmdNav[0].enabled(), true);
  EXPECT_EQ(form().cmdNav[1].enabled(), true);
  EXPECT_EQ(form().cmdNav[2].enabled(), atteso.second != 0);
  EXPECT_EQ(form().cmdNav[3].enabled(), atteso.second != 2);
  EXPECT_EQ(form().cmdNav[4].enabled(), atteso.second == 2);
}

std::string nome(const testing::TestParamInfo<std::tuple<Stato, Evento>>& info) {
  static const std::map<Evento, std::string> kNomi = {
      {Evento::Informazioni, "Help"},
      {Evento::AbbandonaSi, "AbandonYes"},
      {Evento::AbbandonaNo, "AbandonNo"},
      {Evento::IndietroSi, "BackYes"},
      {Evento::IndietroNo, "BackNo"},
      {Evento::IndietroAnnulla, "BackCancel"},
      {Evento::Avanti, "Next"},
      {Evento::AvantiRifiutato, "NextWithoutYearAndSelection"},
      {Evento::Avvia, "Start"},
      {Evento::AvviaRifiutato, "StartWithDataMissing"},
      {Evento::StampaCertificazione, "CertificateOption"},
      {Evento::TracciatoMinisteriale, "FileOption"},
  };
  const auto [stato, evento] = info.param;
  return "Mode" + std::to_string(stato.first) + "Step" + std::to_string(stato.second) + kNomi.at(evento);
}

INSTANTIATE_TEST_SUITE_P(
    AllStatesAndEvents, StateTable,
    testing::Combine(testing::Values(Stato{246, 0}, Stato{246, 2}, Stato{247, 0}, Stato{247, 2},
                                     Stato{342, 0}, Stato{342, 1}, Stato{342, 2}),
                     testing::Values(Evento::Informazioni, Evento::AbbandonaSi, Evento::AbbandonaNo,
                                     Evento::IndietroSi, Evento::IndietroNo, Evento::IndietroAnnulla,
                                     Evento::Avanti, Evento::AvantiRifiutato, Evento::Avvia,
                                     Evento::AvviaRifiutato, Evento::StampaCertificazione,
                                     Evento::TracciatoMinisteriale)),
    nome);

}  // namespace
}  // namespace cu::test
