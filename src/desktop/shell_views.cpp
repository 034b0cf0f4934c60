#include "desktop/shell_views.h"

#include <QAccessibleWidget>
#include <QMenu>
#include <QPainter>

#include "desktop/about.h"
#include "desktop/first_size.h"
#include "desktop/form_window.h"
#include "desktop/look.h"
#include "desktop/look_menu.h"
#include "desktop/qt_front_end.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kWide = 216;
constexpr int kNarrow = 52;
constexpr int kBandMargin = 14;
constexpr int kDisc = 26;

// The leading mark represents a line of the list.
QString titleOf(const SideBand::Item& item) { return shown(item.title).remove(QStringLiteral("- ")); }

// Draws the steps: completed, present, future.
class BandPainter : public QWidget {
 public:
  BandPainter(const SideBand& band, QWidget* parent) : QWidget(parent), band_(band) { setNarrow(false); }

  void setNarrow(bool narrow) {
    narrow_ = narrow;
    setFixedWidth(narrow ? kNarrow : inLetters(kWide));
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), look::bandColor());
    int top = 2 * kBandMargin;
    int number = 1;
    for (const SideBand::Item& item : band_.items()) {
      top = paintItem(painter, item, number, top);
      ++number;
    }
  }

 private:
  int paintItem(QPainter& painter, const SideBand::Item& item, int number, int top) {
    const bool present = number == band_.selected();
    const QColor ink = look::bandInk();
    const QRect disc(narrow_ ? (kNarrow - kDisc) / 2 : kBandMargin, top, kDisc, kDisc);
    painter.setPen(QPen(ink, 1.5));
    painter.setBrush(present ? QBrush(ink) : Qt::NoBrush);
    painter.drawEllipse(disc);
    painter.setPen(present ? look::bandColor() : ink);
    QFont font = this->font();
    font.setBold(present);
    painter.setFont(font);
    painter.drawText(disc, Qt::AlignCenter, QString::number(number));
    if (narrow_) return top + kDisc + kBandMargin;

    painter.setPen(ink);
    const QString title = titleOf(item);
    const QRect room(disc.right() + 10, top - 2, width() - disc.right() - 10 - kBandMargin, 1000);
    QRect used;
    painter.drawText(room, Qt::TextWordWrap, title, &used);
    font.setBold(false);
    painter.setFont(font);
    QColor soft = ink;
    soft.setAlphaF(present ? 0.95F : 0.75F);
    painter.setPen(soft);
    QRect usedBelow;
    painter.drawText(room.adjusted(0, used.height() + 1, 0, 0), Qt::TextWordWrap, shown(item.description),
                     &usedBelow);
    return std::max(disc.bottom(), usedBelow.bottom()) + 2 * kBandMargin;
  }

  const SideBand& band_;
  bool narrow_ = false;
};

// "Control+G" in the desktop's notation.
QString shortcutText(const std::string& shortcut) {
  return shown(shortcut).replace(QStringLiteral("Control"), QStringLiteral("Ctrl"));
}

bool offered(const MenuBar& bar, const MenuBar::Tool& tool) { return bar.toolAvailable(tool) && !tool.inert; }

// The captions of the bands in the bar; their own names are for the program only.
QString bandTitle(const std::string& band) {
  return band == "PopDettaglio" ? QStringLiteral("&Riga") : QStringLiteral("&Comandi");
}

}  // namespace

BandView::BandView(FormWindow& window, SideBand& band, QWidget* parent) : View(window, band), band_(band) {
  setWidget(new BandPainter(band, parent));
}

void BandView::setNarrow(bool narrow) { static_cast<BandPainter*>(widget())->setNarrow(narrow); }

void BandView::refresh() {
  QStringList steps;
  int number = 1;
  for (const SideBand::Item& item : band_.items()) {
    QString step = titleOf(item) + QStringLiteral(", ") + shown(item.description);
    if (number++ == band_.selected()) step += QStringLiteral(" (passo corrente)");
    steps += step;
  }
  widget()->setAccessibleName(QStringLiteral("Passi"));
  widget()->setAccessibleDescription(steps.join(QStringLiteral("; ")));
  widget()->setToolTip(steps.join(u'\n'));
  widget()->update();
}

void fillMenu(QMenu& menu, const MenuBar& bar, const std::string& band,
              const std::function<void(const std::string&)>& choose) {
  for (const MenuBar::Tool& tool : bar.tools()) {
    if (tool.band != band) continue;
    QString text = shown(tool.caption);
    // The form handles the key itself; the menu only shows it.
    if (!tool.shortcut.empty()) text += u'\t' + shortcutText(tool.shortcut);
    QAction* const entry = menu.addAction(text);
    entry->setEnabled(offered(bar, tool));
    entry->setObjectName(shown(tool.key));
    QObject::connect(entry, &QAction::triggered, &menu, [choose, key = tool.key] { choose(key); });
  }
}

MenuView::MenuView(FormWindow& window, MenuBar& bar, QWidget* parent)
    : View(window, bar), tools_(bar), widgetBar_(new QMenuBar(parent)) {
  widgetBar_->setNativeMenuBar(false);
  setWidget(widgetBar_);
}

void MenuView::refresh() {
  widgetBar_->clear();
  widgetBar_->setAccessibleName(QStringLiteral("Menu"));
  for (const std::string& band : tools_.bands()) {
    QMenu* const menu = widgetBar_->addMenu(bandTitle(band));
    fillMenu(*menu, tools_, band,
             [this](const std::string& key) { act([this, key] { tools_.click(key); }); });
  }
  // Of the window, and not of the form.
  QtFrontEnd& frontEnd = window().frontEnd();
  if (!frontEnd.ownTools.empty() && !window().form().stages().empty()) {
    QMenu* const menu = widgetBar_->addMenu(QStringLiteral("&Strumenti"));
    for (const QtFrontEnd::OwnTool& tool : frontEnd.ownTools) {
      QObject::connect(menu->addAction(tool.caption), &QAction::triggered, menu,
                       [&frontEnd, tool] { frontEnd.use(tool); });
    }
  }
  fillLookMenu(*widgetBar_->addMenu(QStringLiteral("Aspett&o")));
  addAboutMenu(*widgetBar_);
}

// Tools are not notified when a step or a row enables or disables them.
void MenuView::afterEvent() {
  if (!live()) return;
  for (const MenuBar::Tool& tool : tools_.tools()) {
    auto* const entry = widgetBar_->findChild<QAction*>(shown(tool.key));
    if (entry != nullptr) entry->setEnabled(offered(tools_, tool));
  }
}

}  // namespace cu::desktop
