#include "suite/support_log.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>
#include <thread>

#include "base/error.h"
#include "suite/log_text.h"
#include "support/temp_folder.h"
#include "support/umask.h"

namespace cu {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::SizeIs;

struct Log : ::testing::Test {
  test::TempFolder folder;
  std::vector<std::string> warnings;

  SupportLog::Settings settings(std::uint64_t size = 1U << 20) {
    return {.path = folder / "log", .fileBytes = size, .warn = [this](const std::string& warning) {
              warnings.push_back(warning);
            }};
  }
  std::vector<std::string> lines(const char* file = "log") const {
    std::vector<std::string> result;
    std::istringstream text(folder.read(file));
    for (std::string line; std::getline(text, line);) result.push_back(line);
    return result;
  }
  // Without moment and process.
  std::vector<std::string> texts(const char* file = "log") const {
    std::vector<std::string> result = lines(file);
    for (std::string& line : result) line = line.substr(line.find("] ") + 2);
    return result;
  }
  static LogEntry statement(std::string_view kind, milliseconds duration = milliseconds(1)) {
    return {.operation = "istruzione", .detail = kind, .object = "Comune", .duration = duration, .rows = 2};
  }
};

TEST_F(Log, ALineHasMomentProcessOperationAndMeasures) {
  SupportLog(settings())
      .record({.operation = "file", .detail = "copia", .duration = milliseconds(1234), .bytes = 70});
  EXPECT_THAT(lines(),
              ElementsAre(MatchesRegex(
                  "[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3}[+-][0-9]{2}:[0-9]{2} "
                  "\\[" +
                  std::to_string(::getpid()) + "\\] file copia ms=1234 byte=70")));
  EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(Log, TheMomentHasTheOffsetOfTheTimeZone) {
  ::setenv("TZ", "XST+03:30", 1);
  ::tzset();
  const std::string west = logMoment();
  ::setenv("TZ", "XST-05:45", 1);
  ::tzset();
  const std::string east = logMoment();
  ::unsetenv("TZ");
  ::tzset();
  EXPECT_THAT(west, EndsWith("-03:30"));
  EXPECT_THAT(east, EndsWith("+05:45"));
}

TEST_F(Log, AnErrorIsItsKindAndItsNumbersOnly) {
  SupportLog log(settings());
  const DatabaseError locked(DatabaseErrorKind::Locked, 5, "UPDATE", "Il conto di Rossi è occupato");
  const FileError file(kErrorDiskFull, "Spazio esaurito: Rossi.pdf");
  const Error own(kErrorNoCurrentRow, "Rossi");
  const std::runtime_error other("Rossi");
  for (const std::exception* error :
       std::initializer_list<const std::exception*>{&locked, &file, &own, &other})
    log.record({.operation = "prova", .error = error});
  EXPECT_THAT(texts(), ElementsAre("prova errore=database/Locked numero=-2147217900 codice=5",
                                   "prova errore=file numero=61", "prova errore=programma numero=3021",
                                   "prova errore=interno numero=51"));
}

TEST_F(Log, WhatIsNoPlainWordIsHidden) {
  SupportLog log(settings());
  log.record({.operation = "prova", .detail = "Società"});
  log.record({.operation = "prova", .object = "cartella/RSSMRA80A01H501U.pdf"});
  log.record({.operation = "prova", .object = "a\nb"});
  log.record({.operation = "prova", .object = std::string(49, 'a')});
  log.record({.operation = "prova", .object = "frmWizard.cmdNav(3)"});
  EXPECT_THAT(texts(), ElementsAre("prova ?", "prova su=?", "prova su=?", "prova su=?",
                                   "prova su=frmWizard.cmdNav(3)"));
}

TEST_F(Log, ShortEqualOperationsAreCounted) {
  {
    SupportLog log(settings());
    for (int i = 0; i < 4; ++i) log.record(statement("INSERT"));
    EXPECT_THAT(texts(), ElementsAre("istruzione INSERT su=Comune ms=1 righe=2"));
    log.record(statement("SELECT"));
    log.record(statement("SELECT", milliseconds(500)));  // not a short one
    log.record(statement("SELECT"));
    log.record(statement("SELECT"));
  }
  EXPECT_THAT(texts(), ElementsAre("istruzione INSERT su=Comune ms=1 righe=2",
                                   "istruzione INSERT su=Comune volte=3 ms=3 righe=6",
                                   "istruzione SELECT su=Comune ms=1 righe=2",
                                   "istruzione SELECT su=Comune ms=500 righe=2",
                                   "istruzione SELECT su=Comune ms=1 righe=2",
                                   "istruzione SELECT su=Comune volte=1 ms=1 righe=2"));
}

TEST_F(Log, OperationsThatAlternateAreCountedToo) {
  {
    SupportLog log(settings());
    for (int i = 0; i < 100; ++i) {
      log.record(statement("DELETE"));
      log.record(statement("INSERT"));
    }
    log.record(statement("SELECT", milliseconds(500)));
    log.record(statement("DELETE"));
  }
  EXPECT_THAT(
      texts(),
      ElementsAre("istruzione DELETE su=Comune ms=1 righe=2", "istruzione INSERT su=Comune ms=1 righe=2",
                  "istruzione DELETE su=Comune volte=99 ms=99 righe=198",
                  "istruzione INSERT su=Comune volte=99 ms=99 righe=198",
                  "istruzione SELECT su=Comune ms=500 righe=2", "istruzione DELETE su=Comune ms=1 righe=2"));
}

TEST_F(Log, NoMoreThanAFewKindsAreCountedAtATime) {
  constexpr int kKinds = 30;
  {
    SupportLog log(settings());
    for (int round = 0; round < 2; ++round) {
      for (int kind = 0; kind < kKinds; ++kind) {
        const std::string table(1, static_cast<char>('A' + kind % 26));
        log.record({.operation = kind < 26 ? "prima" : "poi", .object = table, .duration = milliseconds(1)});
      }
    }
  }
  EXPECT_THAT(texts(), SizeIs(2 * kKinds));
}

TEST_F(Log, AFailureIsNeverCounted) {
  SupportLog log(settings());
  const Error error(5, "");
  for (int i = 0; i < 2; ++i) {
    LogEntry failed = statement("UPDATE");
    failed.error = &error;
    log.record(failed);
  }
  EXPECT_THAT(texts(), SizeIs(2));
}

TEST_F(Log, AFullFileIsPutAsideAndTheOldestIsDropped) {
  constexpr std::uint64_t kSmall = 400;
  SupportLog log(settings(kSmall));
  for (std::uint64_t i = 0; i < 40; ++i) log.record({.operation = "prova", .bytes = i});
  EXPECT_EQ(texts().back(), "prova byte=39");
  std::vector<std::string> all;
  for (const char* file : {"log.2", "log.1", "log"}) {
    EXPECT_LE(std::filesystem::file_size(folder / file), kSmall);
    EXPECT_EQ(test::modeOf(folder / file), 0600U);
    for (const std::string& text : texts(file)) all.push_back(text);
  }
  for (std::size_t i = 1; i <= all.size(); ++i)
    EXPECT_EQ(all[all.size() - i], "prova byte=" + std::to_string(40 - i));
  EXPECT_GT(all.size(), 15U);
  EXPECT_FALSE(std::filesystem::exists(folder / "log.3"));
  EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(Log, SeveralProcessesWriteIntoOne) {
  constexpr int kProcesses = 3;
  constexpr int kLines = 200;
  const auto large = settings(1U << 14);
  for (int process = 0; process < kProcesses; ++process) {
    if (::fork() == 0) {
      SupportLog log(large);
      for (std::uint64_t i = 0; i < kLines; ++i) log.record({.operation = "prova", .bytes = i});
      ::_exit(warnings.empty() ? 0 : 1);
    }
  }
  int failed = 0;
  for (int process = 0; process < kProcesses; ++process) {
    int status = 0;
    ::wait(&status);
    failed += status == 0 ? 0 : 1;
  }
  EXPECT_EQ(failed, 0);
  // Three files of 16 KB hold all lines.
  std::size_t written = 0;
  for (const char* file : {"log.2", "log.1", "log"}) {
    if (!std::filesystem::exists(folder / file)) continue;
    for (const std::string& line : lines(file)) {
      EXPECT_TRUE(isLogLine(line)) << line;
      ++written;
    }
  }
  EXPECT_EQ(written, std::size_t{kProcesses} * kLines);
}

TEST_F(Log, SeveralThreadsWriteWholeLines) {
  {
    SupportLog log(settings());
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
      threads.emplace_back([&log] {
        for (std::uint64_t i = 0; i < 200; ++i) log.record({.operation = "prova", .bytes = i});
      });
    }
    for (std::thread& thread : threads) thread.join();
  }
  EXPECT_THAT(lines(), SizeIs(800));
  EXPECT_TRUE(std::ranges::all_of(lines(), isLogLine));
}

TEST_F(Log, AnExistingLogIsContinuedAndKeepsItsMode) {
  SupportLog(settings()).record({.operation = "prima"});
  ::chmod((folder / "log").c_str(), 0640);
  SupportLog(settings()).record({.operation = "dopo"});
  EXPECT_THAT(texts(), ElementsAre("prima", "dopo"));
  EXPECT_EQ(test::modeOf(folder / "log"), 0640U);
}

TEST_F(Log, AnotherFileIsNeitherWrittenNorReplaced) {
  folder.write("log", "una lettera che non è un registro, e abbastanza lunga");
  SupportLog log(settings());
  EXPECT_FALSE(log.works());
  log.record({.operation = "prova"});
  EXPECT_EQ(folder.read("log"), "una lettera che non è un registro, e abbastanza lunga");
  EXPECT_THAT(warnings,
              ElementsAre("Il registro per l'assistenza non si può scrivere. Il file non è un registro per "
                          "l'assistenza: " +
                          folder / "log"));
}

TEST_F(Log, AnotherFileInThePlaceOfAnOlderPartIsKept) {
  folder.write("log.1", "una lettera");
  SupportLog log(settings(200));
  for (std::uint64_t i = 0; i < 10; ++i) log.record({.operation = "prova", .bytes = i});
  EXPECT_EQ(folder.read("log.1"), "una lettera");
  EXPECT_FALSE(log.works());
  EXPECT_THAT(warnings, ElementsAre(HasSubstr("log.1")));
}

TEST_F(Log, WhatCannotBeWrittenIsToldOnce) {
  auto missing = settings();
  missing.path = folder / "manca/log";
  SupportLog log(missing);
  log.record({.operation = "prova"});
  log.record({.operation = "prova"});
  EXPECT_THAT(warnings, ElementsAre(HasSubstr("Percorso non trovato: " + missing.path)));
}

TEST_F(Log, AFolderADeviceAndAPipeAreNoLogs) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  for (const std::string& path : {folder.path(), std::string("/dev/null"), folder / "pipe"}) {
    auto wrong = settings();
    wrong.path = path;
    EXPECT_FALSE(SupportLog(wrong).works()) << path;
  }
  EXPECT_THAT(warnings, SizeIs(3));
}

struct ActiveLog : Log {
  ~ActiveLog() override { SupportLog::activate(nullptr); }
  void begin() { SupportLog::activate(std::make_unique<SupportLog>(settings())); }
};

TEST_F(ActiveLog, WorkIsRecordedWithItsResultAndItsError) {
  EXPECT_EQ(logged({.operation = "prova"}, [] { return 7; }), 7);  // without a log
  begin();
  EXPECT_EQ(logged({.operation = "prova"}, [] { return 8; }), 8);
  EXPECT_THROW(logged({.operation = "prova"}, [] { throw Error(13, "x"); }), Error);
  logFailure("altro", Error(14, "x"));
  EXPECT_THAT(texts(), ElementsAre("prova ms=0", "prova ms=0 errore=programma numero=13",
                                   "altro errore=programma numero=14"));
}

}  // namespace
}  // namespace cu
