#include "intake/corrispondenza.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "intake/testo_cella.h"
#include "tabelle/lettura.h"

namespace cu::intake {
namespace {

class Abbinamento {
 public:
  Abbinamento(const tabelle::Tabella& tabella, Elenco elenco, const Mappatura& mappatura)
      : elenco_(elenco), mappatura_(mappatura) {
    std::string appoggio;
    for (const tabelle::Cella& cella : tabella.intestazione.celle) {
      scritte_.emplace_back(pulito(cella.testo, appoggio));
      nomi_.push_back(tabelle::normalizza(cella.testo));
    }
    distinti_ = titoliDistinti(tabella);
    usate_.resize(nomi_.size());
  }

  Corrispondenza esegui() {
    trovate_.resize(colonne(elenco_).size());
    for (const auto& [rango, fonte] : mappatura_.colonne) daMappatura(rango, fonte);
    if (!mappatura_.salto.colonna.empty()) esito_.salto = posto(mappatura_.salto.colonna, "salta_se");
    for (std::size_t i = 0; i < nomi_.size(); ++i) perNome(i);
    for (ColonnaTrovata& trovata : trovate_) {
      if (trovata.colonna != nullptr) esito_.colonne.push_back(std::move(trovata));
    }
    for (ColonnaTrovata& trovata : esito_.colonne) {
      const auto valori = mappatura_.valori.find(trovata.colonna->indice);
      if (valori != mappatura_.valori.end()) trovata.valori = &valori->second;
    }
    verificaObblighi();
    return std::move(esito_);
  }

 private:
  void segnala(Codice codice, std::string testo, std::string colonna) {
    esito_.messaggi.push_back(messaggio(codice, std::move(testo), std::move(colonna)));
  }

  std::optional<std::size_t> posto(const std::string& intestazione, std::string_view perChe) {
    // A heading that is there more than once, with its number.
    const auto numerato = std::find(distinti_.begin(), distinti_.end(), intestazione);
    if (numerato != distinti_.end()) {
      const auto suo = static_cast<std::size_t>(numerato - distinti_.begin());
      usate_[suo] = true;
      return suo;
    }
    const std::string nome = tabelle::normalizza(intestazione);
    const auto trovato = std::find(nomi_.begin(), nomi_.end(), nome);
    if (trovato == nomi_.end()) {
      segnala(Codice::C01, "il file non ha la colonna, che la mappatura indica per " + std::string(perChe),
              intestazione);
      return std::nullopt;
    }
    if (std::find(std::next(trovato), nomi_.end(), nome) != nomi_.end()) {
      segnala(Codice::C02, "il file ha due colonne con questo nome", intestazione);
    }
    const auto indice = static_cast<std::size_t>(trovato - nomi_.begin());
    // The second one is reported here.
    for (std::size_t i = indice; i < nomi_.size(); ++i) {
      if (nomi_[i] == nome) usate_[i] = true;
    }
    return indice;
  }

  void daMappatura(std::uint8_t rango, const Fonte& fonte) {
    const Colonna& colonna = colonne(elenco_)[rango];
    ColonnaTrovata& trovata = trovate_[rango];
    trovata.colonna = &colonna;
    trovata.costante = fonte.costante;
    trovata.segno = fonte.segno;
    for (const std::string& intestazione : fonte.colonne) {
      const auto indice = posto(intestazione, colonna.nome);
      if (indice) aggiungiPosto(trovata, *indice);
    }
    if (fonte.costante) trovata.intestazione = colonna.nome;
    if (trovata.intestazione.empty()) trovata.intestazione = colonna.nome;
  }

  void aggiungiPosto(ColonnaTrovata& trovata, std::size_t indice) {
    if (!trovata.posti.empty()) trovata.intestazione += " + ";
    trovata.intestazione += scritte_[indice];
    trovata.posti.push_back(indice);
    usate_[indice] = true;
  }

  void perNome(std::size_t indice) {
    if (usate_[indice] || scritte_[indice].empty()) return;
    const auto rango = cercaColonna(elenco_, scritte_[indice]);
    if (!rango && nomi_[indice] == tabelle::normalizza(kColonnaErrori)) return;
    if (!rango || mappatura_.colonne.contains(*rango)) {
      // Of several that are alike the number says which, where another one is used.
      bool altraUsata = false;
      for (std::size_t i = 0; i < nomi_.size(); ++i)
        altraUsata = altraUsata || (nomi_[i] == nomi_[indice] && usate_[i]);
      segnala(Codice::C03, "la colonna non si importa e viene ignorata",
              mostrato((altraUsata ? distinti_ : scritte_)[indice]));
      // The same name once more says nothing new.
      for (std::size_t i = indice; i < nomi_.size(); ++i) usate_[i] = usate_[i] || nomi_[i] == nomi_[indice];
      return;
    }
    ColonnaTrovata& trovata = trovate_[*rango];
    const Colonna& colonna = colonne(elenco_)[*rango];
    const bool ripetuta = trovata.colonna != nullptr && nomi_[trovata.posti.front()] == nomi_[indice];
    if (trovata.colonna != nullptr && (!colonna.somma || ripetuta)) {
      segnala(Codice::C02, "la colonna " + std::string(colonna.nome) + " è data due volte",
              mostrato(scritte_[indice]));
      return;
    }
    trovata.colonna = &colonna;
    aggiungiPosto(trovata, indice);
  }

  bool ha(std::uint8_t rango) const { return esito_.ha(rango); }

  template <class C>
  bool ha(C colonna) const {
    return ha(static_cast<std::uint8_t>(colonna));
  }

  // Whether a payee may be foreign by a column of the table.
  bool puoEssereEstero() const {
    using enum ColonnaPercipiente;
    return ha(NonResidente) || ha(Nazione) || ha(CodiceFiscaleEstero);
  }

  void gruppo(Obbligo obbligo, std::string_view cosa) {
    std::string nomi;
    for (const Colonna& colonna : colonne(elenco_)) {
      if (colonna.obbligo != obbligo) continue;
      if (ha(colonna.indice)) return;
      if (!nomi.empty()) nomi += ", ";
      nomi += colonna.nome;
    }
    if (!nomi.empty()) segnala(Codice::C01, std::string(cosa) + ": serve una delle colonne " + nomi, {});
  }

  void verificaObblighi() {
    for (const Colonna& colonna : colonne(elenco_)) {
      if (ha(colonna.indice)) continue;
      const bool manca =
          colonna.obbligo == Obbligo::Sempre || (colonna.obbligo == Obbligo::SeItaliano &&
                                                 !ha(ColonnaPercipiente::PartitaIva) && !puoEssereEstero());
      if (manca) segnala(Codice::C01, "manca la colonna, che è obbligatoria", std::string(colonna.nome));
    }
    gruppo(Obbligo::UnaDelleChiavi, "manca il percipiente");
    gruppo(Obbligo::UnoDegliImporti, "manca l'importo");
  }

  Elenco elenco_;
  const Mappatura& mappatura_;
  std::vector<std::string> scritte_;  // the headings, cleaned
  std::vector<std::string> nomi_;     // and as they are compared
  std::vector<std::string> distinti_;
  std::vector<bool> usate_;
  std::vector<ColonnaTrovata> trovate_;
  Corrispondenza esito_;
};

}  // namespace

bool Corrispondenza::ha(std::uint8_t rango) const {
  return std::any_of(colonne.begin(), colonne.end(),
                     [&](const ColonnaTrovata& trovata) { return trovata.colonna->indice == rango; });
}

std::vector<std::string> titoliDistinti(const tabelle::Tabella& tabella) {
  std::vector<std::string> titoli;
  std::vector<std::string> nomi;
  std::string appoggio;
  for (const tabelle::Cella& cella : tabella.intestazione.celle) {
    titoli.emplace_back(pulito(cella.testo, appoggio));
    nomi.push_back(tabelle::normalizza(cella.testo));
  }
  std::map<std::string_view, std::size_t> visti;
  for (std::size_t i = 0; i < titoli.size(); ++i) {
    if (titoli[i].empty() || std::count(nomi.begin(), nomi.end(), nomi[i]) < 2) continue;
    titoli[i] += " (" + fromInteger(static_cast<std::int64_t>(++visti[nomi[i]])) + ')';
  }
  return titoli;
}

Corrispondenza abbina(const tabelle::Tabella& tabella, Elenco elenco, const Mappatura& mappatura) {
  return Abbinamento(tabella, elenco, mappatura).esegui();
}

}  // namespace cu::intake
