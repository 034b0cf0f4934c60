#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/database.h"
#include "host/session.h"
#include "support/fake_connection.h"

namespace cu::test {

// The session's database object over three recording connections.
class FakeDatabase : public DatabaseHost {
 public:
  FakeConnection main;
  FakeConnection internal;
  FakeConnection own;
  Connection& connection() override { return main; }
  Connection& internalConnection() override { return internal; }
  Connection& ownConnection() override { return own; }
  std::unique_ptr<Rowset> CreateRowset() override { return std::make_unique<ConnectionRowset>(main); }
};

// A session whose answers are plain members; the database is external, because it outlives the session.
class FakeSession : public SessioneHost {
 public:
  explicit FakeSession(FakeDatabase& database) : database_(database) {}

  bool refuses = false;  // whether the start is rejected
  std::vector<ProcessoHost> processes = {{"Wizard stampa", 247}};
  std::string applicationTitle = "Quadrivio";
  std::string section = "Sessione12";
  std::string folderOfHelp = "/guida";
  std::string programName;
  std::int32_t user = 12;
  std::int32_t company = 1;
  std::int32_t branch = 1;
  std::int32_t context = 100;
  int starts = 0;

  void start(std::int32_t) override {
    ++starts;
    if (refuses) throw Error(kErrorSessionRefused, "La sessione non può essere avviata.");
  }
  std::string settingsSection() override { return section; }
  void setProgramName(const std::string& name) override { programName = name; }
  std::int32_t helpContext() override { return context; }
  std::int32_t IDUtente() override { return user; }
  const std::vector<ProcessoHost>& processi() override { return processes; }
  DatabaseHost& database() override {
    if (refuses) throw Error(kErrorSessionRefused, "La sessione non è avviata.");
    return database_;
  }
  std::string title() override { return applicationTitle; }
  std::int32_t IDFiliale() override { return branch; }
  std::int32_t IDAzienda() override { return company; }
  std::string helpFolder() override { return folderOfHelp; }

 private:
  FakeDatabase& database_;
};

class FakeTesti : public TestiSuite {
 public:
  std::map<std::int16_t, std::string> texts;
  std::string text(std::int16_t number) override {
    const auto found = texts.find(number);
    return found == texts.end() ? "testo " + std::to_string(number) : found->second;
  }
};

}  // namespace cu::test
