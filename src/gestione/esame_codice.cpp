#include "gestione/esame_codice.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/codice_fiscale.h"
#include "base/text.h"

namespace cu {
namespace {

constexpr std::size_t kPersona = 16;
constexpr std::size_t kNumero = 11;

bool soloCifre(std::string_view testo) { return std::all_of(testo.begin(), testo.end(), isDigit); }

char ultimoGiusto(std::string_view codice) {
  const std::string_view altri = codice.substr(0, codice.size() - 1);
  return codice.size() == kPersona ? carattereDiControllo(altri) : cifraDiControllo(altri);
}

std::string nomeLuogo(const schede::Luogo& luogo) {
  return luogo.provincia.empty() ? luogo.nome : luogo.nome + " (" + luogo.provincia + ")";
}

// The place of birth: a municipality or a country; null for a code of neither.
struct LuogoDelCodice {
  const schede::Luogo* comune = nullptr;
  const schede::Luogo* nazione = nullptr;
  const schede::Luogo* trovato() const { return comune != nullptr ? comune : nazione; }
};
LuogoDelCodice luogoDelCodice(const std::string& catasto, const schede::Luoghi& luoghi) {
  LuogoDelCodice luogo;
  luogo.comune = luoghi.comuneDiCatasto(catasto);
  if (luogo.comune == nullptr) luogo.nazione = luoghi.nazioneDiCatasto(catasto);
  return luogo;
}

std::string statoIncompleto(std::string_view codice) {
  const std::size_t attesi = soloCifre(codice) ? kNumero : kPersona;
  if (codice.size() >= attesi) {
    return "Non ha la forma di un codice fiscale: 16 caratteri per una persona, 11 cifre per una ditta.";
  }
  const std::size_t mancano = attesi - codice.size();
  const std::string che = attesi == kNumero ? "Codice di una ditta" : "Codice di una persona";
  return che + (mancano == 1
                    ? ": manca un carattere."
                    : ": mancano " + fromInteger(static_cast<std::int64_t>(mancano)) + " caratteri.");
}

std::string statoPersona(const DatiDerivati& derivati, const LuogoDelCodice& luogo) {
  const bool donna = derivati.sesso == "F";
  std::string stato = donna ? "Codice di una donna nata" : "Codice di un uomo nato";
  if (derivati.nascita != Date()) stato += " il " + derivati.nascita.toItalian();
  if (luogo.comune != nullptr) return stato + " a " + nomeLuogo(*luogo.comune) + ".";
  if (luogo.nazione != nullptr) return stato + " all'estero: " + luogo.nazione->nome + ".";
  return stato + " in un luogo che non è fra i comuni e le nazioni.";
}

void aggiungiFrase(std::string& testo, const std::string& frase) {
  if (!testo.empty()) testo += " ";
  testo += frase;
}

std::string contrastiDi(std::string_view codice, const DatiNelCodice& dati, const DatiAccanto& accanto,
                        const LuogoDelCodice& luogo) {
  std::string testo;
  if (!accanto.cognome.empty() && !accanto.nome.empty()) {
    const std::string lettere = lettereDelNome(accanto.cognome, accanto.nome);
    if (lettere != codice.substr(0, 6)) {
      aggiungiFrase(testo, "Cognome e nome darebbero " + lettere + ", il codice ha " +
                               std::string(codice.substr(0, 6)) + ".");
    }
  }
  if (!accanto.sesso.empty() && (accanto.sesso == "F") != dati.femmina) {
    aggiungiFrase(testo, std::string("Il sesso del codice è ") + (dati.femmina ? "F." : "M."));
  }
  const Date nascita = accanto.nascita;
  if (nascita != Date() &&
      (nascita.year() % 100 != dati.anno || nascita.month() != dati.mese || nascita.day() != dati.giorno)) {
    aggiungiFrase(testo, "La data di nascita non è quella del codice.");
  }
  const bool altroComune =
      luogo.comune != nullptr && accanto.idComuneNascita != 0 && accanto.idComuneNascita != luogo.comune->id;
  const bool altraNazione = luogo.nazione != nullptr && accanto.idNazioneNascita != 0 &&
                            accanto.idNazioneNascita != luogo.nazione->id;
  if (altroComune || altraNazione) {
    aggiungiFrase(testo, "Il luogo di nascita del codice è " + nomeLuogo(*luogo.trovato()) + ".");
  }
  return testo;
}

}  // namespace

std::string codiceRipulito(std::string_view scritto) {
  std::string codice;
  for (const char c : scritto) {
    if (c != ' ' && c != '.' && c != '-') codice += upperAscii(c);
  }
  return codice;
}

EsameCodice esaminaCodice(std::string_view codice, const DatiAccanto& accanto, const schede::Luoghi& luoghi,
                          Date oggi) {
  EsameCodice esame;
  if (codice.empty()) return esame;
  if (formaCodice(codice) == FormaCodice::Nessuna) {
    esame.stato = statoIncompleto(codice);
    return esame;
  }
  if (!controlloGiusto(codice)) {
    esame.stato = difettoCodice(codice);
    return esame;
  }
  const std::optional<DatiNelCodice> dati = datiNelCodice(codice);
  if (!dati) {
    esame.stato = "Codice di una ditta o di un ente.";
    return esame;
  }
  const LuogoDelCodice luogo = luogoDelCodice(dati->luogo, luoghi);
  DatiDerivati derivati;
  derivati.sesso = dati->femmina ? "F" : "M";
  derivati.nascita = nascitaNelCodice(*dati, oggi).value_or(Date());
  if (luogo.comune != nullptr) derivati.idComune = luogo.comune->id;
  derivati.idNazione = luogo.nazione != nullptr  ? luogo.nazione->id
                       : luogo.comune != nullptr ? luoghi.italia()
                                                 : 0;
  esame.stato = statoPersona(derivati, luogo);
  esame.contrasti = contrastiDi(codice, *dati, accanto, luogo);
  esame.derivati = std::move(derivati);
  return esame;
}

std::string difettoCodice(std::string_view codice) {
  if (codice.empty()) return {};
  if (formaCodice(codice) == FormaCodice::Nessuna) {
    return "Non ha la forma di un codice fiscale: 16 caratteri per una persona, 11 cifre per una ditta.";
  }
  if (controlloGiusto(codice)) return {};
  return std::string("L'ultimo carattere dovrebbe essere ") + ultimoGiusto(codice) + ".";
}

std::string difettoPartitaIva(std::string_view codice) {
  if (codice.empty()) return {};
  if (formaCodice(codice) != FormaCodice::Numero) return "Una partita IVA ha 11 cifre.";
  if (controlloGiusto(codice)) return {};
  return std::string("L'ultima cifra dovrebbe essere ") + ultimoGiusto(codice) + ".";
}

}  // namespace cu
