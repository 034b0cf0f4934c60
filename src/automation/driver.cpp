#include "automation/driver.h"

#include "automation/conversation.h"
#include "controls/menubar.h"

namespace cu {

Driver::Driver(std::istream& in, std::ostream& out)
    : conversation_(std::make_unique<Conversation>(in, out)) {}
Driver::~Driver() = default;

void Driver::setRunContext(ReadRunContext read) { conversation_->setRunContext(std::move(read)); }

Driver::Outcome Driver::enter(const std::function<void()>& entry) {
  bool entered = false;
  runEvent([&] {
    entry();
    entered = true;
  });
  if (!entered) return Outcome::EntryFailed;
  conversation_->serve([this] { return !conversation_->anyOpen(); });
  return Outcome::Ended;
}

Driver::Outcome Driver::drive(const std::function<void()>& entry) {
  Outcome outcome = Outcome::Ended;
  try {
    outcome = enter(entry);
    conversation_->forgetWindows();
  } catch (const EndOfInput&) {
    outcome = Outcome::InputEnded;
    unloadAll();
  }
  try {
    conversation_->end();
  } catch (const EndOfInput&) {
    // The reader of the last line is gone.
    return outcome;
  }
  return outcome;
}

void Driver::unloadAll() {
  while (Form* const form = conversation_->topmost()) {
    try {
      form->unload();
    } catch (const std::exception&) {
      // No reader is left for the error; the other forms are unloaded nevertheless.
    } catch (const EndOfInput&) {
      // The unload waited for the user.
    }
    conversation_->closed(*form);
  }
}

void Driver::show(Form& form) { conversation_->opened(form, false); }

void Driver::showModal(Form& form) {
  conversation_->opened(form, true);
  conversation_->serve([&] { return !conversation_->isOpen(form); });
}

void Driver::closed(Form& form) { conversation_->closed(form); }

Answer Driver::messageBox(const MessageBox& box) {
  Answer result = box.byDefault;
  conversation_->wait(messageModal(box, result));
  return result;
}

void Driver::error(const Error& error) { conversation_->wait(errorModal(error)); }

std::string Driver::chooseFolder(const std::string& title, const std::optional<std::string>& start) {
  std::string result;
  conversation_->wait(folderModal(title, start, result));
  return result;
}

std::optional<PrinterChoice> Driver::choosePrinter() {
  std::optional<PrinterChoice> result;
  conversation_->wait(printerModal(result));
  return result;
}

std::optional<std::string> Driver::chooseFileToSave(const std::string& title, const std::string& start,
                                                    const std::string& filter) {
  std::optional<std::string> result;
  conversation_->wait(saveModal(title, start, filter, result));
  return result;
}

void Driver::showLog(const LogTable& log) { conversation_->wait(logModal(log)); }

void Driver::preview(const Preview& preview) {
  conversation_->wait(previewModal(preview.title, preview.pages));
}

void Driver::popup(MenuBar& bar, const std::string& band) {
  std::string chosen;
  conversation_->wait(popupModal(bar, band, chosen));
  if (!chosen.empty()) runEvent([&] { bar.click(chosen); });
}

void Driver::help(const std::string& file, int command, std::int32_t context) {
  conversation_->effect("help", {{"file", file}, {"command", command}, {"context", context}});
}

void Driver::open(const std::string& path, const std::string& folder) {
  conversation_->effect("open", {{"path", path}, {"folder", folder}});
}

void Driver::viewText(const std::string& path) { conversation_->effect("viewer", path); }

void Driver::printed(const PrintNote& note) {
  conversation_->effect("printed", {{"kind", note.kind},
                                    {"report", note.report},
                                    {"formula", note.formula},
                                    {"code", note.code ? JsonObject(*note.code) : JsonObject()},
                                    {"file", note.file},
                                    {"printer", note.printer},
                                    {"copies", note.copies > 0 ? JsonObject(note.copies) : JsonObject()}});
}

void Driver::beep() { conversation_->effect("beep", 1); }
void Driver::setPointer(int pointer) { conversation_->setPointer(pointer); }
int Driver::pointer() const { return conversation_->pointer(); }

}  // namespace cu
