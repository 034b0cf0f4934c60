#pragma once

// The statements of a whole run on the engine's bare C API, in its order and with its transactions: the
// years, the load of the work table, the count of its lines, the write-back, the checks, the run's queries,
// the bytes of the file, the two statements of each print, the record of the file, the second load. Prepared
// once where a text repeats.

#include <cstdint>
#include <ctime>
#include <functional>
#include <string>

#include "apps/comune/sha256.h"
#include "corsa_a_mano.h"
#include "fornitura/carico.h"
#include "printing/tabella_ricorsione.h"
#include "registro_a_mano.h"
#include "suite/utilita.h"
#include "support/scripted_front_end.h"
#include "telematic/controlli.h"
#include "worklist/riscrittura.h"
#include "worklist/tabella_lavoro.h"

namespace cu::bench {

// Seconds on the clock and of the processor.
struct Spent {
  double elapsed = 0;
  double processor = 0;
};

inline double processorNow() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

class CorsaNuda {
 public:
  // `path` is written; the record of the last file of `made` and the bytes of `file` are written again.
  CorsaNuda(const std::string& path, const std::string& made, std::string file)
      : bare_(path), made_(made), record_(made_), file_(std::move(file)) {}

  Spent run(const std::string& target) {
    test::ScriptedFrontEnd screen;
    const UtilitaItaliana utilita(screen, "/tmp");
    Filtri filtri;
    filtri.anno = "2016";
    const std::string years = adapted(fornitura::fnOrigineAnni(1, false));
    create_ = adapted(fnCreaTabella(kTable));
    spend([&] {
      drain(years);
      bare_.execute(create_);
    });
    fill_ = adapted("INSERT INTO " + kTable + " " + fnSelectCompensi(filtri, 1, utilita));
    spend([&] { fill(); });
    const std::vector<std::string> accounts = plain(bare_, fnAggiornaConti(kTable));
    const std::vector<std::string> additional = plain(bare_, fnAggiornaDatiAggiuntivi(kTable));
    const std::string company = adapted(Controlli::fnQueryAzienda(1));
    const std::string payees = adapted(Controlli::fnQueryPercipienti(kTable));
    const std::string lines = mainQuery(bare_);
    const std::string modules = modulesQuery();
    spend([&] {
      drain("SELECT COUNT(Selezionato) FROM " + kTable + " WHERE Selezionato = 1");
      bare_.execute(accounts);
      together([&] { bare_.execute(additional); });
      drain(company);
      drain(payees);
      read(lines, modules);
    });
    write(target);
    const std::string none = adapted(ricorsione::elimina(12));
    const Spent before = spent_;
    spend([&] { prints(none, true); });
    const Spent together = less(spent_, before);
    spend([&] { record(); });
    spend([&] {
      bare_.execute("DROP TABLE " + kTable);
      bare_.execute(create_);
      fill();
    });
    const Spent whole = spent_;
    spend([&] { prints(none, false); });
    apart_ = less(spent_, together);
    return whole;
  }
  // Of the same run with each of the two statements of a print in a transaction of its own.
  Spent apart() const { return apart_; }
  std::size_t printed() const { return lines_.size(); }
  std::size_t recorded() const { return record_.certificates(); }

 private:
  struct Line {
    std::int64_t payee = 0;
    std::int64_t reason = 0;
  };
  static Spent less(const Spent& all, const Spent& part) {
    return {all.elapsed - part.elapsed, all.processor - part.processor};
  }
  void spend(const std::function<void()>& work) {
    const double before = processorNow();
    spent_.elapsed += seconds(work);
    spent_.processor += processorNow() - before;
  }
  std::string adapted(const std::string& text) { return plainOne(bare_, text); }
  void drain(const std::string& text) { BareStatement(bare_, text).drain(); }
  void together(const std::function<void()>& work) {
    bare_.execute("BEGIN IMMEDIATE");
    work();
    bare_.execute("COMMIT");
  }
  void fill() {
    bare_.execute(fill_);
    BareStatement(bare_, "SELECT * FROM " + kTable).drain();
  }

  void read(const std::string& lines, const std::string& modulesOf) {
    bare_.execute("BEGIN");
    {
      const BareStatement rows(bare_, lines);
      const BareStatement modules(bare_, modulesOf);
      while (rows.step()) {
        static_cast<void>(rows.readRow());
        const SqlRow row{rows.get()};
        int place = 0;
        for (const int key : {Anno, IDAnagrafica, IDAzienda, IDCausalePagamento})
          sqlite3_bind_int64(modules.get(), ++place, row.whole(key));
        modules.drain();
        lines_.push_back({row.whole(IDAnagrafica), row.whole(IDCausalePagamento)});
      }
    }
    bare_.execute("COMMIT");
  }

  // The reading of the bytes is no part of it.
  void write(const std::string& target) {
    std::ifstream source(file_, std::ios::binary);
    std::string block(kBlock, '\0');
    BlockFile out(target);
    for (;;) {
      source.read(block.data(), static_cast<std::streamsize>(block.size()));
      if (source.gcount() == 0) return;
      spend([&] {
        out.write({block.data(), static_cast<std::size_t>(source.gcount())});
        out.flush();
      });
    }
  }

  void prints(const std::string& none, bool together) {
    bare_.execute(none);
    const BareStatement begin(bare_, "BEGIN IMMEDIATE");
    const BareStatement out(bare_, none);
    const BareStatement in(bare_,
                           "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, "
                           "Path1, Path2, Path3) VALUES (?1, ?2, 12, 342, '1', '1', '0', '28/02/2017')");
    const BareStatement commit(bare_, "COMMIT");
    for (const Line& line : lines_) {
      if (together) begin.drain();
      out.drain();
      sqlite3_bind_int64(in.get(), 1, line.payee);
      sqlite3_bind_int64(in.get(), 2, line.reason);
      in.drain();
      if (together) commit.drain();
    }
  }

  void record() {
    together([&] {
      Sha256 sum;
      std::ifstream file(file_, std::ios::binary);
      std::vector<char> block(std::size_t{1} << 16U);
      while (file.read(block.data(), static_cast<std::streamsize>(block.size())) || file.gcount() > 0)
        sum.aggiungi({block.data(), static_cast<std::size_t>(file.gcount())});
      static_cast<void>(sum.cifre());
      record_.write(bare_);
    });
  }

  BareDatabase bare_;
  BareDatabase made_;
  RegistroAMano record_;
  std::string file_;
  std::string create_;
  std::string fill_;
  std::vector<Line> lines_;
  Spent spent_;
  Spent apart_;
};

}  // namespace cu::bench
