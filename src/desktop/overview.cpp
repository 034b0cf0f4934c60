#include "desktop/overview.h"

#include <QEvent>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "desktop/look.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kLineMargin = 14;
constexpr int kLinePadding = 5;
constexpr int kBetweenFacts = 5;

// A text that may break at the separators of a path too.
QString breakable(const QString& text) {
  QString result = text;
  for (const QChar mark : {u'/', u'\\', u'_'}) result.replace(mark, QString(mark) + QChar(0x200B));
  return result;
}

}  // namespace

WhereLine::WhereLine(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("dove"));
  setAccessibleName(QStringLiteral("Lavoro in corso"));
  setFixedHeight(fontMetrics().height() + 2 * kLinePadding);
}

void WhereLine::setFacts(const std::vector<Form::Fact>& facts) {
  setVisible(!facts.empty());
  if (facts == facts_) return;
  facts_ = facts;
  QStringList parts;
  for (const Form::Fact& fact : facts_) parts += shown(fact.name) + QStringLiteral(": ") + shown(fact.text);
  whole_ = parts.join(QStringLiteral("; "));
  setAccessibleDescription(whole_);
  setToolTip(dataTip(parts.join(u'\n')));
  update();
}

void WhereLine::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) setFixedHeight(fontMetrics().height() + 2 * kLinePadding);
}

QString WhereLine::words() const { return whole_; }

// The first fact, which can be long, gives way to the others.
void WhereLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), look::bandColor());
  painter.setPen(look::bandInk());
  QFont strong = font();
  strong.setBold(true);
  const QFontMetrics measure(strong);
  QString rest;
  for (std::size_t i = 1; i < facts_.size(); ++i) {
    const QString text = shown(facts_[i].text);
    // A number alone says nothing.
    const bool number = !text.isEmpty() && text.front().isDigit();
    rest += QStringLiteral("   |   ") + (number ? shown(facts_[i].name) + u' ' + text : text);
  }
  const int room = width() - 2 * kLineMargin;
  const int restWidth = std::min(fontMetrics().horizontalAdvance(rest), room * 2 / 3);
  const QString first =
      facts_.empty() ? QString()
                     : measure.elidedText(shown(facts_.front().text), Qt::ElideRight, room - restWidth);
  painter.setFont(strong);
  const QRect line(kLineMargin, 0, room, height());
  painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, first);
  painter.setFont(font());
  const QRect after = line.adjusted(measure.horizontalAdvance(first), 0, 0, 0);
  painter.drawText(after, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   fontMetrics().elidedText(rest, Qt::ElideRight, after.width()));
}

OutlookPanel::OutlookPanel(QWidget* parent)
    : Section(QStringLiteral("Che cosa farà Avvia"), parent), rows_(new QVBoxLayout(this)) {
  setObjectName(QStringLiteral("previsione"));
  setAccessibleName(title());
  rows_->setSpacing(0);
  rows_->addStretch(1);
}

void OutlookPanel::setFacts(const std::vector<Form::Fact>& facts) {
  setVisible(!facts.empty());
  if (facts == facts_) return;
  facts_ = facts;
  fill();
}

// The warnings' ink is the program's, and follows its colours.
bool OutlookPanel::event(QEvent* event) {
  // The new palette is on its way to the labels, which are replaced afterwards.
  if (event->type() == QEvent::PaletteChange) QTimer::singleShot(0, this, [this] { fill(); });
  return Section::event(event);
}

// The name above its value: the panel is narrow.
void OutlookPanel::fill() {
  for (QWidget* const row : std::exchange(shown_, {})) delete row;
  QStringList spoken;
  for (const Form::Fact& fact : facts_) {
    auto* const name = new QLabel(shown(fact.name), this);
    auto* const text = new QLabel(this);
    text->setTextFormat(Qt::PlainText);
    text->setText(breakable((fact.attention ? QStringLiteral("⚠ ") : QString()) + shown(fact.text)));
    text->setWordWrap(true);
    text->setContentsMargins(0, 0, 0, kBetweenFacts);
    text->setObjectName(QStringLiteral("previsione.") + shown(fact.name));
    text->setAccessibleName(shown(fact.name) + QStringLiteral(": ") + shown(fact.text));
    QFont strong = text->font();
    strong.setBold(true);
    text->setFont(strong);
    if (fact.attention) {
      QPalette palette = text->palette();
      palette.setColor(QPalette::WindowText, look::warningInk());
      text->setPalette(palette);
    }
    for (QLabel* const row : {name, text}) {
      rows_->insertWidget(rows_->count() - 1, row);
      shown_ += row;
    }
    spoken += text->accessibleName();
  }
  setAccessibleDescription(spoken.join(QStringLiteral("; ")));
}

QString OutlookPanel::text(const QString& name) const {
  for (const Form::Fact& fact : facts_) {
    if (shown(fact.name) == name) return shown(fact.text);
  }
  return {};
}

}  // namespace cu::desktop
