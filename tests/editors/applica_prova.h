#pragma once

#include <string>
#include <utility>
#include <vector>

#include "editors/campi_prova.h"

namespace cu::test {

// An editor whose page of modules is used, and the resulting statements.
class Applying : public CampiProva {
 public:
  Applying() { massimo(whole(41)); }
  void massimo(Value valore) {
    database.main.answer("SELECT MAX(IDModuloXContoIndividuale) AS ID FROM ModuloXContoIndividuale",
                         Table({"ID"}, {{std::move(valore)}}));
  }
  void aggiungi() {
    premi("cmdNew");
    premi("cmdSave");
  }
  void seleziona(std::size_t n) { griglia().press(n, "NumeroModulo"); }
  void elimina(std::size_t n) {
    seleziona(n);
    premi("cmdDelete");
  }
  void modifica(std::size_t n) {
    seleziona(n);
    importo(18).enter("99");
    premi("cmdSave");
  }
  // The statements, by their first word and their module.
  std::vector<std::string> opere() {
    std::vector<std::string> tutte;
    for (const std::string& testo : istruzioni()) {
      const std::size_t spazio = testo.find(' ');
      const std::string inserita = testo.substr(testo.find("VALUES (") + 8);
      const std::string chiave = testo.substr(0, 6) == "INSERT" ? inserita.substr(0, inserita.find(','))
                                                                : testo.substr(testo.rfind(' ') + 1);
      tutte.push_back(testo.substr(0, spazio) + " " + chiave);
    }
    return tutte;
  }
  // Fills the fields of a new module, each amount with the number of its field.
  void riempi(int anno) {
    for (const Campo& campo : tavolaModuli()) {
      if (!campo.nel(anno)) continue;
      const std::string numero = campo.campo;
      switch (campo.tipo) {
        case Tipo::Importo:
          importo(indice(campo.controllo)).enter(numero + ",5");
          break;
        case Tipo::Testo:
          testo(indice(campo.controllo)).enter("l'" + numero);
          break;
        case Tipo::Flag:
          c<Check>(campo.controllo).setValue(true);
          break;
        case Tipo::Elenco:
          c<ListBox>(campo.controllo).setRecord(2);
          break;
        case Tipo::Numero:
          break;
      }
    }
    c<NumberBox>("numModulo").enter("4");
    c<NumberBox>("numAnno").enter("2009");
  }
};

}  // namespace cu::test
