// The assistant's steps with electronic invoices: those of docs/esempio, for the demonstration company.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "apps/importazione/assistente.h"
#include "apps/importazione/documenti_mostrati.h"
#include "apps/importazione/mappa_fatture.h"
#include "apps/importazione/posto_importazione.h"

namespace cu {
namespace {

using intake::Codice;
using intake::FontePagamento;
using intake::StatoRiga;
using test::avanza;
using test::finoAllaProva;
using test::svolgi;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Stato = DocumentoMostrato::Stato;

const std::string kCartellaEsempio = CU_ESEMPIO;
const std::string kPronte = kCartellaEsempio + "/fatture/pronte";
const std::string kDaVedere = kCartellaEsempio + "/fatture/da_vedere";

class AssistenteFatture : public testing::Test {
 protected:
  AssistenteFatture() : assistente(posto.ambiente()) {}

  void scegli(const std::vector<std::string>& percorsi) {
    assistente.aggiungi(percorsi);
    svolgi(assistente);
  }
  // Up to the documents.
  void leggi(const std::vector<std::string>& percorsi) {
    scegli(percorsi);
    avanza(assistente);
  }
  std::vector<DocumentoMostrato> documenti() const { return documentiMostrati(*assistente.piano()); }
  std::size_t quanti(Stato stato) const {
    const auto tutti = documenti();
    return static_cast<std::size_t>(
        std::count_if(tutti.begin(), tutti.end(), [&](const auto& uno) { return uno.stato == stato; }));
  }
  DocumentoMostrato documento(const std::string& file) const {
    for (const DocumentoMostrato& uno : documenti()) {
      if (uno.file.find(file) != std::string::npos) return uno;
    }
    return {};
  }
  void accettaTutto() {
    for (const AvvisiDiCodice& uno : avvisiPerCodice(*assistente.piano()))
      assistente.accetta(uno.codice, true);
    svolgi(assistente);
  }
  void escludi(StatoRiga stato) {
    std::vector<std::size_t> quali;
    for (std::size_t i = 0; i < assistente.piano()->righe.size(); ++i) {
      if (assistente.piano()->righe[i].stato == stato) quali.push_back(i);
    }
    assistente.decidi(quali, [](intake::Decisione& decisione) { decisione.esclusa = true; });
    svolgi(assistente);
  }

  const test::PostoImportazione posto;
  Assistente assistente;
};

TEST_F(AssistenteFatture, AFolderMeansInvoicesAndHasItsOwnSteps) {
  scegli({kPronte});
  EXPECT_TRUE(assistente.fatture());
  EXPECT_EQ(assistente.file().front().nome, "pronte");
  EXPECT_FALSE(assistente.comprende(Passo::Lettura));
  EXPECT_EQ(titoloPasso(Passo::Colonne, assistente.elenco(), true), "Documenti");
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Colonne);
  ASSERT_NE(assistente.piano(), nullptr);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Percipienti);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Compensi);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Prova);
  for (const Passo passo : {Passo::Compensi, Passo::Percipienti, Passo::Colonne, Passo::Sorgente}) {
    assistente.indietro();
    EXPECT_EQ(assistente.passo(), passo);
  }
}

TEST_F(AssistenteFatture, TheKindOfDataCanBeChosenBackAndForth) {
  scegli({kPronte + "/ITDMCNCL64S30F839G_00001.xml"});
  EXPECT_TRUE(assistente.fatture());
  assistente.scegliElenco(intake::Elenco::Percipienti);
  svolgi(assistente);
  EXPECT_FALSE(assistente.fatture());
  EXPECT_THAT(assistente.impedimento(), HasSubstr("non si può leggere"));
  assistente.scegliFatture();
  svolgi(assistente);
  EXPECT_THAT(assistente.impedimento(), IsEmpty());
}

TEST_F(AssistenteFatture, EachDocumentIsShownWithWhatWasRead) {
  leggi({kPronte});
  const DocumentoMostrato primo = documento("ITDLLGLI83A59F205I_00002.xml");
  EXPECT_EQ(primo.stato, Stato::Letto);
  EXPECT_EQ(primo.causale, "A");
  EXPECT_EQ(primo.data.toIso(), "2017-04-03");
  EXPECT_FALSE(primo.cedente.empty());
  EXPECT_EQ(primo.lordo->toText(), "1924");
  EXPECT_EQ(primo.imponibile->toText(), "1924");
  EXPECT_EQ(primo.ritenute->toText(), "384.8");
  EXPECT_FALSE(primo.spiegazioni.empty());
  EXPECT_EQ(documento("ITSNTNGL65E67L424F_00019.xml, documento 1").stato, Stato::Letto);
  EXPECT_EQ(documento("IT02151050230_00041.xml").stato, Stato::Escluso);
}

TEST_F(AssistenteFatture, ADocumentThatDoesNotAddUpIsChosenByAPerson) {
  leggi({kDaVedere + "/ITDLLGLI83A59F205I_00045.xml"});
  const DocumentoMostrato prima = documento("00045");
  ASSERT_EQ(prima.stato, Stato::DaScegliere);
  ASSERT_GE(prima.proposte.size(), 2U);
  const std::vector<std::size_t> riga{prima.riga};
  assistente.decidi(riga, [](intake::Decisione& decisione) { decisione.proposta = 1; });
  svolgi(assistente);
  const DocumentoMostrato dopo = documento("00045");
  EXPECT_EQ(dopo.stato, Stato::Letto);
  EXPECT_EQ(dopo.scelta, 1U);
  EXPECT_THAT(prima.messaggi, HasSubstr("possibile: "));
  EXPECT_THAT(dopo.messaggi, AllOf(HasSubstr("(R02)"), Not(HasSubstr("possibile: "))));
  EXPECT_TRUE(dopo.lordo.has_value());
}

TEST_F(AssistenteFatture, TheReasonOfAFlatRateSellerIsKeptForTheCompany) {
  const std::string fattura = kPronte + "/ITTMMLRI88D57L781H_00007.xml";
  leggi({fattura});
  const DocumentoMostrato prima = documento("00007");
  EXPECT_EQ(prima.stato, Stato::SenzaCausale);
  assistente.scegliCausale(prima.codice, "A");
  svolgi(assistente);
  EXPECT_EQ(documento("00007").stato, Stato::Letto);
  EXPECT_EQ(documento("00007").causale, "A");
  const std::string profilo = assistente.ricordaCausali();
  EXPECT_THAT(test::leggiFile(profilo), HasSubstr(prima.codice));
  Assistente altra(posto.ambiente());
  altra.aggiungi({fattura});
  svolgi(altra);
  avanza(altra);
  EXPECT_EQ(documentiMostrati(*altra.piano()).front().causale, "A");
  EXPECT_EQ(altra.profiloFatture(), profilo);
  altra.scegliCausale(prima.codice, "");
  svolgi(altra);
  EXPECT_EQ(documentiMostrati(*altra.piano()).front().stato, Stato::SenzaCausale);
}

TEST_F(AssistenteFatture, AFileThatCannotBeReadIsShownAndCanBeLeftOut) {
  leggi({kDaVedere + "/ITSFRMFR75S51E897Z_00055.xml", kPronte + "/ITDMCNCL64S30F839G_00001.xml"});
  EXPECT_EQ(documento("00055").stato, Stato::Errore);
  EXPECT_THAT(documento("00055").messaggi, HasSubstr("(F03)"));
  assistente.tralasciaIllegibili(true);
  svolgi(assistente);
  EXPECT_EQ(documento("00055").stato, Stato::Escluso);
  EXPECT_EQ(quanti(Stato::Letto), 1U);
}

TEST_F(AssistenteFatture, InvoicesToOthersCanBeLeftOut) {
  leggi({kDaVedere + "/ITDMCNCL64S30F839G_00051.xml"});
  EXPECT_EQ(documento("00051").stato, Stato::Errore);
  assistente.tralasciaAltrui(true);
  svolgi(assistente);
  EXPECT_EQ(documento("00051").stato, Stato::Escluso);
}

TEST_F(AssistenteFatture, DatesOfPaymentAreTypedOneByOne) {
  leggi({kPronte + "/ITDMCNCL64S30F839G_00001.xml"});
  EXPECT_EQ(pagamentiMostrati(*assistente.piano()).front().origine, PagamentoMostrato::Origine::Manca);
  EXPECT_EQ(documento("00001").stato, Stato::Letto) << "the document is read, whenever it was paid";
  const std::vector<std::size_t> riga{0};
  assistente.decidi(
      riga, [](intake::Decisione& decisione) { decisione.pagamento = giornoScritto("28/12/2001", 2018); });
  svolgi(assistente);
  EXPECT_EQ(documento("00001").stato, Stato::Errore);
  ASSERT_TRUE(documento("00001").lordo.has_value()) << "an error of the date hides no amount";
  EXPECT_EQ(documento("00001").lordo->toText(), "2450");
  assistente.decidi(
      riga, [](intake::Decisione& decisione) { decisione.pagamento = giornoScritto("28/12/2017", 2018); });
  finoAllaProva(assistente);
  const PagamentoMostrato pagamento = pagamentiMostrati(*assistente.piano()).front();
  EXPECT_EQ(pagamento.giorno.toIso(), "2017-12-28");
  EXPECT_TRUE(pagamento.indietro);
  EXPECT_FALSE(pagamento.avanti);
  const auto anni = sommePerAnno(*assistente.piano());
  ASSERT_EQ(anni.size(), 1U);
  EXPECT_EQ(anni[0].anno, 2017);
  EXPECT_EQ(anni[0].alConfine, 1U);
  EXPECT_EQ(anni[0].lordo.toText(), "2450");
  EXPECT_EQ(anni[0].ritenute.toText(), "490");
  assistente.vai(Passo::Sorgente);
  finoAllaProva(assistente);
  EXPECT_EQ(pagamentiMostrati(*assistente.piano()).front().giorno.toIso(), "2017-12-28")
      << "nothing is lost on the way back";
}

TEST_F(AssistenteFatture, DatesAreMissingAsLongAsTheDayOfAllIs) {
  leggi({kPronte + "/ITDMCNCL64S30F839G_00001.xml"});
  assistente.scegliDate(FontePagamento::Documento);
  svolgi(assistente);
  avanza(assistente);
  avanza(assistente);
  ASSERT_EQ(assistente.passo(), Passo::Compensi);
  assistente.attendiDate(FontePagamento::Giorno);
  svolgi(assistente);
  EXPECT_EQ(pagamentiMostrati(*assistente.piano()).front().origine, PagamentoMostrato::Origine::Manca);
  EXPECT_THAT(assistente.impedimento(), HasSubstr("Manca il giorno"));
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Compensi);
  assistente.scegliDate(FontePagamento::Giorno, *giornoScritto("10/4/2017", 2018));
  svolgi(assistente);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Prova);
}

TEST_F(AssistenteFatture, ChoicesStayWithTheirDocumentWhenTheFilesChange) {
  leggi({kPronte + "/ITDLLGLI83A59F205I_00002.xml", kPronte + "/ITDMCNCL64S30F839G_00001.xml"});
  const std::vector<std::size_t> riga{documento("00001").riga};
  assistente.decidi(
      riga, [](intake::Decisione& decisione) { decisione.pagamento = giornoScritto("28/12/2017", 2018); });
  svolgi(assistente);
  assistente.vai(Passo::Sorgente);
  assistente.togli(0);
  assistente.aggiungi({kPronte + "/ITRSSMRC71C08L781I_00003.xml"});
  svolgi(assistente);
  avanza(assistente);
  const auto pagamenti = pagamentiMostrati(*assistente.piano());
  EXPECT_EQ(pagamenti.at(documento("00001").riga).giorno.toIso(), "2017-12-28");
  EXPECT_EQ(pagamenti.at(documento("00003").riga).origine, PagamentoMostrato::Origine::Manca);
  const std::vector<std::size_t> senzaData{documento("00003").riga};
  assistente.decidi(senzaData, [](intake::Decisione& decisione) { decisione.esclusa = true; });
  svolgi(assistente);
  EXPECT_EQ(pagamentiMostrati(*assistente.piano()).at(senzaData.front()).origine,
            PagamentoMostrato::Origine::Nessuna)
      << "of a row that is left out no date is missing";
}

TEST_F(AssistenteFatture, OnlyTheReasonsAreKeptForTheCompany) {
  leggi({kDaVedere + "/ITDMCNCL64S30F839G_00051.xml"});
  assistente.tralasciaAltrui(true);
  svolgi(assistente);
  EXPECT_EQ(test::leggiFile(assistente.ricordaCausali()).find("altri_committenti"), std::string::npos);
}

TEST_F(AssistenteFatture, AFolderWithoutInvoicesStopsAtTheFirstStep) {
  const std::string vuota = posto.cartella / "vuota";
  std::filesystem::create_directories(vuota);
  leggi({vuota});
  EXPECT_EQ(assistente.passo(), Passo::Sorgente);
  EXPECT_THAT(assistente.impedimento(), HasSubstr("nessuna fattura elettronica"));
  assistente.aggiungi({kPronte + "/ITDMCNCL64S30F839G_00001.xml"});
  svolgi(assistente);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Colonne);
}

TEST_F(AssistenteFatture, ASellerIsKnownBeforeTheDateOfPaymentIs) {
  leggi({kPronte + "/ITRSSMRC71C08L781I_00003.xml", kPronte + "/ITRSSMRC71C08L781I_00023.xml",
         kPronte + "/ITTMMLRI88D57L781H_00007.xml"});
  const auto soggetti = soggettiDelPiano(*assistente.piano());
  ASSERT_EQ(soggetti.size(), 2U);
  EXPECT_EQ(soggetti[0].stato, SoggettoPiano::Stato::Nuovo);
  EXPECT_EQ(soggetti[0].lordo->toText(), "1502");
  EXPECT_EQ(soggetti[1].stato, SoggettoPiano::Stato::Trovato);
  EXPECT_EQ(soggetti[1].nome, "Rossi Marco");
  EXPECT_EQ(soggetti[1].righe.size(), 2U);
}

TEST_F(AssistenteFatture, TheDocumentsDateIsOnlyProposed) {
  leggi({kPronte + "/ITDMCNCL64S30F839G_00001.xml"});
  assistente.scegliDate(FontePagamento::Documento);
  svolgi(assistente);
  const PagamentoMostrato pagamento = pagamentiMostrati(*assistente.piano()).front();
  EXPECT_EQ(pagamento.origine, PagamentoMostrato::Origine::Proposta);
  EXPECT_EQ(pagamento.giorno.toIso(), "2017-03-20");
  EXPECT_EQ(sommePerAnno(*assistente.piano()).front().proposti, 1U);
  assistente.scegliDate(FontePagamento::Giorno, Date::fromYmd(2018, 1, 10).value());
  svolgi(assistente);
  const PagamentoMostrato stesso = pagamentiMostrati(*assistente.piano()).front();
  EXPECT_EQ(stesso.origine, PagamentoMostrato::Origine::Data);
  EXPECT_TRUE(stesso.avanti);
}

TEST_F(AssistenteFatture, ATableOfDatesThatIsWrongChangesNothing) {
  leggi({kPronte + "/ITDMCNCL64S30F839G_00001.xml"});
  EXPECT_FALSE(assistente.usaTavolaDate(posto.file("date.csv", "A;B\n1;2\n")).empty());
  EXPECT_EQ(assistente.opzioni().fonte, FontePagamento::Nessuna);
  EXPECT_THAT(assistente.tavolaDate(), IsEmpty());
}

TEST_F(AssistenteFatture, AFolderBecomesPaymentsAndNewPayees) {
  leggi({kPronte});
  assistente.scegliCausaleForfettari("A");
  EXPECT_THAT(assistente.usaTavolaDate(kCartellaEsempio + "/date_pagamento.csv"), IsEmpty());
  svolgi(assistente);
  EXPECT_EQ(assistente.tavolaDate(), "date_pagamento.csv");
  EXPECT_EQ(quanti(Stato::DaScegliere) + quanti(Stato::SenzaCausale) + quanti(Stato::Errore), 0U);
  const auto soggetti = soggettiDelPiano(*assistente.piano());
  EXPECT_TRUE(std::any_of(soggetti.begin(), soggetti.end(), [](const SoggettoPiano& uno) {
    return uno.stato == SoggettoPiano::Stato::Nuovo && !uno.nome.empty();
  }));
  finoAllaProva(assistente);
  ASSERT_EQ(assistente.passo(), Passo::Prova);
  accettaTutto();
  ASSERT_TRUE(assistente.puoImportare());
  const std::size_t nuovi = assistente.piano()->quante(StatoRiga::Nuovo);
  EXPECT_GT(nuovi, 30U);
  Assistente::Compito compito = assistente.importa();
  compito.lavoro(nullptr);
  compito.accogli();
  svolgi(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Esito);
  Assistente seconda(posto.ambiente());
  seconda.aggiungi({kPronte});
  svolgi(seconda);
  avanza(seconda);
  seconda.scegliCausaleForfettari("A");
  seconda.usaTavolaDate(kCartellaEsempio + "/date_pagamento.csv");
  svolgi(seconda);
  EXPECT_EQ(seconda.piano()->quante(StatoRiga::Nuovo), 0U) << "twice adds nothing";
}

TEST_F(AssistenteFatture, ReadingCanBeInterrupted) {
  struct Basta {};
  class Interrompe : public ProgressSink {
   public:
    void setPointer(int) override {}
    void progress(const char*, std::size_t fatti, std::size_t) override {
      if (fatti == 3) throw Basta();
    }
  };
  scegli({kPronte});
  assistente.avanti();
  auto compito = assistente.daFare();
  ASSERT_TRUE(compito);
  Interrompe interrompe;
  EXPECT_THROW(compito->lavoro(&interrompe), Basta);
  EXPECT_EQ(assistente.lettura(0), nullptr);
}

TEST(GiornoScritto, IsADayMonthAndYear) {
  const auto iso = [](const char* testo) {
    const auto giorno = giornoScritto(testo, 2018);
    return giorno ? giorno->toIso() : std::string("-");
  };
  EXPECT_EQ(iso("20/3/2017"), "2017-03-20");
  EXPECT_EQ(iso("20-03-17"), "2017-03-20");
  EXPECT_EQ(iso("2017-03-20"), "2017-03-20");
  EXPECT_EQ(iso("31/02/2017"), "-");
  EXPECT_EQ(iso("domani"), "-");
}

}  // namespace
}  // namespace cu
