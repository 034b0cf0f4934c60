#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "archive/archivio.h"
#include "archive/schema.h"
#include "fornitura/carico.h"
#include "fornitura/scrittura.h"
#include "fornitura/selezione.h"
#include "lettura/lettura_prova.h"
#include "riscontro/conti.h"
#include "riscontro/registro.h"
#include "sqlite/sqlite_connection.h"
#include "suite/utilita.h"
#include "support/fake_factory.h"
#include "support/fixed_clock.h"
#include "support/memory_file_system.h"
#include "support/scripted_front_end.h"

namespace cu::riscontro::prova {

// One connection for all purposes.
class UnaConnessione : public DatabaseHost {
 public:
  explicit UnaConnessione(Connection& connessione) : connessione_(connessione) {}
  Connection& connection() override { return connessione_; }
  Connection& internalConnection() override { return connessione_; }
  Connection& ownConnection() override { return connessione_; }
  std::unique_ptr<Rowset> CreateRowset() override { return std::make_unique<ConnectionRowset>(connessione_); }

 private:
  Connection& connessione_;
};

// The demonstration company in memory, whose supplies are written by the operations themselves.
class Dimostrativa : public ::testing::Test {
 protected:
  Dimostrativa()
      : connessione_(SqliteConnection::create(":memory:")),
        database_(*connessione_),
        registro_(*connessione_),
        utilita_(schermo_, "/tmp") {
    creaArchivio(*connessione_, ContenutoArchivio::Dimostrativo);
    files_.folders = {"/cu", "/tmp"};
  }

  fornitura::Intorno intorno() {
    return {.ambito = {&database_, 12, 1, 1},
            .factory = fabbrica_,
            .utilita = utilita_,
            .files = files_,
            .clock = orologio_,
            .avanzamento = schermo_,
            .visore = schermo_,
            .modello = modello_};
  }
  std::vector<Conto> conti(std::int32_t anno) {
    std::vector<Conto> conti;
    leggiConti(*connessione_, {1, anno, modello_}, utilita_,
               [&](Conto conto) { conti.push_back(std::move(conto)); });
    return conti;
  }
  // The file of all accounts of a year.
  std::string scrivi(std::int32_t anno, DatiFornitura dati = {}) {
    Compensi compensi(utilita_, schermo_);
    Filtri filtri;
    filtri.anno = std::to_string(anno);
    filtri.adAnno = filtri.anno;
    EXPECT_TRUE(fornitura::carica(intorno(), compensi, filtri));
    dati.CodiceFiscaleAzienda = codiceFiscaleAzienda(*connessione_, 1);
    if (dati.TipoComIntermediario.empty()) dati.TipoComIntermediario = "0";
    if (dati.TipoComunicazione == Comunicazione::Nessuna) dati.TipoComunicazione = Comunicazione::Ordinaria;
    const auto file = fornitura::scrivi(intorno(), compensi,
                                        {.anno = filtri.anno,
                                         .cartella = "/cu",
                                         .cartellaDocumenti = "Comunicazioni",
                                         .firma = *Date::fromYmd(2018, 3, 5),
                                         .dati = dati});
    EXPECT_TRUE(file);
    return files_.files.at(file->percorso);
  }
  // Leaves the accounts of a year that the condition names.
  void soloConti(std::int32_t anno, const std::string& condizione) {
    connessione_->Execute("DELETE FROM ContoIndividuale WHERE Anno = " + std::to_string(anno) + " AND NOT (" +
                          condizione + ")");
  }

  // The last year of the demonstration company as another one, in its published form.
  void pubblica(std::int32_t anno) {
    modello_ = modello::kModelloPubblicato;
    for (const char* tabella :
         {"ContoIndividuale", "ContoIndividualeDatiAggiuntivi", "ModuloXContoIndividuale", "PeriodoIva"}) {
      connessione_->Execute("DELETE FROM " + std::string(tabella) + " WHERE Anno = " + std::to_string(anno));
      connessione_->Execute("UPDATE " + std::string(tabella) + " SET Anno = " + std::to_string(anno) +
                            " WHERE Anno = 2017");
    }
  }

  std::reference_wrapper<const modello::Modello> modello_ = modello::kModello;
  std::unique_ptr<Connection> connessione_;
  UnaConnessione database_;
  Registro registro_;
  test::ScriptedFrontEnd schermo_;
  UtilitaItaliana utilita_;
  test::MemoryFileSystem files_;
  test::FixedClock orologio_{2018, 3, 5};
  test::FakeDatabase nessuno_;
  test::FakeFactory fabbrica_{nessuno_};
};

}  // namespace cu::riscontro::prova
