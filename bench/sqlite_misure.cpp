// The overhead of the embedded engine's adapter: a known text of the server's dialect, an adapted one, a
// query for each line of a run. Argument: the number of payees (default 100,000).

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "archive/archivio.h"
#include "bare_database.h"
#include "misura.h"
#include "sqlite/shape.h"
#include "sqlite/sqlite_connection.h"
#include "telematic/query_cu.h"

namespace cu::bench {
namespace {

constexpr int kRounds = 5;
constexpr int kTexts = 10000;

// Keeps the compiler from removing unused results.
volatile std::size_t sink = 0;

void texts(BareDatabase& bare) {
  const std::string model = telematico::queryModuli(2016, 1, 1, 1);
  const sqlite::TokenList tokens = sqlite::tokenize(model);
  const sqlite::Shape shape(model, tokens, std::vector<bool>(tokens.literals.size(), true));
  const std::string text = telematico::queryModuli(2016, 98765, 1, 2);
  std::vector<sqlite::Literal> literals;
  const Pair known = best(
      kRounds,
      [&] {
        for (int i = 0; i < kTexts; ++i) sink = sink + (shape.matches(text, literals) ? 1U : 0U);
      },
      [&] {
        std::string other = text;
        for (int i = 0; i < kTexts; ++i) {
          other[other.size() - 1] = static_cast<char>('0' + i % 10);
          sink = sink + (other == text ? 1U : 0U);
        }
      });
  print({"a text known again", known.ours / kTexts, known.limit / kTexts, "one comparison of all its bytes"});

  const std::string plainText = plainOne(bare, model);
  const Pair adapted = best(
      kRounds,
      [&] {
        const sqlite::StoredCatalog catalog(bare.handle());
        for (int i = 0; i < kTexts / 100; ++i) {
          const sqlite::TokenList list = sqlite::tokenize(model);
          auto statements = sqlite::parseStatements(list);
          sink = sink + sqlite::rewrite(*statements.front(), list.literals, catalog).pieces.size();
        }
      },
      [&] {
        for (int i = 0; i < kTexts / 100; ++i)
          sink = sink + (BareStatement(bare, plainText).get() != nullptr);
      });
  print({"a new text adapted", adapted.ours / (kTexts / 100.0), adapted.limit / (kTexts / 100.0),
         "its preparation by the engine"});
}

void modules(SqliteConnection& connection, BareDatabase& bare) {
  std::vector<std::array<std::int64_t, 3>> keys;
  std::vector<std::string> all;
  {
    const BareStatement rows(bare,
                             "SELECT IDAnagrafica, IDAzienda, IDCausalePagamento FROM ContoIndividuale");
    while (rows.step()) {
      auto& key = keys.emplace_back();
      for (int i = 0; i < 3; ++i) key[static_cast<std::size_t>(i)] = sqlite3_column_int64(rows.get(), i);
      all.push_back(telematico::queryModuli(2016, key[0], key[1], key[2]));
    }
  }
  std::string text = telematico::queryModuli(0, 0, 0, 0);
  for (const char* parameter : {"?1", "?2", "?3", "?4"}) text.replace(text.find(" = 0") + 3, 1, parameter);
  const BareStatement statement(bare, text);
  const Pair queries = best(
      kRounds,
      [&] {
        const ReadScope reading(connection);
        for (const std::string& each : all) {
          RowStore rows;
          connection.Query(each, rows);
          sink = sink + rows.size();
        }
      },
      [&] {
        bare.execute("BEGIN");
        for (const auto& key : keys) {
          sqlite3_bind_int64(statement.get(), 1, 2016);
          for (int i = 0; i < 3; ++i)
            sqlite3_bind_int64(statement.get(), i + 2, key[static_cast<std::size_t>(i)]);
          sink = sink + statement.drain();
        }
        bare.execute("COMMIT");
      });
  print({"the modules' query for each of " + grouped(static_cast<long long>(all.size())) + " lines",
         queries.ours, queries.limit, "prepared once, bare"});
}

void measure(int payees) {
  const ScratchFolder folder("cu_sqlite_misure");
  const auto connection = SqliteConnection::create(folder.file("archivio.db"));
  creaArchivio(*connection, ContenutoArchivio::Sintetico,
               {.percipienti = payees, .primoAnno = 2016, .ultimoAnno = 2016, .seme = 1});
  BareDatabase bare(folder.file("archivio.db"));
  texts(bare);
  modules(*connection, bare);
}

}  // namespace
}  // namespace cu::bench

int main(int argc, char** argv) { cu::bench::measure(argc > 1 ? std::atoi(argv[1]) : 100000); }
