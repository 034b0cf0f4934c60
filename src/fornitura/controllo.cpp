#include "fornitura/controllo.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "telematic/attestazione.h"

namespace cu::fornitura {
namespace {

// The wizard's control for the datum; "" where it has none.
std::string posto(const DatoMancante& dato) {
  if (dato.sezione == "Generico") return "dtDataFirma";
  if (dato.sezione != "Intermediario") return {};
  return dato.campo == "Codice fiscale" ? "txtCodiceFiscale" : "dtDataImpegno";
}

Finding avviso(const char* codice, const char* righe, const char* controllo) {
  return {codice, std::string(righe) + "\r\nSi vuole continuare ugualmente?", controllo};
}

std::string elenco(const std::vector<std::int32_t>& numeri) {
  std::string testo;
  for (std::size_t i = 0; i < numeri.size(); ++i) {
    testo += i == 0 ? "" : i + 1 == numeri.size() ? " e " : ", ";
    testo += fromInteger(numeri[i]);
  }
  return testo;
}

Finding avvisoCaselleVuote(const Attestazione& attestazione) {
  constexpr std::size_t kNomi = 10;
  const std::vector<std::string>& percipienti = attestazione.conCaselleVuote;
  std::string righe = "Attenzione! Per i percipienti non residenti il contenuto delle caselle " +
                      elenco(attestazione.caselleVuote) +
                      "\r\nnon è attestato nel modello dell'anno: restano vuote. I percipienti sono:";
  for (std::size_t i = 0; i < std::min(kNomi, percipienti.size()); ++i) {
    righe += (i == 0 ? "\r\n" : ";\r\n") + percipienti[i];
  }
  if (percipienti.size() > kNomi) {
    const std::size_t altri = percipienti.size() - kNomi;
    righe += altri == 1 ? ";\r\ne un altro" : ";\r\ne altri " + fromInteger(static_cast<std::int64_t>(altri));
  }
  righe += ".";
  return avviso("caselle-non-attestate", righe.c_str(), "");
}

}  // namespace

Result<Controllo> controlla(const Intorno& intorno, const DatiControllo& dati, const std::string& tabella) {
  Connection& connessione = intorno.ambito.database->internalConnection();
  Controlli controlli(connessione, intorno.utilita);
  controlli.esegui(dati, intorno.ambito.idAzienda, tabella);
  Result<Controllo> esito(Controllo{controlli.sCodFisc(), controlli.mancanti()});
  Attestazione attestazione = attesta(connessione, intorno.utilita,
                                      {.tabella = tabella, .tipo = dati.tipo, .modello = intorno.modello});
  for (DatoMancante& dato : attestazione.rifiutati) esito->mancanti.push_back(std::move(dato));
  if (!attestazione.conCaselleVuote.empty()) esito.warnings.push_back(avvisoCaselleVuote(attestazione));
  for (const DatoMancante& dato : esito->mancanti) {
    esito.refusals.push_back({dato.codice, dato.messaggio, posto(dato)});
  }
  return esito;
}

bool soloNonAttestati(const std::vector<DatoMancante>& mancanti) {
  return !mancanti.empty() && std::all_of(mancanti.begin(), mancanti.end(), [](const DatoMancante& dato) {
    return dato.codice == kNonAttestato;
  });
}

void riempiLog(LogGrid& oLogGrid, std::int32_t idUtente, const std::vector<DatoMancante>& mancanti) {
  oLogGrid.setUser(idUtente);
  oLogGrid.setName("LogGrid_" + fromInteger(idUtente));
  oLogGrid.addColumn("Campo", LogGrid::kText, 35);
  oLogGrid.addColumn("Sezione", LogGrid::kText, 20);
  oLogGrid.addColumn("Denominazione", LogGrid::kText, 35);
  oLogGrid.addColumn("Codice fiscale", LogGrid::kText, 30);
  constexpr std::int64_t kMessageType = 2;
  for (const DatoMancante& dato : mancanti) {
    oLogGrid.newRow();
    oLogGrid.put("Campo", Value::ofText(dato.campo));
    oLogGrid.put("Sezione", Value::ofText(dato.sezione));
    oLogGrid.put("Denominazione", Value::ofText(dato.denominazione));
    oLogGrid.put("Codice fiscale", Value::ofText(dato.codiceFiscale));
    oLogGrid.put("MessageType", Value::ofInteger(kMessageType));
    oLogGrid.put("Message", Value::ofText(dato.messaggio));
    oLogGrid.confirmRow();
  }
}

Result<> controllaDate(const DateFornitura& date, Date oggi) {
  Result<> esito(Done{});
  if (date.firma && date.firma->serial() > oggi.serial()) {
    esito.warnings.push_back(avviso("firma-futura",
                                    "Attenzione! La data della firma non deve essere superiore alla\r\n"
                                    "data odierna, altrimenti il file generato potrebbe essere scartato.",
                                    "dtDataFirma"));
  }
  if (!date.impegno) return esito;
  if (date.impegno->serial() > oggi.serial()) {
    esito.warnings.push_back(avviso("impegno-futuro",
                                    "Attenzione! La data dell'impegno non deve essere superiore alla\r\n"
                                    "data odierna, altrimenti il file generato potrebbe essere scartato.",
                                    "dtDataImpegno"));
  } else if (date.impegno->serial() < Date::fromYmd(oggi.year(), 1, 1)->serial()) {
    esito.warnings.push_back(avviso("impegno-di-altro-anno",
                                    "Attenzione! La data dell'impegno deve appartenere all'anno in\r\n"
                                    "corso, altrimenti il file generato potrebbe essere scartato.",
                                    "dtDataImpegno"));
  }
  return esito;
}

}  // namespace cu::fornitura
