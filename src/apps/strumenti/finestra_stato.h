#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "apps/strumenti/finestra_anni.h"
#include "apps/strumenti/stato_letto.h"

class QSplitter;

namespace cu::strumenti {

class Frase;
class Tabella;

// Where each certificate of a year is between the accounts and the authority, and what follows.
class FinestraStato : public FinestraAnni {
 public:
  // Of the newest year where none is asked for.
  explicit FinestraStato(Profilo profilo, std::optional<std::int32_t> anno = {});
  // As the buttons do, once the file or the folder is chosen.
  void leggiRicevuta(const QString& tabella);
  void scriviCorrezioni(const QString& cartella);
  void togliDalRegistro(const QString& file);

 protected:
  QString occupata() const override;
  std::uint64_t quante(std::size_t scelta) const override;
  void annoScelto() override;
  void righeScelte() override { diceFrase(); }

 private:
  QWidget* pulsanti();
  void componiTabelle(QSplitter& divisore);
  // What a work of this window may do.
  enum class Modo : std::uint8_t { Legge, Scrive, ScriveAPassi };
  void compi(const QString& che, std::function<void()> lavoro, std::function<void()> fatto, Modo modo);
  void leggi(std::optional<std::int32_t> anno);
  void mostra();
  QString dettaVoce(const VoceMostrata& voce) const;
  void mostraCaselle(std::optional<std::size_t> quale);
  void diceFrase();
  void abilita();
  QString cartellaDeiFile() const;
  void segnaInviato();
  void togliDalRegistro();
  void leggiRicevuta();
  void registra(const std::shared_ptr<std::vector<riscontro::RigaRicevuta>>& righe,
                const std::shared_ptr<riscontro::PianoRicevuta>& piano);
  void scriviCorrezioni();
  void aggiungiTabelle();

  Profilo profilo_;
  std::shared_ptr<const StatoLetto> stato_;
  bool scrive_ = false;

  Frase* frase_ = nullptr;
  Frase* risposta_ = nullptr;  // what the last operation has done
  Tabella* voci_ = nullptr;
  Frase* cambiate_ = nullptr;
  Tabella* caselle_ = nullptr;
  QPushButton* inviato_ = nullptr;
  QPushButton* tolto_ = nullptr;
  QPushButton* ricevuta_ = nullptr;
  QPushButton* correzioni_ = nullptr;
  QPushButton* tabelle_ = nullptr;
  QPushButton* ricarica_ = nullptr;
};

}  // namespace cu::strumenti
