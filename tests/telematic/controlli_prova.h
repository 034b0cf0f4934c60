#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "support/fake_connection.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "telematic/controlli.h"

namespace cu::test {

using Riga = std::map<std::string, Value>;

inline const std::string kAzienda =
    "SELECT CASE WHEN ISNULL(Anagrafica.CodiceFiscale, '') = '' THEN Anagrafica.PartitaIva ELSE"
    " Anagrafica.CodiceFiscale END AS CodFisc,"
    " Anagrafica.Anagrafica AS AnagAz, Anagrafica.PersonaFisica AS PersonaFisicaAz,"
    " Anagrafica.Nome AS NomeAz,"
    " ComAz.Comune ComuneAz, ProvAz.Provincia SiglaProvinciaAz,"
    " AnagRapp.Anagrafica AS AnagraficaRapp, AnagRapp.Nome AS NomeRapp,"
    " AnagRapp.CodiceFiscale AS CodiceFiscaleRapp, CodiceCarica.Codice CodiceCarica"
    " FROM Anagrafica"
    " INNER JOIN Azienda ON Anagrafica.IDAnagrafica = Azienda.IDAnagrafica"
    " LEFT JOIN Comune ComAz ON Anagrafica.IDComune = ComAz.IDComune"
    " LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia = ProvAz.IDProvincia"
    " LEFT JOIN ConfigurazioneGenerale CG ON Azienda.IDAzienda = CG.IDAzienda"
    " LEFT JOIN Anagrafica AnagRapp ON CG.IDAnagraficaRappresentante = AnagRapp.IDAnagrafica"
    " LEFT JOIN CodiceCarica ON CG.IDCodiceCaricaRappresentante = CodiceCarica.IDCodiceCarica"
    " WHERE Azienda.IDAzienda = 7";

inline const std::string kPercipienti =
    "SELECT DISTINCT Anag.Sesso, Anag.DataNascita, NonResidente, Anag.Indirizzo, Anag.PersonaFisica,"
    " Anag.Anagrafica, Anag.Nome, Anag.Anagrafica + ' ' + ISNULL(Anag.Nome,'') AS AnagPercipiente,"
    " CASE WHEN ISNULL(Anag.CodiceFiscale, '') = '' THEN Anag.PartitaIva ELSE Anag.CodiceFiscale END"
    " AS CodiceFiscale,"
    " ComNascita.Comune AS ComuneNascita, ComRes.Comune AS ComuneRes, NazNasc.Nazione AS NazioneNascita,"
    " CodiceIdentificazioneFiscaleEstero, NazRes.PrefissoInternazionale PrefissoInternazionaleRes"
    " FROM tmpprequadrivio12 INNER JOIN Anagrafica Anag ON tmpprequadrivio12.IDAnagrafica = Anag.IDAnagrafica"
    " LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita = ComNascita.IDComune"
    " LEFT JOIN Provincia ProvNascita ON ComNascita.IDProvincia = ProvNascita.IDProvincia"
    " LEFT JOIN Nazione NazNasc ON Anag.IDNazionalita = NazNasc.IDNazione"
    " LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune"
    " LEFT JOIN Provincia ProvRes ON ComRes.IDProvincia = ProvRes.IDProvincia"
    " LEFT JOIN Nazione NazRes ON Anag.IDNazione = NazRes.IDNazione"
    " WHERE Selezionato <> 0";

inline Riga aziendaCompleta(bool personaFisica) {
  return {{"CodFisc", text("01234567890")},
          {"AnagAz", text("Quadrivio SRL")},
          {"PersonaFisicaAz", whole(personaFisica ? 1 : 0)},
          {"NomeAz", personaFisica ? text("Ada") : null()},
          {"ComuneAz", text("Roma")},
          {"SiglaProvinciaAz", text("RM")},
          {"AnagraficaRapp", personaFisica ? null() : text("Bianchi")},
          {"NomeRapp", personaFisica ? null() : text("Ada")},
          {"CodiceFiscaleRapp", personaFisica ? null() : text("BNCDAA70A41H501X")},
          {"CodiceCarica", personaFisica ? null() : text("1")}};
}

inline Riga percipienteCompleto() {
  return {{"Sesso", text("M")},
          {"DataNascita", day(1970, 1, 1)},
          {"NonResidente", whole(0)},
          {"Indirizzo", text("Via Roma 1")},
          {"PersonaFisica", whole(1)},
          {"Anagrafica", text("Rossi")},
          {"Nome", text("Mario")},
          {"AnagPercipiente", text("Rossi Mario")},
          {"CodiceFiscale", text("RSSMRA70A01H501U")},
          {"ComuneNascita", text("Roma")},
          {"ComuneRes", text("Roma")},
          {"NazioneNascita", text("Italia")},
          {"CodiceIdentificazioneFiscaleEstero", null()},
          {"PrefissoInternazionaleRes", null()}};
}

inline Table tavola(const Riga& colonne, const std::vector<Riga>& righe) {
  Table risultato;
  for (const auto& [nome, valore] : colonne) risultato.columns.push_back({nome, ValueType::Null});
  for (const Riga& riga : righe) {
    std::vector<Value> valori;
    for (const auto& [nome, valore] : riga) valori.push_back(valore);
    risultato.rows.push_back(std::move(valori));
  }
  return risultato;
}

class Checks : public testing::Test {
 protected:
  void esegui() {
    connessione.answer(kAzienda, tavola(aziendaCompleta(false), aziende));
    connessione.answer(kPercipienti, tavola(percipienteCompleto(), percipienti));
    controlli.esegui(dati, 7, "tmpprequadrivio12");
  }
  // Campo, Sezione, Denominazione, Codice fiscale, Message of each datum that is missing.
  std::vector<std::vector<std::string>> righe() const {
    std::vector<std::vector<std::string>> trovate;
    for (const DatoMancante& dato : controlli.mancanti()) {
      trovate.push_back({dato.campo, dato.sezione, dato.denominazione, dato.codiceFiscale, dato.messaggio});
    }
    return trovate;
  }

  std::vector<std::string> colonna(std::size_t quale) const {
    std::vector<std::string> testi;
    for (const auto& riga : righe()) testi.push_back(riga.at(quale));
    return testi;
  }

  DatiControllo dati{.dataFirma = "05/03/2017",
                     .usoIntermediari = true,
                     .codiceFiscaleIntermediario = "NTRMDR70A01H501U",
                     .dataImpegno = "01/02/2017"};
  std::vector<Riga> aziende = {aziendaCompleta(false)};
  std::vector<Riga> percipienti = {percipienteCompleto()};
  FakeConnection connessione;
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  Controlli controlli{connessione, utilita};
};

}  // namespace cu::test
