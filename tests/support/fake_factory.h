#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "support/fake_log_grid.h"
#include "support/fake_report.h"
#include "support/fake_session.h"

namespace cu::test {

// Creates the wizard's surroundings and records, in order, the objects created and the calls of the entry.
class FakeFactory : public HostFactory {
 public:
  struct CurrencyAsked {
    Connection* connection;
    Date day;
    std::int32_t user;
    std::int32_t company;
  };
  struct Rebuild {
    DatabaseHost* database = nullptr;
    std::int32_t company = 0;
    bool flag = false;
    std::string filter;
    std::vector<std::int16_t> years;
    bool released = false;
  };

  explicit FakeFactory(FakeDatabase& database) : database_(database) {}

  std::vector<std::string> journal;
  std::function<void(FakeSession&)> prepareSession;
  std::map<std::int16_t, std::string> texts;
  Valuta currency = {1, "€", ",", "."};
  std::vector<CurrencyAsked> currencies;
  std::deque<Rebuild> rebuilds;
  std::function<void()> onRebuild;  // runs during the rebuild of the accounts
  std::size_t rebuiltAccounts = 0;
  std::deque<NotedLog> logs;
  PrintJournal printing;
  FakeSession* session = nullptr;  // the last one created
  int databaseAsked = 0;           // number of requests for a session's database, including failed ones

  std::unique_ptr<TestiSuite> createTesti() override {
    journal.push_back("testi");
    return std::make_unique<Testi>(*this);
  }
  std::unique_ptr<SessioneHost> createSessione() override {
    journal.push_back("sessione");
    auto made = std::make_unique<Sessione>(*this);
    if (prepareSession) prepareSession(*made);
    session = made.get();
    return made;
  }
  std::unique_ptr<ValutaHost> createValuta() override {
    journal.push_back("valuta");
    return std::make_unique<Valute>(*this);
  }
  std::unique_ptr<RicostruzioneConti> createRicostruzione() override {
    return std::make_unique<Ricostruzione>(*this, rebuilds.emplace_back());
  }
  std::unique_ptr<LogGrid> createLogGrid() override {
    return std::make_unique<FakeLogGrid>(logs.emplace_back());
  }
  std::unique_ptr<ReportEngine> createReport() override {
    printing.call("report.create");
    return std::make_unique<FakeReport>(printing);
  }
  std::unique_ptr<PrintRun> createPrintRun() override { return std::make_unique<NotedPrintRun>(printing); }
  std::unique_ptr<PrinterDialog> createPrinterDialog() override {
    return std::make_unique<FakePrinterDialog>(printing);
  }

 private:
  class Testi : public TestiSuite {
   public:
    explicit Testi(FakeFactory& owner) : owner_(owner) {}
    std::string text(std::int16_t number) override {
      owner_.journal.push_back("testo " + fromInteger(number));
      const auto found = owner_.texts.find(number);
      return found == owner_.texts.end() ? "testo " + fromInteger(number) : found->second;
    }

   private:
    FakeFactory& owner_;
  };

  class Sessione : public FakeSession {
   public:
    explicit Sessione(FakeFactory& owner) : FakeSession(owner.database_), owner_(owner) {}
    void start(std::int32_t window) override {
      owner_.journal.push_back("avvio");
      FakeSession::start(window);
    }
    DatabaseHost& database() override {
      ++owner_.databaseAsked;
      return FakeSession::database();
    }
    void setProgramName(const std::string& name) override {
      owner_.journal.push_back("programma " + name);
      FakeSession::setProgramName(name);
    }

   private:
    FakeFactory& owner_;
  };

  class Valute : public ValutaHost {
   public:
    explicit Valute(FakeFactory& owner) : owner_(owner) {}
    ~Valute() override { owner_.journal.push_back("valuta rilasciata"); }
    Valute(const Valute&) = delete;
    Valute& operator=(const Valute&) = delete;
    Valuta valuta(Connection& connection, Date day, std::int32_t user, std::int32_t company) override {
      owner_.currencies.push_back({&connection, day, user, company});
      return owner_.currency;
    }

   private:
    FakeFactory& owner_;
  };

  class Ricostruzione : public RicostruzioneConti {
   public:
    Ricostruzione(FakeFactory& owner, Rebuild& noted) : owner_(owner), noted_(noted) {}
    ~Ricostruzione() override { noted_.released = true; }
    Ricostruzione(const Ricostruzione&) = delete;
    Ricostruzione& operator=(const Ricostruzione&) = delete;
    void setDatabase(DatabaseHost& database) override { noted_.database = &database; }
    void setAzienda(std::int32_t idAzienda) override { noted_.company = idAzienda; }
    void setFlag(bool value) override { noted_.flag = value; }
    void setFiltro(const std::string& filtro) override { noted_.filter = filtro; }
    void ricostruisci(std::int16_t anno) override {
      noted_.years.push_back(anno);
      if (owner_.onRebuild) owner_.onRebuild();
    }
    std::size_t contiCambiati() const override { return owner_.rebuiltAccounts; }

   private:
    FakeFactory& owner_;
    Rebuild& noted_;
  };

  FakeDatabase& database_;
};

}  // namespace cu::test
