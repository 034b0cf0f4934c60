#include "tabelle/foglio_xlsx.h"

#include <charconv>
#include <optional>
#include <string>
#include <utility>

#include "base/date.h"
#include "base/text.h"
#include "tabelle/composizione.h"
#include "tabelle/errore.h"
#include "tabelle/lettore_xml.h"
#include "tabelle/riferimento.h"
#include "tabelle/testo_xlsx.h"

namespace cu::tabelle {
namespace {

// The first one for what is no number.
std::size_t stileDi(std::string_view testo) {
  std::size_t stile = 0;
  const char* const fine = testo.data() + testo.size();
  const auto letto = std::from_chars(testo.data(), fine, stile);
  return letto.ec == std::errc() && letto.ptr == fine ? stile : 0;
}

// A cell as it is written.
struct CellaGrezza {
  std::string tipo;
  std::size_t stile = 0;
  std::string valore;
  std::string formula;
  bool haFormula = false;
  bool haValore = false;
};

class LettoreFoglio {
 public:
  LettoreFoglio(CartellaXlsx& cartella, const FoglioXlsx& foglio, Posto posto, Deposito& deposito,
                const Limiti& limiti)
      : cartella_(cartella),
        posto_(std::move(posto)),
        deposito_(deposito),
        limiti_(limiti),
        xml_(cartella.archivio(), cartella.membro(foglio.parte), posto_) {}

  RigheFoglio leggi() {
    bool dati = false;
    while (xml_.avanza()) {
      if (xml_.inizio("sheetData")) {
        dati = true;
      } else if (xml_.fine("sheetData")) {
        dati = false;
        posto_.riga = 0;
      } else if (dati && xml_.inizio("row")) {
        leggiRiga();
      } else if (xml_.inizio("mergeCell")) {
        const auto unione = analizzaUnione(xml_.attributo("ref"));
        if (!unione) danneggiato("celle unite");
        unioni_.push_back(*unione);
      }
    }
    if (!svuotaUnite(esito_.righe, unioni_)) danneggiato("celle unite");
    std::erase_if(esito_.righe, [](const RigaTabella& riga) { return !haContenuto(riga); });
    return std::move(esito_);
  }

 private:
  [[noreturn]] void danneggiato(const std::string& che) const {
    throw ErroreTabella("F03", posto_, "Il foglio è danneggiato (" + che + ")");
  }

  void leggiRiga() {
    const std::size_t precedente = posto_.riga;
    const std::string_view numero = xml_.attributo("r");
    posto_.riga = precedente + 1;
    posto_.colonna = 0;
    if (!numero.empty()) {
      const auto letto = analizzaRiferimento('A' + std::string(numero));
      if (!letto || letto->riga <= precedente) danneggiato("numero di riga");
      posto_.riga = letto->riga;
    }
    const bool nascosta = xml_.vero("hidden");
    RigaTabella riga;
    riga.numero = posto_.riga;
    if (!esito_.righe.empty()) riga.celle.reserve(esito_.righe.back().celle.size());
    while (xml_.avanza() && !xml_.fine("row")) {
      if (xml_.inizio("c")) leggiCella(riga);
    }
    posto_.colonna = 0;
    if (!haContenuto(riga)) return;
    if (esito_.righe.size() >= limiti_.righe) troppeRighe(limiti_, posto_);
    if (nascosta) esito_.nascoste.push_back(riga.numero);
    esito_.righe.push_back(std::move(riga));
  }

  void leggiCella(RigaTabella& riga) {
    ++posto_.colonna;
    const std::string_view scritto = xml_.attributo("r");
    if (!scritto.empty()) {
      const auto letto = analizzaRiferimento(scritto);
      if (!letto || letto->riga != posto_.riga || letto->colonna < posto_.colonna) {
        danneggiato("posto di una cella");
      }
      posto_.colonna = letto->colonna;
    }
    leggiGrezza();
    const Cella cella = cellaDi(grezza_);
    if (cella.genere == Genere::Vuota) return;
    if (posto_.colonna > limiti_.colonne) {
      if (soloBianchi(cella.testo)) return;
      troppeColonne(limiti_, posto_);
    }
    riga.celle.resize(posto_.colonna);
    riga.celle.back() = cella;
  }

  void leggiGrezza() {
    CellaGrezza& cella = grezza_;
    cella.tipo = xml_.attributo("t");
    cella.stile = stileDi(xml_.attributo("s"));
    cella.valore.clear();
    cella.formula.clear();
    cella.haFormula = cella.haValore = false;
    std::string* dove = nullptr;
    while (xml_.avanza()) {
      if (xml_.testo()) {
        if (dove != nullptr) *dove += xml_.caratteri();
        continue;
      }
      dove = nullptr;
      if (xml_.fine("c")) break;
      if (xml_.inizio("v")) {
        dove = &cella.valore;
        cella.haValore = true;
      } else if (xml_.inizio("f")) {
        dove = &cella.formula;
        cella.haFormula = true;
      } else if (xml_.inizio("is")) {
        cella.valore = leggiTestoXlsx(xml_, "is");
        cella.haValore = true;
      }
    }
    if (cella.tipo == "str") cella.valore = senzaSequenze(cella.valore);
  }

  Cella conservata(Genere genere, std::string_view testo) {
    verificaLunghezza(testo, limiti_, posto_);
    return {deposito_.conserva(testo), testo.empty() ? Genere::Vuota : genere};
  }

  Cella cellaDi(const CellaGrezza& grezza) {
    const std::string& valore = grezza.valore;
    if (grezza.haFormula) {
      // A text may be empty as the result of its formula; a number is not.
      const bool mai = grezza.tipo == "str" ? !grezza.haValore : valore.empty();
      if (mai || (cartella_.daRicalcolare() && valore == "0" && grezza.tipo != "str")) {
        return conservata(Genere::FormulaMaiCalcolata, "=" + grezza.formula);
      }
    }
    if (valore.empty()) return {};
    if (grezza.tipo == "s") return testoComune(valore);
    if (grezza.tipo == "str" || grezza.tipo == "inlineStr") return conservata(Genere::Testo, valore);
    if (grezza.tipo == "b") {
      return {valore == "1" || valore == "true" ? "true" : "false", Genere::Logica};
    }
    if (grezza.tipo == "e") return conservata(Genere::Errore, valore);
    if (grezza.tipo == "d") return dataIso(valore);
    return numero(valore, cartella_.formato(grezza.stile));
  }

  Cella testoComune(const std::string& valore) {
    std::size_t indice = 0;
    const char* const fine = valore.data() + valore.size();
    const auto letto = std::from_chars(valore.data(), fine, indice);
    const auto testo = cartella_.testo(indice);
    if (letto.ec != std::errc() || letto.ptr != fine || !testo) danneggiato("testo di una cella");
    return {*testo, testo->empty() ? Genere::Vuota : Genere::Testo};
  }

  Cella dataIso(const std::string& valore) {
    const auto giorno = Date::parseIso(valore);
    if (!giorno) return conservata(Genere::Errore, valore);
    const std::size_t tempo = valore.find('T');
    const std::string ora = tempo == std::string::npos ? std::string() : valore.substr(tempo, 9);
    return conservata(Genere::Data, giorno->toIso() + (ora == "T00:00:00" ? "" : ora));
  }

  Cella numero(const std::string& valore, Formato formato) {
    const auto testo = testoDiNumero(valore, formato == Formato::Percentuale ? 2 : 0);
    if (!testo) danneggiato("numero di una cella");
    switch (formato) {
      case Formato::Percentuale:
        return conservata(Genere::Percentuale, *testo);
      case Formato::Data: {
        const auto data = testoDiData(valore, cartella_.dal1904());
        return data ? conservata(Genere::Data, *data) : conservata(Genere::Errore, *testo);
      }
      case Formato::Ora:
        // More than a day is a number of hours.
        if (const auto ora = testoDiOra(valore)) return conservata(Genere::Testo, *ora);
        break;
      case Formato::Numero:
        break;
    }
    return conservata(Genere::Numero, *testo);
  }

  CartellaXlsx& cartella_;
  Posto posto_;
  Deposito& deposito_;
  const Limiti& limiti_;
  LettoreXml xml_;
  CellaGrezza grezza_;  // used again for each cell
  std::vector<Unione> unioni_;
  RigheFoglio esito_;
};

}  // namespace

RigheFoglio leggiFoglio(CartellaXlsx& cartella, const FoglioXlsx& foglio, const Posto& posto,
                        Deposito& deposito, const Limiti& limiti) {
  return LettoreFoglio(cartella, foglio, posto, deposito, limiti).leggi();
}

}  // namespace cu::tabelle
