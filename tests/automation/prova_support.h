#pragma once

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "automation/driver.h"
#include "base/text.h"
#include "controls/band.h"
#include "controls/datebox.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/listbox.h"
#include "controls/menubar.h"
#include "controls/print_control.h"
#include "controls/selector.h"
#include "controls/textbox.h"
#include "support/fake_connection.h"

namespace cu::test {

using nlohmann::json;

// A modal form with one button that closes it and one that first raises a question.
class FrmFiglia : public Form {
 public:
  explicit FrmFiglia(FrontEnd& frontEnd) : Form(frontEnd, "frmFiglia", "Figlia") {
    cmdOk.onClick = [this] { unload(); };
    defaultButton = &cmdOk;
    cancelButton = &cmdAnnulla;
    cmdAnnulla.onClick = [this] {
      if (this->frontEnd().messageBox(
              {"Chiudere?", "Figlia", BoxIcon::Question, BoxButtons::YesNo, Answer::No}) == Answer::Yes) {
        unload();
      }
    };
  }
  bool rifiuta = false;
  TextBox txtNota{*this, "txtNota", nullptr};
  Button cmdOk{*this, "cmdOk", nullptr, "OK"};
  Button cmdAnnulla{*this, "cmdAnnulla", nullptr, "Annulla"};

 private:
  bool refusesClose() override { return rifiuta; }
};

class CatalogoProva : public ReportCatalogue {
 public:
  std::vector<ReportInfo> reports(std::int32_t) const override { return {{"Uno.rpt", 1}, {"Due.rpt", 2}}; }
};

// One control of each kind, and buttons that open each kind of modal. Events are recorded in `eventi`.
class FrmProva : public Form {
 public:
  explicit FrmProva(FrontEnd& schermo) : Form(schermo, "frmProva", "Prova") {
    fraChiusa.setEnabled(false);
    fraNascosta.setVisible(false);
    fraFuori.setLeft(Frame::kOffStage);
    cmdSpento.setEnabled(false);
    cmdNascosto.setVisible(false);
    txtBloccato.setLocked(true);
    txtBloccato.setText("fermo");
    txtBloccato.setBackground(Background::Face);
    txtNome.setMaxLength(5);
    txtNome.keyFilter = [this](char32_t c) {
      if (c != U'#') return true;
      frontEnd().beep();
      return false;
    };
    txtNome.onChange = [this] { nota("cambia " + txtNome.text()); };
    txtNome.onLostFocus = [this] { nota("lascia txtNome"); };
    txtNome.onGotFocus = [this] { nota("prende txtNome"); };
    dtGiorno.onChange = [this] { nota("data " + dtGiorno.text()); };
    chkScelta.onClick = [this] { nota(chkScelta.value() ? "sì" : "no"); };
    for (int i = 0; i < 2; ++i) {
      optModo[i].onClick = [this, i] { nota("modo " + fromInteger(i)); };
    }
    cboElenco.add("2017", 17);
    cboElenco.add("2016", 16);
    cboElenco.onChange = [this] { nota("elenco " + fromInteger(cboElenco.index())); };
    tabella.answerContaining(
        "Codice = 'B'", Table({"IDReparto", "Codice", "Reparto"}, {{whole(2), text("B"), text("Bravo")}}));
    tabella.answerContaining(
        "IDReparto = 2", Table({"IDReparto", "Codice", "Reparto"}, {{whole(2), text("B"), text("Bravo")}}));
    tabella.answerContaining("Codice = 'Z'", Table({"IDReparto", "Codice", "Reparto"}, {}));
    tabella.answerContaining("IDReparto = 9", Table({"IDReparto", "Codice", "Reparto"}, {}));
    tabella.refuseContaining("Codice = 'GUASTO'");
    selReparto.bind(tabella, {{"Reparti", "Codice", "Reparto", "IDReparto", "IDAzienda = 1"},
                              "Codice",
                              "Reparto",
                              "Reparti",
                              false,
                              true});
    selReparto.onChange = [this] { nota("reparto " + selReparto.code()); };
    tabella.answer("Righe", Table({"ID", "Nome", "Importo", "Scelto"},
                                  {{whole(1), text("Alfa"), amount("1234.5"), whole(1)},
                                   {whole(2), text("Beta"), null(), whole(0)},
                                   {whole(3), text("Gamma"), amount("-0.01"), whole(1)}}));
    righe.Open(tabella, "Righe", LockType::BatchOptimistic);
    grdRighe.addColumn({"Scelto", "[ 0 ]", kGridBoolean, 700, 2, true, false});
    grdRighe.addColumn({"Popup", "", kGridBigInteger, 380, 0, true, false});
    grdRighe.addColumn({"Nome", "Nome", kGridText, 2000, 0, true, false});
    grdRighe.addColumn({"Importo", "Importo", kGridDouble, 2000, 1, true, false});
    grdRighe.addColumn({"ID", "ID", kGridBigInteger, 0, 0, false, false});
    grdRighe.paintValue = [](const GridColumn& colonna, Value& valore) {
      if (colonna.field == "Popup") valore = Value::ofInteger(2);
    };
    grdRighe.bind(&righe);
    grdRighe.onMouseUp = [this](std::size_t riga, const std::string& colonna) {
      nota("mouse " + fromInteger(static_cast<std::int64_t>(riga)) + " " + colonna);
      if (colonna == "Popup" && riga > 0) frontEnd().popup(barMenu, "bandaRiga");
    };
    grdRighe.onDoubleClick = [this] { nota("doppio"); };
    grdRighe.onRowChange = [this] { nota("riga " + righe.Get("Nome").toText()); };
    grdRighe.onKeyDown = [this](std::int16_t& codice, std::int16_t&) {
      if (codice != 32) return;
      nota("spazio");
      codice = 0;
    };
    bndPassi.add("- Passo iniziale", "Filtri");
    bndPassi.add("- Passo finale", "Fine");
    bndPassi.select(1);
    barMenu.addTool({"Modifica", 1, "bandaRiga", "&Modifica", "", true});
    barMenu.addTool({"Spento", 2, "bandaRiga", "&Spento", "", false});
    barMenu.addTool({"Altrove", 3, "bandaComune", "&Altrove", "Control+G", true});
    barMenu.setStyle(2);
    barMenu.onToolClick = [this](const std::string& voce) { nota("voce " + voce); };
    prnStampa.setCatalogue(catalogo);
    lnkAiuto.onClick = [this] { frontEnd().open("/cartella con spazi", "/cartella con spazi"); };
    onKeyDown = [this](std::int16_t& codice, std::int16_t& shift) {
      if (codice == 82 && shift == 2) {
        codice = 0;
        nota("control r");
      }
      if (codice == 65) chiedi();
    };
    onWheel = [this](int delta) { nota("rotella " + fromInteger(delta)); };
    bottoni();
  }

  std::vector<std::string> eventi;
  void nota(const std::string& evento) { eventi.push_back(evento); }
  bool rifiuta = false;
  int scarichi = 0;

  FakeConnection tabella;
  CatalogoProva catalogo;
  Recordset righe;
  TextBox txtNome{*this, "txtNome", nullptr};
  TextBox txtBloccato{*this, "txtBloccato", nullptr};
  DateBox dtGiorno{*this, "dtGiorno", nullptr};
  Check chkScelta{*this, "chkScelta", nullptr, "Scelta"};
  Frame fraModo{*this, "fraModo", nullptr, "Modo"};
  Option optModo[2] = {{*this, "optModo(0)", &fraModo, "Uno", true}, {*this, "optModo(1)", &fraModo, "Due"}};
  ListBox cboElenco{*this, "cboElenco", nullptr};
  Selector selReparto{*this, "selReparto", nullptr};
  Grid grdRighe{*this, "grdRighe", nullptr};
  SideBand bndPassi{*this, "bndPassi", nullptr};
  MenuBar barMenu{*this, "barMenu", nullptr};
  PrintControl prnStampa{*this, "prnStampa", nullptr};
  Label lblEtichetta{*this, "lblEtichetta", nullptr, "Etichetta"};
  Link lnkAiuto{*this, "lnkAiuto", nullptr, "Aiuto"};
  Frame fraChiusa{*this, "fraChiusa", nullptr, "Chiusa"};
  Frame fraInterna{*this, "fraInterna", &fraChiusa, "Interna"};
  Button cmdInChiusa{*this, "cmdInChiusa", &fraInterna, "Dentro"};
  Frame fraNascosta{*this, "fraNascosta", nullptr};
  Button cmdInNascosta{*this, "cmdInNascosta", &fraNascosta, "Dentro"};
  Frame fraFuori{*this, "fraFuori", nullptr};
  Button cmdInFuori{*this, "cmdInFuori", &fraFuori, "Dentro"};
  Button cmdSpento{*this, "cmdSpento", nullptr, "Spento"};
  Button cmdNascosto{*this, "cmdNascosto", nullptr, "Nascosto"};
  Button cmdChiedi{*this, "cmdChiedi", nullptr, "Chiedi"};
  Button cmdErrore{*this, "cmdErrore", nullptr, "Errore"};
  Button cmdCartella{*this, "cmdCartella", nullptr, "Cartella"};
  Button cmdStampante{*this, "cmdStampante", nullptr, "Stampante"};
  Button cmdSalva{*this, "cmdSalva", nullptr, "Salva"};
  Button cmdRegistro{*this, "cmdRegistro", nullptr, "Registro"};
  Button cmdAnteprima{*this, "cmdAnteprima", nullptr, "Anteprima"};
  Button cmdFiglia{*this, "cmdFiglia", nullptr, "Figlia"};
  Button cmdEffetti{*this, "cmdEffetti", nullptr, "Effetti"};
  Button cmdSpegniti{*this, "cmdSpegniti", nullptr, "Spegniti"};
  Button cmdEsci{*this, "cmdEsci", nullptr, "Esci"};

  std::vector<const Frame*> stages() const override { return {&fraModo, &fraFuori}; }

 private:
  void formUnload() override { ++scarichi; }
  bool refusesClose() override { return rifiuta; }
  void chiedi() {
    const Answer risposta = frontEnd().messageBox(
        {"Prima riga\r\nSeconda", "Titolo", BoxIcon::Question, BoxButtons::YesNoCancel, Answer::Cancel});
    nota("risposta " + fromInteger(static_cast<int>(risposta)));
  }
  void bottoni() {
    cmdChiedi.onClick = [this] { chiedi(); };
    cmdErrore.onClick = [this] {
      frontEnd().setPointer(kPointerHourglass);
      throw Error(76, "Percorso non trovato");
    };
    cmdCartella.onClick = [this] {
      nota("cartella [" + frontEnd().chooseFolder("Seleziona cartella...", "/da qui") + "]");
      nota("cartella [" + frontEnd().chooseFolder("Senza partenza", std::nullopt) + "]");
    };
    cmdStampante.onClick = [this] {
      const auto scelta = frontEnd().choosePrinter();
      nota(scelta ? scelta->printer + " " + fromInteger(scelta->copies) : "nessuna");
    };
    cmdSalva.onClick = [this] {
      nota("file " + frontEnd().chooseFileToSave("Salva", "/x/a.pdf", "*.pdf").value_or("nessuno"));
    };
    cmdRegistro.onClick = [this] {
      frontEnd().showLog({{"Campo", "MessageType"}, {{Value::ofText("Nome"), Value::ofInteger(2)}}});
      nota("registro chiuso");
    };
    cmdAnteprima.onClick = [this] {
      frontEnd().preview({"Conto", {"pagina 1", "pagina 2"}, ""});
      nota("anteprima chiusa");
    };
    cmdFiglia.onClick = [this] {
      FrmFiglia figlia(frontEnd());
      figlia.rifiuta = rifiuta;
      figlia.showModal();
      nota("figlia chiusa");
    };
    cmdEffetti.onClick = [this] {
      frontEnd().help("/guida/Velatura.chm", 15, 100);
      frontEnd().beep();
      frontEnd().beep();
      frontEnd().viewText("/x/a.cur");
      frontEnd().printed({6, 3, "Uno.rpt", "{x} = 1", "/x/a.cur", "", 0});
      frontEnd().printed({2, std::nullopt, "Uno.rpt", "", "", "laser", 2});
    };
    cmdSpegniti.onClick = [this] { cmdSpegniti.setEnabled(false); };
    cmdEsci.onClick = [this] { unload(); };
  }
};

// A whole conversation with FrmProva: the lines sent, the answers received.
struct Dialogo {
  std::vector<json> risposte;
  Driver::Outcome esito = Driver::Outcome::Ended;
  std::vector<std::string> eventi;
  int scarichi = 0;

  const json& ultima() const { return risposte.back(); }
  // The answer to the n-th command, from 1.
  const json& a(std::size_t n) const { return risposte.at(n); }
};

inline Dialogo parlaTesto(const std::string& ingresso, const std::function<void(FrmProva&)>& prepara = {}) {
  std::istringstream in(ingresso);
  std::ostringstream out;
  Dialogo dialogo;
  {
    Driver driver(in, out);
    FrmProva form(driver);
    if (prepara) prepara(form);
    dialogo.esito = driver.drive([&] { form.show(); });
    dialogo.eventi = form.eventi;
    dialogo.scarichi = form.scarichi;
  }
  std::istringstream righe(out.str());
  for (std::string riga; std::getline(righe, riga);) dialogo.risposte.push_back(json::parse(riga));
  return dialogo;
}

inline Dialogo parla(const std::vector<std::string>& comandi,
                     const std::function<void(FrmProva&)>& prepara = {}) {
  std::string ingresso;
  for (const std::string& comando : comandi) ingresso += comando + "\n";
  return parlaTesto(ingresso, prepara);
}

}  // namespace cu::test
