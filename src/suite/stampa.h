#pragma once

#include <memory>

#include "controls/frontend.h"
#include "host/clock.h"
#include "host/report.h"

namespace cu {

// A print of the suite: determines the file name, runs the layout, and reports the print to the front end
// once, also when it fails. A preview is reported before it opens. A run without a file name prompts for one
// and adds a missing extension; code 2 instead uses an unused name in the documents folder. If the user
// cancels the prompt, kErrorPrintGivenUp is raised and no print is reported.
class StampaSuite : public ReportEngine {
 public:
  // Without an engine the print is only reported.
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
  // Nothing is reported before finish().
  std::unique_ptr<BegunPrint> begin(std::int32_t code) override;

 private:
  class Iniziata;
  void trovaNome(std::int32_t codice);
  std::string chiediNome(const std::string& estensione, const std::string& filtro);
  std::string nomeNuovo() const;     // a file name not yet in use
  std::string nomeProposto() const;  // from the report and the day, without extension
  template <class Impaginazione>
  void esegui(const Impaginazione& impaginazione);

  FrontEnd& frontEnd_;
  std::string documenti_;
  const Clock& orologio_;
  std::unique_ptr<ReportEngine> impaginatore_;
  PrintNote nota_;
};

}  // namespace cu
