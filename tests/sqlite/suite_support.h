#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "suite_texts.h"
#include "support.h"

// A small database of the suite.
namespace cu::sqlite::test {

inline constexpr const char* kWork = "tmpprequadrivio12";

class SuiteStatements : public ::testing::Test {
 protected:
  SuiteStatements() : connection_(suiteInMemory()) {
    for (const char* text : {
             "INSERT INTO Azienda (IDAzienda, IDAnagrafica) VALUES (1, 100)",
             "INSERT INTO Anagrafica (IDAnagrafica, Anagrafica, Nome, PersonaFisica, CodiceFiscale, "
             "PartitaIva, "
             "IDComune) VALUES (100, 'Quadrivio Srl', NULL, 0, '', '01234567890', 1)",
             "INSERT INTO Anagrafica (IDAnagrafica, Anagrafica, Nome, PersonaFisica, CodiceFiscale, "
             "PartitaIva, Sesso, "
             "DataNascita, IDComuneNascita, IDNazionalita, IDComune, IDNazione) VALUES "
             "(7, 'Rossi', 'Mario', 1, 'RSSMRA70A01L781X', NULL, 'M', '19700101', 1, 1, 1, 1), "
             "(8, 'D''Amico', NULL, 1, NULL, '09876543210', NULL, NULL, 0, 2, 1, 2), "
             "(9, 'ÀBATE', 'Zoe', 1, 'BTAZOE80A41F205Z', '', 'F', '19800101', 2, NULL, 2, 1)",
             "INSERT INTO Comune (IDComune, Comune, IDProvincia, CodiceComuneDiNascita) VALUES (1, 'Verona', "
             "1, 'L781'), "
             "(2, 'Milano', 2, 'F205')",
             "INSERT INTO Provincia (IDProvincia, Provincia) VALUES (1, 'VR'), (2, 'MI')",
             "INSERT INTO Nazione (IDNazione, Nazione, PrefissoInternazionale) VALUES (1, 'Italia', ''), "
             "(2, 'Francia', '029')",
             "INSERT INTO CodiceCarica (IDCodiceCarica, Codice, CodiceCarica) VALUES (1, '1', "
             "'Rappresentante legale')",
             "INSERT INTO ConfigurazioneGenerale (IDAzienda, CodiceFiscaleSocieta, "
             "IDAnagraficaRappresentante, "
             "IDCodiceCaricaRappresentante, IDFilialePrevalente) VALUES (1, '01234567890', 7, 1, 1)",
             "INSERT INTO Filiale (IDFiliale, IDAzienda, IDAttivitaAzienda) VALUES (1, 1, 1)",
             "INSERT INTO AttivitaAzienda (IDAttivitaAzienda, IDAzienda) VALUES (1, 1)",
             "INSERT INTO PeriodoIva (IDPeriodoIva, IDAzienda, Anno) VALUES (1, 1, 2016)",
             "INSERT INTO AttivitaAziendaPerPeriodoIva (IDAttivitaAzienda, IDPeriodoIva, IDCodiceAttivita) "
             "VALUES (1, 1, 1)",
             "INSERT INTO CodiceAttivita (IDCodiceAttivita, CodiceAttivita) VALUES (1, '620100')",
             "INSERT INTO CausalePagamento (IDCausalePagamento, Codice, CausalePagamento, "
             "IDTipoCausalePagamento) VALUES "
             "(1, 'A', 'Lavoro autonomo', 1), (2, 'm ', 'Occasionale', 2)",
             "INSERT INTO CodicePerNonSoggetti (IDCodicePerNonSoggetti, Codice, Descrizione) VALUES (1, '7', "
             "'Altri')",
             "INSERT INTO Percipiente (IDAzienda, IDAnagrafica, Codice, NonResidente) VALUES (1, 7, '0001', "
             "0), "
             "(1, 8, '0002', -1), (1, 9, '0003', NULL)",
             "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
             "OnorarioProvvigioni, "
             "QuotaProvvigioniNonSoggette, SommeNonSoggette, SommeNonSoggetteRegConv, RitenutaAcconto, "
             "RitenutaImposta, "
             "ContributoPrevidenziale, RitenutaPrevidenziale13) VALUES "
             "(9, 1, 2016, 1, 1000.1, 0, 0.2, NULL, 200, 0, 30.3, 10.1), "
             "(7, 2, 2016, 1, 500, 0, 75.5, 0, 100, 0, 0, 0), "
             "(7, 1, 2016, 1, 2000, 100.25, 0, 0, 400, 0, 0, 0), "
             "(8, 1, 2016, 1, -10.5, 0, 0, 0, 0, 0, 0, 0), "
             "(8, 1, 2015, 1, 1, 0, 0, 0, 0, 0, 0, 0)",
             "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
             "Anticipazione, AltriContributi, IDCodicePerNonSoggetti) VALUES (7, 1, 2016, 1, 1, -1, 1)",
             "INSERT INTO ModuloXContoIndividuale (IDModuloXContoIndividuale, IDAnagrafica, IDAzienda, "
             "IDCausalePagamento, Anno, NumeroModulo, SommeNonSoggette, Anticipazione) VALUES "
             "(3, 9, 1, 1, 2016, 3, 2.05, 0), (2, 9, 1, 1, 2016, 2, 1.05, 0), (1, 7, 1, 1, 2016, 2, NULL, 1)",
         }) {
      connection_->Execute(text);
    }
  }

  void load(std::string_view filter = " WHERE Anno = 2016 AND IDAzienda = 1") {
    connection_->Execute(dropWorkTable(kWork));
    connection_->Execute(createWorkTable(kWork));
    connection_->Execute(fillWorkTable(kWork, filter));
  }
  Lines work(std::string_view columns) {
    return query(*connection_, "SELECT " + std::string(columns) + " FROM " + kWork);
  }
  std::string one(std::string_view text) { return single(*connection_, text); }

  std::unique_ptr<SqliteConnection> connection_;
};

}  // namespace cu::sqlite::test
