#pragma once

#include <QComboBox>
#include <QString>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>

#include "apps/importazione/assistente.h"
#include "apps/strumenti/finestra.h"

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace cu::strumenti {
class Frase;
class Tabella;
}  // namespace cu::strumenti

// The window of an import: a page for each of its steps, which shows the assistant's state and changes it.
namespace cu::assistente {

using strumenti::qs;

class Pagina : public QWidget {
 public:
  Pagina(QWidget* parent, Assistente& assistente);
  // Shows the state as it is now, which may lack what is not worked out yet.
  virtual void mostra() = 0;
  // Takes what is still being written, before the step is left; whether it may be.
  virtual bool conclude() { return true; }
  // Where the work of the step begins.
  virtual QWidget* primo() { return this; }

  // The state has changed: what follows from it is to be worked out, and shown.
  std::function<void()> cambiata;
  std::function<void(const QString& testo)> errore;

 protected:
  Assistente& stato() { return assistente_; }
  const Assistente& stato() const { return assistente_; }
  // Its parts, one below the other.
  QVBoxLayout& colonna() { return *colonna_; }
  QPushButton* bottone(const char* testo, const std::function<void()>& azione, const char* spiegato = "");
  void cambia() {
    if (cambiata) cambiata();
  }
  void mostraErrore(const QString& testo) {
    if (errore) errore(testo);
  }

 private:
  Assistente& assistente_;
  QVBoxLayout* colonna_;
};

// A page with a table of what a plan has. It is shown anew when there is another plan, and its current row
// stays.
class PaginaPiano : public Pagina {
 public:
  using Pagina::Pagina;
  void mostra() final;
  QWidget* primo() override;

 protected:
  // Takes from the plan what the page shows; returns the number of rows of the table.
  virtual std::size_t prendi() = 0;
  const intake::Piano& piano() const { return *piano_; }
  bool conPiano() const { return piano_ != nullptr; }
  // Whether what is shown is still so: a new plan may be on its way.
  bool attuale() const { return conPiano() && stato().piano() == piano_; }

  strumenti::Tabella* tabella_ = nullptr;

 private:
  std::shared_ptr<const intake::Piano> piano_;
};

// The ring around what has the focus is cut off where its parent ends.
constexpr int kIntornoFuoco = 3;
// The row of a part of a page.
QHBoxLayout* rigaDi(QWidget* riquadro);

// A caption with its box beside it.
QLabel* etichetta(const char* testo, QWidget* di, QWidget* parent);

// A drop-down list of values with their words; what a person chooses calls `scelto`.
template <class V>
class Scelta : public QComboBox {
 public:
  Scelta(QWidget* parent, const char* nome, std::initializer_list<std::pair<const char*, V>> voci)
      : QComboBox(parent) {
    setAccessibleName(QString::fromUtf8(nome));
    for (const auto& [parola, valore] : voci) {
      addItem(QString::fromUtf8(parola));
      valori_.push_back(valore);
    }
    connect(this, &QComboBox::activated, this, [this](int quale) {
      if (scelto) scelto(valori_.at(static_cast<std::size_t>(quale)));
    });
  }
  void metti(const V& valore) {
    for (std::size_t i = 0; i < valori_.size(); ++i) {
      if (valori_[i] == valore) setCurrentIndex(static_cast<int>(i));
    }
  }
  std::function<void(const V& valore)> scelto;

 private:
  std::vector<V> valori_;
};

// A list of things that one is chosen of, with the button that does; hidden where there is nothing to choose.
class RiquadroScelta : public QWidget {
 public:
  using Voce = std::pair<QString, int>;
  RiquadroScelta(QWidget* parent, const char* testo, const char* nome);
  void mostra(const std::vector<Voce>& voci, std::optional<int> corrente = {});
  std::function<void(int quale)> scelto;  // with the entry's number

 private:
  QComboBox* voci_;
};
// Those of an import with, where it may be none of them, a new payee: number 0.
std::vector<RiquadroScelta::Voce> vociDi(const std::vector<intake::Candidato>& candidati, bool ancheNuovo);

// "1.234,50", "05/03/2017" of a text with a point, or in ISO form; other texts as they are.
QString importoDaTesto(const std::string& testo);
QString giornoDaTesto(const std::string& testo);
QString importoDa(Decimal importo);
// "12 righe"
QString quante(std::size_t numero, const char* una, const char* piu);

}  // namespace cu::assistente
