#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "archive/archivio.h"
#include "archive/archivio_di_prova.h"
#include "archive/ricostruzione.h"
#include "controls/textbox.h"
#include "gestione/contesto.h"
#include "schede/luoghi.h"
#include "sqlite/sqlite_connection.h"
#include "support/fake_factory.h"
#include "support/fixed_clock.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"

namespace cu::test {

// The factory of a program: the rebuild of the accounts is the real one.
class FactoryConRicostruzione : public FakeFactory {
 public:
  using FakeFactory::FakeFactory;
  std::unique_ptr<RicostruzioneConti> createRicostruzione() override {
    return std::make_unique<RicostruzioneContiIndividuali>();
  }
};

// An archive without companies, on 5 March 2018, and the forms on it. One database for all tests: each starts
// without rows of its own.
class GestioneProva : public ::testing::Test {
 protected:
  GestioneProva() : host_(database()), factory_(finto_) {
    for (const char* tabella : {"Azienda", "Anagrafica", "ConfigurazioneGenerale", "Filiale", "PeriodoIva",
                                "ConfigurazioneCompensiATerzi", "ConfigurazioneContabile", "AttivitaAzienda",
                                "ConfigurazioneElencoCliFor", "AttivitaAziendaPerPeriodoIva", "Percipiente",
                                "DefaultFilialePerTipoOggetto", "Compenso", "ContoIndividuale",
                                "ContoIndividualeDatiAggiuntivi", "ModuloXContoIndividuale"}) {
      database().Execute(std::string("DELETE FROM ") + tabella);
    }
    contesto.database = &host_;
    contesto.titolo = "Prova";
    contesto.valuta = {1, "€", ",", "."};
    contesto.scrivibile = true;
  }

  static SqliteConnection& database() {
    static const std::unique_ptr<SqliteConnection> uno = [] {
      auto nuovo = SqliteConnection::create(":memory:");
      creaArchivio(*nuovo, ContenutoArchivio::Vuoto);
      return nuovo;
    }();
    return *uno;
  }
  static std::int64_t quante(const std::string& domanda) {
    return number(database(), "SELECT COUNT(*) FROM " + domanda);
  }
  static std::string primo(const std::string& domanda) {
    const Righe righe(database(), domanda);
    return righe.size() == 0 ? "(nessuna riga)" : righe.text(0, righe.names().front());
  }

  schede::SchedaAzienda azienda() {
    schede::SchedaAzienda nuova;
    nuova.sede.anagrafica = "Studio Prova S.r.l.";
    nuova.sede.codiceFiscale = "12345670017";
    nuova.sede.idComune = comune("Verona");
    nuova.rappresentante.anagrafica = "Rossi";
    nuova.rappresentante.nome = "Mario";
    nuova.rappresentante.personaFisica = true;
    nuova.rappresentante.codiceFiscale = "RSSMRA80A01H501U";
    nuova.idCarica = 1;
    nuova.codiceAttivita = "692011";
    nuova.primoAnno = 2017;
    nuova.ultimoAnno = 2018;
    return *contesto.registrazione().azienda(std::nullopt, nuova);
  }
  schede::SchedaPercipiente percipiente(std::int32_t idAzienda, const std::string& codice,
                                        const std::string& cognome, bool nonResidente = false) {
    schede::SchedaPercipiente nuovo;
    nuovo.idAzienda = idAzienda;
    nuovo.codice = codice;
    nuovo.nonResidente = nonResidente;
    nuovo.anagrafica.anagrafica = cognome;
    nuovo.anagrafica.codiceFiscale = "00743110157";
    return *contesto.registrazione().percipiente(std::nullopt, nuovo);
  }
  schede::SchedaCompenso compenso(const schede::SchedaPercipiente& percipiente, const char* giorno,
                                  std::int64_t onorario, std::int64_t ritenuta) {
    schede::SchedaCompenso nuovo;
    nuovo.idAzienda = percipiente.idAzienda;
    nuovo.idAnagrafica = percipiente.anagrafica.id;
    nuovo.idCausale = 1;
    nuovo.pagamento = *Date::parseItalian(giorno);
    nuovo.importi[posto(schede::Importo::Onorario)] = Decimal::fromInteger(onorario);
    nuovo.importi[posto(schede::Importo::RitenutaAcconto)] = Decimal::fromInteger(ritenuta);
    return *contesto.registrazione().compenso(std::nullopt, nuovo);
  }
  std::int32_t comune(const std::string& nome) {
    const schede::Luoghi luoghi(database());
    const schede::Luogo* const luogo = luoghi.comune(nome, "", std::nullopt).uno();
    return luogo == nullptr ? 0 : luogo->id;
  }

  // A click, a text typed, as a front end performs them.
  static void clic(Button& pulsante) {
    pulsante.form().perform(pulsante, [&] { pulsante.click(); });
  }
  static void scrivi(EditBox& casella, const std::string& testo) {
    casella.form().perform(casella, [&] { casella.enter(testo); });
  }
  // Shows a form; `atti` runs while it is open, then it is closed.
  template <class F>
  void apri(F& form, const std::function<void(F&)>& atti) {
    schermo.modals.push_front([&](Form&) { atti(form); });
    form.showModal();
  }
  // What runs in the next form that opens.
  template <class F>
  void poi(const std::function<void(F&)>& atti) {
    schermo.modals.push_back([atti](Form& form) { atti(dynamic_cast<F&>(form)); });
  }
  std::string ultimoBox() const { return schermo.boxes.empty() ? "" : schermo.boxes.back().text; }

  ScriptedFrontEnd schermo;
  SimpleUtility utilita{schermo};
  FixedClock orologio{2018, 3, 5};

 private:
  FakeDatabase finto_;
  OneConnectionHost host_;
  FactoryConRicostruzione factory_;

 protected:
  ContestoGestione contesto{{schermo, utilita, factory_, orologio}};
};

}  // namespace cu::test
