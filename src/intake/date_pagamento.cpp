#include "intake/date_pagamento.h"

#include <algorithm>
#include <utility>

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
    std::vector<Date>& sue = perDocumento_[chiaveData(genere, chi, data.numero, data.documento)];
    if (std::find(sue.begin(), sue.end(), data.pagamento) == sue.end()) sue.push_back(data.pagamento);
  };
  for (const DataPagata& una : date) {
    metti('k', una.codicePercipiente, una);
    metti('f', una.codiceFiscale, una);
    metti('v', una.partitaIva, una);
  }
}

std::vector<Date> DatePagamento::trova(const Chi& chi, std::string_view numero, Date documento) const {
  for (const Date giorno : {documento, Date()}) {
    const auto una = [&](char genere, std::string_view codice) -> const std::vector<Date>* {
      if (codice.empty()) return nullptr;
      const auto sue = perDocumento_.find(chiaveData(genere, codice, numero, giorno));
      return sue == perDocumento_.end() ? nullptr : &sue->second;
    };
    // A table may have the number of a firm as its fiscal code.
    for (const auto& [genere, codice] :
         {std::pair('k', chi.codice), std::pair('f', chi.codiceFiscale), std::pair('v', chi.partitaIva),
          std::pair('f', chi.partitaIva), std::pair('v', chi.codiceEstero)}) {
      if (const auto* const sue = una(genere, codice)) return *sue;
    }
  }
  return {};
}

}  // namespace cu::intake
