#include "desktop/about.h"

#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

namespace cu::desktop {
namespace {

std::function<QString()>& aboutText() {
  static std::function<QString()> text;
  return text;
}

// As large as the text, where the screen has room.
QSize roomOf(const QPlainTextEdit& text, const QScreen& screen) {
  const QFontMetrics letters(text.font());
  const QSize whole = letters.size(Qt::TextExpandTabs, text.toPlainText());
  const int frame = 4 * letters.height();
  return (whole + QSize(frame, frame)).boundedTo(screen.availableSize() * 4 / 5);
}

}  // namespace

void setAbout(std::function<QString()> text) { aboutText() = std::move(text); }

void showAbout(QWidget* beside) {
  const QString said = aboutText() ? aboutText()() : QString();
  auto* const dialog = new QDialog(beside);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setObjectName(QStringLiteral("informazioni"));
  dialog->setWindowTitle(QStringLiteral("Informazioni"));
  auto* const text = new QPlainTextEdit(said, dialog);
  text->setReadOnly(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text->setTabChangesFocus(true);
  text->setAccessibleName(QStringLiteral("Informazioni sul programma"));
  auto* const buttons = new QDialogButtonBox(dialog);
  auto* const copy = buttons->addButton(QStringLiteral("&Copia"), QDialogButtonBox::ActionRole);
  auto* const close = buttons->addButton(QStringLiteral("C&hiudi"), QDialogButtonBox::RejectRole);
  copy->setAutoDefault(false);
  close->setDefault(true);
  auto* const column = new QVBoxLayout(dialog);
  column->addWidget(text);
  column->addWidget(buttons);
  QObject::connect(copy, &QPushButton::clicked, dialog,
                   [said] { QGuiApplication::clipboard()->setText(said); });
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  dialog->resize(roomOf(*text, *dialog->screen()) + QSize(0, buttons->sizeHint().height()));
  dialog->show();
  close->setFocus();
}

void addAboutMenu(QMenuBar& bar) {
  if (!aboutText()) return;
  QMenu* const menu = bar.addMenu(QStringLiteral("&?"));
  menu->menuAction()->setToolTip(QStringLiteral("Informazioni sul programma"));
  QObject::connect(menu->addAction(QStringLiteral("&Informazioni…")), &QAction::triggered, &bar,
                   [&bar] { showAbout(bar.window()); });
}

}  // namespace cu::desktop
