#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "apps/assistente/finestra_assistente.h"
#include "apps/importazione/posto_importazione.h"
#include "apps/strumenti/azienda_support.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::test {

inline constexpr const char* kTreCompensi =
    "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;RitenutaAcconto;Note\n"
    "P001;A;20/03/2018;1/2018;1000,00;200,00;\n"
    "P002;A;21/03/2018;2/2018;500,555;100,11;\n"
    "P003;A;22/03/2018;3/2018;800,00;150,00;bassa\n";

// The window of an import on a database of its own.
class BancoAssistente {
 public:
  explicit BancoAssistente(const std::string& testo = kTreCompensi) {
    profilo.file = "prova";
    profilo.sessione.azienda = 1;
    profilo.sessione.oggi = Profilo::Istante{Date::fromYmd(2026, 3, 5).value(), {10, 30, 0}};
    profilo.database = posto.database;
    file = QString::fromStdString(posto.file("f.csv", testo));
  }
  // With the file, and as it is when nothing is left to be worked out.
  assistente::FinestraAssistente& apri() {
    finestra_ = new assistente::FinestraAssistente(profilo, {file});
    finestra_->show();
    aspettaFerma();
    return *finestra_;
  }
  ~BancoAssistente() {
    if (finestra_ != nullptr) delete finestra_;
  }
  bool aspettaFerma() {
    return aspetta([this] { return finestra_->ferma(); });
  }
  void avanti(int passi = 1) {
    for (int i = 0; i < passi; ++i) {
      finestra_->avanti();
      aspettaFerma();
    }
  }
  void indietro(int passi = 1) {
    for (int i = 0; i < passi; ++i) {
      finestra_->indietro();
      aspettaFerma();
    }
  }
  // The one with that accessible name that can be seen.
  template <class W>
  W* cerca(const char* nome) const {
    for (W* uno : finestra_->findChildren<W*>()) {
      if (uno->accessibleName() == QString::fromUtf8(nome) && uno->isVisible()) return uno;
    }
    return nullptr;
  }
  QPushButton* bottone(const char* testo) const {
    for (QPushButton* uno : finestra_->findChildren<QPushButton*>()) {
      if (uno->isVisible() && uno->text().remove(u'&') == QString::fromUtf8(testo)) return uno;
    }
    return nullptr;
  }
  // The page of a step.
  template <class P>
  P& pagina() const {
    for (QWidget* uno : finestra_->findChildren<QWidget*>()) {
      if (auto* const sua = dynamic_cast<P*>(uno)) return *sua;
    }
    throw std::logic_error("no such page");
  }
  // Presses it, and waits for what follows.
  bool premiAspetta(const char* testo) {
    QPushButton* const uno = bottone(testo);
    if (uno == nullptr || !uno->isEnabled()) return false;
    uno->click();
    return aspettaFerma();
  }
  void accettaTutto() {
    while (auto* const avvisi = cerca<QListWidget>("Avvisi da accettare")) {
      int quale = 0;
      const auto daAccettare = [&] {
        const QListWidgetItem* const voce = avvisi->item(quale);
        return voce->flags().testFlag(Qt::ItemIsUserCheckable) && voce->checkState() != Qt::Checked;
      };
      while (quale < avvisi->count() && !daAccettare()) ++quale;
      if (quale == avvisi->count()) return;
      avvisi->item(quale)->setCheckState(Qt::Checked);
      aspettaFerma();
    }
  }
  Passo passo() const { return finestra_->assistente().passo(); }

  PostoImportazione posto;
  Profilo profilo;
  QString file;

 private:
  QPointer<assistente::FinestraAssistente> finestra_;
};

}  // namespace cu::test
