#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "apps/assistente/pagina.h"
#include "apps/importazione/documenti_mostrati.h"

namespace cu::strumenti {
class CasellaCerca;
struct Colonna;
}  // namespace cu::strumenti

namespace cu::assistente {

class RiquadroDate;

// The rows of a list with what would become of each, and what a person decides of them.
class PaginaRighe : public PaginaPiano {
 public:
  // `fatture`: the rows are payments of invoices, of which the dates are written here.
  PaginaRighe(QWidget* parent, Assistente& assistente, intake::Elenco elenco, bool fatture = false);
  bool conclude() override;

 protected:
  std::size_t prendi() override;

 private:
  strumenti::Colonna colonnaPagamento();
  void scriviPagamento(std::size_t riga, const QString& testo);
  void componiFiltri();
  void componiTabella(intake::Elenco elenco);
  void componiDecisioni();
  const intake::RigaPiano* corrente() const;
  void preparaRicerca();
  void mostraConteggi();
  void mostraRiga();
  void scegliCandidato(std::int32_t id);
  void decidi(const std::function<void(intake::Decisione&)>& come);

  bool fatture_ = false;
  RiquadroDate* date_ = nullptr;  // of invoices
  bool daPrendere_ = false;       // a date was written, and is taken once its cell has closed
  std::vector<PagamentoMostrato> pagamenti_;
  std::shared_ptr<const std::vector<RigaMostrata>> righe_;
  std::optional<intake::StatoRiga> filtro_;
  QString cercato_;
  std::vector<QString> testi_;
  QComboBox* stati_ = nullptr;
  strumenti::CasellaCerca* cerca_ = nullptr;
  strumenti::Frase* conteggi_ = nullptr;
  strumenti::Frase* messaggi_ = nullptr;
  RiquadroScelta* candidati_ = nullptr;
  QPushButton* escludi_ = nullptr;
  QPushButton* riprendi_ = nullptr;
  QPushButton* rinuncia_ = nullptr;
};

}  // namespace cu::assistente
