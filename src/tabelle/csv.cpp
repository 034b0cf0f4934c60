#include "tabelle/csv.h"

#include <compare>
#include <memory>
#include <string>
#include <utility>

#include "base/ascii.h"
#include "tabelle/caratteri.h"
#include "tabelle/composizione.h"
#include "tabelle/errore.h"
#include "tabelle/formato.h"
#include "tabelle/scansione.h"

namespace cu::tabelle {
namespace {

constexpr char kRiconosciuti[] = {';', '\t', ','};

// The first line of a text that names its separator, and what is left of the text.
struct Dichiarazione {
  char separatore = 0;
  std::size_t lunghezza = 0;  // of the line with its end; 0 without one
};

Dichiarazione leggiDichiarazione(std::string_view testo) {
  std::size_t i = testo.starts_with('"') ? 1 : 0;
  if (!cominciaCon(testo.substr(i), "sep=") || i + 4 >= testo.size()) return {};
  const char separatore = testo[i + 4];
  const bool virgolette = i == 1;
  i += 5;
  if (virgolette && i < testo.size() && testo[i] == '"') ++i;
  if (!separatoreAmmesso(separatore) || i >= testo.size()) return {};
  if (testo.substr(i, 2) == "\r\n") return {separatore, i + 2};
  return testo[i] == '\r' || testo[i] == '\n' ? Dichiarazione{separatore, i + 1} : Dichiarazione{};
}

// The heading as one separator splits it.
struct Divisione {
  bool pulita = false;  // quotes are only around whole fields
  std::size_t campi = 0;
  auto operator<=>(const Divisione&) const = default;  // NOLINT(modernize-use-nullptr)
};

bool virgoletteInOrdine(const CampoGrezzo& campo, std::string_view testo) {
  if (campo.aperto) return false;
  if (campo.virgolette) return soloBianchi(testo.substr(campo.fine + 1, campo.coda - campo.fine - 1));
  return testo.substr(campo.inizio, campo.fine - campo.inizio).find('"') == std::string_view::npos;
}

// Splits the record at the given line, or the first one that is not blank whatever the separator.
Divisione dividiIntestazione(std::string_view testo, std::size_t voluta, char separatore) {
  Scansione scansione(testo, 1, separatore);
  while (!scansione.finita()) {
    const std::size_t riga = scansione.riga();
    Divisione divisione{true, 0};
    bool contenuto = false;
    for (bool ultimo = false; !ultimo;) {
      const CampoGrezzo campo = scansione.prossimo();
      const std::string_view suo = testo.substr(campo.inizio, campo.fine - campo.inizio);
      ++divisione.campi;
      divisione.pulita = divisione.pulita && virgoletteInOrdine(campo, testo);
      contenuto = contenuto || suo.find_first_not_of(" \t\r\n;,") != std::string_view::npos;
      ultimo = campo.ultimo;
    }
    if (voluta == 0 ? contenuto : riga >= voluta) return divisione;
  }
  return {};
}

char riconosciSeparatore(std::string_view testo, std::size_t voluta) {
  char migliore = kRiconosciuti[0];
  Divisione sua;
  for (const char candidato : kRiconosciuti) {
    const Divisione divisione = dividiIntestazione(testo, voluta, candidato);
    if (divisione > sua) {
      sua = divisione;
      migliore = candidato;
    }
  }
  return migliore;
}

void rifiutaByteNulli(std::string_view testo, std::string_view caratteri, std::string_view nome) {
  const std::size_t dove = testo.find('\0');
  if (dove == std::string_view::npos) return;
  std::size_t riga = 1;
  for (std::size_t i = 0; i < dove; ++i) {
    if (testo[i] == '\n' || (testo[i] == '\r' && testo[i + 1] != '\n')) ++riga;
  }
  std::string motivo = "Il file ha un byte nullo e non è un testo";
  // In UTF-16 one byte of each Latin character is null, and so the first or the second of the text.
  if (!caratteri.starts_with("utf-16") && dove < 2) {
    motivo += dove == 0 ? "; sembra UTF-16: indicare il set di caratteri utf-16be"
                        : "; sembra UTF-16: indicare il set di caratteri utf-16le";
  }
  throw ErroreTabella("F02", {std::string(nome), {}, riga, 0}, motivo);
}

class LettoreCsv {
 public:
  LettoreCsv(std::string& testo, std::size_t inizio, Tabella& tabella, const OpzioniLettura& opzioni)
      : testo_(testo.data() + inizio),
        tabella_(tabella),
        limiti_(opzioni.limiti),
        scansione_(std::string_view(testo).substr(inizio), inizio > 0 ? 2 : 1, tabella.separatore) {}

  std::vector<RigaTabella> righe(std::size_t daRiga) {
    std::vector<RigaTabella> righe;
    while (!scansione_.finita()) {
      RigaTabella riga = record(righe.empty() ? 0 : righe.back().celle.size());
      if (riga.numero < daRiga || !haContenuto(riga)) continue;
      if (righe.size() >= limiti_.righe) troppeRighe(limiti_, {tabella_.file, {}, riga.numero, 0});
      righe.push_back(std::move(riga));
    }
    return righe;
  }

 private:
  RigaTabella record(std::size_t attese) {
    RigaTabella riga;
    riga.numero = scansione_.riga();
    riga.celle.reserve(attese);
    std::size_t colonna = 0;
    for (bool ultimo = false; !ultimo;) {
      const Posto posto{tabella_.file, {}, riga.numero, ++colonna};
      const std::size_t rigaFisica = scansione_.riga();
      const CampoGrezzo campo = scansione_.prossimo();
      ultimo = campo.ultimo;
      const std::string_view contenuto = cella(campo, posto, rigaFisica);
      if (contenuto.empty()) continue;
      if (colonna > limiti_.colonne) {
        if (soloBianchi(contenuto)) continue;
        troppeColonne(limiti_, posto);
      }
      verificaLunghezza(contenuto, limiti_, posto, ": forse una virgoletta non è chiusa");
      riga.celle.resize(colonna);
      riga.celle.back() = {contenuto, Genere::Testo};
    }
    return riga;
  }

  std::string_view cella(const CampoGrezzo& campo, const Posto& posto, std::size_t rigaFisica) {
    if (campo.aperto) {
      throw ErroreTabella("F03", {posto.file, {}, rigaFisica, posto.colonna},
                          "La virgoletta che apre la cella non è chiusa fino alla fine del file");
    }
    std::size_t fine = campo.doppie ? senzaDoppie(campo) : campo.fine;
    if (campo.virgolette) {
      const std::string_view coda(testo_ + campo.fine + 1, campo.coda - campo.fine - 1);
      if (!soloBianchi(coda)) {
        tabella_.rilievi.push_back({"F03", posto, "Dopo la virgoletta che chiude la cella c'è altro testo"});
        // What is written stays: the content and what is behind it.
        for (const char c : coda) testo_[fine++] = c;
      }
    }
    const std::string_view contenuto(testo_ + campo.inizio, fine - campo.inizio);
    return contenuto.starts_with('\'') && somigliaAFormula(contenuto) ? contenuto.substr(1) : contenuto;
  }

  // Shortens the content in place, which has been scanned and is not read again.
  std::size_t senzaDoppie(const CampoGrezzo& campo) {
    std::size_t scritto = campo.inizio;
    for (std::size_t letto = campo.inizio; letto < campo.fine; ++letto) {
      testo_[scritto++] = testo_[letto];
      if (testo_[letto] == '"') ++letto;
    }
    return scritto;
  }

  char* testo_;
  Tabella& tabella_;
  const Limiti& limiti_;
  Scansione scansione_;
};

}  // namespace

bool separatoreAmmesso(char c) { return c == ';' || c == ',' || c == '\t' || c == '|'; }

bool somigliaAFormula(std::string_view testo) {
  using namespace std::string_view_literals;
  while (testo.starts_with('\'')) testo.remove_prefix(1);
  return !testo.empty() && "=+-@\t\r"sv.find(testo.front()) != std::string_view::npos;
}

Tabella leggiCsv(std::string_view byte, std::string_view nome, const OpzioniLettura& opzioni) {
  TestoDecodificato letto = decodifica(byte, opzioni.caratteri, nome);
  rifiutaByteNulli(letto.utf8, letto.caratteri, nome);
  const auto testo = std::make_shared<std::string>(std::move(letto.utf8));
  // Programs of DOS end a text with this character.
  while (!testo->empty() && testo->back() == '\x1a') testo->pop_back();

  const Dichiarazione dichiarazione = leggiDichiarazione(*testo);
  const std::size_t inizio = dichiarazione.lunghezza;
  Tabella tabella;
  tabella.file = nome;
  tabella.caratteri = letto.caratteri;
  if (opzioni.separatore) {
    tabella.separatore = *opzioni.separatore;
  } else if (inizio > 0) {
    tabella.separatore = dichiarazione.separatore;
  } else {
    tabella.separatore = riconosciSeparatore(*testo, opzioni.rigaIntestazione);
  }
  componi(tabella, LettoreCsv(*testo, inizio, tabella, opzioni).righe(opzioni.rigaIntestazione), opzioni);
  tabella.testi = testo;
  return tabella;
}

}  // namespace cu::tabelle
