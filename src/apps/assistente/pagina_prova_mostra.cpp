// What the step of the trial shows.

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

#include "apps/assistente/pagina_prova.h"
#include "apps/importazione/documenti_mostrati.h"
#include "apps/importazione/righe_errate.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::assistente {
namespace {

using intake::StatoRiga;

constexpr std::size_t kNoteDette = 3;  // more of them are in their list only

QString dettoAvviso(const AvvisiDiCodice& avvisi) {
  const intake::VoceCodice& voce = intake::voce(avvisi.codice);
  return QStringLiteral("%1  %2: %3\n%4")
      .arg(qs(std::string(voce.sigla)), qs(std::string(voce.titolo)), quante(avvisi.quanti, "volta", "volte"),
           qs(avvisi.primo));
}

}  // namespace

// A payment whose date nobody has said is written like the others.
QString PaginaProva::dateProposte() const {
  std::size_t proposte = 0;
  for (const SommaAnno& una : sommePerAnno(*piano_)) proposte += una.proposti;
  if (proposte == 0) return {};
  return QStringLiteral(
             "≈ %1 la data del documento, che è solo proposta: le date si cambiano nel passo Compensi.")
      .arg(quante(proposte, "compenso ha", "compensi hanno"));
}

// What stops the import, or that nothing does.
QString PaginaProva::dettaProva() const {
  const auto di = [this](StatoRiga quale) { return piano_->quante(quale); };
  QString testo = qs(dettiConteggi(piano_->conteggi(), Migliaia::ConPunto)) + QStringLiteral(". ");
  if (generali_.size() > kNoteDette) {
    testo += QStringLiteral("%1 note sui file. ").arg(strumenti::conteggio(generali_.size()));
  } else {
    for (const std::string& uno : generali_) testo += QStringLiteral("\n") + qs(uno);
    if (!generali_.empty()) testo += u'\n';
  }
  if (const QString proposte = dateProposte(); !proposte.isEmpty())
    testo += (testo.endsWith(u'\n') ? QString() : QStringLiteral("\n")) + proposte + u'\n';
  if (stato().prova() && !stato().prova()->rifiuti.empty())
    return testo + qs(stato().prova()->rifiuti.front());
  QStringList mancano;
  if (di(StatoRiga::Errore) > 0) mancano += QStringLiteral("le righe con errori");
  if (di(StatoRiga::DaDecidere) > 0) mancano += QStringLiteral("le righe da decidere");
  if (di(StatoRiga::Diverso) > 0 && stato().suDiversi() == intake::SuDiversi::Rifiuta)
    mancano += QStringLiteral("le righe già presenti con altri valori");
  if (!piano_->avvisiDaAccettare().empty()) mancano += QStringLiteral("gli avvisi da accettare");
  if (!mancano.isEmpty()) {
    return testo + QStringLiteral("Fermano l'importazione: %1.").arg(mancano.join(QStringLiteral(", ")));
  }
  if (!piano_->scrive()) return testo + QStringLiteral("Non c'è nulla da importare.");
  if (stato().puoImportare()) {
    return testo + QStringLiteral("✓ La prova è riuscita: non è stato scritto nulla, e si può importare.");
  }
  return testo + QStringLiteral("La prova è in corso.");
}

void PaginaProva::mostra() {
  const auto nuovo = stato().piano();
  if (nuovo == nullptr) return;
  if (nuovo != piano_) {
    piano_ = nuovo;
    generali_ = messaggiGenerali(*piano_);
    somme_ = sommePerAnnoECausale(*piano_);
    tabellaSomme_->mostra(somme_.size());
    tabellaConti_->mostra(piano_->conti.size());
    tabellaMancanti_->mostra(piano_->mancanti.size());
    mostraNote();
    risposta_->dici({});
    const bool avvisi = !avvisiPerCodice(*piano_).empty();
    schede_->setCurrentIndex(avvisi || piano_->elenco != intake::Elenco::Compensi ? 0 : 1);
  }
  mostraAvvisi();
  titoliSchede();
  frase_->dici(dettaProva());
  diversi_->metti(stato().suDiversi());
  riquadroDiversi_->setVisible(piano_->quante(StatoRiga::Diverso) > 0 ||
                               stato().suDiversi() != intake::SuDiversi::Rifiuta);
  // Documents are not put right by rows.
  errori_->setVisible(!stato().fatture());
  errori_->setEnabled(!stato().fatture() && !fileConRigheErrate(*piano_).empty());
  ripeti_->setVisible(stato().prova() && !stato().prova()->rifiuti.empty());
}

void PaginaProva::mostraAvvisi() {
  avvisi_ = avvisiPerCodice(*piano_);
  const int prima = listaAvvisi_->currentRow();
  zitta_ = true;
  listaAvvisi_->clear();
  for (const AvvisiDiCodice& uno : avvisi_) {
    auto* const voce = new QListWidgetItem(dettoAvviso(uno), listaAvvisi_);
    voce->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    voce->setCheckState(uno.accettati ? Qt::Checked : Qt::Unchecked);
    voce->setData(Qt::UserRole, static_cast<int>(uno.codice));
  }
  if (avvisi_.empty()) {
    auto* const nessuno = new QListWidgetItem(QStringLiteral("Nessun avviso da accettare."), listaAvvisi_);
    nessuno->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  }
  listaAvvisi_->setCurrentRow(std::clamp(prima, 0, std::max(0, listaAvvisi_->count() - 1)));
  zitta_ = false;
}

void PaginaProva::mostraNote() {
  listaNote_->clear();
  for (const std::string& una : generali_) listaNote_->addItem(qs(una));
}

void PaginaProva::titoliSchede() {
  const auto titolo = [](const char* testo, std::size_t quanti) {
    return QStringLiteral("%1 (%2)").arg(QString::fromUtf8(testo), strumenti::conteggio(quanti));
  };
  const bool compensi = piano_->elenco == intake::Elenco::Compensi;
  schede_->setTabText(0, titolo("Avvisi da accettare", avvisi_.size()));
  schede_->setTabText(1, QStringLiteral("Anni e causali"));
  schede_->setTabText(2, titolo("Conti", piano_->conti.size()));
  schede_->setTabText(3, titolo("Dati che mancano", piano_->mancanti.size()));
  schede_->setTabText(4, titolo("Note", generali_.size()));
  schede_->setTabVisible(4, generali_.size() > kNoteDette);
  schede_->setTabVisible(1, compensi);
  schede_->setTabVisible(2, compensi);
}

}  // namespace cu::assistente
