#include "lettura/testate.h"

#include <algorithm>
#include <cstring>

#include "base/ascii.h"
#include "base/date.h"
#include "lettura/valori.h"

namespace cu::lettura {
namespace {

bool unoDi(std::string_view nome, std::initializer_list<std::string_view> nomi) {
  return std::find(nomi.begin(), nomi.end(), nome) != nomi.end();
}

bool cifre(std::string_view testo) { return std::all_of(testo.begin(), testo.end(), isDigit); }

std::string campoDetto(std::string_view nome) { return "Il campo \"" + std::string(nome) + "\""; }

}  // namespace

bool vuoto(std::string_view testo) {
  return testo.empty() ||
         (testo.front() == ' ' && std::memcmp(testo.data(), testo.data() + 1, testo.size() - 1) == 0);
}

Testate::Testate() {
  aggiungi(a_, 'A', modello::kTipoA, {});
  aggiungi(d_, 'D', modello::kTipoD, {});
  aggiungi(h_, 'H', modello::kTipoH, {});
  aggiungi(z_, 'Z', modello::kTipoZ, {});
  anno(std::nullopt);
}

void Testate::anno(std::optional<std::int32_t> anno, const modello::Modello& modello) {
  b_.clear();
  if (!anno) {
    for (const modello::Tavola parte :
         {modello::Tavola(modello::kTipoBInizio), modello::Tavola(modello::kTipoBFine),
          modello::Tavola(modello::kTipoBRiserva), modello::Tavola(modello::kTipoBCoda)}) {
      aggiungi(b_, 'B', parte, anno);
    }
    return;
  }
  for (const modello::Tavola parte : modello::tipoB(*anno, modello)) aggiungi(b_, 'B', parte, anno);
}

Testate::Genere Testate::genere(char record, std::string_view nome, std::optional<std::int32_t> anno) {
  using enum Genere;
  if (nome.starts_with("Filler") || nome.starts_with("Spazio riservato")) return Vuoto;
  if (nome == "Tipo Record" || nome == "Codice fornitura" || nome == "Campo" || nome == "Campo utente" ||
      nome.starts_with("Spazio a disp.")) {
    return Libero;
  }
  if (nome == "N° comun. certif. lav. dip. e assim.") {
    return !anno ? Libero : modello::kContaDipendenti.comprende(*anno) ? Numero : Vuoto;
  }
  if (record == 'Z') return Numero;
  if (unoDi(nome, {"Tipo fornitore", "Progressivo modulo", "Cod. carica rappresentante",
                   "Cod. Fisc. soc. o ente dich.", "N° comun. certif. lav. aut. e provv.",
                   "Progressivo Certificazione", "Prot. ass. da Serv. telem.-Id. invio",
                   "Progr. ass. da Serv. telem. alla singola CU"})) {
    return Numero;
  }
  if (unoDi(nome, {"Fornitura rel. invio certif. da ann.", "Fornitura rel. invio certif. da sost.",
                   "Casella Quadro CT", "Firma", "Firma intermediario", "Flag conferma Singola Certif.",
                   modello::kCasiParticolari})) {
    return Flag;
  }
  if (nome == "Impegno a trasmettere via telem. dich.") return Cifra;
  if (nome == "Data dell'impegno") return Data;
  if (nome == "Tipo op.: ann./sost.") return Operazione;
  if (unoDi(nome, {"Id. prod. software (Cod. Fisc.)", "Indirizzo posta elettronica", "Telefono/Fax"}))
    return Testo;
  return Maiuscolo;
}

void Testate::aggiungi(std::vector<Campo>& campi, char record, modello::Tavola tavola,
                       std::optional<std::int32_t> anno) {
  for (const modello::CampoRecord& campo : tavola) {
    if (campo.posizione == modello::kLarghezzaRecord) continue;  // the end mark
    Genere suo = genere(record, campo.nome, anno);
    if (campo.nome == modello::kEventiEccezionali && campo.lunghezza > 1) suo = Genere::DueCifre;
    if (suo != Genere::Libero) campi.push_back({{campo.posizione, campo.lunghezza}, suo, campo.nome});
  }
}

void Testate::controllaCampo(const Campo& campo, std::string_view valore, Segnalatore& segnala) {
  const auto trovato = [&](Regola regola, const char* atteso) {
    segnala.campo(regola, campo.tratto, campo.nome, [&] {
      std::string_view detto = valore;
      while (!detto.empty() && detto.back() == ' ') detto.remove_suffix(1);
      return campoDetto(campo.nome) + " contiene " + citato(detto.substr(0, 40)) + ": " + atteso;
    });
  };
  switch (campo.genere) {
    case Genere::Libero:
      return;
    case Genere::Vuoto:
      if (!vuoto(valore)) trovato(Regola::F06, "deve essere vuoto.");
      return;
    case Genere::Testo:
    case Genere::Maiuscolo:
      if (valore.front() == ' ' && !vuoto(valore))
        trovato(Regola::F02, "il testo deve cominciare a sinistra.");
      if (campo.genere == Genere::Maiuscolo && haMinuscole(valore)) {
        trovato(Regola::F05, "il modello chiede lettere maiuscole.");
      }
      return;
    case Genere::Numero:
      if (!cifre(valore)) trovato(Regola::F01, "atteso un numero riempito di zeri a sinistra.");
      return;
    case Genere::Cifra:
      if (!cifre(valore) && !vuoto(valore)) trovato(Regola::F01, "attesa una cifra.");
      return;
    case Genere::DueCifre:
      if (!cifre(valore.substr(std::min(valore.find_first_not_of(' '), valore.size())))) {
        trovato(Regola::F01, "atteso un numero, a destra nel campo.");
      }
      return;
    case Genere::Data:
      if (valore != "00000000" && !giorno(valore))
        trovato(Regola::F03, "attesa una data GGMMAAAA che esista.");
      return;
    case Genere::Flag:
      if (valore != "0" && valore != "1" && valore != " ") trovato(Regola::F04, "atteso 0, 1 o niente.");
      return;
    case Genere::Operazione:
      if (valore != "A" && valore != "S" && valore != " ") trovato(Regola::F04, "atteso A, S o niente.");
      return;
  }
}

void Testate::controlla(char record, std::string_view riga, Segnalatore& segnala) const {
  const std::vector<Campo>& campi = record == 'A'   ? a_
                                    : record == 'B' ? b_
                                    : record == 'D' ? d_
                                    : record == 'H' ? h_
                                                    : z_;
  for (const Campo& campo : campi) controllaCampo(campo, leggi(riga, campo.tratto), segnala);
}

}  // namespace cu::lettura
