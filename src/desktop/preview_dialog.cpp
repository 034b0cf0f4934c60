#include "desktop/preview_dialog.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QSettings>
#include <QShortcut>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>

#include "desktop/elided_line.h"
#include "desktop/file_dialog.h"
#include "desktop/first_size.h"
#include "desktop/flow_row.h"
#include "desktop/follow_letters.h"
#include "desktop/look.h"
#include "desktop/own_colours.h"
#include "desktop/page_output.h"
#include "desktop/print_dialog.h"
#include "desktop/text.h"
#include "desktop/thumbnails.h"

namespace cu::desktop {
namespace {

constexpr int kTypingPause = 250;  // milliseconds without a key, after which the search begins
constexpr const char* kFolder = "anteprima/cartella";
constexpr const char* kThumbnails = "anteprima/miniature";

QString fileFromUser(QWidget* parent, const QString& suggested) {
  QSettings settings;
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  FileDialog dialog(parent, QStringLiteral("Salva l'anteprima"),
                    settings.value(QLatin1String(kFolder), documents).toString(),
                    QStringLiteral("File PDF (*.pdf)"));
  dialog.saves();
  dialog.selectFile(suggested);
  if (dialog.exec() != QDialog::Accepted) return {};
  settings.setValue(QLatin1String(kFolder), dialog.directory().absolutePath());
  return dialog.selectedFiles().value(0);
}

// The line of what was found or made. Its place does not depend on the words.
class ToldLine : public ElidedLine {
 public:
  explicit ToldLine(QWidget* parent) : ElidedLine(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  }
  QSize sizeHint() const override {
    const int usual = fontMetrics().horizontalAdvance(QStringLiteral("Nessuna corrispondenza"));
    return {usual + 4, ElidedLine::sizeHint().height()};
  }
};

void tellError(QWidget* parent, const QString& error) {
  QMessageBox box(QMessageBox::Warning, QStringLiteral("Anteprima"), QString(), QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.setText(error);
  box.exec();
}

}  // namespace

PreviewDialog::PreviewDialog(QWidget* parent, const Preview& preview)
    : QDialog(parent),
      title_(shown(preview.title) + (preview.whole ? QString() : QStringLiteral(" (parziale)"))),
      pages_(new Pages(QStringLiteral("Pagina"), this)),
      search_(*pages_),
      thumbnails_(new Thumbnails(*pages_, this)),
      number_(new QLineEdit(this)),
      place_(new QLabel(this)),
      wanted_(new QLineEdit(this)),
      told_(new ToldLine(this)),
      pause_(new QTimer(this)) {
  setWindowTitle(title_.isEmpty() ? QStringLiteral("Anteprima") : QStringLiteral("Anteprima - ") + title_);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  chooseFile = [this](const QString& suggested) { return fileFromUser(this, suggested); };
  choosePrinter = [this](QPrinter& printer) {
    PrintDialog dialog(this, pages(), page(), [this] { return chooseFile(pdfNameOf(title_)); });
    if (dialog.exec() != QDialog::Accepted) return false;
    dialog.setUp(printer);
    return true;
  };

  auto* column = new QVBoxLayout(this);
  auto* row = new FlowRow;
  auto* second = new FlowRow;
  auto* middle = new QHBoxLayout;
  constexpr int kGap = 6;
  for (FlowRow* each : {row, second}) each->setGap(kGap);
  if (!preview.whole) column->addWidget(noteOfPart(preview.pages.size()));
  column->addLayout(row);
  column->addLayout(second);
  column->addLayout(middle, 1);
  layOutTurning(*row);
  layOutSearch(*second);
  layOutOutput(*second);
  middle->addWidget(thumbnails_);
  middle->addWidget(pages_, 1);
  addKeys();
  thumbnails_->hide();
  pages_->changed = [this] { tell(); };
  pages_->renewed = [this] {
    thumbnails_->renew();
    showThumbnails(QSettings().value(QLatin1String(kThumbnails), true).toBool());
    if (!search_.text().isEmpty()) search_.again();
    tell();
  };
  search_.changed = [this] { tellFound(); };
  pages_->open(shown(preview.file), preview.pages);
  resize(firstSize(*this, {1060, 1080}));
  pages_->setFocus();
  tell();
  tellFound();
}

PreviewDialog::~PreviewDialog() {
  pages_->changed = nullptr;
  pages_->renewed = nullptr;
}

QLabel* PreviewDialog::noteOfPart(std::size_t pages) {
  auto* const note = new QLabel(
      (pages == 1
           ? QStringLiteral("L'anteprima è stata interrotta: questa è la prima pagina, ")
           : QStringLiteral("L'anteprima è stata interrotta: queste sono le prime %L1 pagine, ").arg(pages)) +
          QStringLiteral("non tutta la stampa."),
      this);
  note->setObjectName(QStringLiteral("parziale"));
  note->setWordWrap(true);
  setOwnColours(*note, [](QPalette& colours) { colours.setColor(QPalette::WindowText, look::warningInk()); });
  return note;
}

QPushButton* PreviewDialog::button(FlowRow& row, const char* caption, const std::function<void()>& action) {
  auto* made = new QPushButton(QString::fromUtf8(caption), this);
  made->setAutoDefault(false);
  connect(made, &QPushButton::clicked, this, action);
  row.addWidget(made);
  return made;
}

void PreviewDialog::layOutTurning(FlowRow& row) {
  backward_ = {button(row, "&Prima", [this] { pages_->go(0); }),
               button(row, "&Indietro", [this] { pages_->go(page() - 1); })};
  auto* caption = new QLabel(QStringLiteral("Pagi&na"), this);
  caption->setBuddy(number_);
  for (QWidget* each : std::initializer_list<QWidget*>{caption, number_, place_}) row.addWidget(each);
  number_->setAlignment(Qt::AlignRight);
  number_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  followLetters(*number_, [this] {
    number_->setFixedWidth(number_->fontMetrics().horizontalAdvance(QStringLiteral("00.000")) + 18);
  });
  number_->setAccessibleName(QStringLiteral("Pagina"));
  connect(number_, &QLineEdit::returnPressed, this, [this] { goToTyped(); });
  connect(number_, &QLineEdit::editingFinished, this, [this] { tell(); });
  forward_ = {button(row, "&Avanti", [this] { pages_->go(page() + 1); }),
              button(row, "&Ultima", [this] { pages_->go(pages() - 1); })};
  row.beginEnd();
  onPictures_ = {button(row, "In&grandisci", [this] { pages_->larger(); }),
                 button(row, "&Riduci", [this] { pages_->smaller(); }),
                 button(row, "&Larghezza", [this] { pages_->fitWidth(); })};
  words_ = button(row, "&Testo", [this] { pages_->setAsText(!pages_->asText()); });
  words_->setCheckable(true);
}

void PreviewDialog::layOutSearch(FlowRow& row) {
  auto* caption = new QLabel(QStringLiteral("C&erca"), this);
  caption->setBuddy(wanted_);
  row.addWidget(caption);
  row.addWidget(wanted_);
  wanted_->setAccessibleName(QStringLiteral("Cerca nelle pagine"));
  wanted_->setClearButtonEnabled(true);
  wanted_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  constexpr int kWide = 220;
  followLetters(*wanted_, [this] { wanted_->setFixedWidth(inLetters(kWide)); });
  onHits_ = {button(row, "Prece&dente", [this] { search_.step(true); }),
             button(row, "Successiv&o", [this] { search_.step(false); })};
  row.addWidget(told_);
  pause_->setSingleShot(true);
  pause_->setInterval(kTypingPause);
  connect(pause_, &QTimer::timeout, this, [this] { find(); });
  connect(wanted_, &QLineEdit::textEdited, this, [this] { pause_->start(); });
  connect(wanted_, &QLineEdit::textChanged, this, [this](const QString& now) {
    if (now.isEmpty()) find();
  });
}

void PreviewDialog::layOutOutput(FlowRow& row) {
  row.beginEnd();
  small_ = button(row, "&Miniature", [this] {
    QSettings().setValue(QLatin1String(kThumbnails), small_->isChecked());
    showThumbnails(small_->isChecked());
  });
  small_->setCheckable(true);
  onPictures_.push_back(button(row, "&Stampa…", [this] { print(); }));
  onPictures_.push_back(button(row, "Sal&va…", [this] { save(); }));
  button(row, "&Chiudi", [this] { accept(); });
}

void PreviewDialog::addKeys() {
  const auto add = [this](const QKeySequence& keys, const std::function<void()>& action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  add(QKeySequence::Find, [this] {
    wanted_->setFocus(Qt::ShortcutFocusReason);
    wanted_->selectAll();
  });
  add(Qt::Key_F3, [this] { search_.step(false); });
  add(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { search_.step(true); });
  add(QKeySequence::Print, [this] { print(); });
  add(QKeySequence::Save, [this] { save(); });
}

QString PreviewDialog::shownNumber() const { return QStringLiteral("%L1").arg(page() + 1); }

void PreviewDialog::tell() {
  const bool any = pages() > 0;
  place_->setText(QStringLiteral("di %L1").arg(pages()));
  if (!number_->isModified() || !number_->hasFocus()) number_->setText(any ? shownNumber() : QString());
  number_->setEnabled(any);
  number_->setAccessibleDescription(QStringLiteral("di %L1").arg(pages()));
  for (QWidget* each : backward_) each->setEnabled(page() > 0);
  for (QWidget* each : forward_) each->setEnabled(page() + 1 < pages());
  for (QWidget* each : onPictures_) each->setVisible(pages_->pictures());
  words_->setVisible(pages_->pictures() && pages_->hasTexts());
  words_->setChecked(pages_->asText());
  small_->setVisible(pages_->pictures() && pages() > 1);
  wanted_->setEnabled(any);
  thumbnails_->follow();
}

void PreviewDialog::tellFound() {
  told_->setWhole(search_.words());
  const bool none = !search_.running() && !search_.text().isEmpty() && search_.hits() == 0;
  setOwnColours(*told_, [none](QPalette& colours) {
    if (none) colours.setColor(QPalette::WindowText, look::warningInk());
  });
  wanted_->setAccessibleDescription(search_.words());
  for (QWidget* each : onHits_) each->setEnabled(search_.hits() > 0);
}

// A number beyond the pages keeps the typed text, and the line below names the limits.
void PreviewDialog::goToTyped() {
  bool number = false;
  const int typed = number_->text().remove(u'.').trimmed().toInt(&number);
  if (!number || typed < 1 || typed > pages()) {
    told_->setWhole(QStringLiteral("Le pagine vanno da 1 a %L1.").arg(pages()));
    number_->selectAll();
    return;
  }
  number_->setModified(false);
  pages_->go(typed - 1);
  tellFound();
}

void PreviewDialog::showThumbnails(bool shown) {
  const bool possible = pages_->pictures() && pages() > 1;
  thumbnails_->setVisible(shown && possible);
  small_->setChecked(shown && possible);
}

void PreviewDialog::find() {
  pause_->stop();
  if (wanted_->text().simplified() != search_.text()) search_.search(wanted_->text());
}

void PreviewDialog::print() {
  if (!pages_->pictures()) return;
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(title_);
  if (!choosePrinter(printer)) return;
  const QString error = printDocument(pages_->source()->bytes(), printer, page(), this);
  if (error.isEmpty()) {
    told_->setWhole(printer.outputFileName().isEmpty()
                        ? QStringLiteral("Inviata alla stampante.")
                        : QStringLiteral("Stampata in %1.").arg(printer.outputFileName()));
  } else {
    tellError(this, error);
  }
}

void PreviewDialog::save() {
  if (!pages_->pictures()) return;
  const QString path = chooseFile(pdfNameOf(title_));
  if (path.isEmpty()) return;
  const QString error = saveDocument(pages_->source()->bytes(), path);
  if (error.isEmpty()) {
    told_->setWhole(QStringLiteral("Salvata in %1.").arg(path));
  } else {
    tellError(this, error);
  }
}

void PreviewDialog::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && wanted_->hasFocus()) {
    const bool same = wanted_->text().simplified() == search_.text();
    find();
    if (same) search_.step(event->modifiers().testFlag(Qt::ShiftModifier));
    return;
  }
  // Esc takes back what is being typed before it closes the window.
  if (event->key() == Qt::Key_Escape && wanted_->hasFocus() && !wanted_->text().isEmpty()) {
    wanted_->clear();
    return;
  }
  const QString here = shownNumber();
  if (event->key() == Qt::Key_Escape && number_->hasFocus() && number_->text() != here) {
    number_->setText(here);
    number_->selectAll();
    return;
  }
  // A box that is being typed into keeps its keys, whether it uses them or not.
  const bool typing = (wanted_->hasFocus() || number_->hasFocus()) && !event->text().isEmpty();
  if (typing || !pages_->key(event->key())) QDialog::keyPressEvent(event);
}

}  // namespace cu::desktop
