#pragma once

#include <map>
#include <string>

#include "controls/grid.h"
#include "editors/editor_prova.h"
#include "editors/tavole.h"

namespace cu::test {

// A row as the database may contain it, with a different value in every column: payment reason "N", codes and
// municipalities known to the database.
inline WorkRow rigaPiena() {
  WorkRow riga;
  int n = 100;
  for (const WorkColumn& colonna : kWorkColumns) {
    ++n;
    const std::string nome(colonna.name);
    if (colonna.type == "Importo") {
      riga[nome] = amount(std::to_string(n) + ".25");
    } else if (colonna.type == "int" || colonna.type == "SiNo") {
      riga[nome] = whole(n);
    } else {
      riga[nome] = text("T" + std::to_string(n));
    }
  }
  riga["Selezionato"] = whole(1);
  riga["Modificato"] = whole(0);
  riga["Anticipazione"] = whole(1);
  riga["AltriContributi"] = amount("1");
  riga["PignoramentoTerziRitenuteNonOperate1"] = amount("1");
  riga["PignoramentoTerziRitenuteNonOperate2"] = amount("1");
  riga["Codice"] = text("N");
  riga["CodiceCarica"] = text("3");
  riga["IDCodicePerNonSoggetti"] = whole(1);
  riga["CodicePerNonSoggetti"] = text("C1");
  riga["IDComuneResidenzaAnnoPrec"] = whole(58);
  riga["IDComuneResidenzaAnnoCorr"] = whole(59);
  riga["ComuneResidenzaAnnoPrec"] = text("Roma");
  riga["ComuneResidenzaAnnoCorr"] = text("Milano");
  riga["SiglaProvResidenzaAnnoPrec"] = text("RM");
  riga["SiglaProvResidenzaAnnoCorr"] = text("MI");
  riga["CodiceComuneDiNascitaPrec"] = text("H501");
  riga["CodiceComuneDiNascitaCorr"] = text("F205");
  riga["IDAnagrafica"] = whole(1);
  riga["IDCausalePagamento"] = whole(1);
  riga["IDAzienda"] = whole(1);
  riga.erase("Anno");
  return riga;
}

// A module with a different value in every column, for the editor of a year.
inline WorkRow moduloPieno(std::int64_t id, std::int64_t numero) {
  WorkRow modulo;
  int n = 200;
  for (const std::string_view nome : kModuleColumns) {
    ++n;
    const std::string colonna(nome);
    if (colonna.find("CodiceFiscale") != std::string::npos) {
      modulo[colonna] = text("M" + std::to_string(n));
    } else {
      modulo[colonna] = amount(std::to_string(n) + ".75");
    }
  }
  for (const char* flag : {"Anticipazione", "AltriContributi", "PignoramentoTerziRitenuteNonOperate1",
                           "PignoramentoTerziRitenuteNonOperate2"}) {
    modulo[flag] = whole(1);
  }
  modulo["IDModuloXContoIndividuale"] = whole(id);
  modulo["NumeroModulo"] = whole(numero);
  modulo["IDCodicePerNonSoggetti"] = whole(1);
  modulo["AnnoModulo"] = whole(2011);
  return modulo;
}

// A minimal module.
inline WorkRow modulo(std::int64_t id, std::int64_t numero, WorkRow altro = {}) {
  altro["IDModuloXContoIndividuale"] = whole(id);
  altro["NumeroModulo"] = whole(numero);
  altro.try_emplace("Anticipazione", whole(0));
  return altro;
}

// An editor and a database with two codes and two municipalities.
class CampiProva : public EditorProva {
 public:
  CampiProva() {
    for (const char* codice : {"1", "2"}) {
      database.internal.answerContaining(
          std::string("SELECT Codice FROM CodicePerNonSoggetti WHERE IDCodicePerNonSoggetti = ") + codice,
          Table({"Codice"}, {{text(std::string("C") + codice)}}));
    }
    comune(58, "Roma", "H501", "RM");
    comune(59, "Milano", "F205", "MI");
  }

  void comune(int id, const char* nome, const char* codice, const char* provincia) {
    database.own.answer("SELECT Comune FROM Comune WHERE IDComune = " + std::to_string(id),
                        Table({"Comune"}, {{text(nome)}}));
    database.internal.answer(
        "SELECT CodiceComuneDiNascita, Provincia FROM Comune INNER JOIN Provincia ON "
        "Comune.IDProvincia = Provincia.IDProvincia WHERE IDComune = " +
            std::to_string(id),
        Table({"CodiceComuneDiNascita", "Provincia"}, {{text(codice), text(provincia)}}));
  }

  // The value shown by the control, in the notation of a column's value.
  std::string mostrato(const Campo& campo) {
    switch (campo.tipo) {
      case Tipo::Importo:
        return CellView::ofDecimal(c<AmountBox>(campo.controllo).number()).toText();
      case Tipo::Testo:
        return c<TextBox>(campo.controllo).text();
      case Tipo::Flag:
        return c<Check>(campo.controllo).value() ? "1" : "0";
      case Tipo::Elenco:
        return fromInteger(c<ListBox>(campo.controllo).record().value_or(0));
      case Tipo::Numero:
        return fromInteger(c<NumberBox>(campo.controllo).value());
    }
    return {};
  }
  // Changes the control as the user, to a value that it did not show.
  std::string cambia(const Campo& campo) {
    switch (campo.tipo) {
      case Tipo::Importo:
        c<AmountBox>(campo.controllo).enter("77,5");
        return "77.5";
      case Tipo::Testo:
        c<TextBox>(campo.controllo).enter("VRDLGI80A01F205X");
        return "VRDLGI80A01F205X";
      case Tipo::Flag: {
        Check& flag = c<Check>(campo.controllo);
        flag.click();
        return flag.value() ? "1" : "0";
      }
      case Tipo::Elenco: {
        ListBox& elenco = c<ListBox>(campo.controllo);
        elenco.setRecord(elenco.record() == 2 ? 1 : 2);
        return fromInteger(*elenco.record());
      }
      case Tipo::Numero:
        c<NumberBox>(campo.controllo).enter("9");
        return "9";
    }
    return {};
  }

  using Righe = std::map<std::string, std::string>;
  static Righe fotografia(const Recordset& righe) {
    Righe colonne;
    for (std::size_t n = 0; n < righe.Fields().size(); ++n) {
      colonne[righe.Fields()[n].name] = righe.Get(n).isNull() ? "NULL" : righe.Get(n).toText();
    }
    return colonne;
  }
  // The columns that differ, with their new values.
  static Righe differenze(const Righe& prima, const Righe& dopo) {
    Righe diverse;
    for (const auto& [nome, valore] : dopo) {
      if (prima.at(nome) != valore) diverse[nome] = valore;
    }
    return diverse;
  }

  Grid& griglia() { return c<Grid>("grdAltriModuli"); }
  Recordset& righeModuli() { return *griglia().rows(); }
  bool salvaAcceso() { return c<Button>("cmdSave").enabled(); }
  bool modificata() { return riga.Get("Modificato").flag(); }
};

}  // namespace cu::test
