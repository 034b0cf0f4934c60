#pragma once

#include "controls/frontend.h"
#include "host/report.h"

namespace cu {

// Shows the front end's printer dialog, which does not use connection, definition and object type.
class DialogoStampante : public PrinterDialog {
 public:
  explicit DialogoStampante(FrontEnd& frontEnd) : frontEnd_(frontEnd) {}
  void setConnection(Connection&) override {}
  void setSession(std::int32_t) override {}
  void setDefinition(std::int32_t) override {}
  void setObjectType(std::int32_t) override {}
  void prepare() override { scelta_.reset(); }
  void show() override { scelta_ = frontEnd_.choosePrinter(); }
  bool cancelled() const override { return !scelta_; }
  std::int32_t copies() const override { return scelta_ ? scelta_->copies : 0; }
  std::string printer() const override { return scelta_ ? scelta_->printer : std::string(); }
  std::string port() const override { return {}; }

 private:
  FrontEnd& frontEnd_;
  std::optional<PrinterChoice> scelta_;
};

}  // namespace cu
