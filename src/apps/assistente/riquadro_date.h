#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "apps/assistente/pagina.h"
#include "apps/importazione/documenti_mostrati.h"

class QLineEdit;

namespace cu::assistente {

// Where the dates of payment of invoices come from. What they amount to by year is a sentence of its own,
// which grows with the dates: below the rows it does not move them.
class RiquadroDate : public QWidget {
 public:
  RiquadroDate(QWidget* parent, Assistente& assistente);
  void mostra();
  // Takes a day that is still being written; false where that is none, which is reported.
  bool conclude();
  QWidget* anni() const;
  // As the button does, once the file is chosen.
  void usaTavola(const QString& percorso);

  std::function<void()> cambiata;
  std::function<void(const QString& testo)> errore;

 private:
  void scelta(intake::FontePagamento fonte);
  void scegliTavola();
  bool scriviGiorno();
  QString dettiAnni() const;

  Assistente& assistente_;
  Scelta<intake::FontePagamento>* fonte_;
  QLineEdit* giorno_;
  QPushButton* tavola_;
  strumenti::Frase* anni_;
};

// "20/03/2017", "≈ 20/03/2017 (proposta)"; "? manca"
QString dettoPagamento(const PagamentoMostrato& pagamento);
// "⚠ dicembre": a payment whose year is to be looked at.
QString dettoConfine(const PagamentoMostrato& pagamento);

}  // namespace cu::assistente
