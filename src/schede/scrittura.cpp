#include "schede/scrittura.h"

#include <algorithm>
#include <stdexcept>

#include "base/error.h"
#include "base/text.h"
#include "schede/conteggio.h"
#include "schede/righe.h"

namespace cu::schede {
namespace {

void aggiungiValore(Inserimento& inserimento, const Value& valore) {
  const CellView cella = valore.view();
  switch (valore.type()) {
    case ValueType::Null:
      inserimento.nullo();
      return;
    case ValueType::Integer:
      inserimento.intero(cella.integer());
      return;
    case ValueType::Decimal:
      inserimento.importo(cella.decimal());
      return;
    case ValueType::Text:
      inserimento.testo(cella.text());
      return;
    case ValueType::Date:
      inserimento.data(cella.date());
      return;
  }
}

// Whether the two mean the same: the database may hold '' or 0 where a record has none, and -1 for true.
bool equivalenti(TipoColonna tipo, const Value& a, const Value& b) {
  const CellView prima = a.view();
  const CellView dopo = b.view();
  switch (tipo) {
    case TipoColonna::Intero:
    case TipoColonna::Id:
      return prima.integer() == dopo.integer();
    case TipoColonna::Flag:
      return prima.flag() == dopo.flag();
    case TipoColonna::Testo:
      return prima.text() == dopo.text();
    case TipoColonna::Importo:
      return prima.decimal() == dopo.decimal();
    case TipoColonna::Giorno:
      return prima.date() == dopo.date();
  }
  return false;
}

std::string elencoColonne(const TabellaSuite& tabella) {
  std::string testo;
  for (const ColonnaSuite& colonna : tabella.colonne) {
    if (!testo.empty()) testo += ", ";
    testo.append(tabella.nome).append(".").append(colonna.nome);
  }
  return testo;
}

// The greatest id that imports gave. Rows that are gone since keep theirs: the history refers to it.
std::int32_t ultimoNelloStorico(Connection& connessione, const TabellaSuite& tabella) {
  if (tabellaSuite(tabella.nome) == nullptr || !haTabella(connessione, "CuImportazioneRiga")) return 0;
  RowStore righe;
  connessione.Query("SELECT Chiave FROM CuImportazioneRiga WHERE Operazione = 'inserita' AND Tabella = '" +
                        std::string(tabella.nome) + "'",
                    righe);
  std::int64_t ultimo = 0;
  CellView chiave;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, &chiave);
    ultimo = std::max(ultimo, leadingInteger(chiave.text()));
  }
  return static_cast<std::int32_t>(ultimo);
}

}  // namespace

void appendValore(std::string& istruzione, const Value& valore) {
  const CellView cella = valore.view();
  switch (valore.type()) {
    case ValueType::Null:
      istruzione += "NULL";
      return;
    case ValueType::Integer:
    case ValueType::Decimal:
      istruzione += cella.toText();
      return;
    case ValueType::Text:
      appendTesto(istruzione, cella.text());
      return;
    case ValueType::Date:
      appendTesto(istruzione, cella.date().toCompact());
      return;
  }
}

std::string condizioneChiave(const TabellaSuite& tabella, const Riga& riga) {
  std::string condizione;
  for (std::size_t i = 0; i < tabella.chiavi; ++i) {
    condizione += i == 0 ? " WHERE " : " AND ";
    condizione.append(tabella.colonne[i].nome).append(" = ");
    appendValore(condizione, riga[i]);
  }
  return condizione;
}

void perOgniRiga(Connection& connessione, const TabellaSuite& tabella, std::string_view condizione,
                 const std::function<void(const CellView*)>& funzione) {
  std::string domanda = "SELECT " + elencoColonne(tabella) + " FROM ";
  domanda.append(tabella.nome).append(condizione);
  RowStore righe;
  connessione.Query(domanda, righe);
  std::vector<CellView> celle(tabella.colonne.size());
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    funzione(celle.data());
  }
}

std::vector<Riga> leggiRighe(Connection& connessione, const TabellaSuite& tabella,
                             std::string_view condizione) {
  std::vector<Riga> lette;
  perOgniRiga(connessione, tabella, condizione, [&](const CellView* celle) {
    Riga& riga = lette.emplace_back();
    riga.reserve(tabella.colonne.size());
    for (std::size_t i = 0; i < tabella.colonne.size(); ++i) riga.push_back(Value::of(celle[i]));
  });
  return lette;
}

std::int32_t Scrittura::nuovoId(const TabellaSuite& tabella, std::int32_t almeno) {
  const auto [ultimo, nuovo] = ultimi_.try_emplace(&tabella, 0);
  if (nuovo) {
    chiudi();
    std::string domanda = "SELECT MAX(";
    domanda.append(tabella.colonne[0].nome).append(") FROM ").append(tabella.nome);
    RowStore righe;
    connessione_.Query(domanda + " WITH (TABLOCKX, HOLDLOCK)", righe);
    CellView massimo;
    if (righe.size() > 0) righe.read(0, &massimo);
    ultimo->second = std::max(idIn(massimo), ultimoNelloStorico(connessione_, tabella));
  }
  constexpr std::int32_t kMassimo = 2147483647;
  if (ultimo->second == kMassimo) {
    throw Error(kErrorDatabase,
                "Nella tabella " + std::string(tabella.nome) + " non ci sono più numeri liberi.");
  }
  ultimo->second = std::max(ultimo->second + 1, almeno);
  return ultimo->second;
}

void Scrittura::inserisci(const TabellaSuite& tabella, const Riga& riga) {
  if (riga.size() != tabella.colonne.size()) throw std::logic_error("riga di " + std::string(tabella.nome));
  std::unique_ptr<Inserimento>& inserimento = inserimenti_[&tabella];
  if (!inserimento) {
    std::vector<std::string> colonne;
    for (const ColonnaSuite& colonna : tabella.colonne) colonne.emplace_back(colonna.nome);
    inserimento = std::make_unique<Inserimento>(connessione_, tabella.nome, colonne);
  }
  for (const Value& valore : riga) aggiungiValore(*inserimento, valore);
  inserimento->riga();
  if (diario_ != nullptr) diario_->inserita(tabella, riga);
}

bool Scrittura::cambia(const TabellaSuite& tabella, const Riga& prima, const Riga& dopo) {
  Riga scritta = prima;
  bool diversa = false;
  for (std::size_t i = tabella.chiavi; i < tabella.colonne.size(); ++i) {
    if (equivalenti(tabella.colonne[i].tipo, prima[i], dopo[i])) continue;
    scritta[i] = dopo[i];
    diversa = true;
  }
  if (diversa) ripristina(tabella, prima, scritta);
  return diversa;
}

void Scrittura::ripristina(const TabellaSuite& tabella, const Riga& prima, const Riga& dopo) {
  std::string istruzione;
  for (std::size_t i = tabella.chiavi; i < tabella.colonne.size(); ++i) {
    if (prima[i] == dopo[i]) continue;
    istruzione += istruzione.empty() ? " SET " : ", ";
    istruzione.append(tabella.colonne[i].nome).append(" = ");
    appendValore(istruzione, dopo[i]);
  }
  if (istruzione.empty()) return;
  chiudi();
  connessione_.Execute("UPDATE " + std::string(tabella.nome) + istruzione + condizioneChiave(tabella, prima));
  if (diario_ != nullptr) diario_->cambiata(tabella, prima, dopo);
}

bool Scrittura::riscrivi(const TabellaSuite& tabella, const Riga& dopo) {
  chiudi();
  const std::vector<Riga> trovate = leggiRighe(connessione_, tabella, condizioneChiave(tabella, dopo));
  if (trovate.empty()) {
    throw Error(kErrorRowGone, "Una riga della tabella " + std::string(tabella.nome) +
                                   " è stata eliminata da un'altra sessione.");
  }
  return cambia(tabella, trovate.front(), dopo);
}

void Scrittura::togli(const TabellaSuite& tabella, const Riga& riga) {
  chiudi();
  connessione_.Execute("DELETE FROM " + std::string(tabella.nome) + condizioneChiave(tabella, riga));
  if (diario_ != nullptr) diario_->tolta(tabella, riga);
}

void Scrittura::chiudi() {
  for (auto& [tabella, inserimento] : inserimenti_) inserimento->chiudi();
}

}  // namespace cu::schede
