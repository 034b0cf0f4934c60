#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "fatture_prova.h"
#include "intake/archivio_letto.h"

// The invoices of the documentation, with the demonstration company.
namespace cu::intake {
namespace {

using prova::Banco;
using prova::giorno;
namespace fs = std::filesystem;

const fs::path kEsempi = CU_ESEMPIO;

std::string byteDi(const fs::path& file) {
  std::ifstream flusso(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(flusso), {}};
}

// The rows of attesi.csv by file and document, as texts: state, reason, date of payment, gross, sums, base
// with its tax, and the codes.
std::map<std::string, std::vector<std::string>> attesi() {
  const tabelle::Tabella tavola =
      tabelle::leggiTabella(byteDi(kEsempi / "fatture/attesi.csv"), "attesi.csv", {});
  std::map<std::string, std::vector<std::string>> tutti;
  for (const tabelle::RigaTabella& riga : tavola.righe) {
    const auto cella = [&](std::size_t i) { return std::string(riga.cella(i).testo); };
    std::string testo = cella(3);
    if (cella(3) == "nuovo") {
      for (const std::size_t i : {4U, 6U, 7U, 9U, 10U, 11U, 12U, 13U}) testo += " " + cella(i);
    }
    tutti[fs::path(cella(0)).filename().string()].push_back(testo +
                                                            (cella(14).empty() ? "" : " " + cella(14)));
  }
  return tutti;
}

std::string euroDi(Decimal importo) { return importo.toFixed(2, ','); }

std::string ottenuto(const Piano& piano, const RigaPiano& riga) {
  using enum schede::Importo;
  std::string testo(nome(riga.stato));
  if (riga.stato == StatoRiga::Nuovo) {
    const schede::SchedaCompenso& c = piano.compensi[riga.voce].dopo;
    const auto di = [&](schede::Importo quale) { return c.importi[posto(quale)]; };
    testo += " " + piano.archivio->elenchi.causali.codice(c.idCausale) + " " + c.pagamento.toIso();
    for (const Decimal uno :
         {di(Onorario) + di(SommeNonSoggette), di(Onorario) - di(QuotaNonSoggetta), di(RitenutaAcconto),
          di(RitenutaImposta), di(ContributoPrevidenziale), di(ContributoPercipiente)}) {
      testo += " " + euroDi(uno);
    }
  }
  std::set<std::string> codici;
  for (const Messaggio& uno : riga.messaggi) {
    // What depends on the year of the plan and on accounts that are there is not the invoice's.
    if (uno.codice < Codice::A01) codici.insert(std::string(voce(uno.codice).sigla));
  }
  std::string detti;
  for (const std::string& uno : codici) detti += (detti.empty() ? "" : ",") + uno;
  return testo + (detti.empty() ? "" : " " + detti);
}

RichiestaPiano richiesta() {
  RichiestaPiano sua;
  sua.idAzienda = 1;
  sua.oggi = giorno(2026, 3, 5);
  const TavolaDate tavola =
      leggiDate(byteDi(kEsempi / "date_pagamento.csv"), "date_pagamento.csv", {}, sua.oggi);
  EXPECT_FALSE(tavola.conErrori());
  sua.fatture = {.fonte = FontePagamento::Tavola, .date = tavola.date, .causaleForfettari = "A"};
  return sua;
}

TEST(EsempiFatture, BecomeWhatTheirTableSays) {
  Banco banco(ContenutoArchivio::Dimostrativo);
  const auto suoi = attesi();
  for (const char* cartella : {"pronte", "da_vedere"}) {
    LettureFatture lette = leggiFatture({(kEsempi / "fatture" / cartella).string()}, giorno(2018, 3, 5));
    EXPECT_GT(lette.letture.size(), 10U);
    const Piano piano = pianifica(*banco, std::move(lette.letture), richiesta());
    std::map<std::string, std::vector<std::string>> miei;
    for (const RigaPiano& riga : piano.righe) miei[piano.posto(riga).file].push_back(ottenuto(piano, riga));
    for (const auto& [file, righe] : miei) {
      ASSERT_TRUE(suoi.contains(file)) << file;
      EXPECT_EQ(righe, suoi.at(file)) << file;
    }
  }
}

}  // namespace
}  // namespace cu::intake
