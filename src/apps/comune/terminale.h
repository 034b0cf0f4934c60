#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "apps/comune/stampe_annotate.h"
#include "controls/frontend.h"
#include "suite/logged_phases.h"

namespace cu {

// The front end of a command without forms: collects the messages for the user, which the command writes. No
// form is shown; an attempt to show one is an error of the program.
class Terminale : public FrontEnd {
 public:
  // A warning (a box with OK and Cancel) is confirmed only if this is set.
  bool passaAvvisi = false;
  std::optional<std::string> fileDaSalvare;  // the answer of the file name dialog

  struct Avviso {
    std::string testo;
    bool passato;
  };
  std::vector<std::string> messaggi;  // rejections, and errors that no handler caught
  std::vector<Avviso> avvisi;
  std::vector<LogTable> registri;
  StampeAnnotate stampe;
  std::function<void(const char* che, std::size_t fatto, std::size_t totale)> avanzamento;

  // Stores a warning, and returns whether it is confirmed.
  bool conferma(const std::string& testo);

  void show(Form& form) override;
  void showModal(Form& form) override;
  void closed(Form&) override {}
  Answer messageBox(const MessageBox& box) override;
  void error(const Error& error) override;
  std::string chooseFolder(const std::string&, const std::optional<std::string>&) override { return {}; }
  std::optional<PrinterChoice> choosePrinter() override { return std::nullopt; }
  std::optional<std::string> chooseFileToSave(const std::string&, const std::string&,
                                              const std::string&) override {
    return fileDaSalvare;
  }
  void showLog(const LogTable& log) override { registri.push_back(log); }
  void preview(const Preview&) override {}
  void popup(MenuBar&, const std::string&) override {}
  void help(const std::string&, int, std::int32_t) override {}
  void open(const std::string&, const std::string&) override {}
  void viewText(const std::string&) override {}
  void printed(const PrintNote& note) override { stampe.annota(note); }
  void beep() override {}
  void progress(const char* what, std::size_t done, std::size_t total) override {
    fasi_.progress(what, done);
    if (avanzamento) avanzamento(what, done, total);
  }
  void setPointer(int pointer) override {
    puntatore_ = pointer;
    if (pointer == kPointerDefault) fasi_.end();
  }
  int pointer() const override { return puntatore_; }

 private:
  int puntatore_ = kPointerDefault;
  LoggedPhases fasi_;
};

}  // namespace cu
