// The documents of docs/esempio/fatture, each compared with what a table beside them expects of it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "base/codice_fiscale.h"
#include "fatture/busta_prova_support.h"
#include "fatture/compensi.h"
#include "fatture/lettura_fattura.h"
#include "fatture/raccolta.h"
#include "tabelle/lettura.h"

namespace cu::fatture {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAzienda = "04123450233";

std::string byteDi(const fs::path& file) {
  std::ifstream flusso(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(flusso), std::istreambuf_iterator<char>()};
}

// A row of a table by the names of its columns.
using RigaPerNome = std::map<std::string, std::string>;
std::vector<RigaPerNome> tabella(const std::string& nome) {
  const tabelle::Tabella letta = tabelle::leggiTabella(byteDi(fs::path(CU_ESEMPIO) / nome), nome);
  EXPECT_TRUE(letta.rilievi.empty());
  std::vector<RigaPerNome> righe;
  for (const tabelle::RigaTabella& riga : letta.righe) {
    RigaPerNome& una = righe.emplace_back();
    for (std::size_t i = 0; i < letta.intestazione.celle.size(); ++i)
      una[std::string(letta.intestazione.celle[i].testo)] = std::string(riga.cella(i).testo);
  }
  return righe;
}

// The rows of each document, by file and rank.
std::map<std::string, std::vector<RigaPerNome>> attesiPerFile() {
  std::map<std::string, std::vector<RigaPerNome>> perFile;
  for (RigaPerNome& riga : tabella("fatture/attesi.csv")) perFile[riga.at("File")].push_back(std::move(riga));
  return perFile;
}

std::string importo(Decimal valore) { return valore.toFixed(2, ','); }

std::string colonne(const RigaPerNome& riga) {
  std::string testo;
  for (const char* nome : {"Causale", "Lordo", "SommeNonSoggette", "Imponibile", "RitenutaAcconto",
                           "RitenutaImposta", "ContributoPrevidenziale", "ContributoPercipiente"})
    testo += riga.at(nome) + ' ';
  return testo;
}

// The same of a payment that was found.
std::string colonne(const CompensoProposto& compenso, const std::string& causale) {
  const ImportiFattura& suoi = compenso.candidati.at(0).importi;
  std::string testo = causale + ' ';
  for (const Decimal uno :
       {suoi.onorario + suoi.sommeNonSoggette, suoi.sommeNonSoggette, suoi.onorario - suoi.quotaNonSoggetta,
        suoi.ritenutaAcconto, suoi.ritenutaImposta, suoi.contributoPrevidenziale, suoi.contributoPercipiente})
    testo += importo(uno) + ' ';
  return testo;
}

std::string sigle(const std::vector<Rilievo>& rilievi) {
  std::string testo;
  for (const Rilievo& uno : rilievi) testo += (testo.empty() ? "" : " ") + uno.codice;
  return testo;
}

class Esempi : public ::testing::TestWithParam<std::string> {
 protected:
  static std::string byte() { return byteDi(fs::path(CU_ESEMPIO) / "fatture" / GetParam()); }
  static std::vector<RigaPerNome> attesi() { return attesiPerFile().at(GetParam()); }

  // What the table says that a document alone can show. The rest is for who knows the company and the dates.
  static void confronta(const Fattura& fattura, const std::vector<RigaPerNome>& righe) {
    const EsitoFattura esito = compensiDi(fattura);
    const RigaPerNome& prima = righe.at(0);
    if (fattura.data) {
      EXPECT_EQ(fattura.data->toIso(), prima.at("DataDocumento"));
    }
    const std::string& stato = prima.at("Stato");
    if (prima.at("Codici") == "F06") {
      EXPECT_NE(fattura.committente.partitaIva, kAzienda);
      return;
    }
    if (prima.at("Codici") == "F07") {
      EXPECT_EQ(fattura.cedente.partitaIva, kAzienda);
      return;
    }
    if (stato == "errore") {
      EXPECT_TRUE(fattura.conErrori());
      EXPECT_EQ(sigle(fattura.rilievi), prima.at("Codici"));
      return;
    }
    EXPECT_FALSE(fattura.conErrori()) << sigle(fattura.rilievi);
    if (stato == "escluso") {
      EXPECT_TRUE(!esito.escluso.empty() || esito.forfettario);
      return;
    }
    EXPECT_EQ(esito.escluso, "");
    ASSERT_EQ(esito.compensi.size(), righe.size());
    for (std::size_t i = 0; i < righe.size(); ++i) {
      const CompensoProposto& compenso = esito.compensi[i];
      EXPECT_EQ(compenso.deciso, stato == "nuovo");
      std::vector<Rilievo> suoi = fattura.rilievi;
      suoi.insert(suoi.end(), compenso.rilievi.begin(), compenso.rilievi.end());
      EXPECT_EQ(sigle(suoi), righe[i].at("Codici"));
      // The reason of a seller in the flat-rate scheme is a habit of the payee's.
      const bool abituale = esito.forfettario && compenso.causale.empty();
      if (compenso.deciso) {
        EXPECT_EQ(colonne(compenso, abituale ? righe[i].at("Causale") : compenso.causale), colonne(righe[i]));
      }
    }
  }

  static void confronta(const Letto& letto, const std::vector<RigaPerNome>& righe) {
    if (letto.genere == Genere::Illeggibile) {
      EXPECT_EQ(righe.at(0).at("Stato"), "errore");
      EXPECT_EQ(sigle(letto.rilievi), righe.at(0).at("Codici"));
      return;
    }
    std::map<std::size_t, std::vector<RigaPerNome>> perDocumento;
    for (const RigaPerNome& riga : righe) perDocumento[std::stoul(riga.at("Documento"))].push_back(riga);
    if (letto.genere == Genere::Notifica) {
      EXPECT_EQ(perDocumento.size(), 1U);
      EXPECT_EQ(perDocumento.begin()->first, 0U);
      return;
    }
    ASSERT_EQ(letto.fatture.size(), perDocumento.size());
    for (std::size_t i = 0; i < letto.fatture.size(); ++i) {
      ASSERT_TRUE(perDocumento.contains(i + 1));
      confronta(letto.fatture[i], perDocumento.at(i + 1));
    }
  }
};

TEST_P(Esempi, BecomesWhatTheTableSays) { confronta(leggiFattura(byte(), GetParam()), attesi()); }

TEST_P(Esempi, BecomesTheSameInAnEnvelope) {
  const std::string testo = byte();
  const Letto semplice = leggiFattura(testo, GetParam());
  if (semplice.genere != Genere::Fatture) return;
  const std::string busta = prova::firmato(testo);
  for (const std::string& una : {busta, prova::firmato(testo, true), prova::base64(busta, 76, "\r\n"),
                                 prova::base64(prova::base64(busta)), prova::inPem(busta)}) {
    const Letto aperta = leggiFattura(una, GetParam());
    EXPECT_EQ(aperta.sha256Contenuto, semplice.sha256Contenuto);
    confronta(aperta, attesi());
  }
}

std::string nomeDelTest(const ::testing::TestParamInfo<std::string>& caso) {
  std::string nome = fs::path(caso.param).stem().string();
  nome.erase(std::remove_if(nome.begin(), nome.end(), [](char c) { return c == '_'; }), nome.end());
  return nome;
}
std::vector<std::string> nomiDegliEsempi() {
  std::vector<std::string> nomi;
  for (const auto& [nome, righe] : attesiPerFile()) nomi.push_back(nome);
  return nomi;
}
INSTANTIATE_TEST_SUITE_P(Fatture, Esempi, ::testing::ValuesIn(nomiDegliEsempi()), nomeDelTest);

TEST(EsempiDiFatture, EachFileIsInTheTable) {
  std::vector<std::string> trovati;
  const fs::path radice = fs::path(CU_ESEMPIO) / "fatture";
  for (const fs::directory_entry& voce : fs::recursive_directory_iterator(radice))
    if (voce.path().extension() == ".xml") trovati.push_back(fs::relative(voce.path(), radice).string());
  std::sort(trovati.begin(), trovati.end());
  EXPECT_EQ(trovati, nomiDegliEsempi());
  EXPECT_GE(trovati.size(), 40U);
}

// The codes of a document's parties, but for numbers of other countries.
std::vector<std::string> codiciDelleParti(const Fattura& fattura) {
  std::vector<std::string> codici;
  for (const Soggetto* uno : {&fattura.cedente, &fattura.committente}) {
    if (!uno->codiceFiscale.empty()) codici.push_back(uno->codiceFiscale);
    if (!uno->partitaIva.empty() && uno->paese == "IT") codici.push_back(uno->partitaIva);
  }
  return codici;
}

// A wrong digit in an example would be a warning that has nothing to do with its case.
TEST(EsempiDiFatture, AllCodesHaveTheRightLastCharacter) {
  std::size_t contati = 0;
  raccogli(fs::path(CU_ESEMPIO) / "fatture", [&](Letto&& letto) {
    for (const Fattura& fattura : letto.fatture) {
      for (const std::string& codice : codiciDelleParti(fattura)) {
        ++contati;
        EXPECT_NE(formaCodice(codice), FormaCodice::Nessuna) << letto.nome << ' ' << codice;
        EXPECT_TRUE(controlloGiusto(codice)) << letto.nome << ' ' << codice;
      }
    }
    return true;
  });
  EXPECT_GT(contati, 150U);
}

// With the table of dates nothing but what a person has to look at is left open.
TEST(EsempiDiFatture, EachPaymentHasItsDate) {
  std::map<std::string, std::string> date;
  for (const RigaPerNome& riga : tabella("date_pagamento.csv")) {
    const std::string chiave = riga.at("CodiceFiscale") + riga.at("PartitaIva") + ' ' +
                               riga.at("NumeroDocumento") + ' ' + riga.at("DataDocumento");
    EXPECT_TRUE(date.emplace(chiave, riga.at("DataPagamento")).second) << chiave;
  }
  for (const auto& [nome, righe] : attesiPerFile()) {
    const Letto letto = leggiFattura(byteDi(fs::path(CU_ESEMPIO) / "fatture" / nome), nome);
    for (const RigaPerNome& riga : righe) {
      if (riga.at("Stato") != "nuovo") continue;
      const Fattura& fattura = letto.fatture.at(std::stoul(riga.at("Documento")) - 1);
      const std::string soggetto =
          fattura.cedente.codiceFiscale.empty() ? fattura.cedente.partitaIva : fattura.cedente.codiceFiscale;
      const std::string chiave = soggetto + ' ' + fattura.numero + ' ' + fattura.data.value().toIso();
      EXPECT_EQ(date[chiave], riga.at("DataPagamento")) << nome << ' ' << chiave;
    }
  }
}

}  // namespace
}  // namespace cu::fatture
