#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "controls/listbox.h"
#include "controls/numericbox.h"
#include "controls/picker.h"
#include "controls/tabs.h"
#include "controls/textbox.h"
#include "editors/editor.h"
#include "support/editor_answers.h"
#include "support/memory_settings.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"

namespace cu::test {

// An editor on a work table in memory, with surroundings that record their calls: company 1, title
// "Quadrivio", the euro.
class EditorProva {
 public:
  EditorProva() {
    auto sessione = std::make_unique<FakeSession>(database);
    globali.gSessione = std::move(sessione);
    globali.gTitolo = "Quadrivio";
    globali.gChiaveImpostazioni = "Quadrivio";
    globali.gDecimaliValuta = 1;
    globali.gSimboloValuta = "€";
    globali.gSeparatoreDecimale = ",";
    globali.gSeparatoreMigliaia = ".";
    globali.gTabellaLavoro = "tmpprequadrivio12";
    answerEditors(database);
  }

  // Before apri(): the modules in the database.
  void moduli(const std::vector<WorkRow>& righe) {
    database.internal.answerContaining("FROM ModuloXContoIndividuale WHERE Anno = ", moduleTable(righe));
  }
  // Creates the editor of the year and loads the row, whose year is set to it. The form is not shown.
  Editor& apri(std::int32_t anno, WorkRow cambi = {}, std::int32_t tipo = 1) {
    cambi.try_emplace("Anno", whole(anno));
    if (editor) editor.reset();
    if (riga.IsOpen()) riga.Close();
    database.main.answer("tabella", workTable({workRow(1, 1, std::move(cambi)), workRow(2, 1)}));
    riga.Open(database.main, "tabella", LockType::BatchOptimistic);
    editor = fnCreaEditor(anno, {frontEnd, globali, utilita, settings});
    editor->setRecordset(riga);
    editor->setTipoComunicazione(static_cast<Comunicazione>(tipo));
    database.main.sent.clear();
    return *editor;
  }

  template <class C>
  C& c(const std::string& nome) {
    Control* const trovato = editor->find(nome);
    if (trovato == nullptr) throw std::logic_error("no control " + nome);
    return dynamic_cast<C&>(*trovato);
  }
  bool esiste(const std::string& nome) { return editor->find(nome) != nullptr; }
  AmountBox& importo(int indice) { return c<AmountBox>(element("curField", indice)); }
  TextBox& testo(int indice) { return c<TextBox>(element("txtField", indice)); }
  void premi(const std::string& nome) {
    frontEnd.runEvent([&] { c<Button>(nome).click(); });
  }
  // Sets the focus to the field and removes it.
  void lascia(Control& controllo) {
    editor->setFocus(&controllo);
    editor->setFocus(nullptr);
  }
  std::vector<std::string> istruzioni() const { return database.main.texts(FakeConnection::Kind::Execute); }

  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  MemorySettings settings;
  FakeDatabase database;
  Globali globali;
  Recordset riga;
  std::unique_ptr<Editor> editor;
};

}  // namespace cu::test
