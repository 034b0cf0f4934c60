#include "apps/strumenti/finestra.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <algorithm>
#include <utility>

#include "apps/strumenti/conteggi.h"
#include "desktop/file_dialog.h"
#include "desktop/first_size.h"
#include "desktop/focus_ring.h"
#include "lettura/valori.h"

namespace cu::strumenti {
namespace {

class Ricevitore : public QObject {
 public:
  Ricevitore(QWidget* widget, std::function<void(const QStringList&)> ricevi)
      : QObject(widget), ricevi_(std::move(ricevi)) {
    widget->setAcceptDrops(true);
    widget->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::DragEnter) {
      auto* const entrata = static_cast<QDragEnterEvent*>(event);
      if (!fileDi(*entrata->mimeData()).isEmpty()) entrata->acceptProposedAction();
      return true;
    }
    if (event->type() == QEvent::Drop) {
      auto* const lasciato = static_cast<QDropEvent*>(event);
      const QStringList file = fileDi(*lasciato->mimeData());
      if (!file.isEmpty()) {
        lasciato->acceptProposedAction();
        ricevi_(file);
      }
      return true;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  static QStringList fileDi(const QMimeData& dati) {
    QStringList file;
    for (const QUrl& indirizzo : dati.urls()) {
      if (indirizzo.isLocalFile()) file += indirizzo.toLocalFile();
    }
    return file;
  }
  std::function<void(const QStringList&)> ricevi_;
};

QString& cartellaDellaGuida() {
  static QString cartella;
  return cartella;
}

}  // namespace

void Finestra::guida(const QString& cartella) { cartellaDellaGuida() = cartella; }

Finestra::Finestra(const QString& nome)
    : nome_(nome), attesa_(new Attesa(this, [this] { lavoro_.annulla(); })), lavoro_(nullptr) {
  setAttribute(Qt::WA_DeleteOnClose);
  new desktop::FocusRing(this);
  lavoro_.avanzamento = [this](const char* che, std::uint64_t fatto, std::uint64_t totale) {
    attesa_->avanza(QString::fromUtf8(che), fatto, totale);
  };
  auto* const esc = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(esc, &QShortcut::activated, this, [this] { close(); });
  desktop::addGuideKeys(this, [this](const QString& quale) {
    desktop::openGuide(aiuto_, this, cartellaDellaGuida(), quale.isEmpty() ? capitolo() : quale);
  });
}

bool Finestra::aperte() {
  const QWidgetList tutte = QApplication::topLevelWidgets();
  return std::any_of(tutte.begin(), tutte.end(), [](const QWidget* una) {
    return dynamic_cast<const Finestra*>(una) != nullptr && una->isVisible();
  });
}

void Finestra::ricordaPosto(std::initializer_list<QSplitter*> divisori, QSize dimensione) {
  divisori_ = divisori;
  resize(desktop::firstSize(*this, dimensione));
  QSettings memoria;
  memoria.beginGroup(QStringLiteral("strumenti/") + nome_);
  // A screen may be smaller than the last one.
  restoreGeometry(memoria.value(QStringLiteral("posto")).toByteArray());
  for (qsizetype i = 0; i < divisori_.size(); ++i) {
    divisori_[i]->restoreState(memoria.value(QStringLiteral("divisore%1").arg(i)).toByteArray());
  }
}

void Finestra::esegui(Compito compito) {
  if (lavoro_.inCorso()) return;
  attesa_->comincia(compito.che, compito.interrompibile, compito.interrompi);
  lavoro_.avvia(std::move(compito.lavoro),
                [this, finito = std::move(compito.finito)](const Lavoro::Esito& esito) {
                  attesa_->finisci();
                  finito(esito);
                });
}

void Finestra::closeEvent(QCloseEvent* event) {
  if (const QString perche = occupata(); !perche.isEmpty()) {
    event->ignore();
    mostraErrore(perche);
    return;
  }
  QSettings memoria;
  memoria.beginGroup(QStringLiteral("strumenti/") + nome_);
  memoria.setValue(QStringLiteral("posto"), saveGeometry());
  for (qsizetype i = 0; i < divisori_.size(); ++i) {
    memoria.setValue(QStringLiteral("divisore%1").arg(i), divisori_[i]->saveState());
  }
  QWidget::closeEvent(event);
}

void Finestra::mostraErrore(const QString& testo) {
  QMessageBox box(QMessageBox::Warning, windowTitle(), {}, QMessageBox::Ok, this);
  box.setTextFormat(Qt::PlainText);
  box.setText(testo);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

bool Finestra::conferma(const QString& testo, const QString& azione, const QString& altrimenti) {
  QMessageBox box(QMessageBox::Question, windowTitle(), {}, QMessageBox::NoButton, this);
  box.setTextFormat(Qt::PlainText);
  box.setText(testo);
  const QPushButton* const si = box.addButton(azione, QMessageBox::AcceptRole);
  box.setDefaultButton(box.addButton(altrimenti, QMessageBox::RejectRole));
  box.exec();
  return box.clickedButton() == si;
}

QPushButton* Finestra::pulsante(const char* testo, const std::function<void()>& azione,
                                const QKeySequence& tasto) {
  auto* const fatto = nuovoPulsante(this, testo, azione);
  if (!tasto.isEmpty()) {
    auto* const scorciatoia = new QShortcut(tasto, this);
    connect(scorciatoia, &QShortcut::activated, fatto, &QPushButton::click);
    fatto->setToolTip(tasto.toString(QKeySequence::NativeText));
  }
  return fatto;
}

QPushButton* nuovoPulsante(QWidget* parent, const char* testo, const std::function<void()>& azione) {
  auto* const fatto = new QPushButton(QString::fromUtf8(testo), parent);
  fatto->setAutoDefault(true);
  QObject::connect(fatto, &QPushButton::clicked, parent, azione);
  return fatto;
}

void accettaFile(QWidget* widget, std::function<void(const QStringList& file)> ricevi) {
  new Ricevitore(widget, std::move(ricevi));
}

Dialogo::Dialogo(QWidget* parent, const QString& nome, const QString& titolo)
    : QDialog(parent), nome_(QStringLiteral("strumenti/") + nome) {
  setWindowTitle(titolo);
  new desktop::FocusRing(this);
}

void Dialogo::ricordaDimensione(QSize dimensione) {
  const QSize prima = desktop::firstSize(*this, dimensione);
  const QSize ricordata = QSettings().value(nome_ + QStringLiteral("/dimensione"), prima).toSize();
  const QSize schermo = QGuiApplication::primaryScreen()->availableSize();
  resize(ricordata.boundedTo(schermo - QSize(40, 60)));
}

void Dialogo::done(int esito) {
  QSettings().setValue(nome_ + QStringLiteral("/dimensione"), size());
  QDialog::done(esito);
}

QString cartellaRicordata(const QString& uso, const QString& altrimenti) {
  const QString ricordata = QSettings().value(QStringLiteral("strumenti/cartelle/") + uso).toString();
  return !ricordata.isEmpty() && QFileInfo(ricordata).isDir() ? ricordata : altrimenti;
}

void ricordaCartella(const QString& uso, const QString& cartella) {
  QSettings().setValue(QStringLiteral("strumenti/cartelle/") + uso, cartella);
}

QString scegliFile(QWidget* parent, const QString& titolo, const QString& vicino) {
  const QString uso = QStringLiteral("file");
  const QFileInfo questo(vicino);
  const QString cartella = vicino.isEmpty() ? cartellaRicordata(uso)
                           : questo.isDir() ? questo.absoluteFilePath()
                                            : questo.absolutePath();
  QString scelto =
      desktop::fileToOpen(parent, titolo, cartella,
                          QStringLiteral("File telematici (*.cur *.CUR *.ccf *.txt);;Tutti i file (*)"));
  if (!scelto.isEmpty()) ricordaCartella(uso, QFileInfo(scelto).absolutePath());
  return scelto;
}

QString conteggio(std::uint64_t numero) { return qs(conPunti(numero)); }

QString detto(lettura::Gravita gravita) {
  return gravita == lettura::Gravita::Errore ? QStringLiteral("✖ errore") : QStringLiteral("⚠ avviso");
}

QString segni(std::size_t errori, std::size_t avvisi) {
  QStringList parti;
  if (errori > 0) parti += QStringLiteral("✖ %1").arg(conteggio(errori));
  if (avvisi > 0) parti += QStringLiteral("⚠ %1").arg(conteggio(avvisi));
  return parti.join(QStringLiteral("  "));
}

QString segniDetti(std::size_t errori, std::size_t avvisi) {
  QStringList parti;
  if (errori > 0) parti += qs(alPlurale(errori, "errore", "errori"));
  if (avvisi > 0) parti += qs(alPlurale(avvisi, "avviso", "avvisi"));
  return parti.isEmpty() ? QStringLiteral("nessun rilievo") : parti.join(QStringLiteral(", "));
}

QString importoMostrato(std::int64_t centesimi) {
  return centesimi == 0 ? QString() : qs(lettura::euro(centesimi));
}

}  // namespace cu::strumenti
