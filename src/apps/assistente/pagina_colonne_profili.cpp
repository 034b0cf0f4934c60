// The profiles of the step of the columns.

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "apps/assistente/pagina_colonne.h"
#include "apps/importazione/mappe_personali.h"
#include "apps/strumenti/frase.h"
#include "desktop/file_dialog.h"
#include "suite/platform_file.h"

namespace cu::assistente {
namespace {

const QString kUsoProfili = QStringLiteral("profili");
const QString kFiltroProfili = QStringLiteral("Profili (*.toml);;Tutti i file (*)");

}  // namespace

void PaginaColonne::componiSopra() {
  auto* const riga = new QHBoxLayout;
  quale_ = new QComboBox(this);
  quale_->setAccessibleName(QStringLiteral("File"));
  quale_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  riga->addWidget(quale_, 1);
  riga->addStretch(1);
  const auto aggiungi = [&](const char* testo, const char* spiegato, const std::function<void()>& azione) {
    auto* const fatto = bottone(testo, azione, spiegato);
    riga->addWidget(fatto);
    return fatto;
  };
  proponi_ = aggiungi("Pr&oponi", "Abbina le colonne del file il cui titolo somiglia al nome", [this] {
    if (const auto proposte = conProposte(stato().file()[file()], scelte_)) {
      stato().cambiaMappatura(file(), *proposte);
      cambia();
    }
  });
  aggiungi("&Carica profilo…", "Usa le colonne e il modo di leggere di un profilo", [this] {
    const QString scelto = desktop::fileToOpen(this, QStringLiteral("Carica profilo"),
                                               strumenti::cartellaRicordata(kUsoProfili), kFiltroProfili);
    if (!scelto.isEmpty()) caricaProfilo(scelto);
  });
  aggiungi("Salva pro&filo…", "Scrive le colonne e il modo di leggere in un file", [this] {
    QString scelto = desktop::fileToSave(this, QStringLiteral("Salva profilo"),
                                         strumenti::cartellaRicordata(kUsoProfili), kFiltroProfili);
    if (scelto.isEmpty()) return;
    if (QFileInfo(scelto).suffix().isEmpty()) scelto += QStringLiteral(".toml");
    salvaProfilo(scelto);
  });
  aggiungi("&Ricorda per questi titoli", "I file con gli stessi titoli vengono letti così da soli",
           [this] { ricordaProfilo(); });
  colonna().addLayout(riga);
  avviso_ = new strumenti::Frase(this);
  risposta_ = new strumenti::Frase(this);
  risposta_->hide();
  colonna().addWidget(avviso_);
  colonna().addWidget(risposta_);
  connect(quale_, &QComboBox::activated, this, [this] { mostra(); });
}

void PaginaColonne::caricaProfilo(const QString& percorso) {
  strumenti::ricordaCartella(kUsoProfili, QFileInfo(percorso).absolutePath());
  try {
    stato().usaProfilo(file(), leggiMappa(percorso.toStdString()));
  } catch (const std::exception& guasto) {
    mostraErrore(QString::fromUtf8(guasto.what()));
    return;
  }
  risposta_->dici(QStringLiteral("✓ Caricato il profilo %1.").arg(QFileInfo(percorso).fileName()));
  cambia();
}

// A profile in a file of its own is chosen by hand, for whatever headings.
void PaginaColonne::salvaProfilo(const QString& percorso) {
  strumenti::ricordaCartella(kUsoProfili, QFileInfo(percorso).absolutePath());
  try {
    replaceFile(percorso.toStdString(), scriviMappa(stato().profilo(file())), NewFile::OwnerOnly);
    risposta_->dici(QStringLiteral("✓ Scritto il profilo %1.").arg(percorso));
  } catch (const std::exception& guasto) {
    mostraErrore(QString::fromUtf8(guasto.what()));
  }
}

void PaginaColonne::ricordaProfilo() {
  try {
    salvaMappa(stato().ambiente().cartellaMappe, stato().profilo(file()));
    risposta_->dici(QStringLiteral("✓ Ricordato: i file con questi titoli verranno letti così da soli."));
  } catch (const std::exception& guasto) {
    mostraErrore(QString::fromUtf8(guasto.what()));
  }
}

}  // namespace cu::assistente
