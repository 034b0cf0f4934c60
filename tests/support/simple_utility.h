#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/date.h"
#include "base/text.h"
#include "controls/form.h"
#include "controls/frontend.h"
#include "controls/utility.h"

namespace cu::test {

// The suite's utilities for a given front end. A statement passed to fnAnsi2jet is recorded, and changed if
// the test sets a function.
class SimpleUtility : public UtilitaSuite {
 public:
  explicit SimpleUtility(FrontEnd& frontEnd) : frontEnd_(frontEnd) {}

  mutable std::vector<std::string> adapted;  // the texts passed to fnAnsi2jet
  std::function<std::string(std::string)> adapt;
  std::string cuFolder = "/cu";
  std::string documents = "/documenti";
  std::vector<std::string> prepared;  // names of the forms prepared
  std::vector<std::string> released;

  int question(const std::string& text, const std::string& title) override {
    return box(text, title, BoxIcon::Question, BoxButtons::YesNo, Answer::Yes);
  }
  void message(const std::string& text, const std::string& title, BoxIcon icon) override {
    box(text, title, icon, BoxButtons::Ok, Answer::Ok);
  }
  void refusedStart(const std::string& text, const std::string& title) override {
    box(text, title, BoxIcon::Stop, BoxButtons::Ok, Answer::Ok);
  }
  int confirm(const std::string& text, const std::string& title) override {
    return box(text, title, BoxIcon::Question, BoxButtons::OkCancel, Answer::Cancel);
  }

  std::string toText(const CellView& value) const override { return value.toText(); }
  double toDouble(const CellView& value) const override { return value.decimal().toDouble(); }
  std::int32_t toLong(const CellView& value) const override {
    return static_cast<std::int32_t>(value.integer());
  }
  std::int32_t toLong(std::string_view text) const override {
    return static_cast<std::int32_t>(leadingInteger(text));
  }

  std::string literal(const CellView& text) const override {
    return text.isNull() ? "NULL" : literal(std::string_view(text.toText()));
  }
  std::string literal(std::string_view text) const override {
    std::string quoted = "'";
    for (const char c : text) quoted.append(c == '\'' ? 2 : 1, c);
    return quoted + "'";
  }
  std::string literalNumber(const CellView& number) const override {
    return number.isNull() ? "NULL" : number.decimal().toText();
  }
  std::string literalId(const CellView& id) const override {
    return id.integer() == 0 ? "NULL" : fromInteger(id.integer());
  }
  std::string literalFlag(const CellView& flag) const override {
    return flag.isNull() ? "NULL" : flag.flag() ? "1" : "0";
  }
  std::string literalDate(std::string_view italianDate) const override {
    const auto date = Date::parseItalian(italianDate);
    return date ? "'" + date->toCompact() + "'" : "NULL";
  }
  std::string absolute(const CellView& number) const override {
    return number.isNull() ? "NULL" : number.decimal().abs().toText();
  }

  std::string defaultFolder() const override { return cuFolder; }
  std::string documentsFolder() const override { return documents; }
  void prepareForm(Form& form) override { prepared.push_back(form.name()); }
  void releaseForm(Form& form) override { released.push_back(form.name()); }

  std::string fnAnsi2jet(std::string statement) const override {
    adapted.push_back(statement);
    return adapt ? adapt(std::move(statement)) : statement;
  }

 private:
  int box(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons,
          Answer byDefault) {
    return static_cast<int>(frontEnd_.messageBox({text, title, icon, buttons, byDefault}));
  }

  FrontEnd& frontEnd_;
};

}  // namespace cu::test
