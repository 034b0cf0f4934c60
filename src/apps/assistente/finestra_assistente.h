#pragma once

#include <QPointer>
#include <QStringList>
#include <array>
#include <functional>
#include <optional>

#include "apps/importazione/assistente.h"
#include "apps/strumenti/finestra.h"

class QListWidget;
class QPushButton;
class QStackedWidget;

namespace cu::strumenti {
class Frase;
}  // namespace cu::strumenti

namespace cu::assistente {

class FinestraStorico;
class Pagina;
class PaginaRighe;

// An import in seven steps, listed on the left.
class FinestraAssistente : public strumenti::Finestra {
 public:
  explicit FinestraAssistente(Profilo profilo, const QStringList& file = {});
  // Something was written.
  std::function<void()> importate;
  // As the person does it.
  void aggiungi(const QStringList& file);
  void avanti();
  void indietro();

  const Assistente& assistente() const { return assistente_; }
  // Whether there is nothing left to work out.
  bool ferma() const { return !lavora(); }

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  QString occupata() const override;
  QString capitolo() const override;

 private:
  QWidget* passi();
  QWidget* contenuto();
  QWidget* pulsanti();
  template <class P>
  P* registra(P* pagina);
  Pagina* paginaDelPasso();
  bool mostrata(const Pagina* pagina) const;
  PaginaRighe* righeDi(intake::Elenco elenco);
  // Works out what the step at hand needs, and shows it.
  void prosegui();
  void compi(const Assistente::Compito& compito);
  void fallito(const QString& errore);
  void mostra();
  void abilita();
  void mostraPassi();
  void importa();
  void vaiAlPasso(int quale);
  void aggiungiTabelle();
  void apriStorico();

  Profilo profilo_;
  Assistente assistente_;
  bool scrive_ = false;
  bool arrivato_ = true;       // the focus goes to the page's first widget when it is shown
  bool sospeso_ = false;       // what has to be worked out waits for the person
  std::optional<Passo> meta_;  // the step ahead that was chosen, as long as nothing stops the way to it
  QListWidget* passi_ = nullptr;
  strumenti::Frase* titolo_ = nullptr;
  QStackedWidget* pagine_ = nullptr;
  std::array<Pagina*, kPassi> delPasso_{};
  std::array<PaginaRighe*, 3> righe_{};
  PaginaRighe* pagamenti_ = nullptr;  // of invoices
  Pagina* documenti_ = nullptr;
  strumenti::Frase* risposta_ = nullptr;
  QPushButton* riprova_ = nullptr;
  QPushButton* indietro_ = nullptr;
  QPushButton* avanti_ = nullptr;
  QPushButton* importa_ = nullptr;
  QPointer<FinestraStorico> storico_;
};

}  // namespace cu::assistente
