#pragma once

#include <QByteArray>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "host/filesystem.h"
#include "host/report.h"
#include "reporting/layout.h"

namespace cu::reporting {

class LayoutThreads;

// All that the layout of one report needs, read from the database: a thread can lay it out while the
// connection is used for the next one. It reports no progress, as the step of a longer work that it is.
struct ReadReport {
  ReadReport(const ReportDefinition& reportDefinition, const modello::Modello& ministerialForm,
             Connection& connection, const std::string& statement);

  const ReportDefinition& definition;
  const modello::Modello& form;
  Rows rows;
  std::vector<std::unique_ptr<Rows>> modules;  // of the forms, by certificate; null for an annulment
  Company company;
  QString selection;
  Date today;
  TimeOfDay now;
};

// A PDF that is laid out in one of the threads and written by finish().
class BegunPdf : public BegunPrint {
 public:
  // `files` and the threads outlive it.
  BegunPdf(FileSystem& files, std::string path, LayoutThreads& threads, std::shared_ptr<ReadReport> read,
           Connection& connection, const std::string& creator);
  void finish() override;

 private:
  FileSystem& files_;
  std::string path_;
  std::future<QByteArray> pdf_;
};

}  // namespace cu::reporting
