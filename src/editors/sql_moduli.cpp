#include "editors/sql_moduli.h"

#include "base/text.h"
#include "modello/moduli.h"

namespace cu {
namespace {

std::string tabella() { return std::string(modello::kTabellaModuli); }
std::string chiave() { return std::string(modello::kIdModulo); }
std::string numero(const Recordset& riga, const char* colonna) {
  return fromInteger(riga.Get(colonna).integer());
}
std::string perId(std::int64_t id) { return " WHERE " + chiave() + " = " + fromInteger(id); }

}  // namespace

SqlModuli::SqlModuli(const Disposizione& disposizione, std::span<const CampoEditor> campi,
                     const UtilitaSuite& utilita)
    : disposizione_(disposizione), campi_(campi), utilita_(utilita) {}

std::string SqlModuli::select(const Recordset& riga, std::int32_t idAzienda) const {
  const auto di = [&](const char* colonna) {
    return modello::ParteChiave{colonna, riga.Get(colonna).integer()};
  };
  return "SELECT *, Anticipazione AS Eliminato FROM " + tabella() +
         modello::fnDoveConto(
             {{di("Anno"), di("IDAnagrafica"), {"IDAzienda", idAzienda}, di("IDCausalePagamento")}});
}

std::string SqlModuli::massimo() const { return "SELECT MAX(" + chiave() + ") AS ID FROM " + tabella(); }

std::string SqlModuli::valore(const CampoEditor& campo, const Recordset& modulo, bool inserimento) const {
  const CellView cella = modulo.Get(campo.colonna);
  switch (campo.genere) {
    case Genere::Importo:
      return utilita_.literalNumber(cella);
    case Genere::Testo:
      return utilita_.literal(cella);
    case Genere::Flag:
      return utilita_.literalFlag(cella);
    case Genere::Elenco:
      return utilita_.literalId(cella);
    case Genere::Numero:
      break;
  }
  return inserimento ? utilita_.literalId(cella) : utilita_.literalNumber(cella);
}

std::string SqlModuli::insert(std::int64_t id, const Recordset& riga, std::int32_t idAzienda,
                              const Recordset& modulo) const {
  std::string colonne = chiave() + ", IDAnagrafica, IDAzienda, IDCausalePagamento, Anno";
  std::string valori = fromInteger(id) + ", " + numero(riga, "IDAnagrafica") + ", " + fromInteger(idAzienda) +
                       ", " + numero(riga, "IDCausalePagamento") + ", " + numero(riga, "Anno");
  for (const CampoEditor& campo : campi_) {
    colonne += ", " + std::string(campo.colonna);
    valori += ", " + valore(campo, modulo, true);
  }
  // The oldest layout ends its list of columns with a blank.
  const char* const chiusura = disposizione_.immagine ? ")" : ") ";
  return "INSERT INTO " + tabella() + " (" + colonne + chiusura + " VALUES (" + valori + ")";
}

std::string SqlModuli::update(std::int64_t id, const Recordset& modulo) const {
  std::string assegnazioni;
  for (const CampoEditor& campo : campi_) {
    assegnazioni += assegnazioni.empty() ? " " : ", ";
    assegnazioni += std::string(campo.colonna) + " = " + valore(campo, modulo, false);
  }
  return "UPDATE " + tabella() + " SET " + assegnazioni + perId(id);
}

std::string SqlModuli::elimina(std::int64_t id) const { return "DELETE " + tabella() + perId(id); }

}  // namespace cu
