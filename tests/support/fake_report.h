#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "host/print_interrupted.h"
#include "host/report.h"

namespace cu::test {

// The calls of report engines and printer dialogs, in order, as "report.preview"; and their answers. A call
// whose name, without arguments, is in `failures` is recorded and then fails.
struct PrintJournal {
  std::vector<std::string> calls;
  std::map<std::string, Error> failures;
  std::string interrupted;  // the call in which the user interrupts the print
  bool cancelled = false;   // the printer dialog
  std::size_t ahead = 0;    // of a run's prints
  Connection* reportConnection = nullptr;
  Connection* dialogConnection = nullptr;

  void call(const std::string& name, const std::string& arguments = {}) {
    calls.push_back(arguments.empty() ? name : name + " " + arguments);
    if (name == interrupted) throw PrintInterrupted();
    const auto failure = failures.find(name);
    if (failure != failures.end()) throw Error(failure->second);
  }
  // The arguments of each call of that name.
  std::vector<std::string> arguments(const std::string& name) const {
    std::vector<std::string> found;
    for (const std::string& call : calls) {
      if (call.rfind(name + " ", 0) == 0) found.push_back(call.substr(name.size() + 1));
    }
    return found;
  }
};

class NotedPrintRun : public PrintRun {
 public:
  explicit NotedPrintRun(PrintJournal& journal) : journal_(journal) { journal_.call("run.begin"); }
  ~NotedPrintRun() override { journal_.calls.emplace_back("run.end"); }
  std::size_t ahead() const override { return journal_.ahead; }

 private:
  PrintJournal& journal_;
};

// Its failures are under "report.finish" and the path, so that one of many can fail.
class FakeBegunPrint : public BegunPrint {
 public:
  FakeBegunPrint(PrintJournal& journal, std::string path) : journal_(journal), path_(std::move(path)) {}
  void finish() override { journal_.call("report.finish " + path_); }

 private:
  PrintJournal& journal_;
  std::string path_;
};

class FakeReport : public ReportEngine {
 public:
  explicit FakeReport(PrintJournal& journal) : journal_(journal) {}
  ~FakeReport() override { journal_.calls.emplace_back("report.release"); }
  FakeReport(const FakeReport&) = delete;
  FakeReport& operator=(const FakeReport&) = delete;

  void setSession(std::int32_t idUtente, std::int32_t idAzienda, std::int32_t idFiliale) override {
    journal_.call("report.session",
                  fromInteger(idUtente) + " " + fromInteger(idAzienda) + " " + fromInteger(idFiliale));
  }
  void setConnection(Connection& connection) override {
    journal_.reportConnection = &connection;
    journal_.call("report.connection");
  }
  void setObjectType(std::int32_t type) override { journal_.call("report.objectType", fromInteger(type)); }
  void setSelectionFormula(const std::string& formula) override { journal_.call("report.formula", formula); }
  void setReportFile(const std::string& name) override { journal_.call("report.file", name); }
  void setDefinition(std::int32_t number) override {
    journal_.call("report.definition", fromInteger(number));
  }
  void setOutputMode(std::int32_t mode) override { journal_.call("report.outputMode", fromInteger(mode)); }
  void setOutputPath(const std::string& path) override {
    path_ = path;
    journal_.call("report.outputPath", path);
  }
  void setOutputFormat(std::int32_t format) override {
    journal_.call("report.outputFormat", fromInteger(format));
  }
  void setCopies(std::int32_t copies) override { journal_.call("report.copies", fromInteger(copies)); }
  void setPrinter(const std::string& name, const std::string& port) override {
    journal_.call("report.printer", name + " " + port);
  }
  void preview() override { journal_.call("report.preview"); }
  void print() override { journal_.call("report.print"); }
  void run(std::int32_t code) override { journal_.call("report.run", fromInteger(code)); }
  std::unique_ptr<BegunPrint> begin(std::int32_t code) override {
    journal_.call("report.begin", fromInteger(code));
    return std::make_unique<FakeBegunPrint>(journal_, path_);
  }

 private:
  PrintJournal& journal_;
  std::string path_;
};

class FakePrinterDialog : public PrinterDialog {
 public:
  explicit FakePrinterDialog(PrintJournal& journal) : journal_(journal) {}
  void setConnection(Connection& connection) override {
    journal_.dialogConnection = &connection;
    journal_.call("dialog.connection");
  }
  void setSession(std::int32_t idUtente) override { journal_.call("dialog.session", fromInteger(idUtente)); }
  void setDefinition(std::int32_t number) override {
    journal_.call("dialog.definition", fromInteger(number));
  }
  void setObjectType(std::int32_t type) override { journal_.call("dialog.objectType", fromInteger(type)); }
  void prepare() override { journal_.call("dialog.prepare"); }
  void show() override { journal_.call("dialog.show"); }
  bool cancelled() const override { return journal_.cancelled; }
  std::int32_t copies() const override { return 2; }
  std::string printer() const override { return "laser"; }
  std::string port() const override { return "LPT1"; }

 private:
  PrintJournal& journal_;
};

}  // namespace cu::test
