#include "archive/controllo.h"

#include <algorithm>

#include "archive/schema.h"
#include "base/error.h"
#include "base/text.h"

namespace cu {
namespace {

const char* descrizione(ValueType tipo) {
  switch (tipo) {
    case ValueType::Integer:
      return "un intero";
    case ValueType::Decimal:
      return "un importo";
    case ValueType::Text:
      return "un testo";
    case ValueType::Date:
      return "una data";
    case ValueType::Null:
      return "un valore";
  }
  return "";
}

std::string quante(std::size_t colonne) {
  return fromInteger(static_cast<std::int64_t>(colonne)) + (colonne == 1 ? " colonna" : " colonne");
}

std::shared_ptr<const Columns> colonneDi(Connection& connessione, std::string_view nome) {
  RowStore righe;
  connessione.Query("SELECT * FROM " + std::string(nome) + " WHERE 1 = 0", righe);
  return righe.columns();
}

void confronta(const std::string& nome, const Columns& attese, const Columns& trovate,
               std::vector<VoceControllo>& voci) {
  for (std::size_t i = 0; i < attese.size(); ++i) {
    const Column& attesa = attese[i];
    VoceControllo voce{"Colonna", nome + "." + attesa.name, descrizione(attesa.type), "", true};
    const std::size_t dove = trovate.find(attesa.name);
    if (dove == Columns::kNone) {
      voce.stato = "MANCA";
    } else {
      const ValueType tipo = trovate[dove].type;
      const bool nota = attesa.type != ValueType::Null && tipo != ValueType::Null;
      if (!nota || tipo == attesa.type) continue;
      voce.stato = "È " + std::string(descrizione(tipo));
    }
    voci.push_back(std::move(voce));
  }
}

}  // namespace

std::vector<VoceControllo> controllaTabelle(Connection& connessione, Connection& modello) {
  std::vector<VoceControllo> voci;
  for (const OggettoSchema& oggetto : oggettiSchema()) {
    const std::string nome(oggetto.nome);
    const auto attese = colonneDi(modello, nome);
    VoceControllo voce{oggetto.vista ? "Vista" : "Tabella", nome, quante(attese->size()), "presente", false};
    std::shared_ptr<const Columns> trovate;
    try {
      trovate = colonneDi(connessione, nome);
    } catch (const DatabaseError& errore) {
      if (errore.kind() == DatabaseErrorKind::Unavailable || errore.kind() == DatabaseErrorKind::Timeout)
        throw;
      voce.manca = true;
      const bool manca =
          errore.kind() == DatabaseErrorKind::Missing || errore.kind() == DatabaseErrorKind::Syntax;
      voce.stato = manca ? "MANCA" : "NON SI LEGGE";
    }
    voci.push_back(std::move(voce));
    if (trovate != nullptr) confronta(nome, *attese, *trovate, voci);
  }
  return voci;
}

}  // namespace cu
