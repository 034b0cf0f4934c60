#include "intake/date_pagamento.h"

#include <algorithm>
#include <utility>

#include "base/codice_fiscale.h"
#include "base/text.h"
#include "intake/lettura_fatture.h"

namespace cu::intake {
namespace {

std::string chiaveData(char genere, std::string_view chi, std::string_view numero, Date documento) {
  return genere + lowerAscii(trim(chi)) + '\n' + lowerAscii(trim(numero)) + '\n' +
         fromInteger(documento.serial());
}

void manca(TavolaDate& tavola, const PostoMessaggio& posto, const char* che) {
  tavola.messaggi.push_back(messaggio(Codice::C01, che));
  tavola.messaggi.back().posto = posto;
}

// What the table of payments requires, and this one does not.
bool superfluo(const Messaggio& uno) { return uno.codice == Codice::C01 || uno.codice == Codice::C03; }

void aggiungi(TavolaDate& tavola, const RigaLetta& riga, const PostoMessaggio& posto) {
  using enum ColonnaCompenso;
  bool errori = false;
  for (const Messaggio& uno : riga.messaggi) {
    if (superfluo(uno)) continue;
    tavola.messaggi.push_back(uno);
    tavola.messaggi.back().posto = posto;
    errori = errori || uno.gravita == Gravita::Errore;
  }
  if (errori) return;
  DataPagata data;
  data.codicePercipiente = riga.valore(CodicePercipiente).text();
  data.codiceFiscale = riga.valore(CodiceFiscale).text();
  data.partitaIva = riga.valore(PartitaIva).text();
  data.numero = riga.valore(NumeroDocumento).text();
  data.documento = riga.valore(DataDocumento).date();
  data.pagamento = riga.valore(DataPagamento).date();
  if (data.codicePercipiente.empty() && data.codiceFiscale.empty() && data.partitaIva.empty())
    return manca(tavola, posto, "manca il percipiente");
  if (data.numero.empty()) return manca(tavola, posto, "manca il numero del documento");
  // A document that is not paid yet.
  if (!riga.ha(DataPagamento)) return;
  tavola.date.push_back(std::move(data));
}

// Whether the fiscal code of a row is that of somebody else.
bool altrui(std::string_view codiceFiscale, const DatePagamento::Chi& chi) {
  return !trim(codiceFiscale).empty() && !chi.codiceFiscale.empty() &&
         !equalsNoCase(trim(codiceFiscale), trim(chi.codiceFiscale)) &&
         !equalsNoCase(trim(codiceFiscale), trim(chi.partitaIva));
}

}  // namespace

bool TavolaDate::conErrori() const {
  return std::any_of(messaggi.begin(), messaggi.end(),
                     [](const Messaggio& uno) { return uno.gravita == Gravita::Errore; });
}

TavolaDate leggiDate(std::string_view byte, const std::string& nome, const Mappatura& mappatura, Date oggi) {
  using enum ColonnaCompenso;
  const Lettura lettura = leggiFile(byte, nome, Elenco::Compensi, mappatura, oggi);
  TavolaDate tavola;
  bool illeggibile = false;
  for (const Messaggio& uno : lettura.messaggi) {
    if (superfluo(uno)) continue;
    tavola.messaggi.push_back(uno);
    illeggibile = illeggibile || (uno.codice >= Codice::F01 && uno.codice <= Codice::F05);
  }
  if (illeggibile) return tavola;
  const PostoMessaggio posto{lettura.file, lettura.foglio, 0};
  const auto nellaTavola = [&](ColonnaCompenso colonna) {
    return !lettura.intestazioni[static_cast<std::size_t>(colonna)].empty();
  };
  if (!nellaTavola(DataPagamento)) manca(tavola, posto, "manca la colonna DataPagamento");
  if (!nellaTavola(NumeroDocumento)) manca(tavola, posto, "manca la colonna NumeroDocumento");
  if (tavola.conErrori()) return tavola;
  for (const RigaLetta& riga : lettura.righe) {
    if (riga.esclusa.empty()) aggiungi(tavola, riga, {lettura.file, lettura.foglio, riga.numero});
  }
  return tavola;
}

DatePagamento::DatePagamento(const std::vector<DataPagata>& date) {
  const auto metti = [&](char genere, const std::string& chi, const DataPagata& data) {
    if (chi.empty()) return;
    perDocumento_[chiaveData(genere, chi, data.numero, data.documento)].push_back(
        {data.codiceFiscale, data.pagamento});
  };
  for (const DataPagata& una : date) {
    metti('k', una.codicePercipiente, una);
    metti('f', una.codiceFiscale, una);
    metti('v', una.partitaIva, una);
  }
}

DatePagamento::Trovate DatePagamento::trova(const Chi& chi, std::string_view numero, Date documento) const {
  Trovate trovate;
  const auto cerca = [&](char genere, std::string_view codice, Date giorno) {
    const auto sue =
        codice.empty() ? perDocumento_.end() : perDocumento_.find(chiaveData(genere, codice, numero, giorno));
    if (sue == perDocumento_.end()) return;
    for (const Voce& una : sue->second) {
      if (genere == 'v' && altrui(una.codiceFiscale, chi)) continue;
      if (std::find(trovate.date.begin(), trovate.date.end(), una.pagamento) == trovate.date.end())
        trovate.date.push_back(una.pagamento);
    }
  };
  for (const Date giorno : {documento, Date()}) {
    // A table may have the number of a firm as its fiscal code.
    const bool numeroPerCodice = formaCodice(chi.codiceFiscale) != FormaCodice::Numero;
    for (const auto& [genere, codice] :
         {std::pair('k', chi.codice), std::pair('f', chi.codiceFiscale), std::pair('v', chi.partitaIva),
          std::pair('f', numeroPerCodice ? chi.partitaIva : std::string_view()),
          std::pair('v', chi.codiceEstero)}) {
      cerca(genere, codice, giorno);
      if (trovate.date.empty()) continue;
      trovate.senzaData = giorno == Date();
      trovate.perPartita = genere == 'v';
      return trovate;
    }
  }
  return trovate;
}

void DocumentiOmonimi::aggiungi(const DatePagamento::Chi& chi, const std::string& numero, Date documento) {
  // One that has a row of its own takes no other.
  const DatePagamento::Trovate sue = date_.trova(chi, numero, documento);
  if (!sue.date.empty() && !sue.senzaData) return;
  const auto metti = [&](char genere, std::string_view codice) {
    if (codice.empty()) return;
    std::vector<Uno>& tutti = documenti_[chiaveData(genere, codice, numero, Date())];
    const bool gia = std::any_of(tutti.begin(), tutti.end(), [&](const Uno& altro) {
      return altro.data == documento && equalsNoCase(altro.codiceFiscale, chi.codiceFiscale);
    });
    if (!gia) tutti.push_back({std::string(chi.codiceFiscale), documento});
  };
  metti('f', chi.codiceFiscale);
  metti('v', chi.partitaIva);
}

std::size_t DocumentiOmonimi::quanti(const DatePagamento::Chi& chi, const std::string& numero,
                                     bool perPartita) const {
  std::vector<const Uno*> diversi;
  const auto conta = [&](char genere, std::string_view codice) {
    const auto suoi = documenti_.find(chiaveData(genere, codice, numero, Date()));
    if (codice.empty() || suoi == documenti_.end()) return;
    for (const Uno& uno : suoi->second) {
      const bool altro = !uno.codiceFiscale.empty() && !chi.codiceFiscale.empty() &&
                         !equalsNoCase(uno.codiceFiscale, chi.codiceFiscale);
      if (altro && !perPartita) continue;
      const bool gia = std::any_of(diversi.begin(), diversi.end(), [&](const Uno* visto) {
        return visto->data == uno.data && (!altro || equalsNoCase(visto->codiceFiscale, uno.codiceFiscale));
      });
      if (!gia) diversi.push_back(&uno);
    }
  };
  conta('f', chi.codiceFiscale);
  conta('v', chi.partitaIva);
  return std::max<std::size_t>(1, diversi.size());
}

}  // namespace cu::intake
