#include "desktop/quick_search.h"

#include <QKeyEvent>

#include "desktop/first_size.h"
#include "desktop/follow_letters.h"
#include "desktop/grid_view.h"
#include "desktop/hint.h"
#include "desktop/look.h"
#include "desktop/own_colours.h"

namespace cu::desktop {
namespace {

constexpr int kPause = 120;  // milliseconds without a key, after which the search runs
constexpr int kWidestSearch = 320;

}  // namespace

QuickSearch::QuickSearch(GridView& grid, QWidget* parent)
    : QLineEdit(parent), grid_(grid), pause_(new QTimer(this)), note_(new QLabel(parent)) {
  setObjectName(QStringLiteral("ricercaRapida"));
  setAccessibleName(QStringLiteral("Cerca percipiente"));
  setHint(*this, QStringLiteral("Invio: il prossimo"));
  setClearButtonEnabled(true);
  followLetters(*this, [this] { setMaximumWidth(inLetters(kWidestSearch)); });
  pause_->setSingleShot(true);
  pause_->setInterval(kPause);
  connect(this, &QLineEdit::textEdited, this, [this] {
    tell({}, false);
    pause_->start();
  });
  connect(pause_, &QTimer::timeout, this, [this] { search(false); });
  note_->setObjectName(QStringLiteral("esitoRicerca"));
  note_->setTextFormat(Qt::PlainText);
  tell({}, false);
}

void QuickSearch::tell(const QString& note, bool warns) {
  const auto ink = [warns](QWidget& widget, QPalette::ColorRole role) {
    setOwnColours(widget, [warns, role](QPalette& palette) {
      if (warns) palette.setColor(role, look::warningInk());
    });
  };
  ink(*this, QPalette::Text);
  setAccessibleDescription(note);
  ink(*note_, QPalette::WindowText);
  note_->setText(note);
  note_->setVisible(!note.isEmpty());
}

void QuickSearch::search(bool following) {
  pause_->stop();
  const QString wanted = text().trimmed();
  if (wanted.isEmpty()) return;
  const RowFound found = grid_.search(wanted, following);
  if (found.row >= 0) {
    tell(found.by, false);
  } else {
    tell(grid_.arrangement().filters() ? QStringLiteral("Non trovato fra le righe in vista")
                                       : QStringLiteral("Non trovato"),
         true);
  }
}

void QuickSearch::escape() {
  pause_->stop();
  tell({}, false);
  if (text().isEmpty()) {
    grid_.table().setFocus(Qt::OtherFocusReason);
  } else {
    clear();
  }
}

// Neither key is passed to the form, where Esc would offer to leave the program.
void QuickSearch::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      search(true);
      event->accept();
      return;
    case Qt::Key_Escape:
      escape();
      event->accept();
      return;
    default:
      QLineEdit::keyPressEvent(event);
  }
}

}  // namespace cu::desktop
