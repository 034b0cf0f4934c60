#include <iostream>
#include <optional>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/connessioni.h"
#include "apps/comune/file_letto.h"
#include "apps/comune/terminale.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/json_confronto.h"
#include "lettura/esame.h"
#include "riscontro/conti.h"
#include "suite/utilita.h"

namespace cu {
namespace {

using lettura::Certificato;

constexpr ParoleConfronto kParole = {"nel file", "nei conti"};

Confrontata confrontata(const Certificato& certificato, const char* stato) {
  return {certificato.percipiente, certificato.nome, certificato.causale(), stato, {}};
}

// The file's certificates, in memory: the accounts come in their own order.
class DelFile : public lettura::Ascoltatore {
 public:
  void fornitura(const lettura::Fornitura& fornitura) override { anno = fornitura.annoFiscale; }
  void certificato(const Certificato& certificato) override { certificati.aggiungi(certificato); }

  std::optional<std::int32_t> anno;
  lettura::Accostamento certificati;
};

void verifica(DelFile& file, Connection& connessione, const riscontro::Esercizio& esercizio,
              const Conversioni& utilita, ListaConfronto& lista) {
  riscontro::leggiConti(connessione, esercizio, utilita, [&](const riscontro::Conto& conto) {
    const auto suo = file.certificati.togli(conto.certificato);
    if (!suo) {
      lista.aggiungi(confrontata(conto.certificato, "missing in the file"), "manca nel file", kParole);
      return;
    }
    Confrontata esito = confrontata(conto.certificato, "equal");
    esito.caselle = lettura::diverse(*suo, conto.certificato, suo->operazione == "A");
    if (!esito.caselle.empty()) esito.stato = "different";
    lista.aggiungi(esito, "diversa", kParole);
  });
  file.certificati.rimasti([&](const Certificato& rimasto) {
    lista.aggiungi(confrontata(rimasto, "missing in the accounts"), "manca nei conti", kParole);
  });
}

}  // namespace

int comandoVerify(const OpzioniVerify& opzioni) {
  const Profilo profilo = leggiProfilo(opzioni.profilo);
  try {
    FileLetto letto(opzioni.file);
    DelFile file;
    const std::size_t errori = lettura::esamina(letto, nullptr, &file).rilievi.errori();
    if (errori > 0) {
      std::cerr << opzioni.file << ": il file ha errori (" << errori << "); «cuctl validate» li elenca.\n";
    }
    if (!file.anno) {
      std::cerr << opzioni.file << ": il record A non dice di quale anno è la fornitura.\n";
      return kRifiutato;
    }
    const auto connessione = apriConnessione(profilo.database);
    Terminale terminale;
    const UtilitaItaliana utilita(terminale, profilo.documenti);
    ListaConfronto lista(opzioni.json);
    verifica(file, *connessione, {profilo.sessione.azienda, *file.anno}, utilita, lista);
    lista.fine("diverse dai conti");
    return lista.uguali() && errori == 0 ? kRiuscito : kRifiutato;
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
