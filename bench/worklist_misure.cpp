// The user's work on a large worklist, compared with the same statements on the bare engine. Argument: the
// number of payees (default 100,000).

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "archive/archivio.h"
#include "bare_database.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "editors/editor.h"
#include "misura.h"
#include "one_session.h"
#include "sqlite/sqlite_connection.h"
#include "suite/utilita.h"
#include "support/memory_settings.h"
#include "support/scripted_front_end.h"
#include "wizard/griglia_compensi.h"
#include "worklist/compensi.h"
#include "worklist/riscrittura.h"
#include "worklist/tabella_lavoro.h"

namespace cu::bench {
namespace {

constexpr int kRounds = 3;
constexpr int kOpenings = 15;

// The work table in a file of its own, for the bare side's changes.
void copyTable(BareDatabase& bare, const std::string& archive, const std::string& table,
               const Columns& columns) {
  bare.execute("ATTACH '" + archive + "' AS a");
  std::string names;
  for (std::size_t i = 0; i < columns.size(); ++i) names += (i > 0 ? "," : "") + columns[i].name;
  bare.execute("CREATE TABLE " + table + "(" + names +
               ", PRIMARY KEY(IDAnagrafica, IDCausalePagamento, Anno)) WITHOUT ROWID");
  bare.execute("INSERT INTO " + table + " SELECT * FROM a." + table);
  bare.execute("DETACH a");
}

void measure(int payees) {
  const ScratchFolder folder("cu_worklist_misure");
  const std::string archive = folder.file("archivio.db");
  auto connection = SqliteConnection::create(archive);
  creaArchivio(*connection, ContenutoArchivio::Sintetico,
               {.percipienti = payees, .primoAnno = 2016, .ultimoAnno = 2016, .seme = 1});
  TimedConnection timed(*connection);
  OneConnection database(timed);
  test::ScriptedFrontEnd screen;
  UtilitaItaliana utilita(screen, "/tmp");
  Globali globali;
  globali.gSessione = std::make_unique<OneSession>(database);
  Form form(screen, "frmWizard");
  Grid grid(form, "grdCompensi", nullptr);
  GrigliaCompensi view(grid);
  Compensi compensi(utilita, screen);
  compensi.setVista(view);
  Filtri filtri;
  filtri.anno = "2016";
  compensi.sbCreaTabellaLavoro(ambitoDi(*globali.gSessione), filtri);
  view.sbFormattaGriglia(Comunicazione::Ordinaria);
  Recordset& rows = compensi.rsCompensi();
  const std::string table = compensi.tabella();
  const std::string lines = grouped(static_cast<long long>(rows.RecordCount())) + " lines";

  std::vector<std::array<std::int64_t, 4>> keys;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    keys.push_back({rows.Get("Anno").integer(), rows.Get("IDAnagrafica").integer(),
                    rows.Get("IDAzienda").integer(), rows.Get("IDCausalePagamento").integer()});
  }
  BareDatabase copy(folder.file("nudo.db"));
  copyTable(copy, archive, table, rows.Fields());
  const BareStatement update(
      copy, "UPDATE " + table +
                " SET Selezionato = 1 WHERE Anno = ?1 AND IDAnagrafica = ?2 AND IDAzienda = ?3 "
                "AND IDCausalePagamento = ?4");
  const auto set = [&](const std::array<std::int64_t, 4>& key) {
    for (int i = 0; i < 4; ++i) sqlite3_bind_int64(update.get(), i + 1, key[static_cast<std::size_t>(i)]);
    update.drain();
  };
  const Pair all = best(
      kRounds, [&] { compensi.sbSelezionaTutto(AzioneSelezione::Seleziona); },
      [&] {
        for (const auto& key : keys) set(key);
      });
  print({"select all of " + lines, all.ours, all.limit, "the statement prepared once, bare"});

  rows.MoveFirst();
  const BareStatement count(copy, "SELECT COUNT(Selezionato) FROM " + table + " WHERE Selezionato = 1");
  const Pair toggle = best(
      kOpenings,
      [&] {
        compensi.sbSelezionaRiga(AzioneSelezione::Inverti);
        compensi.sbContaSelezionati();
      },
      [&] {
        set(keys.front());
        count.drain();
      });
  print({"toggle of one among " + lines, toggle.ours, toggle.limit, "the same statements, bare"});
  compensi.sbSelezionaTutto(AzioneSelezione::Seleziona);

  // The last line, so that the filter of its row tests all others.
  test::MemorySettings settings;
  double opening = 1e9;
  double queries = 1e9;
  for (int i = 0; i < kOpenings; ++i) {
    rows.ClearFilter();
    rows.MoveTo(rows.RecordCount());
    timed.spent = 0;
    opening = std::min(opening, seconds([&] {
                         const auto editor = fnCreaEditor(2016, {screen, globali, utilita, settings});
                         editor->setRecordset(rows);
                         editor->setTipoComunicazione(Comunicazione::Ordinaria);
                         editor->load();
                       }));
    queries = std::min(queries, timed.spent);
  }
  print({"opening an editor on the last of " + lines, opening, queries, "its own queries"});
  rows.ClearFilter();

  // Changes each line; the accounts are in the archive, so that both sides write there, alternately.
  connection->Execute("UPDATE " + table + " SET Modificato = 1");
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) rows.Set("Modificato", Value::ofFlag(true));
  BareDatabase bare(archive);
  const std::vector<std::string> accounts = plain(bare, fnAggiornaConti(table));
  const std::vector<std::string> additional = plain(bare, fnAggiornaDatiAggiuntivi(table));
  const Pair write = best(
      kRounds, [&] { compensi.sbMemorizzaModifiche(); },
      [&] {
        bare.execute(accounts);
        bare.execute("BEGIN");
        bare.execute(additional);
        bare.execute("COMMIT");
      });
  print({"write-back of " + lines + ", all changed", write.ours, write.limit, "the same statements, bare"});
}

}  // namespace
}  // namespace cu::bench

int main(int argc, char** argv) { cu::bench::measure(argc > 1 ? std::atoi(argv[1]) : 100000); }
