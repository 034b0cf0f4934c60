#include "faults/walker_support.h"

#include "controls/form.h"

namespace cu::test {

void Walker::showModal(Form& form) {
  const auto steps = steps_.find(form.name());
  if (steps != steps_.end()) steps->second(form);
  if (form.isOpen()) runEvent([&] { form.unload(); });
}

void Walker::closed(Form& form) {
  if (shown == &form) shown = nullptr;
}

Answer Walker::messageBox(const MessageBox& box) {
  switch (box.buttons) {
    case BoxButtons::Ok:
      messages.push_back(box.text);
      return Answer::Ok;
    case BoxButtons::OkCancel:
      warnings.push_back({box.text, passWarnings});
      return passWarnings ? Answer::Ok : Answer::Cancel;
    case BoxButtons::YesNo:
    case BoxButtons::YesNoCancel:
      return box.byDefault;
  }
  return box.byDefault;
}

std::string Walker::chooseFolder(const std::string&, const std::optional<std::string>&) { return folder; }

std::optional<std::string> Walker::chooseFileToSave(const std::string&, const std::string&,
                                                    const std::string&) {
  return savedFile;
}

}  // namespace cu::test
