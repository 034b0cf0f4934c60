// How readable the texts of a window are, as they are drawn: for each, the contrast of the colour that covers
// most of its place with the one that differs most from it.

#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTableView>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>
#include <algorithm>
#include <cmath>
#include <string>

#include "desktop/grid_model.h"
#include "desktop/look.h"

namespace cu::test {

class DrawnTexts {
 public:
  static constexpr double kReadable = 4.5;
  static constexpr double kSeen = 3;  // marks that are no letters

  explicit DrawnTexts(QWidget& window) : window_(window) {
    // Strokes are wider than a point, so that some of each has the colour of the ink alone.
    constexpr int kFiner = 3;
    image_ = QImage(window.size() * kFiner, QImage::Format_RGB32);
    image_.setDevicePixelRatio(kFiner);
    window.render(&image_);
    for (QWidget* each : window.findChildren<QWidget*>()) {
      if (each->isVisible() && each->window() == &window) measure(*each);
    }
  }
  std::size_t count() const { return count_; }
  // A line for each text that cannot be read; empty for none.
  const std::string& unreadable() const { return unreadable_; }

 private:
  static double luminanceOf(QRgb colour) {
    const auto linear = [](int part) {
      const double share = part / 255.0;
      return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
  }

  void measure(QWidget& widget) {
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
      // A text in rich text may be a link alone, which has letters all the same.
      if (!label->text().trimmed().isEmpty()) text(widget, label->contentsRect(), label->text());
    } else if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
      measureButton(*button);
    } else if (const auto* const line = qobject_cast<const QLineEdit*>(&widget)) {
      const QString shown = line->text().isEmpty() ? line->placeholderText() : line->text();
      if (!shown.trimmed().isEmpty()) text(widget, line->rect().adjusted(5, 4, -5, -4), shown);
    } else if (const auto* const box = qobject_cast<const QComboBox*>(&widget)) {
      constexpr int kArrow = 24;
      if (!box->isEditable() && !box->currentText().isEmpty())
        text(widget, box->rect().adjusted(5, 4, -kArrow, -4), box->currentText());
    } else if (auto* const table = qobject_cast<QTableView*>(&widget)) {
      measureTable(*table);
    } else if (auto* const header = qobject_cast<QHeaderView*>(&widget)) {
      measureHeader(*header);
    } else if (auto* const list = qobject_cast<QListView*>(&widget)) {
      for (int row = 0; row < list->model()->rowCount(); ++row) item(*list, list->model()->index(row, 0));
    } else if (auto* const tree = qobject_cast<QTreeView*>(&widget)) {
      for (QModelIndex at = tree->indexAt({0, 0}); at.isValid(); at = tree->indexBelow(at)) item(*tree, at);
    } else if (const auto* const menu = qobject_cast<const QMenuBar*>(&widget)) {
      for (QAction* entry : menu->actions())
        text(widget, menu->actionGeometry(entry).adjusted(4, 2, -4, -2), entry->text());
    } else if (const auto* const tabs = qobject_cast<const QTabBar*>(&widget)) {
      for (int tab = 0; tab < tabs->count(); ++tab) {
        if (tabs->isTabVisible(tab) && tabs->rect().contains(tabs->tabRect(tab)))
          text(widget, tabs->tabRect(tab).adjusted(6, 6, -6, -4), tabs->tabText(tab));
      }
    } else if (qobject_cast<QTextEdit*>(&widget) != nullptr ||
               qobject_cast<QPlainTextEdit*>(&widget) != nullptr) {
      QWidget& page = *static_cast<QAbstractScrollArea&>(widget).viewport();
      text(page, page.rect().adjusted(4, 4, -4, -4), widget.accessibleName());
    }
  }

  void measureButton(const QAbstractButton& button) {
    if (button.text().trimmed().isEmpty()) return;
    QRect place = button.rect().adjusted(6, 5, -6, -5);
    // Pictures and marks have contrasts of their own.
    if (!button.icon().isNull()) place.setLeft(place.left() + button.iconSize().width() + 4);
    const bool marked = qobject_cast<const QCheckBox*>(&button) != nullptr ||
                        qobject_cast<const QRadioButton*>(&button) != nullptr;
    if (marked) {
      QStyleOptionButton option;
      option.initFrom(&button);
      place = button.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &button);
    }
    text(button, place, button.text());
  }

  // Between the lines of the current row.
  void item(const QAbstractItemView& view, const QModelIndex& index) {
    const QString shown = index.data().toString();
    const QRect place = view.visualRect(index).adjusted(2, 4, -2, -4);
    QWidget& page = *view.viewport();
    if (shown.trimmed().isEmpty() || place.isEmpty() || !page.rect().contains(place)) return;
    // Other columns may lie over it.
    if (window_.childAt(page.mapTo(&window_, place.center())) != &page) return;
    const auto* const lines = dynamic_cast<const desktop::GridModel*>(index.model());
    const bool mark = lines != nullptr && (lines->isFlag(index.column()) || lines->isMenu(index.column()));
    text(page, place, shown, mark ? kSeen : kReadable);
  }

  void measureTable(const QTableView& table) {
    if (table.model() == nullptr) return;
    const int first = std::max(0, table.rowAt(0));
    const int last = table.rowAt(table.viewport()->height() - 1);
    const int end = last < 0 ? table.model()->rowCount() : last + 1;
    for (int row = first; row < end; ++row) {
      for (int column = 0; column < table.model()->columnCount(); ++column) {
        if (!table.isColumnHidden(column)) item(table, table.model()->index(row, column));
      }
    }
  }

  void measureHeader(const QHeaderView& header) {
    if (header.model() == nullptr || header.orientation() != Qt::Horizontal) return;
    for (int section = 0; section < header.count(); ++section) {
      if (header.isSectionHidden(section)) continue;
      const QRect whole(header.sectionViewportPosition(section), 0, header.sectionSize(section),
                        header.height());
      const QRect place = whole.adjusted(3, 4, -3, -4) & header.viewport()->rect();
      const QString caption = header.model()->headerData(section, Qt::Horizontal).toString();
      if (place.width() < whole.width() / 2 || caption.trimmed().isEmpty()) continue;
      if (window_.childAt(header.viewport()->mapTo(&window_, place.center())) != header.viewport()) continue;
      text(*header.viewport(), place, caption);
    }
  }

  void text(const QWidget& on, const QRect& place, const QString& words, double least = kReadable) {
    const QRect seen = place & on.visibleRegion().boundingRect();
    if (seen.width() < 4 || seen.height() < 4) return;
    const double contrast = contrastAt(QRect(on.mapTo(&window_, seen.topLeft()), seen.size()));
    ++count_;
    if (contrast >= least) return;
    unreadable_ += "\n\"" + words.left(60).toStdString() + "\" (" + on.metaObject()->className() +
                   (on.isEnabled() ? "" : ", off") + "): " + std::to_string(contrast);
  }

  double contrastAt(const QRect& place) const {
    const int ratio = static_cast<int>(image_.devicePixelRatio());
    const QRect dots = QRect(place.topLeft() * ratio, place.size() * ratio) & image_.rect();
    QHash<QRgb, int> seen;
    // Of a whole page, some of its lines.
    constexpr int kMostDots = 120000;
    const int step = 1 + dots.width() * dots.height() / kMostDots;
    for (int y = dots.top(); y <= dots.bottom(); y += step) {
      const auto* const line = reinterpret_cast<const QRgb*>(image_.constScanLine(y));
      for (int x = dots.left(); x <= dots.right(); ++x) ++seen[line[x]];
    }
    const auto most = std::max_element(seen.begin(), seen.end());
    if (most == seen.end()) return 1;
    const double ground = luminanceOf(most.key());
    double best = 1;
    for (auto each = seen.begin(); each != seen.end(); ++each) {
      const double ink = luminanceOf(each.key());
      best = std::max(best, (std::max(ink, ground) + 0.05) / (std::min(ink, ground) + 0.05));
    }
    return best;
  }

  QWidget& window_;
  QImage image_;
  std::size_t count_ = 0;
  std::string unreadable_;
};

// Every text of an open window can be read in both looks, and there are at least so many.
inline void expectReadable(QWidget& window, std::size_t texts) {
  const auto before = desktop::look::colours();
  for (const auto colours : {desktop::look::Colours::Dark, desktop::look::Colours::Light}) {
    desktop::look::setColours(colours);
    QCoreApplication::processEvents();
    const DrawnTexts drawn(window);
    EXPECT_EQ(drawn.unreadable(), "") << (colours == desktop::look::Colours::Dark ? "dark: " : "light: ")
                                      << window.windowTitle().toStdString();
    EXPECT_GE(drawn.count(), texts) << window.windowTitle().toStdString();
  }
  desktop::look::setColours(before);
  QCoreApplication::processEvents();
}

}  // namespace cu::test
