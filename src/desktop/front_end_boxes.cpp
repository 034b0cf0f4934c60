// Boxes and dialogs answered by the user.

#include <QMessageBox>
#include <QPushButton>

#include "controls/form.h"
#include "desktop/dialogs.h"
#include "desktop/file_dialog.h"
#include "desktop/form_window.h"
#include "desktop/preview_dialog.h"
#include "desktop/qt_front_end.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

QMessageBox::Icon iconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::None:
      return QMessageBox::NoIcon;
    case BoxIcon::Stop:
      return QMessageBox::Critical;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Warning:
      return QMessageBox::Warning;
    case BoxIcon::Information:
      return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

const char* captionOf(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return "OK";
    case Answer::Cancel:
      return "Annulla";
    case Answer::Yes:
      return "&Sì";
    case Answer::No:
      return "&No";
  }
  return "OK";
}

std::vector<Answer> answersOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::Ok:
      return {Answer::Ok};
    case BoxButtons::OkCancel:
      return {Answer::Ok, Answer::Cancel};
    case BoxButtons::YesNo:
      return {Answer::Yes, Answer::No};
    case BoxButtons::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
  }
  return {Answer::Ok};
}

// The answer of the close box and Esc: the safe one, where there is one.
Answer escapeOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::Ok:
      return Answer::Ok;
    case BoxButtons::YesNo:
      return Answer::No;
    case BoxButtons::OkCancel:
    case BoxButtons::YesNoCancel:
      return Answer::Cancel;
  }
  return Answer::Cancel;
}

}  // namespace

Answer QtFrontEnd::messageBox(const MessageBox& box) {
  QMessageBox dialog(iconOf(box.icon), titled(box.title), QString(), QMessageBox::NoButton,
                     parentForDialog());
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(lines(box.text));
  dialog.setTextInteractionFlags(Qt::TextSelectableByMouse);
  dialog.setObjectName(QStringLiteral("messaggio"));
  std::vector<std::pair<QAbstractButton*, Answer>> made;
  for (const Answer answer : answersOf(box.buttons)) {
    QPushButton* const button =
        dialog.addButton(QString::fromUtf8(captionOf(answer)), QMessageBox::AcceptRole);
    made.emplace_back(button, answer);
    if (answer == box.byDefault) dialog.setDefaultButton(button);
    if (answer == escapeOf(box.buttons)) dialog.setEscapeButton(button);
  }
  // What stops one print of many may stop each of them, and would be told as many times.
  const bool endable = interruption_ != nullptr && box.buttons == BoxButtons::Ok && box.icon == BoxIcon::Stop;
  const QPushButton* const end =
      endable ? dialog.addButton(QStringLiteral("&Interrompi"), QMessageBox::RejectRole) : nullptr;
  run(dialog);
  if (end != nullptr && dialog.clickedButton() == end) {
    interruptionAsked_ = true;
    return Answer::Ok;
  }
  for (const auto& [button, answer] : made) {
    if (button == dialog.clickedButton()) return answer;
  }
  return escapeOf(box.buttons);
}

void QtFrontEnd::error(const Error& error) {
  QMessageBox dialog(QMessageBox::Critical, QStringLiteral("Errore %1").arg(error.number()), QString(),
                     QMessageBox::NoButton, parentForDialog());
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(lines(error.description()));
  dialog.setInformativeText(QStringLiteral("Errore %1").arg(error.number()));
  dialog.setTextInteractionFlags(Qt::TextSelectableByMouse);
  dialog.setObjectName(QStringLiteral("errore"));
  dialog.setProperty(kErrorNumber, error.number());
  dialog.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
  run(dialog);
}

// The window's own confirmation before data is discarded. The safe answer is the default.
bool QtFrontEnd::mayLose(const Form& form, const std::string& lost, const char* explanation,
                         const char* onCaption) {
  if (lost.empty()) return true;
  QMessageBox dialog(QMessageBox::Warning, shown(form.caption()), shown(lost), QMessageBox::NoButton,
                     parentForDialog());
  dialog.setTextFormat(Qt::PlainText);
  dialog.setInformativeText(QString::fromUtf8(explanation));
  dialog.setObjectName(QStringLiteral("conferma"));
  const QPushButton* const on = dialog.addButton(QString::fromUtf8(onCaption), QMessageBox::DestructiveRole);
  QPushButton* const stay = dialog.addButton(QStringLiteral("&Resta"), QMessageBox::RejectRole);
  dialog.setDefaultButton(stay);
  dialog.setEscapeButton(stay);
  run(dialog);
  return dialog.clickedButton() == on;
}

bool QtFrontEnd::mayClose(const Form& form) {
  if (form.stages().empty()) {
    return mayLose(form, form.unsavedWork(), "Chiudendo la finestra ora va perduto.",
                   "&Chiudi senza registrare");
  }
  return mayLose(
      form, form.unsavedWork(),
      "Chiudendo la finestra ora le correzioni vanno perdute. Quelle delle righe scelte si memorizzano "
      "tornando al primo passo con Indietro e rispondendo Sì.",
      "&Chiudi senza memorizzare");
}

// A button that discards all of the work closes the form.
bool QtFrontEnd::mayDrop(const Form& form, const std::string& lost) {
  if (form.stages().empty() && lost == form.unsavedWork()) return mayClose(form);
  return mayLose(form, lost, "Proseguendo ora va perduto.", "&Prosegui senza salvare");
}

std::string QtFrontEnd::chooseFolder(const std::string& title, const std::optional<std::string>& start) {
  FileDialog dialog(parentForDialog(), shown(title), shown(start.value_or(std::string())));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (run(dialog) != QDialog::Accepted) return {};
  return utf8(dialog.folder());
}

std::optional<PrinterChoice> QtFrontEnd::choosePrinter() {
  PrinterChooser dialog(parentForDialog());
  run(dialog);
  return dialog.choice();
}

std::optional<std::string> QtFrontEnd::chooseFileToSave(const std::string& title, const std::string& start,
                                                        const std::string& filter) {
  FileDialog dialog(parentForDialog(), shown(title), QString(), shown(filter));
  dialog.saves();
  if (!start.empty()) dialog.selectFile(shown(start));
  if (run(dialog) != QDialog::Accepted) return std::nullopt;
  return utf8(dialog.selectedFiles().value(0));
}

void QtFrontEnd::showLog(const LogTable& log) {
  LogDialog dialog(parentForDialog(), log);
  run(dialog);
}

void QtFrontEnd::preview(const Preview& preview) {
  PreviewDialog dialog(parentForDialog(), preview);
  run(dialog);
}

}  // namespace cu::desktop
