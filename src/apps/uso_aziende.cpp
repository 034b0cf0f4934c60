#include "uso_aziende.h"

#include "uso.h"

namespace cu {

std::optional<OpzioniAziende> SceltaAziende::scelta() const {
  if (tutte || !opzioni.richieste.empty()) return opzioni;
  if (!opzioni.indirizzi.empty()) {
    throw CLI::ValidationError("--database", "richiede --all-companies o --company");
  }
  if (opzioni.soloMancanti)
    throw CLI::ValidationError("--only-missing", "richiede --all-companies o --company");
  return {};
}

void aggiungiAziende(CLI::App& comando, SceltaAziende& scelta) {
  OpzioniAziende& opzioni = scelta.opzioni;
  CLI::Option* const richieste =
      comando
          .add_option("--company", opzioni.richieste,
                      "Questa azienda, per codice fiscale o numero; si può ripetere")
          ->type_name("CF|ID")
          ->allow_extra_args(false);
  comando.add_flag("--all-companies", scelta.tutte, "Tutte le aziende del database")->excludes(richieste);
  CLI::Option* const indirizzi =
      comando
          .add_option("--database", opzioni.indirizzi,
                      "Il loro database, al posto di quello del profilo; si può ripetere")
          ->type_name("URL")
          ->allow_extra_args(false);
  comando.add_option("--password-env", opzioni.variabilePassword, "Variabile con la password di un url odbc")
      ->type_name("NOME")
      ->needs(indirizzi);
  comando.add_flag("--no-encrypt", opzioni.inChiaro, "Non cifra la connessione di un url odbc")
      ->needs(indirizzi);
}

void aggiungiSoloMancanti(CLI::App& comando, SceltaAziende& scelta,
                          std::initializer_list<const char*> estremi) {
  CLI::Option* const soloMancanti =
      comando.add_flag("--only-missing", scelta.opzioni.soloMancanti,
                       "Tralascia le aziende le cui certificazioni sono già scritte");
  for (const char* estremo : estremi) soloMancanti->excludes(comando.get_option(estremo));
}

void aggiungiLavori(CLI::App& comando, std::optional<std::int32_t>& lavori, const std::string& spiegazione) {
  comando.add_option("--jobs", lavori, spiegazione)->check(fra(1, 1024))->type_name("N");
}

}  // namespace cu
