#include "gestione/righe_elenco.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace cu {
namespace {

constexpr int kDestra = 1;

// A connection to rows in memory, which is how a recordset is filled.
class RigheInMemoria : public Connection {
 public:
  RigheInMemoria(const std::vector<GridColumn>& colonne, const std::vector<RigheElenco::Riga>& righe)
      : colonne_(colonne), righe_(righe) {}
  std::int64_t Execute(std::string_view) override { return -1; }
  void Query(std::string_view, RowStore& dove) override {
    std::vector<Column> colonne;
    for (const GridColumn& colonna : colonne_) colonne.push_back({colonna.field, ValueType::Null});
    dove.setColumns(std::make_shared<const Columns>(std::move(colonne)));
    for (const RigheElenco::Riga& riga : righe_) {
      dove.beginRow();
      for (const Value& valore : riga) cella(dove, valore);
      dove.endRow();
    }
  }

 private:
  static void cella(RowStore& dove, const Value& valore) {
    const CellView vista = valore.view();
    switch (valore.type()) {
      case ValueType::Null:
        return dove.null();
      case ValueType::Integer:
        return dove.integer(vista.integer());
      case ValueType::Decimal:
        return dove.decimal(vista.decimal());
      case ValueType::Text:
        return dove.text(vista.text());
      case ValueType::Date:
        return dove.date(vista.date());
    }
  }
  const std::vector<GridColumn>& colonne_;
  const std::vector<RigheElenco::Riga>& righe_;
};

}  // namespace

RigheElenco::RigheElenco(Grid& griglia, std::vector<GridColumn> colonne) : griglia_(griglia) {
  for (GridColumn& colonna : colonne) griglia_.addColumn(std::move(colonna));
}

void RigheElenco::mostra(const std::vector<Riga>& righe) {
  const std::int64_t prima = chiave();
  const std::size_t posto = griglia_.row();
  const DrawingPause pausa(griglia_);
  griglia_.bind(nullptr);
  if (righe_.IsOpen()) righe_.Close();
  RigheInMemoria memoria(griglia_.columns(), righe);
  righe_.Open(memoria, "");
  if (!righe.empty()) {
    const auto stessa = std::find_if(righe.begin(), righe.end(), [&](const Riga& riga) {
      return prima != 0 && riga.front().view().integer() == prima;
    });
    const std::size_t vicina = std::clamp<std::size_t>(posto, 1, righe.size());
    righe_.MoveTo(stessa == righe.end() ? vicina : static_cast<std::size_t>(stessa - righe.begin()) + 1);
  }
  griglia_.bind(&righe_);
}

std::int64_t RigheElenco::chiave() const {
  return griglia_.rows() == nullptr || griglia_.row() == 0 ? 0 : righe_.Get(0).integer();
}

void RigheElenco::vai(std::int64_t chiave) {
  if (griglia_.rows() == nullptr) return;
  for (std::size_t riga = 1; riga <= griglia_.rowCount(); ++riga) {
    std::vector<CellView> celle(griglia_.columns().size());
    righe_.Peek(riga, celle.data());
    if (celle.front().integer() != chiave) continue;
    griglia_.selectRow(riga);
    return;
  }
}

GridColumn colonnaChiave() { return {"ID", "", kGridBigInteger, 0, 0, false, false}; }
GridColumn colonnaTesto(const char* campo, const char* didascalia, int larghezza) {
  return {campo, didascalia, kGridText, larghezza, 0, true, false};
}
GridColumn colonnaImporto(const char* campo, const char* didascalia) {
  constexpr int kLarghezza = 1350;
  return {campo, didascalia, kGridDouble, kLarghezza, kDestra, true, false};
}
GridColumn colonnaGiorno(const char* campo, const char* didascalia) {
  constexpr int kLarghezza = 1400;
  return {campo, didascalia, kGridText, kLarghezza, 0, true, false};
}
GridColumn colonnaNumero(const char* campo, const char* didascalia) {
  constexpr int kLarghezza = 1100;
  return {campo, didascalia, kGridLong, kLarghezza, kDestra, true, false};
}

}  // namespace cu
