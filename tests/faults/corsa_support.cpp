#include "faults/corsa_support.h"

#include <sqlite3.h>

#include <stdexcept>

#include "apps/comune/connessioni.h"
#include "archive/archivio.h"
#include "archive/ricostruzione.h"
#include "automation/gestures.h"
#include "faults/walker_support.h"
#include "sqlite/sqlite_connection.h"
#include "suite/catalogo_stampe.h"
#include "suite/fabbrica.h"
#include "suite/impostazioni.h"
#include "suite/orologio.h"
#include "suite/utilita.h"
#include "wizard/mod_main.h"

namespace cu::test {
namespace {

constexpr const char* kFile = "Documenti/CUR_04123450233_2016.cur";
constexpr const char* kAltroFile = "Documenti/CUR_04123450233_2015.cur";
constexpr const char* kAltraImpostazione = "[\"Altro\".\"Sezione\"]\nNome = \"valore\"\n";

// Created once, copied for each run.
const std::string& modello() {
  static const TempFolder cartella;
  static std::string file;
  if (file.empty()) {
    file = cartella / "demo.db";
    creaArchivio(*SqliteConnection::create(file), ContenutoArchivio::Dimostrativo);
  }
  return file;
}

std::string interroga(const std::string& file, const std::string& domanda) {
  sqlite3* database = nullptr;
  sqlite3_stmt* istruzione = nullptr;
  if (sqlite3_open(file.c_str(), &database) != SQLITE_OK ||
      sqlite3_prepare_v2(database, domanda.c_str(), -1, &istruzione, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
  std::string testo;
  while (sqlite3_step(istruzione) == SQLITE_ROW) {
    for (int colonna = 0; colonna < sqlite3_column_count(istruzione); ++colonna) {
      const auto* const cella = sqlite3_column_text(istruzione, colonna);
      testo += cella == nullptr ? "NULL" : reinterpret_cast<const char*>(cella);
      testo += '|';
    }
    testo += '\n';
  }
  sqlite3_finalize(istruzione);
  sqlite3_close(database);
  return testo;
}

Control& controllo(Form& form, const std::string& nome) {
  Control* const trovato = form.find(nome);
  if (trovato == nullptr) throw std::logic_error("no control " + nome);
  return *trovato;
}

void correggi(Form& editor) {
  typeInto(controllo(editor, "curField(23)"), "12,5");
  clickOn(controllo(editor, "cmdAltriModuli"));
  // The same module whatever an earlier run has left.
  auto& griglia = dynamic_cast<Grid&>(controllo(editor, "grdAltriModuli"));
  if (griglia.rowCount() > 0) clickOn(controllo(editor, "cmdNew"));
  if (griglia.rowCount() > 0) griglia.press(1, "NumeroModulo");
  typeInto(controllo(editor, "curField(18)"), "77");
  clickOn(controllo(editor, "cmdSave"));
  clickOn(controllo(editor, "cmdOk"));
}

void passi(Form& wizard) {
  clickOn(controllo(wizard, "optstType(1)"));
  clickOn(controllo(wizard, "optCode"));
  Choice anno;
  anno.text = "2016";
  choose(controllo(wizard, "KRNCboEsCont(0)"), anno);
  Choice codice;
  codice.code = "P001";
  choose(controllo(wizard, "KrnCDPerc(0)"), codice);
  codice.code = "P003";
  choose(controllo(wizard, "KrnCDPerc(1)"), codice);
  clickOn(controllo(wizard, "cmdNav(3)"));
  doubleClickRow(controllo(wizard, "grdCompensi"), 1);
  clickOn(controllo(wizard, "cmdNav(3)"));
  clickOn(controllo(wizard, "cmdNav(4)"));
}

}  // namespace

Corsa::Corsa() {
  std::filesystem::copy_file(modello(), cartella_ / "demo.db");
  std::filesystem::create_directory(cartella_ / "Documenti");
  profilo_ = analizzaProfilo(
      "[session]\nuser = 12\ncompany = 1\nbranch = 1\ntitle = \"Quadrivio\"\nhelp_folder = \"/guida\"\n"
      "settings_section = \"Sessione12\"\nprocesses = [ { name = \"Wizard stampa\", function = 247 } ]\n"
      "today = 2017-03-05T10:30:00\n[database]\nurl = \"sqlite:demo.db\"\n[currency]\ndecimals = true\n"
      "symbol = \"€\"\ndecimal = \",\"\nthousands = \".\"\n[folders]\ndocuments = \"Documenti\"\n"
      "settings = \"settings.toml\"\n[printing]\nengine = \"record\"\n",
      "profilo.toml", cartella_.path());
  sporca();
}

void Corsa::sporca() const {
  cartella_.write(kAltroFile, "un file di un altro anno");
  cartella_.write("settings.toml", kAltraImpostazione);
}

bool Corsa::altruiIntatti() const {
  return cartella_.read(kAltroFile) == "un file di un altro anno" &&
         cartella_.read("settings.toml").find("valore") != std::string::npos;
}

Corsa::Esito Corsa::percorri(Guasto& guasto) {
  Walker schermo;
  schermo.passWarnings = true;
  schermo.onForm("frmCompenso2017", correggi);
  schermo.onForm("frmMsgLink", [](Form& avviso) { clickOn(controllo(avviso, "Command1")); });
  const auto ora = orologio(profilo_);
  FileGuasti file(guasto);
  FileSystemPiattaforma fileImpostazioni;
  ImpostazioniToml impostazioniVere(profilo_.impostazioni, fileImpostazioni, [](const std::string&) {});
  ImpostazioniGuaste impostazioni(impostazioniVere, guasto);
  CatalogoStampe stampe;
  UtilitaItaliana utilita(schermo, profilo_.documenti);
  FabbricaSuite fabbrica(profilo_, schermo,
                         {[&]() -> std::unique_ptr<Connection> {
                            return std::make_unique<ConnessioneGuasta>(apriConnessione(profilo_.database),
                                                                       guasto);
                          },
                          [] { return std::make_unique<RicostruzioneContiIndividuali>(); }});
  ModMain programma(Ambiente{schermo, fabbrica, utilita, impostazioni, *ora, file, stampe});
  Esito esito;
  schermo.runEvent([&] { programma.main(); });
  if (schermo.shown != nullptr) {
    Form& wizard = *schermo.shown;
    try {
      passi(wizard);
      esito.finita = wizard.stages().at(0)->onStage();
    } catch (const Refused& rifiuto) {
      // A control made unreachable by a reported error: the user would stop here.
      if (schermo.messages.empty()) throw std::logic_error("refused without a word: " + rifiuto.reason);
    }
    schermo.runEvent([&] { wizard.unload(); });
  }
  esito.messaggi = schermo.messages;
  return esito;
}

std::string Corsa::file() const { return cartella_.read(kFile); }

std::map<std::string, std::string> Corsa::conti() const {
  std::map<std::string, std::string> tavole;
  for (const char* tavola : {"ContoIndividuale", "ContoIndividualeDatiAggiuntivi", "ModuloXContoIndividuale",
                             "ConfigurazioneElencoCliFor", "Anagrafica", "Percipiente"}) {
    tavole[tavola] =
        interroga(cartella_ / "demo.db", std::string("SELECT * FROM ") + tavola + " ORDER BY 1, 2, 3, 4");
  }
  return tavole;
}

std::string Corsa::integrita() const { return interroga(cartella_ / "demo.db", "PRAGMA integrity_check"); }

}  // namespace cu::test
