#pragma once

#include "controls/frontend.h"
#include "controls/utility.h"

namespace cu {

// The suite's application-wide object, using a front end. A number that does not fit 32 bits raises Error 6.
class UtilitaItaliana : public UtilitaSuite {
 public:
  UtilitaItaliana(FrontEnd& frontEnd, std::string documenti)
      : frontEnd_(frontEnd), documenti_(std::move(documenti)) {}

  int question(const std::string& text, const std::string& title) override;
  void message(const std::string& text, const std::string& title, BoxIcon icon) override;
  void refusedStart(const std::string& text, const std::string& title) override;
  int confirm(const std::string& text, const std::string& title) override;

  std::string toText(const CellView& value) const override { return value.toText(); }
  double toDouble(const CellView& value) const override { return value.decimal().toDouble(); }
  std::int32_t toLong(const CellView& value) const override;
  std::int32_t toLong(std::string_view text) const override;

  std::string literal(const CellView& text) const override;
  std::string literal(std::string_view text) const override;
  std::string literalNumber(const CellView& number) const override;
  std::string literalId(const CellView& id) const override;
  std::string literalFlag(const CellView& flag) const override;
  std::string literalDate(std::string_view italianDate) const override;
  std::string absolute(const CellView& number) const override;

  std::string defaultFolder() const override { return documenti_; }
  std::string documentsFolder() const override { return documenti_; }
  // The suite's common treatment of forms, and its adaptation of statements for older engines of the server,
  // have no counterpart here.
  void prepareForm(Form&) override {}
  void releaseForm(Form&) override {}
  std::string fnAnsi2jet(std::string statement) const override { return statement; }

 private:
  FrontEnd& frontEnd_;
  std::string documenti_;
};

}  // namespace cu
