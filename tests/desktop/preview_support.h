// A document of as many pages as wanted in the window of a preview.

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPdfWriter>
#include <QScrollArea>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <memory>

#include "desktop/preview_dialog.h"
#include "desktop/screen_support.h"
#include "desktop/text.h"

namespace cu::test {

inline constexpr int kMany = 2100;
inline constexpr int kPatience = 60000;  // milliseconds

// Line of a page, from 0: names with accents, and the page's number.
inline QString lineOf(int page, int line) {
  if (line == 0) return QStringLiteral("Pagina numero %1").arg(page + 1);
  return page % 2 == 0 ? QStringLiteral("Calò Nicolò, perché") : QStringLiteral("Rossi Maria");
}

inline Preview documentIn(const QTemporaryDir& folder, int pages) {
  Preview preview;
  preview.title = "Conto individuale";
  preview.file = folder.filePath(QStringLiteral("pagine.pdf")).toStdString();
  QPdfWriter writer(desktop::shown(preview.file));
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setResolution(300);
  QPainter painter(&writer);
  for (int page = 0; page < pages; ++page) {
    if (page > 0) writer.newPage();
    std::string text;
    for (int line = 0; line < 2; ++line) {
      painter.drawText(200, 300 + line * 400, lineOf(page, line));
      text += lineOf(page, line).toStdString() + "\r\n";
    }
    preview.pages.push_back(text);
  }
  return preview;
}

// A preview with a window of its own, shown.
struct Previewed {
  explicit Previewed(int pages, bool withTexts = true) : preview(documentIn(folder, pages)) {
    QSettings().remove(QStringLiteral("anteprima"));
    if (!withTexts) preview.pages.clear();
    dialog = std::make_unique<desktop::PreviewDialog>(nullptr, preview);
    dialog->resize(900, 600);
    dialog->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    EXPECT_TRUE(drawn());
  }
  // Answers the question for a file with this one, and keeps the name that was suggested.
  void choose(const QString& path) {
    dialog->chooseFile = [this, path](const QString& name) {
      suggested = name;
      return path;
    };
  }
  bool drawn() {
    return QTest::qWaitFor([this] { return dialog->view().shows(dialog->page()); }, kPatience);
  }
  bool searched() {
    return QTest::qWaitFor([this] { return !dialog->found().running(); }, kPatience);
  }
  QLineEdit& box(const char* name) {
    for (auto* each : dialog->findChildren<QLineEdit*>()) {
      if (each->accessibleName() == QString::fromUtf8(name)) return *each;
    }
    throw std::runtime_error(name);
  }
  bool says(const QString& text) {
    const auto labels = dialog->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(), [&](const QLabel* each) {
      return each->text() == text || each->accessibleName() == text;
    });
  }
  void find(const char* text) {
    QLineEdit& wanted = box("Cerca nelle pagine");
    wanted.setFocus();
    wanted.selectAll();
    typeText(wanted, QString::fromUtf8(text));
    QTest::keyClick(&wanted, Qt::Key_Return);
  }
  void wheel(int steps) {
    QWidget& under = *dialog->view().findChild<QScrollArea*>()->viewport();
    const QPointF at = under.rect().center();
    QWheelEvent event(at, under.mapToGlobal(at), {}, {0, 120 * steps}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&under, &event);
  }

  QTemporaryDir folder;
  Preview preview;
  QString suggested;
  std::unique_ptr<desktop::PreviewDialog> dialog;
};

}  // namespace cu::test
