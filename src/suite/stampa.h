#pragma once

#include <memory>

#include "controls/frontend.h"
#include "host/clock.h"
#include "host/report.h"

namespace cu {

// A print of the suite: finds the name of its file, has it laid out, and reports it to the front end once,
// also when it fails. A preview is reported before it opens. A run without a name asks for one, whose ending
// is added where it has none; but for code 2, whose file goes to the documents folder under a name that no
// file there bears yet. A person who gives no name raises kErrorPrintGivenUp: that is no print and is not
// reported.
class StampaSuite : public ReportEngine {
 public:
  // Without an engine to lay it out the print is only told.
  StampaSuite(FrontEnd& frontEnd, std::string documenti, const Clock& orologio,
              std::unique_ptr<ReportEngine> impaginatore)
      : frontEnd_(frontEnd),
        documenti_(std::move(documenti)),
        orologio_(orologio),
        impaginatore_(std::move(impaginatore)) {}

  void setSession(std::int32_t idUtente, std::int32_t idAzienda, std::int32_t idFiliale) override;
  void setConnection(Connection& connection) override;
  void setObjectType(std::int32_t type) override;
  void setSelectionFormula(const std::string& formula) override;
  void setReportFile(const std::string& name) override;
  void setDefinition(std::int32_t number) override;
  void setOutputMode(std::int32_t mode) override;
  void setOutputPath(const std::string& path) override;
  void setOutputFormat(std::int32_t format) override;
  void setCopies(std::int32_t copies) override;
  void setPrinter(const std::string& name, const std::string& port) override;
  void preview() override;
  void print() override;
  void run(std::int32_t code) override;

 private:
  void trovaNome(std::int32_t codice);
  std::string chiediNome(const std::string& estensione, const std::string& filtro);
  std::string nomeNuovo() const;     // of a file that is not there yet
  std::string nomeProposto() const;  // the report's and the day's, without an ending
  template <class Impaginazione>
  void esegui(const Impaginazione& impaginazione);

  FrontEnd& frontEnd_;
  std::string documenti_;
  const Clock& orologio_;
  std::unique_ptr<ReportEngine> impaginatore_;
  PrintNote nota_;
};

}  // namespace cu
