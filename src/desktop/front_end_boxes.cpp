// Boxes and dialogs that a person answers.

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/dialogs.h"
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

// What the close box and Esc stand for: the way back, where there is one.
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
  QMessageBox dialog(iconOf(box.icon), shown(box.title), QString(), QMessageBox::NoButton, parentForDialog());
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
  run(dialog);
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
  dialog.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
  run(dialog);
}

std::string QtFrontEnd::chooseFolder(const std::string& title, const std::optional<std::string>& start) {
  QFileDialog dialog(parentForDialog(), shown(title), shown(start.value_or(std::string())));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (run(dialog) != QDialog::Accepted) return {};
  return utf8(dialog.selectedFiles().value(0));
}

std::optional<PrinterChoice> QtFrontEnd::choosePrinter() {
  PrinterDialog dialog(parentForDialog());
  run(dialog);
  return dialog.choice();
}

std::optional<std::string> QtFrontEnd::chooseFileToSave(const std::string& title, const std::string& start,
                                                        const std::string& filter) {
  QFileDialog dialog(parentForDialog(), shown(title), QString(), shown(filter));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
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
