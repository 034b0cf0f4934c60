#pragma once

#include <string>

#include "host/conversioni.h"

namespace cu {

class Form;

enum class BoxIcon { None, Stop, Question, Warning, Information };

// The suite's application-wide object as forms see it: boxes, and the common treatment of forms.
class UtilitaSuite : public Conversioni {
 public:
  static constexpr int kYes = 6;
  virtual int question(const std::string& text,
                       const std::string& title) = 0;  // Yes and No; returns 6 for Yes
  // Reports a rejection; OK and the warning icon by default.
  virtual void message(const std::string& text, const std::string& title,
                       BoxIcon icon = BoxIcon::Warning) = 0;
  virtual void refusedStart(const std::string& text, const std::string& title) = 0;
  // OK and Cancel, question icon, Cancel is the default; returns 2 for Cancel.
  static constexpr int kCancel = 2;
  virtual int confirm(const std::string& text, const std::string& title) = 0;

  virtual void prepareForm(Form& form) = 0;  // the suite's common treatment of forms
  virtual void releaseForm(Form& form) = 0;
};

}  // namespace cu
