#include "desktop/list_views.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QTabBar>
#include <functional>
#include <utility>

#include "desktop/edit_view.h"
#include "desktop/text.h"
#include "desktop/whole_text.h"

namespace cu::desktop {
namespace {

// The output kinds 1 to 6.
constexpr const char* kOutputs[] = {
    "Anteprima",
    "Stampante",
    "File PDF",
    "Tabella per foglio elettronico",
    "PDF nella cartella dei documenti",
    "File PDF accanto al file telematico",
};

// The key Delete clears the choice.
class Combo : public QComboBox {
 public:
  using QComboBox::QComboBox;
  std::function<void()> onDelete;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Delete && onDelete) {
      onDelete();
      return;
    }
    QComboBox::keyPressEvent(event);
  }
};

// A hidden tab takes no space.
class Bar : public QTabBar {
 public:
  using QTabBar::QTabBar;
  QSize sizeHint() const override {
    QSize size(0, QTabBar::sizeHint().height());
    for (int i = 0; i < count(); ++i) {
      if (isTabVisible(i)) size.rwidth() += tabSizeHint(i).width();
    }
    return size;
  }
  QSize minimumSizeHint() const override { return sizeHint(); }
};

void fit(QComboBox& combo) {
  combo.setSizeAdjustPolicy(QComboBox::AdjustToContents);
  combo.setMinimumContentsLength(6);
}

}  // namespace

ListView::ListView(FormWindow& window, ListBox& list, QWidget* parent)
    : View(window, list), list_(list), combo_(new Combo(parent)) {
  setWidget(combo_);
  static_cast<Combo*>(combo_)->onDelete = [this] { act([this] { list_.setIndex(-1); }); };
  fit(*combo_);
  tellWhole(*combo_);
  combo_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  QObject::connect(combo_, &QComboBox::activated, combo_,
                   [this](int chosen) { act([this, chosen] { list_.setIndex(chosen); }); });
}

QList<QWidget*> ListView::focusWidgets() const { return {combo_}; }

void ListView::refresh() {
  const auto count = static_cast<int>(list_.entries().size());
  bool same = combo_->count() == count;
  for (int i = 0; same && i < count; ++i) {
    same = combo_->itemText(i) == shown(list_.entries()[static_cast<std::size_t>(i)].text);
  }
  if (!same) {
    combo_->clear();
    for (const ListBox::Entry& entry : list_.entries()) combo_->addItem(shown(entry.text));
  }
  if (combo_->currentIndex() != list_.index()) combo_->setCurrentIndex(list_.index());
  paintBackground(*combo_, list_.background());
}

TabsView::TabsView(FormWindow& window, Tabs& tabs, QWidget* parent)
    : View(window, tabs), tabs_(tabs), bar_(new Bar(parent)) {
  setWidget(bar_);
  bar_->setExpanding(false);
  bar_->setDrawBase(true);
  for (const Tabs::Tab& tab : tabs.tabs()) bar_->addTab(shown(tab.caption));
  QObject::connect(bar_, &QTabBar::currentChanged, bar_, [this](int now) {
    if (live() && now + 1 != tabs_.selected()) act([this, now] { tabs_.select(now + 1); });
  });
  const std::pair<QKeySequence::StandardKey, int> keys[] = {{QKeySequence::NextChild, 1},
                                                            {QKeySequence::PreviousChild, -1}};
  for (const auto& [key, step] : keys) {
    auto* const pressed = new QShortcut(bar_);
    pressed->setKeys(key);
    QObject::connect(pressed, &QShortcut::activated, bar_, [this, step = step] { turn(step); });
  }
}

// A hidden tab is passed over.
void TabsView::turn(int step) {
  int next = bar_->currentIndex();
  do {
    next = (next + step + bar_->count()) % bar_->count();
  } while (!bar_->isTabVisible(next));
  bar_->setCurrentIndex(next);
}

QList<QWidget*> TabsView::focusWidgets() const { return {bar_}; }

void TabsView::refresh() {
  const QSignalBlocker quiet(bar_);
  for (int i = 0; i < bar_->count(); ++i) {
    bar_->setTabVisible(i, tabs_.tabs()[static_cast<std::size_t>(i)].visible);
  }
  bar_->setCurrentIndex(tabs_.selected() - 1);
  bar_->updateGeometry();
}

PrintView::PrintView(FormWindow& window, PrintControl& print, QWidget* parent)
    : View(window, print),
      print_(print),
      reports_(new QComboBox(parent)),
      outputs_(new QComboBox(parent)),
      note_(new QLabel(parent)) {
  auto* around = new QWidget(parent);
  auto* form = new QFormLayout(around);
  form->setContentsMargins(0, 0, 0, 0);
  form->setRowWrapPolicy(QFormLayout::WrapLongRows);
  form->addRow(QStringLiteral("Stam&pa"), reports_);
  form->addRow(QStringLiteral("&Destinazione"), outputs_);
  form->addRow(note_);
  note_->setWordWrap(true);
  setWidget(around);
  fit(*reports_);
  fit(*outputs_);
  for (const char* output : kOutputs) outputs_->addItem(QString::fromUtf8(output));
  QObject::connect(reports_, &QComboBox::activated, reports_, [this](int chosen) {
    act([this, chosen] { print_.chooseReport(print_.reports()[static_cast<std::size_t>(chosen)].name); });
  });
  QObject::connect(outputs_, &QComboBox::activated, outputs_,
                   [this](int chosen) { act([this, chosen] { print_.setOutput(chosen + 1); }); });
}

QList<QWidget*> PrintView::focusWidgets() const { return {reports_, outputs_}; }

void PrintView::setSpokenName(const QString&) {
  View::setSpokenName(QStringLiteral("Stampa"));
  outputs_->setAccessibleName(QStringLiteral("Destinazione della stampa"));
}

void PrintView::refresh() {
  const auto& reports = print_.reports();
  bool same = reports_->count() == static_cast<int>(reports.size());
  for (std::size_t i = 0; same && i < reports.size(); ++i) {
    same = reports_->itemData(static_cast<int>(i)).toString() == shown(reports[i].name);
  }
  if (!same) {
    reports_->clear();
    for (const ReportInfo& report : reports)
      reports_->addItem(shown(reportTitle(report.name)), shown(report.name));
  }
  reports_->setCurrentIndex(reports_->findData(shown(print_.report())));
  outputs_->setCurrentIndex(print_.output() - 1);
  reports_->setEnabled(print_.choice());
  outputs_->setEnabled(print_.choice());
  // Where a report can be chosen, the print style of the forms is irrelevant.
  const bool together = print_.toFile() && !print_.choice();
  note_->setText(together ? QStringLiteral("Una sola stampa per tutti i percipienti.") : QString());
  note_->setVisible(together);
}

}  // namespace cu::desktop
