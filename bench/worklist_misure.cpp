// The clerk's work on a large worklist, beside the same statements on a bare engine. Argument: how many lines
// (20,000 without one).

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "database/archivio.h"
#include "database/sqlite/sqlite_connection.h"
#include "editors/editor.h"
#include "host/form.h"
#include "host/grid.h"
#include "misura.h"
#include "one_session.h"
#include "suite/utilita.h"
#include "support/memory_settings.h"
#include "support/scripted_front_end.h"
#include "telematic/controlli.h"
#include "worklist/compensi.h"
#include "worklist/tabella_lavoro.h"

namespace {

using namespace cu;
using bench::row;
using bench::seconds;

class NoLog : public LogGrid {
 public:
  void setUser(std::int32_t) override {}
  void setName(const std::string&) override {}
  void addColumn(const std::string&, int, int) override {}
  void newRow() override { ++rows; }
  void put(const std::string&, const Value&) override {}
  void confirmRow() override {}
  void show(int) override {}
  int rows = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const int lines = argc > 1 ? std::atoi(argv[1]) : 20000;
  const bench::ScratchFolder folder("cu_worklist_misure");
  auto connection = SqliteConnection::create(folder.file("archivio.db"));
  creaArchivio(*connection, ContenutoArchivio::Sintetico,
               {.percipienti = lines, .primoAnno = 2016, .ultimoAnno = 2016, .seme = 1});
  bench::TimedConnection timed(*connection);
  bench::OneConnection database(timed);
  test::ScriptedFrontEnd screen;
  UtilitaItaliana utilita(screen, "/tmp");
  Globali globali;
  globali.gSessione = std::make_unique<bench::OneSession>(database);
  Form form(screen, "frmWizard");
  Grid grid(form, "grdCompensi", nullptr);
  Compensi compensi(globali, utilita, screen, grid);
  Filtri filtri;
  filtri.anno = "2016";

  bench::heading();
  const double load = seconds([&] { compensi.sbCreaTabellaLavoro(filtri); });
  compensi.sbFormattaGriglia(1);
  Recordset& rows = compensi.rsCompensi();
  std::printf("lines: %zu\n", rows.RecordCount());

  // The same texts, one after the other, on a copy of the table in a file of its own.
  std::vector<std::string> texts;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    texts.push_back("UPDATE t SET Selezionato = 1 WHERE Anno = " + rows.Get("Anno").toText() +
                    " AND IDAnagrafica = " + rows.Get("IDAnagrafica").toText() + " AND IDAzienda = 1" +
                    " AND IDCausalePagamento = " + rows.Get("IDCausalePagamento").toText());
  }
  bench::BareDatabase bare(folder.file("nudo.db"));
  bare.execute("ATTACH '" + folder.file("archivio.db") + "' AS a");
  std::string columns;
  for (std::size_t i = 0; i < rows.Fields().size(); ++i)
    columns += (i > 0 ? "," : "") + rows.Fields()[i].name;
  bare.execute("CREATE TABLE t(" + columns + ", PRIMARY KEY(IDAnagrafica, IDCausalePagamento, Anno))");
  bare.execute("INSERT INTO t SELECT * FROM a." + globali.gTabellaLavoro);
  const double bareSelect = seconds([&] {
    for (const std::string& text : texts) bare.execute(text);
  });
  rows.MoveFirst();
  const double select = seconds([&] { compensi.sbSelezionaTutto(AzioneSelezione::Seleziona); });
  row("load of the work table", load);
  row("select all", select, bareSelect);
  const double toggle = seconds([&] {
    compensi.sbSelezionaRiga(AzioneSelezione::Inverti);
    compensi.sbContaSelezionati();
  });
  row("toggle of a line", toggle);
  compensi.sbSelezionaTutto(AzioneSelezione::Seleziona);

  // The last line, so that the filter of its row passes over all others.
  test::MemorySettings settings;
  rows.MoveLast();
  timed.spent = 0;
  const double opening = seconds([&] {
    const auto editor = fnCreaEditor(2016, {screen, globali, utilita, settings});
    editor->setRecordset(rows);
    editor->setTipoComunicazione(1);
    editor->load();
  });
  row("opening an editor (limit: its own queries)", opening, timed.spent);
  rows.ClearFilter();

  // Each line changed; then both statements of the write-back, and the same on the bare engine without the
  // joins.
  connection->Execute("UPDATE " + globali.gTabellaLavoro + " SET Modificato = 1");
  const double write = seconds([&] { compensi.sbMemorizzaModifiche(); });
  row("write-back of changed lines", write);

  NoLog log;
  Controlli controlli(*connection, utilita, log);
  const double checks = seconds([&] {
    controlli.esegui({"01/03/2017", false, "", ""}, 1, globali.gTabellaLavoro);
  });
  row("checks of the payees", checks);
  std::printf("log rows: %d\n", log.rows);
  return 0;
}
