// The files of many companies in one run.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <thread>

#include "system/lettore_db_support.h"
#include "system/posto_support.h"

namespace cu::test {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr int kQuanteAziende = 6;

std::string byteDi(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> righe(const std::string& testo) {
  std::istringstream stream(testo);
  std::vector<std::string> tutte;
  for (std::string riga; std::getline(stream, riga);) tutte.push_back(riga);
  return tutte;
}

class MolteAziende : public ::testing::Test {
 protected:
  MolteAziende() : posto_(Posto::Database::Nessuno) {
    const Esecuzione creato = posto_.crea({"--payees", "4", "--companies", std::to_string(kQuanteAziende),
                                           "--years", "2016-2017", "--seed", "3"});
    EXPECT_EQ(creato.codice, 0) << creato.errori;
  }
  std::string in(const std::string& nome) const { return posto_.cartella().path() + "/" + nome; }
  std::vector<std::string> comando(std::vector<std::string> altri) {
    std::vector<std::string> argomenti = {"make", "--profile", posto_.profilo(), "--year", "2017"};
    argomenti.insert(argomenti.end(), altri.begin(), altri.end());
    return argomenti;
  }
  Esecuzione make(std::vector<std::string> altri) { return posto_.cuctl(comando(std::move(altri))); }
  Esecuzione tutte(std::vector<std::string> altri = {}) {
    altri.insert(altri.end(), {"--all-companies", "--folder", in("cu")});
    return make(std::move(altri));
  }
  static std::string codice(int azienda) {
    const std::string numero = std::to_string(azienda);
    std::string codice = azienda == 1 ? "0000000023" : std::string(7 - numero.size(), '0') + numero + "024";
    int somma = 0;
    for (std::size_t i = 0; i < codice.size(); ++i) {
      const int cifra = codice[i] - '0';
      somma += i % 2 == 0 ? cifra : cifra * 2 - (cifra > 4 ? 9 : 0);
    }
    return codice + std::to_string((10 - somma % 10) % 10);
  }
  std::string file(int azienda, const std::string& cartella = "cu") const {
    return in(cartella + "/" + codice(azienda) + "/CUR_" + codice(azienda) + "_2017.cur");
  }
  std::vector<std::string> invii() {
    std::vector<std::string> aziende;
    for (const auto& riga : posto_.lettore()->righe("SELECT IDAzienda FROM CuInvio ORDER BY IDAzienda")) {
      aziende.push_back(riga.at(0));
    }
    return aziende;
  }

  Posto posto_;
};

TEST_F(MolteAziende, EachHasTheFileThatItsOwnRunGives) {
  const Esecuzione corsa = tutte({"--jobs", "3"});
  EXPECT_EQ(corsa.codice, 0) << corsa.uscita << corsa.errori;
  EXPECT_EQ(righe(corsa.uscita).size(), kQuanteAziende + 1U) << corsa.uscita;
  EXPECT_EQ(righe(corsa.uscita).back(), "Aziende 6: scritte 6, rifiutate 0.");
  EXPECT_THAT(corsa.errori, IsEmpty());
  EXPECT_THAT(invii(), ElementsAre("1", "2", "3", "4", "5", "6"));
  for (int azienda = 1; azienda <= kQuanteAziende; ++azienda) {
    posto_.imposta("session.company", std::to_string(azienda));
    posto_.imposta("session.branch", std::to_string(azienda));
    posto_.imposta("trace.sql", "\"sola.sql\"");
    std::filesystem::create_directory(in("sola"));
    const Esecuzione sola = make({"--folder", in("sola")});
    EXPECT_EQ(sola.codice, 0) << sola.errori;
    const std::string suo = byteDi(in("sola/CUR_" + codice(azienda) + "_2017.cur"));
    EXPECT_GT(suo.size(), 1900U);
    EXPECT_TRUE(byteDi(file(azienda)) == suo) << azienda;
    // The same statements, of a session of its own.
    const auto diSessione = [](std::string testo, const std::string& utente) {
      return std::regex_replace(
          testo, std::regex("\\b(tmpprequadrivio|PK_tmpprequadrivio)?" + utente + "\\b"), "$1N");
    };
    EXPECT_EQ(diSessione(byteDi(in("trace-" + std::to_string(azienda) + ".sql")),
                         std::to_string(1001200000 + azienda)),
              diSessione(byteDi(in("sola.sql")), "12"))
        << azienda;
  }
}

TEST_F(MolteAziende, OneThatIsRefusedStopsNoOtherAndIsNamedWithItsReasons) {
  posto_.lettore()->esegui(
      "UPDATE Anagrafica SET Sesso = NULL WHERE IDAnagrafica > 208 AND IDAnagrafica < 313");
  const Esecuzione corsa = tutte();
  EXPECT_EQ(corsa.codice, 1);
  EXPECT_EQ(righe(corsa.uscita).back(), "Aziende 6: scritte 5, rifiutate 1.");
  EXPECT_THAT(corsa.uscita, HasSubstr("Azienda Sintetica 0003 S.p.A. (" + codice(3) +
                                      ", azienda 3): rifiutata: mancano dei dati: "));
  EXPECT_FALSE(std::filesystem::exists(in("cu/" + codice(3)))) << "no empty folder is left";
  EXPECT_TRUE(std::filesystem::exists(file(4)));

  // What is missing is given, and only that is done.
  posto_.lettore()->esegui(
      "UPDATE Anagrafica SET Sesso = 'M' WHERE IDAnagrafica > 208 AND IDAnagrafica < 313");
  const Esecuzione seconda = tutte({"--only-missing"});
  EXPECT_EQ(seconda.codice, 0) << seconda.uscita;
  EXPECT_EQ(righe(seconda.uscita).back(), "Aziende 6: scritte 1, già scritte 5, rifiutate 0.");
  EXPECT_THAT(seconda.uscita, HasSubstr("azienda 3): scritta: "));
  EXPECT_THAT(invii(), ElementsAre("1", "2", "3", "4", "5", "6"));
}

TEST_F(MolteAziende, ThoseAskedForAlone) {
  const Esecuzione corsa = make({"--company", "2", "--company", codice(5), "--folder", in("cu")});
  EXPECT_EQ(corsa.codice, 0) << corsa.uscita << corsa.errori;
  EXPECT_THAT(invii(), ElementsAre("2", "5"));
  const Esecuzione nessuna = make({"--company", "7", "--folder", in("cu")});
  EXPECT_EQ(nessuna.codice, 1);
  EXPECT_THAT(nessuna.errori, HasSubstr("Nessuna azienda 7 nel database"));
  EXPECT_THAT(nessuna.uscita, IsEmpty());
}

TEST_F(MolteAziende, OneWithoutAccountsOfTheYearIsRefusedOnlyWhereItIsAskedFor) {
  posto_.lettore()->esegui("DELETE FROM ContoIndividuale WHERE IDAzienda = 4 AND Anno = 2017");
  const Esecuzione corsa = tutte();
  EXPECT_EQ(corsa.codice, 0) << corsa.uscita;
  EXPECT_EQ(righe(corsa.uscita).back(), "Aziende 6: scritte 5, senza conti 1, rifiutate 0.");
  const Esecuzione sola = make({"--company", "4", "--folder", in("cu")});
  EXPECT_EQ(sola.codice, 1);
  EXPECT_THAT(sola.uscita, HasSubstr("rifiutata: Nessun conto individuale per l'anno 2017."));
}

TEST_F(MolteAziende, WhatCameAfterAFileThatWasSentIsLeftToCorrections) {
  ASSERT_EQ(tutte().codice, 0);
  posto_.imposta("session.company", "2");
  const Esecuzione inviata = posto_.cuctl({"sent", file(2), "--profile", posto_.profilo()});
  ASSERT_EQ(inviata.codice, 0) << inviata.errori;
  const std::string percipiente =
      posto_.lettore()
          ->righe("SELECT IDAnagrafica FROM Percipiente WHERE IDAzienda = 2 ORDER BY IDAnagrafica")
          .front()
          .front();
  posto_.lettore()->esegui(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, OnorarioProvvigioni,"
      " QuotaProvvigioniNonSoggette) SELECT " +
      percipiente + ", IDCausalePagamento, 2017, 2, 100, 0 FROM CausalePagamento WHERE Codice = 'V'");
  const Esecuzione corsa = tutte({"--only-missing"});
  EXPECT_EQ(corsa.codice, 1);
  EXPECT_THAT(corsa.uscita,
              HasSubstr("azienda 2): rifiutata: altre certificazioni dell'anno sono già inviate; "
                        "le 1 nuove si scrivono da sole con «cuctl correct»"));
}

TEST_F(MolteAziende, WhatTheAgenziaHasIsGivenAgainOnlyWhereItIsConfirmed) {
  ASSERT_EQ(make({"--company", "2", "--company", "3", "--folder", in("cu")}).codice, 0);
  posto_.imposta("session.company", "2");
  ASSERT_EQ(posto_.cuctl({"sent", file(2), "--profile", posto_.profilo()}).codice, 0);
  const std::string inviato = byteDi(file(2));
  posto_.lettore()->esegui("UPDATE Anagrafica SET EMailInternet = 'altra@azienda.example'");
  const Esecuzione corsa = tutte();
  EXPECT_EQ(corsa.codice, 1);
  EXPECT_THAT(corsa.uscita, HasSubstr("azienda 2): rifiutata: certificazioni dell'anno già inviate: "));
  EXPECT_THAT(corsa.uscita, HasSubstr(" (--yes per proseguire)\n"));
  EXPECT_EQ(righe(corsa.uscita).back(), "Aziende 6: scritte 5, rifiutate 1.");
  EXPECT_TRUE(byteDi(file(2)) == inviato);
  const Esecuzione confermata = tutte({"--yes"});
  EXPECT_EQ(confermata.codice, 0) << confermata.uscita;
  EXPECT_THAT(confermata.uscita, HasSubstr("; avvisi: certificazioni dell'anno già inviate: "));
  EXPECT_FALSE(byteDi(file(2)) == inviato);
}

TEST_F(MolteAziende, RejectedOnesAreNamedWhereTheirFileIsOnRecord) {
  ASSERT_EQ(make({"--company", "2", "--folder", in("cu")}).codice, 0);
  posto_.imposta("session.company", "2");
  ASSERT_EQ(posto_.cuctl({"sent", file(2), "--profile", posto_.profilo()}).codice, 0);
  const std::string una =
      posto_.lettore()
          ->righe("SELECT IDCertificazione FROM CuCertificazione ORDER BY IDCertificazione")
          .back()
          .front();
  posto_.lettore()->esegui("UPDATE CuCertificazione SET Stato = 'scartata' WHERE IDCertificazione = " + una);
  const Esecuzione corsa = make({"--company", "2", "--only-missing", "--folder", in("cu")});
  EXPECT_EQ(corsa.codice, 0) << corsa.uscita;
  EXPECT_THAT(corsa.uscita, HasSubstr(", scartate 1 (si riscrivono da sole con «cuctl correct»)\n"));
}

TEST_F(MolteAziende, AFolderThatCannotBeIsSaid) {
  std::filesystem::create_directory(in("cu"));
  std::ofstream(in("cu/" + codice(2))) << "un file";
  std::filesystem::create_directories(in("cu/" + codice(3) + "/CUR_" + codice(3) + "_2017.cur/dentro"));
  const Esecuzione corsa = tutte();
  EXPECT_EQ(corsa.codice, 1);
  EXPECT_THAT(corsa.uscita, HasSubstr("azienda 2): rifiutata: la cartella «" + in("cu/" + codice(2)) +
                                      "» non si può creare: c'è un file con quel nome\n"));
  EXPECT_THAT(corsa.uscita, HasSubstr("azienda 3): rifiutata: "));
  EXPECT_EQ(righe(corsa.uscita).back(), "Aziende 6: scritte 4, rifiutate 2.");
}

TEST_F(MolteAziende, AFileWithErrorsIsCountedApart) {
  const std::string anagrafica =
      posto_.lettore()->righe("SELECT IDAnagrafica FROM Azienda WHERE IDAzienda = 4").front().front();
  posto_.lettore()->esegui("UPDATE Anagrafica SET Anagrafica = 'Una\nriga' WHERE IDAnagrafica = " +
                           anagrafica);
  const Esecuzione corsa = tutte();
  EXPECT_THAT(corsa.uscita, HasSubstr("azienda 4): scritta, ma il file ha errori: "));
  EXPECT_EQ(righe(corsa.uscita).back(), "Aziende 6: scritte 5, scritte con errori nel file 1, rifiutate 0.");
}

TEST_F(MolteAziende, ARunThatWasKilledIsRepeatedForTheRest) {
  {
    std::vector<std::string> argomenti = comando({"--all-companies", "--jobs", "1", "--folder", in("cu")});
    argomenti.insert(argomenti.begin(), CU_CUCTL);
    Processo processo(argomenti, posto_.cartella().path());
    ASSERT_TRUE(processo.riga().has_value());
    ASSERT_TRUE(processo.riga().has_value());
    ::kill(processo.id(), SIGKILL);
  }
  // The company that was in work may still be written to its end.
  const auto prima = std::chrono::steady_clock::now();
  Esecuzione seconda;
  do {
    seconda = tutte({"--only-missing"});
  } while (seconda.codice != 0 && std::chrono::steady_clock::now() - prima < std::chrono::seconds(20));
  EXPECT_EQ(seconda.codice, 0) << seconda.uscita << seconda.errori;
  EXPECT_THAT(seconda.uscita, Not(HasSubstr("già scritte 0")));
  const std::string somma = righe(seconda.uscita).back();
  EXPECT_THAT(somma, AllOf(HasSubstr("già scritte "), HasSubstr("rifiutate 0."))) << somma;
  for (int azienda = 1; azienda <= kQuanteAziende; ++azienda)
    EXPECT_TRUE(std::filesystem::exists(file(azienda)));
  EXPECT_EQ(tutte({"--only-missing"}).codice, 0);
}

TEST_F(MolteAziende, TwoUsersAtOnceDisturbNeitherEachOtherNorTheirCompanies) {
  std::vector<std::string> prima = comando({"--all-companies", "--jobs", "2", "--folder", in("cu12")});
  prima.insert(prima.begin(), CU_CUCTL);
  posto_.imposta("session.user", "13");
  posto_.imposta("trace.sql", "\"trace13.sql\"");
  const std::string primo = posto_.profilo();
  std::filesystem::copy_file(primo, in("profilo13.toml"));
  posto_.imposta("session.user", "12");
  posto_.imposta("trace.sql", "\"trace12.sql\"");
  posto_.profilo();
  std::vector<std::string> seconda = prima;
  std::replace(seconda.begin(), seconda.end(), primo, in("profilo13.toml"));
  std::replace(seconda.begin(), seconda.end(), in("cu12"), in("cu13"));
  Processo una(prima, posto_.cartella().path());
  Processo altra(seconda, posto_.cartella().path());
  una.chiudiIngresso();
  altra.chiudiIngresso();
  const std::string uscita = una.resto();
  const std::string altraUscita = altra.resto();
  EXPECT_EQ(una.codice(), 0) << uscita;
  EXPECT_EQ(altra.codice(), 0) << altraUscita;
  for (int azienda = 1; azienda <= kQuanteAziende; ++azienda) {
    EXPECT_GT(byteDi(file(azienda, "cu12")).size(), 1900U);
    EXPECT_TRUE(byteDi(file(azienda, "cu12")) == byteDi(file(azienda, "cu13"))) << azienda;
  }
}

TEST_F(MolteAziende, AnInterruptionCompletesThoseInHand) {
  std::vector<std::string> argomenti = comando({"--all-companies", "--jobs", "1", "--folder", in("cu")});
  argomenti.insert(argomenti.begin(), CU_CUCTL);
  Processo processo(argomenti, posto_.cartella().path());
  processo.chiudiIngresso();
  std::string uscita = processo.riga().value_or("");
  EXPECT_THAT(uscita, HasSubstr("scritta: "));
  ::kill(processo.id(), SIGINT);
  uscita += "\n" + processo.resto();
  EXPECT_EQ(processo.codice(), 1);
  EXPECT_THAT(uscita, Not(HasSubstr("rifiutata:")));
  EXPECT_THAT(processo.errori(), HasSubstr("Interrotta: si completano le aziende già iniziate."));
  EXPECT_THAT(processo.errori(), HasSubstr("--only-missing fa le aziende che mancano."));
  EXPECT_THAT(righe(uscita).back(), HasSubstr(", rifiutate 0, non iniziate "));
  EXPECT_EQ(invii().size(), righe(uscita).size() - 1);
  EXPECT_EQ(tutte({"--only-missing"}).codice, 0);
  EXPECT_EQ(invii().size(), static_cast<std::size_t>(kQuanteAziende));
}

TEST_F(MolteAziende, TheirWorkTablesAreGoneAfterwards) {
  ASSERT_EQ(tutte().codice, 0);
  EXPECT_TRUE(posto_.lettore()->righe("SELECT IDUtente FROM TabellaRicorsione2").empty());
  EXPECT_THROW(posto_.lettore()->righe("SELECT * FROM tmpprequadrivio1001200001"), std::exception);
}

TEST(MoltiDatabase, HaveFoldersOfTheirOwnAlsoForTheSameCompany) {
  Posto posto(Posto::Database::Nessuno);
  for (const char* nome : {"nord.db", "sud.db"}) {
    ASSERT_EQ(posto
                  .cuctl({"create", "--database", std::string("sqlite:") + nome, "--payees", "3", "--years",
                          "2017"})
                  .codice,
              0);
  }
  const Esecuzione corsa =
      posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2017", "--all-companies", "--database",
                   "sqlite:nord.db", "--database", "sqlite:sud.db", "--folder", posto.cartella() / "cu"});
  EXPECT_EQ(corsa.codice, 0) << corsa.uscita << corsa.errori;
  EXPECT_THAT(corsa.uscita, HasSubstr("nord, Azienda Sintetica S.p.A."));
  EXPECT_THAT(corsa.uscita, HasSubstr("sud, Azienda Sintetica S.p.A."));
  EXPECT_GT(byteDi(posto.cartella() / "cu/nord/00000000232/CUR_00000000232_2017.cur").size(), 1900U);
  EXPECT_GT(byteDi(posto.cartella() / "cu/sud/00000000232/CUR_00000000232_2017.cur").size(), 1900U);
}

TEST(MoltiDatabase, OneThatCannotBeReadStopsNoOtherAndTheSameTwiceIsOne) {
  Posto posto(Posto::Database::Nessuno);
  ASSERT_EQ(
      posto.cuctl({"create", "--database", "sqlite:nord.db", "--payees", "3", "--years", "2017"}).codice, 0);
  posto.cartella().write("sud.db", "nessun database, e lungo abbastanza per non sembrare vuoto");
  std::filesystem::create_symlink(posto.cartella() / "nord.db", posto.cartella() / "ovest.db");
  const auto comando = [&](std::vector<std::string> prima) {
    prima.insert(prima.end(), {"--profile", posto.profilo(), "--year", "2017", "--all-companies"});
    for (const char* nome : {"nord.db", "sud.db", "ovest.db", "manca.db"}) {
      prima.insert(prima.end(), {"--database", std::string("sqlite:") + nome});
    }
    return posto.cuctl(prima);
  };
  const Esecuzione corsa = comando({"make", "--folder", posto.cartella() / "cu"});
  EXPECT_EQ(corsa.codice, 1);
  EXPECT_THAT(corsa.errori, HasSubstr("sud: Il file «"));
  EXPECT_THAT(corsa.errori, HasSubstr("manca: Il database «"));
  EXPECT_THAT(corsa.uscita, HasSubstr("nord, Azienda Sintetica S.p.A. (00000000232, azienda 1): scritta: "));
  EXPECT_THAT(corsa.uscita, HasSubstr("\nAziende 1: scritte 1, rifiutate 0.\n"));
  EXPECT_GT(byteDi(posto.cartella() / "cu/nord/00000000232/CUR_00000000232_2017.cur").size(), 1900U);
  const Esecuzione quadro = comando({"status"});
  EXPECT_EQ(quadro.codice, 1);
  EXPECT_THAT(quadro.uscita, HasSubstr("\nRighe 1, certificazioni 3"));
}

TEST(MakeUsage, OptionsOfManyCompaniesGoTogether) {
  Posto posto(Posto::Database::Nessuno);
  const std::vector<std::pair<std::vector<std::string>, std::string>> casi = {
      {{"--database", "sqlite:x.db"}, "--database: richiede --all-companies o --company"},
      {{"--only-missing"}, "--only-missing: richiede --all-companies o --company"},
      {{"--company", "1", "--all-companies"}, "esclude"},
      {{"--all-companies", "--only-missing", "--to-payee", "3"}, "--to-payee esclude --only-missing"},
      {{"--all-companies", "--jobs", "0"}, "--jobs: atteso un numero da 1 a 1024"},
      {{"--all-companies", "--no-encrypt"}, "--no-encrypt richiede --database"},
      {{"--all-companies", "--database", "mysql:x"}, "--database: atteso"}};
  for (const auto& [opzioni, testo] : casi) {
    std::vector<std::string> argomenti = {"make", "--profile", posto.profilo(), "--year", "2017"};
    argomenti.insert(argomenti.end(), opzioni.begin(), opzioni.end());
    const Esecuzione corsa = posto.cuctl(argomenti);
    EXPECT_EQ(corsa.codice, 2) << testo;
    EXPECT_THAT(corsa.errori, HasSubstr(testo));
    EXPECT_THAT(corsa.uscita, IsEmpty());
  }
}

}  // namespace
}  // namespace cu::test
