#include "apps/importazione/resoconto.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "base/thousands.h"
#include "suite/platform_file.h"
#include "suite/support_log.h"
#include "tabelle/scrittura.h"

namespace cu {
namespace {

using intake::Gravita;
using intake::Messaggio;
using intake::Piano;
using intake::RigaPiano;
using intake::StatoRiga;

bool finisceCosi(const std::string& file, std::string_view estensione) {
  return file.size() > estensione.size() &&
         equalsNoCase(std::string_view(file).substr(file.size() - estensione.size()), estensione);
}

struct ParoleStato {
  StatoRiga stato;
  std::string_view uno;
  std::string_view piu;
  bool sempre;  // also when there is none
};
constexpr auto kParole = std::to_array<ParoleStato>({
    {StatoRiga::Nuovo, "nuovo", "nuovi", true},
    {StatoRiga::Uguale, "uguale", "uguali", true},
    {StatoRiga::Diverso, "diverso", "diversi", false},
    {StatoRiga::DaDecidere, "da decidere", "da decidere", true},
    {StatoRiga::Errore, "errore", "errori", true},
    {StatoRiga::Escluso, "escluso", "esclusi", false},
});

std::string inCifre(std::size_t numero, Migliaia migliaia = Migliaia::SenzaPunto) {
  std::string cifre = fromInteger(static_cast<std::int64_t>(numero));
  return migliaia == Migliaia::SenzaPunto ? cifre : groupThousands(std::move(cifre));
}

Value oTesto(std::string testo) { return testo.empty() ? Value() : Value::ofText(std::move(testo)); }

std::vector<Value> rigaCsv(const intake::PostoMessaggio& posto, std::string_view stato,
                           const Messaggio& messaggio) {
  return {oTesto(posto.file),
          posto.riga == 0 ? Value() : Value::ofInteger(static_cast<std::int64_t>(posto.riga)),
          oTesto(messaggio.colonna),
          oTesto(std::string(stato)),
          oTesto(std::string(intake::voce(messaggio.codice).sigla)),
          oTesto(messaggio.testo)};
}

// In a table the row is a number: of an invoice that of its document.
intake::PostoMessaggio postoInTabella(const Piano& piano, const RigaPiano& riga) {
  intake::PostoMessaggio posto = piano.posto(riga);
  posto.riga = piano.letta(riga).numero;
  return posto;
}

// Why the row is left out, and how its amounts follow from the document.
std::string spiegazione(const Piano& piano, const RigaPiano& riga) {
  std::string testo;
  for (const std::string& una : spiegazioni(piano, riga)) testo += (testo.empty() ? "" : "; ") + una;
  return testo;
}

bool errore(const Messaggio& messaggio) { return messaggio.gravita == Gravita::Errore; }

}  // namespace

std::vector<std::string> spiegazioni(const Piano& piano, const RigaPiano& riga) {
  std::vector<std::string> tutte;
  const std::string& letta = piano.letta(riga).esclusa;
  if (!riga.esclusa.empty() || !letta.empty()) tutte.push_back(riga.esclusa.empty() ? letta : riga.esclusa);
  tutte.insert(tutte.end(), riga.spiegazioni.begin(), riga.spiegazioni.end());
  return tutte;
}

bool fileDiResoconto(const std::string& file) {
  return finisceCosi(file, ".json") || finisceCosi(file, ".csv");
}

void scriviResoconto(const std::string& file, const Piano& piano, const EsitoImportazione& esito) {
  logged({.operation = "file", .detail = "resoconto"}, [&] {
    if (finisceCosi(file, ".json")) {
      replaceFileInPieces(
          file, [&](const PieceWriter& scrivi) { resocontoJson(piano, esito, scrivi); }, NewFile::OwnerOnly);
    } else {
      replaceFile(file, resocontoCsv(piano), NewFile::OwnerOnly);
    }
  });
}

std::string resocontoCsv(const Piano& piano) {
  tabelle::TabellaDaScrivere tabella;
  tabella.colonne = {"file", "riga", "colonna", "stato", "codice", "messaggio"};
  for (const Messaggio& messaggio : piano.messaggi) {
    tabella.righe.push_back(rigaCsv(messaggio.posto, {}, messaggio));
  }
  for (const RigaPiano& riga : piano.righe) {
    const intake::PostoMessaggio posto = postoInTabella(piano, riga);
    const std::string_view stato = intake::nome(riga.stato);
    for (const Messaggio& messaggio : riga.messaggi) {
      tabella.righe.push_back(rigaCsv(posto, stato, messaggio));
    }
    const std::string parole = spiegazione(piano, riga);
    if (!riga.messaggi.empty() && parole.empty()) continue;
    tabella.righe.push_back({oTesto(posto.file), Value::ofInteger(static_cast<std::int64_t>(posto.riga)),
                             Value(), oTesto(std::string(stato)), Value(), oTesto(parole)});
  }
  return tabelle::scriviCsv(tabella);
}

void scriviMessaggi(const Piano& piano, std::ostream& uscita) {
  for (const Messaggio& messaggio : piano.messaggi) uscita << dettoMessaggio(messaggio) << '\n';
  for (const RigaPiano& riga : piano.righe) {
    if (riga.messaggi.empty()) continue;
    const intake::PostoMessaggio posto = piano.posto(riga);
    for (const Messaggio& messaggio : riga.messaggi) uscita << dettoMessaggio(posto, messaggio) << '\n';
  }
}

std::string dettiConteggi(const std::array<std::size_t, intake::kStatiRiga>& conteggi, Migliaia migliaia) {
  std::string testo;
  for (const ParoleStato& parole : kParole) {
    const std::size_t quanti = conteggi[static_cast<std::size_t>(parole.stato)];
    if (quanti == 0 && !parole.sempre) continue;
    if (!testo.empty()) testo += ", ";
    testo += inCifre(quanti, migliaia) + ' ' + std::string(quanti == 1 ? parole.uno : parole.piu);
  }
  return testo;
}

std::string dettoAnnullato(const intake::Annullato& annullato, Migliaia migliaia) {
  struct Parole {
    std::string_view uno;
    std::string_view piu;
    std::string_view tolto;
    std::string_view tolti;
  };
  constexpr std::array<Parole, 3> kSchede = {{{"azienda", "aziende", "tolta", "tolte"},
                                              {"percipiente", "percipienti", "tolto", "tolti"},
                                              {"compenso", "compensi", "tolto", "tolti"}}};
  const Parole& parole = kSchede[static_cast<std::size_t>(annullato.elenco)];
  const auto contate = [&](std::size_t numero, const Parole& di) {
    return inCifre(numero, migliaia) + ' ' + std::string(numero == 1 ? di.uno : di.piu);
  };
  const auto quante = [&](std::size_t numero) { return contate(numero, parole); };
  std::string testo;
  if (annullato.tolti > 0 || annullato.riportati == 0) {
    testo = quante(annullato.tolti);
    if (annullato.percipienti > 0)
      testo += " e " +
               contate(annullato.percipienti, kSchede[static_cast<std::size_t>(intake::Elenco::Percipienti)]);
    const bool uno = annullato.tolti + annullato.percipienti == 1;
    testo += ' ' + std::string(uno ? parole.tolto : parole.tolti);
  }
  if (annullato.riportati > 0)
    testo += (testo.empty() ? "" : ", ") + quante(annullato.riportati) + " ai valori di prima";
  return testo;
}

std::string dettoEsito(const Piano& piano, const EsitoImportazione& esito, Migliaia migliaia) {
  std::string testo = esito.applica ? "Importazione" : "Prova";
  if (esito.lotto) testo += ' ' + fromInteger(*esito.lotto);
  testo += ": " + dettiConteggi(piano.conteggi(), migliaia);
  const auto generali =
      static_cast<std::size_t>(std::count_if(piano.messaggi.begin(), piano.messaggi.end(), errore));
  if (generali > 0)
    testo += generali == 1 ? "; 1 errore generale" : "; " + inCifre(generali, migliaia) + " errori generali";
  testo += '.';
  const std::set<intake::Codice> avvisi = piano.avvisiDaAccettare();
  if (!avvisi.empty()) {
    std::string sigle;
    for (const intake::Codice codice : avvisi) {
      if (!sigle.empty()) sigle += ',';
      sigle += intake::voce(codice).sigla;
    }
    testo += " Avvisi da accettare: " + sigle + '.';
  }
  return esito.applicata ? testo : testo + " Non è stato scritto nulla.";
}

}  // namespace cu
