#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "apps/assistente/pagina.h"
#include "apps/importazione/documenti_mostrati.h"

class QCheckBox;
class QPushButton;
class QVBoxLayout;

namespace cu::strumenti {
class CasellaCerca;
struct Colonna;
class Frase;
class Tabella;
}  // namespace cu::strumenti

namespace cu::assistente {

class RiquadroDate;

// The rows of a list with what would become of each, and what a person decides of them.
class PaginaRighe : public Pagina {
 public:
  // `fatture`: the rows are payments of invoices, of which the dates are written here.
  PaginaRighe(QWidget* parent, Assistente& assistente, intake::Elenco elenco, bool fatture = false);
  void mostra() override;
  bool conclude() override;
  QWidget* primo() override;

 private:
  strumenti::Colonna colonnaPagamento();
  void scriviPagamento(std::size_t riga, const QString& testo);
  void componiFiltri(QVBoxLayout& colonna);
  void componiTabella(QVBoxLayout& colonna, intake::Elenco elenco);
  void componiDecisioni(QVBoxLayout& colonna);
  const intake::RigaPiano* corrente() const;
  std::vector<std::size_t> evidenziate() const;
  void prepara();
  void mostraConteggi();
  void mostraRiga();
  void scegliCandidato();
  void decidi(const std::function<void(intake::Decisione&)>& come);

  bool fatture_ = false;
  RiquadroDate* date_ = nullptr;  // of invoices
  std::vector<PagamentoMostrato> pagamenti_;
  std::shared_ptr<const intake::Piano> piano_;
  std::shared_ptr<const std::vector<RigaMostrata>> righe_;
  std::optional<intake::StatoRiga> filtro_;
  QString cercato_;
  std::vector<QString> testi_;
  QComboBox* stati_ = nullptr;
  strumenti::CasellaCerca* cerca_ = nullptr;
  strumenti::Frase* conteggi_ = nullptr;
  strumenti::Tabella* tabella_ = nullptr;
  strumenti::Frase* messaggi_ = nullptr;
  QWidget* scelta_ = nullptr;
  QComboBox* candidati_ = nullptr;
  QPushButton* escludi_ = nullptr;
  QPushButton* riprendi_ = nullptr;
  QPushButton* rinuncia_ = nullptr;
};

}  // namespace cu::assistente
