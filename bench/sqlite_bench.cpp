// The embedded engine against the C API underneath it, on a company of 100,000 lines.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "database/schema.h"
#include "database/sqlite/own_functions.h"
#include "database/sqlite/parser.h"
#include "database/sqlite/rewrite.h"
#include "database/sqlite/shape.h"
#include "database/sqlite/sqlite_connection.h"
#include "database/sqlite/stored_catalog.h"
#include "suite_texts.h"

namespace cu::sqlite {
namespace {

constexpr int kLines = 100000;
constexpr const char* kWork = "tmpprequadrivio12";
constexpr const char* kFilter = " WHERE Anno = 2016 AND IDAzienda = 1";

// A file of its own under the temporary folder, filled once and removed at the end.
class Company {
 public:
  static Company& instance() {
    static Company company;
    return company;
  }
  SqliteConnection& connection() { return *connection_; }
  sqlite3* bare() { return bare_; }

  void loadWorkTable() {
    connection_->Execute(test::dropWorkTable(kWork));
    connection_->Execute(test::createWorkTable(kWork));
    connection_->Execute(test::fillWorkTable(kWork, kFilter));
  }

  void run(const std::string& sql) {
    char* message = nullptr;
    if (sqlite3_exec(bare_, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
      std::fprintf(stderr, "%s: %s\n", sql.substr(0, 80).c_str(), message);
      std::abort();
    }
  }

  // The embedded engine's words for a statement, without the connection's own functions.
  std::string plain(const std::string& text) {
    const StoredCatalog catalog(bare_);
    const TokenList tokens = tokenize(text);
    auto statements = parseStatements(tokens);
    std::string sql = rewrite(*statements.front(), tokens.literals, catalog).pieces.front().sql;
    for (std::size_t i = tokens.literals.size(); i > 0; --i) {
      const Literal& literal = tokens.literals[i - 1];
      std::string value(literal.text);
      if (literal.kind == Literal::Kind::Text) value = "'" + value + "'";
      replace(sql, "?" + std::to_string(i), value);
    }
    replace(sql, "cu_amount(", "(");
    replace(sql, "cu_sum(", "sum(");
    return sql;
  }

 private:
  Company() {
    folder_ = std::filesystem::temp_directory_path() / ("cu-bench-" + std::to_string(std::rand()));
    std::filesystem::create_directories(folder_);
    const std::string path = (folder_ / "bench.db").string();
    connection_ = SqliteConnection::create(path);
    creaSchema(*connection_);
    sqlite3_open(path.c_str(), &bare_);
    run("PRAGMA synchronous = NORMAL; PRAGMA secure_delete = OFF; PRAGMA cache_size = -65536");
    fill();
    loadWorkTable();
  }
  ~Company() {
    connection_.reset();
    sqlite3_close(bare_);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  static void replace(std::string& text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
      text.replace(at, what.size(), by);
    }
  }

  void fill() {
    const std::string numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                                std::to_string(kLines) + ") ";
    run("BEGIN");
    run("INSERT INTO Azienda VALUES (1, 1000000)");
    run("INSERT INTO Anagrafica (IDAnagrafica, Anagrafica, PersonaFisica, PartitaIva) VALUES (1000000, "
        "'Azienda', 0, "
        "'01234567890')");
    run(numbers +
        "INSERT INTO Anagrafica SELECT i, 'Cognome' || (i * 7919 % 100003), 'Nome' || (i % 977), 1, 'RSSMRA' "
        "|| "
        "printf('%010d', i), NULL, 'posta@esempio.it', '0451234567', '', '37100', 'Via Roma ' || (i % 200), "
        "'M', "
        "'1970-01-' || printf('%02d', 1 + i % 28), 1, 1, 1, 1 FROM n");
    run("INSERT INTO Comune VALUES (1, 'Verona', 1, 'L781')");
    run("INSERT INTO Provincia VALUES (1, 'VR')");
    run("INSERT INTO Nazione VALUES (1, 'Italia', '')");
    run("INSERT INTO ConfigurazioneGenerale VALUES (1, '01234567890', 1, 1, 1)");
    run("INSERT INTO CodiceCarica VALUES (1, '1', 'Rappresentante')");
    run("INSERT INTO Filiale VALUES (1, 1, 1)");
    run("INSERT INTO AttivitaAzienda VALUES (1, 1)");
    run("INSERT INTO PeriodoIva VALUES (1, 1, 2016)");
    run("INSERT INTO AttivitaAziendaPerPeriodoIva VALUES (1, 1, 1)");
    run("INSERT INTO CodiceAttivita VALUES (1, '620100')");
    run("INSERT INTO CausalePagamento VALUES (1, 'A', 'Lavoro autonomo', 1), (2, 'M', 'Occasionale', 2)");
    run(numbers +
        "INSERT INTO Percipiente (IDAzienda, IDAnagrafica, Codice, NonResidente) SELECT 1, i, "
        "printf('%06d', i), 0 FROM n");
    run(numbers +
        "INSERT INTO ContoIndividuale SELECT i, 1 + i % 2, 2016, 1, 1000 + i % 777 + 0.25, 0, i % 5 * 10.1, "
        "0, 200.05, 0, 30.5, 10.25 FROM n");
    run(numbers +
        "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
        "Anticipazione) SELECT i, 1 + i % 2, 2016, 1, 0 FROM n WHERE i % 10 = 0");
    run(numbers +
        "INSERT INTO ModuloXContoIndividuale (IDModuloXContoIndividuale, IDAnagrafica, IDAzienda, "
        "IDCausalePagamento, Anno, NumeroModulo, SommeNonSoggette, Anticipazione) SELECT i, i * 10, 1, 1, "
        "2016, 2, 10.5, 0 FROM n WHERE i <= " +
        std::to_string(kLines / 10));
    run("COMMIT");
  }

  std::filesystem::path folder_;
  std::unique_ptr<SqliteConnection> connection_;
  sqlite3* bare_ = nullptr;
};

// Steps through a statement and looks at every cell, as whoever reads must.
std::size_t drain(sqlite3_stmt* statement) {
  std::size_t seen = 0;
  const int columns = sqlite3_column_count(statement);
  while (sqlite3_step(statement) == SQLITE_ROW) {
    for (int i = 0; i < columns; ++i) {
      switch (sqlite3_column_type(statement, i)) {
        case SQLITE_INTEGER:
          seen += static_cast<std::size_t>(sqlite3_column_int64(statement, i) & 1);
          break;
        case SQLITE_FLOAT:
          seen += sqlite3_column_double(statement, i) > 0 ? 1U : 0U;
          break;
        case SQLITE_TEXT:
          benchmark::DoNotOptimize(sqlite3_column_text(statement, i));
          seen += static_cast<std::size_t>(sqlite3_column_bytes(statement, i));
          break;
        default:
          break;
      }
    }
  }
  return seen;
}

sqlite3_stmt* prepared(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(Company::instance().bare(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
    std::fprintf(stderr, "%s\n", sqlite3_errmsg(Company::instance().bare()));
    std::abort();
  }
  return statement;
}

void WorkTableBare(benchmark::State& state) {
  sqlite3_stmt* statement = prepared(std::string("SELECT * FROM ") + kWork);
  for (auto step : state) {
    benchmark::DoNotOptimize(drain(statement));
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
}
BENCHMARK(WorkTableBare)->Unit(benchmark::kMillisecond);

void WorkTableQuery(benchmark::State& state) {
  SqliteConnection& connection = Company::instance().connection();
  for (auto step : state) {
    RowStore rows;
    connection.Query(kWork, rows);
    benchmark::DoNotOptimize(rows.size());
  }
}
BENCHMARK(WorkTableQuery)->Unit(benchmark::kMillisecond);

void ModuleQueriesBare(benchmark::State& state) {
  Company& company = Company::instance();
  std::string sql = company.plain(test::moduleQuery(1111, 2222, 3333, 4444));
  for (const auto& [value, parameter] :
       {std::pair<std::string, std::string>{"1111", "?1"}, {"2222", "?2"}, {"3333", "?3"}, {"4444", "?4"}}) {
    sql.replace(sql.find(value), value.size(), parameter);
  }
  sqlite3_stmt* statement = prepared(sql);
  for (auto step : state) {
    company.run("BEGIN");
    for (int i = 1; i <= kLines; ++i) {
      sqlite3_bind_int(statement, 1, 2016);
      sqlite3_bind_int(statement, 2, i);
      sqlite3_bind_int(statement, 3, 1);
      sqlite3_bind_int(statement, 4, 1 + i % 2);
      benchmark::DoNotOptimize(drain(statement));
      sqlite3_reset(statement);
    }
    company.run("COMMIT");
  }
  sqlite3_finalize(statement);
}
BENCHMARK(ModuleQueriesBare)->Unit(benchmark::kMillisecond);

void ModuleQueriesAsTexts(benchmark::State& state) {
  SqliteConnection& connection = Company::instance().connection();
  std::vector<std::string> texts;
  for (int i = 1; i <= kLines; ++i) texts.push_back(test::moduleQuery(2016, i, 1, 1 + i % 2));
  for (auto step : state) {
    const ReadScope reading(connection);
    for (const std::string& text : texts) {
      RowStore rows;
      connection.Query(text, rows);
      benchmark::DoNotOptimize(rows.size());
    }
  }
}
BENCHMARK(ModuleQueriesAsTexts)->Unit(benchmark::kMillisecond);

void MainQueryBare(benchmark::State& state) {
  sqlite3_stmt* statement = prepared(Company::instance().plain(test::mainQuery(kWork)));
  for (auto step : state) {
    benchmark::DoNotOptimize(drain(statement));
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
}
BENCHMARK(MainQueryBare)->Unit(benchmark::kMillisecond);

void MainQuery(benchmark::State& state) {
  SqliteConnection& connection = Company::instance().connection();
  const std::string text = test::mainQuery(kWork);
  for (auto step : state) {
    RowStore rows;
    connection.Query(text, rows);
    benchmark::DoNotOptimize(rows.size());
  }
}
BENCHMARK(MainQuery)->Unit(benchmark::kMillisecond);

void LoadBare(benchmark::State& state) {
  Company& company = Company::instance();
  const std::string fill = company.plain(test::fillWorkTable(kWork, kFilter));
  for (auto step : state) {
    state.PauseTiming();
    company.connection().Execute(test::dropWorkTable(kWork));
    company.connection().Execute(test::createWorkTable(kWork));
    state.ResumeTiming();
    company.run(fill);
  }
}
BENCHMARK(LoadBare)->Unit(benchmark::kMillisecond);

void LoadExecute(benchmark::State& state) {
  Company& company = Company::instance();
  const std::string fill = test::fillWorkTable(kWork, kFilter);
  for (auto step : state) {
    state.PauseTiming();
    company.connection().Execute(test::dropWorkTable(kWork));
    company.connection().Execute(test::createWorkTable(kWork));
    state.ResumeTiming();
    company.connection().Execute(fill);
  }
}
BENCHMARK(LoadExecute)->Unit(benchmark::kMillisecond);

void DropAndCreate(benchmark::State& state) {
  Company& company = Company::instance();
  for (auto step : state) {
    state.PauseTiming();
    company.loadWorkTable();
    state.ResumeTiming();
    company.connection().Execute(test::dropWorkTable(kWork));
    company.connection().Execute(test::createWorkTable(kWork));
  }
  company.loadWorkTable();
}
BENCHMARK(DropAndCreate)->Unit(benchmark::kMillisecond);

void WriteBackOfAllLines(benchmark::State& state) {
  SqliteConnection& connection = Company::instance().connection();
  connection.Execute(std::string("UPDATE ") + kWork + " SET Modificato = 1");
  for (auto step : state) {
    connection.Execute(test::writeAccounts(kWork));
    connection.Execute(test::writeAdditionalData(kWork));
  }
}
BENCHMARK(WriteBackOfAllLines)->Unit(benchmark::kMillisecond);

void SelectEveryLineOneByOne(benchmark::State& state) {
  SqliteConnection& connection = Company::instance().connection();
  for (auto step : state) {
    for (int i = 1; i <= kLines; ++i) {
      connection.Execute(std::string("UPDATE ") + kWork +
                         " SET Selezionato = 1 WHERE Anno = 2016 AND IDAnagrafica = " + std::to_string(i) +
                         " AND IDAzienda = 1 AND IDCausalePagamento = " + std::to_string(1 + i % 2));
    }
  }
}
BENCHMARK(SelectEveryLineOneByOne)->Unit(benchmark::kMillisecond);

void RecogniseAText(benchmark::State& state) {
  const std::string model = test::moduleQuery(2016, 1, 1, 1);
  const TokenList tokens = tokenize(model);
  const Shape shape(model, tokens, std::vector<bool>(tokens.literals.size(), true));
  const std::string text = test::moduleQuery(2016, 98765, 1, 2);
  std::vector<Literal> literals;
  for (auto step : state) benchmark::DoNotOptimize(shape.matches(text, literals));
}
BENCHMARK(RecogniseAText);

void AdaptAText(benchmark::State& state) {
  const StoredCatalog catalog(Company::instance().bare());
  const std::string text = test::moduleQuery(2016, 1, 1, 1);
  for (auto step : state) {
    const TokenList tokens = tokenize(text);
    auto statements = parseStatements(tokens);
    benchmark::DoNotOptimize(rewrite(*statements.front(), tokens.literals, catalog).pieces.size());
  }
}
BENCHMARK(AdaptAText)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace cu::sqlite
