// Electronic invoices through the built program: the documents of docs/esempio/fatture for the demonstration
// company, tested, applied, given again in other forms, and taken back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <thread>

#include "fatture/archivio_prova_support.h"
#include "fatture/busta_prova_support.h"
#include "system/lettore_db_support.h"
#include "system/posto_support.h"
#include "tabelle/lettura.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using json = nlohmann::json;
using Argomenti = std::vector<std::string>;
namespace fs = std::filesystem;

constexpr const char* kAvvisi = "R06,R07,R08,R09,R10,V09,A04,P11";

std::string fileDi(const fs::path& file) {
  std::ifstream flusso(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(flusso), std::istreambuf_iterator<char>()};
}
fs::path esempi(const std::string& nome) { return fs::path(CU_ESEMPIO) / nome; }

std::vector<Lettore::Riga> ordinate(std::vector<Lettore::Riga> righe) {
  std::sort(righe.begin(), righe.end());
  return righe;
}

// What a row must become, in the words of both tables.
using Attesa = std::map<std::string, std::string>;

class FattureDiEsempio : public ::testing::Test {
 protected:
  FattureDiEsempio()
      : mappa_(posto_.cartella().write(
            "fatture.toml", "formato = \"fatture\"\n[colonne]\nCausale = { costante = \"A\" }\n")) {
    const Esecuzione creato = posto_.cuctl({"create", "--database", indirizzo(), "--demo"});
    EXPECT_EQ(creato.codice, 0) << creato.errori;
    posto_.imposta("database.url", "\"sqlite:demo.db\"");
  }

  std::string indirizzo() const { return "sqlite:" + (posto_.cartella() / "demo.db"); }
  Argomenti conDatabase(Argomenti argomenti) const {
    argomenti.insert(argomenti.end(), {"--database", indirizzo()});
    return argomenti;
  }
  Esecuzione importa(const Argomenti& file, const Argomenti& altri) {
    Argomenti argomenti = {"import", "invoices"};
    argomenti.insert(argomenti.end(), file.begin(), file.end());
    argomenti.insert(argomenti.end(), {"--company", "04123450233", "--map", mappa_});
    argomenti.insert(argomenti.end(), altri.begin(), altri.end());
    return posto_.cuctl(conDatabase(argomenti));
  }
  // With the dates of the table beside the documents.
  Esecuzione importaConDate(const Argomenti& file, Argomenti altri = {}) {
    altri.insert(altri.end(), {"--payment-date", "file", "--dates-file", esempi("date_pagamento.csv"),
                               "--accept", kAvvisi});
    return importa(file, altri);
  }
  static std::string pronte() { return esempi("fatture/pronte"); }

  // All tables but those of the history.
  std::map<std::string, std::vector<Lettore::Riga>> tavole() const {
    LettoreDb lettore(posto_.cartella() / "demo.db");
    std::map<std::string, std::vector<Lettore::Riga>> tutte;
    for (const std::string& nome : lettore.elenco("SELECT name FROM sqlite_master WHERE type = 'table'"))
      if (!nome.starts_with("CuImportazione")) tutte[nome] = ordinate(lettore.righe("SELECT * FROM " + nome));
    return tutte;
  }
  json resoconto() const { return json::parse(posto_.cartella().read("resoconto.json")); }
  std::string fileResoconto() const { return posto_.cartella() / "resoconto.json"; }

  Posto posto_{Posto::Database::Nessuno};
  std::string mappa_;
};

// The rows that the table beside the documents expects of a folder, by file and document.
std::multimap<std::string, Attesa> attese(const std::string& cartella) {
  const std::string nome = "fatture/attesi.csv";
  const tabelle::Tabella tabella = tabelle::leggiTabella(fileDi(esempi(nome)), nome);
  std::multimap<std::string, Attesa> tutte;
  for (const tabelle::RigaTabella& riga : tabella.righe) {
    Attesa una;
    for (std::size_t i = 0; i < tabella.intestazione.celle.size(); ++i)
      una[std::string(tabella.intestazione.celle[i].testo)] = std::string(riga.cella(i).testo);
    if (!una.at("File").starts_with(cartella + '/')) continue;
    const std::string file = fs::path(una.at("File")).filename();
    tutte.emplace(file + ' ' + (una.at("Documento") == "0" ? "1" : una.at("Documento")), std::move(una));
  }
  return tutte;
}

// "2450,00" of "2450"; a field that a row does not have is zero.
std::int64_t centesimi(const json& valori, const char* colonna) {
  if (!valori.contains(colonna)) return 0;
  return static_cast<std::int64_t>(std::llround(std::stod(valori.at(colonna).get<std::string>()) * 100));
}
std::int64_t centesimi(std::string scritto) {
  std::replace(scritto.begin(), scritto.end(), ',', '.');
  return static_cast<std::int64_t>(std::llround(std::stod(scritto) * 100));
}

void confronta(const json& riga, const Attesa& attesa) {
  SCOPED_TRACE(attesa.at("File") + ": " + attesa.at("Caso"));
  EXPECT_EQ(riga.at("state"), attesa.at("Stato"));
  std::string codici;
  for (const json& uno : riga.at("messages")) {
    const std::string codice = uno.at("code");
    // What the database lacks of a payee, and what its accounts have beside, is not the document's.
    if (codice != "P11" && codice != "A04") codici += (codici.empty() ? "" : " ") + codice;
  }
  if (attesa.at("Stato") == "da decidere") {
    // What may be wrong with the first of the amounts that are possible is there beside.
    EXPECT_THAT(codici, StartsWith(attesa.at("Codici")));
    return;
  }
  EXPECT_EQ(codici, attesa.at("Codici"));
  if (attesa.at("Stato") != "nuovo") return;
  const json& valori = riga.at("values");
  EXPECT_EQ(valori.at("Causale"), attesa.at("Causale"));
  EXPECT_EQ(valori.at("DataPagamento"), attesa.at("DataPagamento"));
  EXPECT_EQ(valori.at("DataDocumento"), attesa.at("DataDocumento"));
  const std::int64_t onorario = centesimi(valori, "Onorario");
  const std::int64_t somme = centesimi(valori, "SommeNonSoggette");
  EXPECT_EQ(onorario + somme, centesimi(attesa.at("Lordo")));
  EXPECT_EQ(somme, centesimi(attesa.at("SommeNonSoggette")));
  EXPECT_EQ(onorario - centesimi(valori, "QuotaNonSoggetta"), centesimi(attesa.at("Imponibile")));
  for (const char* colonna :
       {"RitenutaAcconto", "RitenutaImposta", "ContributoPrevidenziale", "ContributoPercipiente"})
    EXPECT_EQ(centesimi(valori, colonna), centesimi(attesa.at(colonna))) << colonna;
  EXPECT_FALSE(riga.at("explanations").empty());
}

// Each row of the report against the table's, several of one document in their order.
void confrontaTutte(const json& righe, std::multimap<std::string, Attesa> attese) {
  for (const json& riga : righe) {
    const std::string chiave =
        riga.at("file").get<std::string>() + ' ' + std::to_string(riga.at("row").get<int>());
    const auto attesa = attese.find(chiave);
    if (attesa == attese.end()) {
      ADD_FAILURE() << "unexpected: " << riga.dump();
      continue;
    }
    confronta(riga, attesa->second);
    attese.erase(attesa);
  }
  for (const auto& [chiave, attesa] : attese) {
    // A file that cannot be read has a message, and no rows.
    EXPECT_TRUE(attesa.at("Codici") == "F03" || attesa.at("Codici") == "F04") << chiave << " is missing";
  }
}

TEST_F(FattureDiEsempio, AreTestedAppliedAndTakenBack) {
  const auto prima = tavole();
  const Esecuzione prova = importaConDate({pronte()}, {"--report", fileResoconto()});
  ASSERT_EQ(prova.codice, 0) << prova.uscita << prova.errori;
  EXPECT_THAT(prova.uscita, StartsWith("Prova: 41 nuovi, 0 uguali, 0 da decidere, 0 errori, 6 esclusi."));
  EXPECT_EQ(tavole(), prima);
  confrontaTutte(resoconto().at("rows"), attese("pronte"));

  const Esecuzione fatta = importaConDate({pronte()}, {"--apply"});
  ASSERT_EQ(fatta.codice, 0) << fatta.uscita << fatta.errori;
  EXPECT_THAT(fatta.uscita, StartsWith("Importazione 1: 41 nuovi, "));
  const auto dopo = tavole();
  EXPECT_NE(dopo.at("Compenso"), prima.at("Compenso"));
  EXPECT_NE(dopo.at("Percipiente"), prima.at("Percipiente"));

  EXPECT_THAT(posto_.cuctl(conDatabase({"import", "history"})).uscita, HasSubstr(" e altri 40 file)."));
  const Esecuzione ancora = importaConDate({pronte()}, {"--apply"});
  EXPECT_EQ(ancora.codice, 0) << ancora.uscita << ancora.errori;
  EXPECT_THAT(ancora.uscita, StartsWith("Importazione: 0 nuovi, 41 uguali, 0 da decidere, 0 errori"));
  EXPECT_THAT(ancora.errori, HasSubstr("il file è già stato importato (F08)."));
  EXPECT_EQ(tavole(), dopo);

  const Esecuzione annullata = posto_.cuctl(conDatabase({"import", "undo", "1", "--apply"}));
  ASSERT_EQ(annullata.codice, 0) << annullata.uscita << annullata.errori;
  EXPECT_EQ(tavole(), prima);
}

TEST_F(FattureDiEsempio, ThatAPersonHasToLookAtStopEverything) {
  const auto prima = tavole();
  const Esecuzione ferma = importaConDate({esempi("fatture")}, {"--apply", "--report", fileResoconto()});
  EXPECT_EQ(ferma.codice, 1);
  EXPECT_THAT(ferma.uscita, HasSubstr("6 da decidere, 3 errori"));
  EXPECT_THAT(ferma.uscita, HasSubstr("; 2 errori generali."));
  EXPECT_THAT(ferma.uscita, HasSubstr("Non è stato scritto nulla."));
  EXPECT_THAT(ferma.errori, HasSubstr("IT02150010235_00052.xml: "));
  EXPECT_EQ(tavole(), prima);
  json daVedere = json::array();
  const auto loro = attese("da_vedere");
  const json tutto = resoconto();
  for (const json& riga : tutto.at("rows")) {
    if (loro.contains(riga.at("file").get<std::string>() + " 1")) daVedere.push_back(riga);
  }
  confrontaTutte(daVedere, loro);
}

TEST_F(FattureDiEsempio, DamagedFilesAreLeftOutOnRequest) {
  const std::string dove = posto_.cartella() / "posta";
  fs::create_directories(dove);
  for (const char* nome : {"pronte/ITDMCNCL64S30F839G_00001.xml", "da_vedere/ITZGRMTJ84D04Z150M_00054.xml",
                           "da_vedere/ITSFRMFR75S51E897Z_00055.xml"})
    fs::copy(esempi("fatture") / nome, dove);
  const std::string intera = fatture::prova::firmato(fileDi(pronte() + "/ITDLLGLI83A59F205I_00002.xml"));
  posto_.cartella().write("posta/tronca.xml.p7m", intera.substr(0, intera.size() / 2));
  const Esecuzione ferma = importaConDate({dove}, {"--apply"});
  EXPECT_EQ(ferma.codice, 1);
  EXPECT_THAT(ferma.errori, HasSubstr("(F04)."));
  EXPECT_THAT(ferma.errori, HasSubstr("(F03)."));
  const Esecuzione salta = importaConDate({dove}, {"--apply", "--skip-bad-files"});
  EXPECT_EQ(salta.codice, 0) << salta.errori;
  EXPECT_THAT(salta.uscita, StartsWith("Importazione 1: 1 nuovo, "));
  const json storico = json::parse(posto_.cuctl(conDatabase({"import", "history", "--json"})).uscita);
  ASSERT_EQ(storico.at(0).at("files").size(), 1U);
  EXPECT_EQ(storico.at(0).at("files").at(0).at("name"), "ITDMCNCL64S30F839G_00001.xml");
}

TEST_F(FattureDiEsempio, CountOnceInAnArchiveSignedAndAsTheyAre) {
  fatture::prova::Membri membri;
  for (const fs::directory_entry& voce : fs::directory_iterator(pronte())) {
    const std::string byte = fileDi(voce.path());
    membri.emplace_back("firmate/" + voce.path().filename().string() + ".p7m",
                        fatture::prova::firmato(byte, membri.size() % 2 == 0));
  }
  membri.emplace_back("leggimi.pdf", "%PDF-1.4");
  const std::string archivio = posto_.cartella().write("fatture.zip", fatture::prova::zipDi(membri));
  const Esecuzione sole = importaConDate({archivio});
  ASSERT_EQ(sole.codice, 0) << sole.uscita << sole.errori;
  EXPECT_THAT(sole.uscita, StartsWith("Prova: 41 nuovi, "));
  EXPECT_THAT(sole.errori, HasSubstr("Tralasciati: 1 (file che non è una fattura)"));
  const Esecuzione insieme = importaConDate({archivio, pronte()}, {"--apply"});
  ASSERT_EQ(insieme.codice, 0) << insieme.uscita << insieme.errori;
  EXPECT_THAT(insieme.uscita, StartsWith("Importazione 1: 41 nuovi, 0 uguali, "));
  EXPECT_THAT(insieme.errori, HasSubstr("un altro file ha lo stesso contenuto"));
  EXPECT_THAT(importaConDate({pronte()}).uscita, StartsWith("Prova: 0 nuovi, 41 uguali, "));
}

TEST_F(FattureDiEsempio, NeedADateOfPayment) {
  const Argomenti una = {pronte() + "/ITDMCNCL64S30F839G_00001.xml"};
  const Esecuzione senza = importa(una, {});
  EXPECT_EQ(senza.codice, 2);
  EXPECT_THAT(senza.errori, HasSubstr("--payment-date"));
  EXPECT_EQ(importa(una, {"--payment-date", "ieri"}).codice, 2);
  EXPECT_EQ(importa(una, {"--payment-date", "file"}).codice, 2);
  EXPECT_EQ(importa(una, {"--payment-date", "document", "--dates-file", esempi("date_pagamento.csv")}).codice,
            2);
  EXPECT_EQ(importa({posto_.cartella() / "non_esiste.xml"}, {"--payment-date", "document"}).codice, 2);
  EXPECT_EQ(importa({"-"}, {"--payment-date", "document"}).codice, 2);
  const std::string sua = mappa_;
  mappa_ = posto_.cartella().write("altrui.toml", "formato = \"fatture\"\nazienda = \"00743110157\"\n");
  const Esecuzione altrui = importa(una, {"--payment-date", "document"});
  EXPECT_EQ(altrui.codice, 2);
  EXPECT_THAT(altrui.errori, HasSubstr("è di un'altra azienda, 00743110157"));
  mappa_ = sua;

  const auto data = [&](const Argomenti& altri) {
    Argomenti tutti = altri;
    tutti.insert(tutti.end(), {"--report", fileResoconto()});
    EXPECT_EQ(importa(una, tutti).codice, 0);
    const json riga = resoconto().at("rows").at(0);
    return riga.at("values").at("DataPagamento").get<std::string>() + ' ' + riga.at("derived").dump();
  };
  EXPECT_EQ(data({"--payment-date", "document"}), "2017-03-20 [\"DataPagamento\"]");
  const json proposta = resoconto().at("rows").at(0).at("messages");
  EXPECT_EQ(std::count_if(proposta.begin(), proposta.end(),
                          [](const json& uno) {
                            return uno.at("code") == "R12" && uno.at("severity") == "info" &&
                                   uno.at("column") == "DataPagamento";
                          }),
            1);
  EXPECT_EQ(data({"--payment-date", "15/04/2017"}), "2017-04-15 []");
  const std::string vuota =
      posto_.cartella().write("date.csv", "CodiceFiscale;NumeroDocumento;DataDocumento;DataPagamento\n");
  const Esecuzione manca = importa(una, {"--payment-date", "file", "--dates-file", vuota});
  EXPECT_EQ(manca.codice, 1);
  EXPECT_THAT(manca.uscita, HasSubstr("1 da decidere"));
  const std::string storta = posto_.cartella().write(
      "storta.csv", "CodiceFiscale;NumeroDocumento;DataDocumento;DataPagamento\n;1;2017-03-20;ieri\n");
  const Esecuzione storte =
      importa(una, {"--payment-date", "file", "--dates-file", storta, "--report", fileResoconto()});
  EXPECT_EQ(storte.codice, 1);
  EXPECT_THAT(storte.errori, HasSubstr("storta.csv, riga 2, colonna \"DataPagamento\": ieri"));
  const json generali = resoconto().at("messages");
  ASSERT_FALSE(generali.empty());
  EXPECT_EQ(generali.at(0).at("file"), "storta.csv");
  EXPECT_EQ(generali.at(0).at("row"), 2);
  EXPECT_EQ(generali.at(0).at("code"), "V01");
}

TEST_F(FattureDiEsempio, OfAnotherYearAreLeftOut) {
  const Esecuzione esito = importaConDate({pronte()}, {"--year", "2023"});
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_THAT(esito.uscita, StartsWith("Prova: 1 nuovo, 0 uguali, 0 da decidere, 0 errori, 46 esclusi."));
  EXPECT_THAT(esito.errori, HasSubstr("(R05)."));
}

TEST_F(FattureDiEsempio, AFlatRatePayeesReasonComesFromTheProfile) {
  const std::string nuda = posto_.cartella().write("fatture.toml", "formato = \"fatture\"\n");
  const Argomenti una = {pronte() + "/ITTMMLRI88D57L781H_00007.xml"};
  const Esecuzione senza = importaConDate(una);
  EXPECT_EQ(senza.codice, 1);
  EXPECT_THAT(senza.errori, HasSubstr("manca la causale di un percipiente in regime forfettario (R02)."));
  posto_.cartella().write("fatture.toml",
                          "formato = \"fatture\"\n[percipienti.TMMLRI88D57L781H]\ncausale = \"M\"\n");
  ASSERT_EQ(importaConDate(una, {"--report", fileResoconto()}).codice, 0);
  EXPECT_EQ(resoconto().at("rows").at(0).at("values").at("Causale"), "M");
  EXPECT_EQ(resoconto().at("rows").at(0).at("new_payee").at("CodiceFiscale"), "TMMLRI88D57L781H");
  posto_.cartella().write("fatture.toml", "formato = \"fatture\"\n[percipienti.P001]\ncausale = \"ZZ9\"\n");
  const Esecuzione ignota = importaConDate(una);
  EXPECT_EQ(ignota.codice, 2);
  EXPECT_THAT(
      ignota.errori,
      HasSubstr("fatture.toml: percipienti.P001.causale: valore non ammesso, ZZ9, atteso uno fra A, B"));
  posto_.cartella().write("fatture.toml", "formato = \"fatture\"\nsbagliata = 1\n");
  const Esecuzione sbagliata = importaConDate(una);
  EXPECT_EQ(sbagliata.codice, 2);
  EXPECT_THAT(sbagliata.errori, HasSubstr("fatture.toml: sbagliata: chiave sconosciuta"));
}

// At any moment the batch is there whole, or not at all.
TEST_F(FattureDiEsempio, AreWholeOrAbsentAfterAKill) {
  Argomenti argomenti = {
      CU_CUCTL,   "import", "invoices",       pronte(),    "--company",    "04123450233",
      "--map",    mappa_,   "--payment-date", "file",      "--dates-file", esempi("date_pagamento.csv"),
      "--accept", kAvvisi,  "--database",     indirizzo(), "--apply"};
  const std::string database = posto_.cartella() / "demo.db";
  const std::string copia = posto_.cartella() / "prima.db";
  fs::copy_file(database, copia);
  const auto prima = tavole();
  const auto inizio = std::chrono::steady_clock::now();
  ASSERT_EQ(esegui(argomenti, posto_.cartella().path()).codice, 0);
  const auto durata = std::chrono::steady_clock::now() - inizio;
  const auto dopo = tavole();
  std::mt19937 caso{std::random_device{}()};
  constexpr int kColpi = 8;
  for (int i = 0; i < kColpi; ++i) {
    // Ids of an import that was taken back are not used again: each one begins with the same database.
    for (const char* coda : {"-wal", "-shm"}) fs::remove(database + coda);
    fs::copy_file(copia, database, fs::copy_options::overwrite_existing);
    Processo processo(argomenti, posto_.cartella().path());
    std::this_thread::sleep_for(durata / 4 + durata * (caso() % 80) / 100);
    ::kill(processo.id(), SIGKILL);
    processo.codice();
    const auto adesso = tavole();
    EXPECT_TRUE(adesso == prima || adesso == dopo);
    EXPECT_EQ(LettoreDb(posto_.cartella() / "demo.db").testo("PRAGMA integrity_check"), "ok");
  }
}

}  // namespace
}  // namespace cu::test
