#pragma once

#include <QByteArray>
#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

#include "apps/strumenti/file_esaminato.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/modulo_disegnato.h"

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPlainTextEdit;
class QSplitter;

namespace cu::desktop {
class PageView;
}

namespace cu::strumenti {

class Frase;
class Ricerca;
class Tabella;
struct Colonna;

// What a telematic file holds: its certificates, each on the form and by its cells, and what is wrong with
// it.
class FinestraFile : public Finestra {
 public:
  // Without a profile the accounts are not known. Reading begins at once.
  FinestraFile(const QString& percorso, std::optional<Profilo> profilo);

  void apri(const QString& percorso);
  // Chooses the certificate of a finding, and shows its cell in the table and on the form.
  void vaiAlRilievo(std::size_t rilievo);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* testa();
  QWidget* sinistra();
  QWidget* destra();
  QWidget* sotto();
  void disponi(bool bassa);
  void componiPulsanti(QHBoxLayout& riga);
  std::vector<Colonna> colonneCertificati();
  std::vector<Colonna> colonneRilievi();
  std::vector<Colonna> colonneCaselle();

  void mostra();
  void mostraTesta();
  void mostraCertificato(std::optional<std::size_t> quale);
  void disegnaCertificato();
  void filtraRilievi();
  void mostraTratto(std::optional<std::size_t> rilievo);
  // Marks a box on the form, turning to its page; a box that the form does not have only turns the page.
  void segna(std::string codice, int pagina);
  void segnaCasella(std::size_t casella);
  void segnaRilievo(std::size_t rilievo);
  void mostraSegno();
  std::optional<std::size_t> certificatoDelRilievo(std::size_t rilievo) const;
  void diceRilievi();
  void chiedeFile();
  void confrontaFile();
  void confrontaConti();
  void esporta();
  bool passa(std::size_t certificato) const;

  QString percorso_;
  std::optional<Profilo> profilo_;
  std::shared_ptr<const FileEsaminato> file_;
  std::optional<std::size_t> quale_;
  std::optional<lettura::Certificato> certificato_;
  std::vector<CasellaMostrata> caselleMostrate_;
  struct Segno {
    std::string codice;
    int pagina = 0;
  };
  std::optional<Segno> segno_;  // on the form of the certificate that is shown
  std::vector<reporting::FormPlace> posti_;
  QTimer disegno_;

  QSplitter* sinistri_ = nullptr;
  QSplitter* alti_ = nullptr;
  QWidget* sotto_ = nullptr;
  QByteArray divisi_;  // of a high window
  bool bassa_ = false;
  Frase* testa_ = nullptr;
  Frase* avviso_ = nullptr;
  Ricerca* ricerca_ = nullptr;
  QCheckBox* soloRilievi_ = nullptr;
  QLabel* quanti_ = nullptr;
  Tabella* certificati_ = nullptr;
  desktop::PageView* modulo_ = nullptr;
  Tabella* caselle_ = nullptr;
  QComboBox* diChi_ = nullptr;
  Frase* altri_ = nullptr;
  Tabella* rilievi_ = nullptr;
  Frase* detto_ = nullptr;
  QPlainTextEdit* tratto_ = nullptr;
  QPushButton* conFile_ = nullptr;
  QPushButton* conConti_ = nullptr;
  QPushButton* esporta_ = nullptr;
};

}  // namespace cu::strumenti
