#include <iostream>
#include <nlohmann/json.hpp>

#include "apps/comune/codici_uscita.h"
#include "apps/importa/database_importa.h"
#include "apps/importazione/resoconto.h"
#include "intake/storico.h"

namespace cu {
namespace {

using intake::Lotto;
using Json = nlohmann::ordered_json;

const char* statoDi(const Lotto& lotto) { return lotto.annullato ? "annullata" : "applicata"; }

Json jsonLotto(const Lotto& lotto) {
  Json file = Json::array();
  for (const intake::FileImportato& suo : lotto.file) {
    file.push_back({{"name", suo.nome}, {"size", suo.dimensione}, {"sha256", suo.sha256}});
  }
  Json conteggi = Json::object();
  for (std::size_t i = 0; i < lotto.conteggi.size(); ++i) {
    conteggi[std::string(intake::nome(static_cast<intake::StatoRiga>(i)))] = lotto.conteggi[i];
  }
  return {{"batch", lotto.id},        {"kind", intake::nomeInglese(lotto.elenco)},
          {"time", lotto.momento},    {"state", statoDi(lotto)},
          {"files", std::move(file)}, {"counts", std::move(conteggi)}};
}

void scriviLotto(const Lotto& lotto) {
  std::cout << "Importazione " << lotto.id << ", " << lotto.momento << ", " << intake::nome(lotto.elenco)
            << ", " << statoDi(lotto) << ": " << dettiConteggi(lotto.conteggi);
  constexpr std::size_t kNomi = 5;
  const char* prima = " (";
  for (std::size_t i = 0; i < lotto.file.size() && i < kNomi; ++i) {
    std::cout << prima << lotto.file[i].nome;
    prima = ", ";
  }
  if (lotto.file.size() > kNomi) std::cout << " e altri " << lotto.file.size() - kNomi << " file";
  std::cout << (lotto.file.empty() ? "." : ").") << '\n';
}

}  // namespace

int comandoHistory(const OpzioniHistory& opzioni) {
  try {
    DatabaseSuite database = apriDatabase(opzioni.database);
    Connection& connessione = database.ownConnection();
    std::optional<std::int32_t> azienda;
    if (!opzioni.azienda.empty()) azienda = aziendaDi(connessione, opzioni.azienda);
    const std::vector<Lotto> lotti = intake::storico(connessione, azienda);
    if (opzioni.json) {
      Json elenco = Json::array();
      for (const Lotto& lotto : lotti) elenco.push_back(jsonLotto(lotto));
      std::cout << elenco.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
      return kRiuscito;
    }
    for (const Lotto& lotto : lotti) scriviLotto(lotto);
    if (lotti.empty()) std::cout << "Nessuna importazione.\n";
    return kRiuscito;
  } catch (const UsoSbagliato& errore) {
    return rifiutaUso(errore);
  }
}

}  // namespace cu
