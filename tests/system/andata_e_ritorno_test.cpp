// What is exported and imported into an empty database: the same tables, accounts and telematic files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <sstream>

#include "system/lettore_db_support.h"
#include "system/posto_support.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using Argomenti = std::vector<std::string>;

constexpr const char* kElenchi[] = {"companies", "payees", "payments"};
constexpr const char* kAccettati = "P11,P02,P03,P06,R06,R09";

// The demonstration company's tables, exported and imported into an empty database.
class TabelleDiUnAzienda : public ::testing::TestWithParam<const char*> {};

TEST_P(TabelleDiUnAzienda, ComeBackAndASecondTimeAddNothing) {
  // Files on a server, too: an export does not know the engine that it is imported into.
  Posto da(Posto::Database::Nessuno);
  Posto a(Posto::Database::Nessuno);
  const std::string origine = "sqlite:" + (da.cartella() / "da.db");
  const std::string arrivo = "sqlite:" + (a.cartella() / "a.db");
  ASSERT_EQ(da.cuctl({"create", "--database", origine, "--demo"}).codice, 0);
  ASSERT_EQ(a.cuctl({"create", "--database", arrivo, "--empty"}).codice, 0);
  const std::string estensione = GetParam();
  for (const char* elenco : kElenchi) {
    const std::string file = da.cartella() / (elenco + estensione);
    Argomenti esporta = {"export",   elenco, "--database", origine,
                         "--output", file,   "--company",  "04123450233"};
    const Esecuzione esportati = da.cuctl(esporta);
    ASSERT_EQ(esportati.codice, 0) << esportati.errori;
    Argomenti importa = {"import", elenco, file, "--database", arrivo, "--apply", "--accept", kAccettati};
    if (elenco != std::string("companies")) importa.insert(importa.end(), {"--company", "04123450233"});
    const Esecuzione importati = a.cuctl(importa);
    ASSERT_EQ(importati.codice, 0) << elenco << importati.uscita << importati.errori;
    const Esecuzione ancora = a.cuctl(importa);
    EXPECT_EQ(ancora.codice, 0) << ancora.errori;
    EXPECT_THAT(ancora.uscita, HasSubstr("Importazione: 0 nuovi, "));
    // What has been imported is exported as the same table.
    esporta[3] = arrivo;
    esporta[5] = a.cartella() / ("ancora-" + (elenco + estensione));
    ASSERT_EQ(a.cuctl(esporta).codice, 0);
    if (estensione == ".csv") {
      EXPECT_EQ(a.cartella().read("ancora-" + (elenco + estensione)),
                da.cartella().read(elenco + estensione));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formati, TabelleDiUnAzienda, testing::Values(".csv", ".xlsx"),
                         [](const auto& caso) { return std::string(caso.param).substr(1); });

// A company's database, its exported tables, and a new database that is made of them.
struct CasoAzienda {
  const char* nome;
  Argomenti crea;
  bool fatture = false;  // with the payments of the electronic invoices of docs/esempio
  friend void PrintTo(const CasoAzienda& caso, std::ostream* dove) { *dove << caso.nome; }
};

class FileDiUnAzienda : public ::testing::TestWithParam<CasoAzienda> {
 protected:
  FileDiUnAzienda() {
    crea(da_, GetParam().crea);
    crea(a_, {"--empty"});
    if (GetParam().fatture) importaFatture();
  }

  static std::string indirizzo(const Posto& posto) { return "sqlite:" + (posto.cartella() / kFile); }
  static LettoreDb lettore(const Posto& posto) { return LettoreDb(posto.cartella() / kFile); }

  static void crea(Posto& posto, Argomenti argomenti) {
    argomenti.insert(argomenti.begin(), {"create", "--database", indirizzo(posto)});
    const Esecuzione creato = posto.cuctl(argomenti);
    ASSERT_EQ(creato.codice, 0) << creato.errori;
    posto.imposta("database.url", std::string("\"sqlite:") + kFile + '"');
  }

  void importaFatture() {
    const std::string esempio = CU_ESEMPIO;
    const std::string mappa = da_.cartella().write(
        "fatture.toml", "formato = \"fatture\"\n[colonne]\nCausale = { costante = \"A\" }\n");
    const Esecuzione importate = da_.cuctl(
        {"import", "invoices", esempio + "/fatture/pronte", "--database", indirizzo(da_), "--company", "1",
         "--map", mappa, "--payment-date", "file", "--dates-file", esempio + "/date_pagamento.csv",
         "--accept", "R06,R07,R08,R09,R10,V09,A04,P11", "--apply"});
    ASSERT_EQ(importate.codice, 0) << importate.uscita << importate.errori;
  }

  // Removes what has no place in the tables.
  void lasciaLeTabelle() {
    LettoreDb database = lettore(da_);
    database.esegui("DELETE FROM ModuloXContoIndividuale");
    database.esegui(
        "DELETE FROM ContoIndividuale WHERE NOT EXISTS (SELECT 1 FROM Compenso WHERE Compenso.IDAnagrafica ="
        " ContoIndividuale.IDAnagrafica AND Compenso.IDCausalePagamento ="
        " ContoIndividuale.IDCausalePagamento AND substr(Compenso.DataPagamento, 1, 4) ="
        " CAST(ContoIndividuale.Anno AS TEXT))");
    for (const std::string& vuota :
         database.elenco("SELECT name || ' = ' || COALESCE(dflt_value, 'NULL')"
                         " FROM pragma_table_info('ContoIndividualeDatiAggiuntivi')"
                         " WHERE pk = 0 AND name <> 'IDCodicePerNonSoggetti'")) {
      database.esegui("UPDATE ContoIndividualeDatiAggiuntivi SET " + vuota);
    }
  }

  void esportaEImporta(const std::string& elenco) {
    const std::string file = da_.cartella() / (elenco + ".csv");
    const Esecuzione esportati =
        da_.cuctl({"export", elenco, "--database", indirizzo(da_), "--company", "1", "--output", file});
    ASSERT_EQ(esportati.codice, 0) << esportati.errori;
    EXPECT_EQ(esportati.errori, "") << "something was left out";
    Argomenti importa = {"import",      elenco,    file,       "--database",
                         indirizzo(a_), "--apply", "--accept", kAccettati};
    if (elenco != "companies") importa.insert(importa.end(), {"--company", "1"});
    const Esecuzione importati = a_.cuctl(importa);
    ASSERT_EQ(importati.codice, 0) << elenco << importati.uscita << importati.errori;
  }

  static std::vector<Lettore::Riga> conti(const Posto& posto) {
    return lettore(posto).righe(
        "SELECT Percipiente.Codice, CausalePagamento.Codice, Conto.Anno, Conto.OnorarioProvvigioni,"
        " Conto.QuotaProvvigioniNonSoggette, Conto.SommeNonSoggette, Conto.SommeNonSoggetteRegConv,"
        " Conto.RitenutaAcconto, Conto.RitenutaImposta, Conto.ContributoPrevidenziale,"
        " Conto.RitenutaPrevidenziale13, CodicePerNonSoggetti.Codice FROM ContoIndividuale Conto"
        " INNER JOIN Percipiente ON Percipiente.IDAnagrafica = Conto.IDAnagrafica"
        " INNER JOIN CausalePagamento ON CausalePagamento.IDCausalePagamento = Conto.IDCausalePagamento"
        " LEFT JOIN ContoIndividualeDatiAggiuntivi Dati ON Dati.IDAnagrafica = Conto.IDAnagrafica"
        " AND Dati.IDCausalePagamento = Conto.IDCausalePagamento AND Dati.Anno = Conto.Anno"
        " LEFT JOIN CodicePerNonSoggetti"
        " ON CodicePerNonSoggetti.IDCodicePerNonSoggetti = Dati.IDCodicePerNonSoggetti"
        " ORDER BY 1, 2, 3");
  }

  // The telematic file of the year.
  static std::string fai(Posto& posto, const std::string& anno) {
    const std::string cartella = posto.cartella() / "Documenti";
    const Esecuzione esito =
        posto.cuctl({"make", "--profile", posto.profilo(), "--year", anno, "--yes", "--folder", cartella});
    EXPECT_EQ(esito.codice, 0) << esito.errori;
    for (const std::string& nome : posto.file("Documenti")) {
      if (nome.ends_with('_' + anno + ".cur")) return posto.cartella().read("Documenti/" + nome);
    }
    return {};
  }

  // The first line of a file that another one does not have; "" where they are the same.
  static std::string primaDiversa(const std::string& uno, const std::string& altro) {
    if (uno == altro) return {};
    std::istringstream righe(uno);
    std::istringstream altre(altro);
    std::string riga;
    std::string altra;
    while (std::getline(righe, riga) && std::getline(altre, altra) && riga == altra) continue;
    return "expected " + riga + "\nfound " + altra;
  }

  static constexpr const char* kFile = "azienda.db";
  Posto da_{Posto::Database::Nessuno};
  Posto a_{Posto::Database::Nessuno};
};

TEST_P(FileDiUnAzienda, AreTheSameToTheByte) {
  if (HasFailure()) return;
  lasciaLeTabelle();
  for (const char* elenco : kElenchi) ASSERT_NO_FATAL_FAILURE(esportaEImporta(elenco));
  EXPECT_EQ(conti(a_), conti(da_));
  EXPECT_GT(conti(a_).size(), 50U);
  for (const char* anno : {"2014", "2015", "2016", "2017"}) {
    const std::string file = fai(da_, anno);
    EXPECT_GT(std::count(file.begin(), file.end(), '\n'), 10) << anno;
    EXPECT_EQ(primaDiversa(file, fai(a_, anno)), "") << anno;
  }
}

const CasoAzienda kCasiAzienda[] = {
    {"demonstration", {"--demo"}},
    {"invoices", {"--demo"}, true},
    {"seed1", {"--payees", "40", "--years", "2014-2017", "--seed", "1"}},
    {"seed2", {"--payees", "25", "--years", "2014-2017", "--seed", "2"}},
    {"seed3", {"--payees", "60", "--years", "2014-2017", "--seed", "3"}},
};
INSTANTIATE_TEST_SUITE_P(Aziende, FileDiUnAzienda, testing::ValuesIn(kCasiAzienda),
                         [](const auto& caso) { return caso.param.nome; });

}  // namespace
}  // namespace cu::test
