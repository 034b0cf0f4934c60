#include "host/testi_programma.h"

#include <gtest/gtest.h>

namespace cu::test {
namespace {

struct Testo {
  std::int16_t numero;
  const char* testo;
};

// clang-format off
constexpr Testo kTesti[] = {
    {101, "Questa autocomposizione permette di stampare tutti i dati contabili dei compensi pagati negli anni selezionati."},
    {102, "In questo passo è possibile selezionare i percipienti e le causali pagamento per i quali effettuare le stampe."},
    {103, "In questo passo è possibile selezionare il formato di stampa che s'intende utilizzare."},
    {104, "Tipo di stampa"},
    {105, "Da anno"},
    {106, "Modalità di stampa"},
    {107, "Stampa Interlinea"},
    {108, "Salto Pagina"},
    {109, "Per il tipo di stampa selezionato il campo anno è obbligatorio."},
    {110, "Da percipiente"},
    {111, "A percipiente"},
    {112, "Opzione selezione"},
    {113, "Per codice"},
    {114, "Per nominativo"},
    {115, "Ad anno"},
    {116, "Da causale pagamento"},
    {117, "A causale pagamento"},
    {118, "Stampa certificazione dei compensi"},
    {119, "Creazione tracciato ministeriale e stampa moduli"},
    {120, "246"},
    {121, "247"},
    {122, "Anno pagamento compensi"},
    {123, "342"},
    {1001, "Questa autocomposizione permette di stampare la certificazione dei compensi pagati per ogni percipiente nell' anno selezionato."},
    {1002, "Questa procedura consente di stampare la certificazione in forma libera dei compensi pagati oppure di creare il tracciato telematico della Certificazione Unica e di stampare il modello ministeriale per l’attestazione dei redditi di lavoro autonomo e diversi."},
    {1003, "In questo passo è possibile selezionare i percipienti e le causali di pagamento per i quali si vuole creare il tracciato telematico della Certificazione Unica e stampare il modello ministeriale."},
    {1004, "Confermando l’avvio della procedura verranno memorizzate le modifiche apportate al passo precedente, verrà creato il tracciato telematico della Certificazione Unica ed eseguita la stampa del modello ministeriale."},
};
// clang-format on

TEST(ProgramTexts, AreTheseWordForWord) {
  for (const Testo& atteso : kTesti) EXPECT_EQ(testoProgramma(atteso.numero), atteso.testo) << atteso.numero;
}

TEST(ProgramTexts, AreNoOthers) {
  int portati = 0;
  for (std::int16_t numero = 0; numero < 2000; ++numero) portati += testoProgramma(numero).empty() ? 0 : 1;
  EXPECT_EQ(portati, 27);
}

TEST(RunModes, AreReadFromTheTable) {
  EXPECT_EQ(fnModoContiIndividuali(), 246);
  EXPECT_EQ(fnModoCertificazione(), 247);
  EXPECT_EQ(fnModoCU(), 342);
}

TEST(RunModes, AreThreeAndEveryOtherNumberIsNone) {
  EXPECT_EQ(modoCorsa(246), ModoCorsa::ContiIndividuali);
  EXPECT_EQ(modoCorsa(247), ModoCorsa::Certificazione);
  EXPECT_EQ(modoCorsa(342), ModoCorsa::CU);
  for (const std::int32_t numero : {-1, 0, 1, 245, 248, 341, 343}) {
    EXPECT_EQ(modoCorsa(numero), ModoCorsa::Altro) << numero;
  }
}

}  // namespace
}  // namespace cu::test
