#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace cu {

// A table kept as text: a line of column names, then one line a row, fields parted by tabs, UTF-8. The views
// live as long as the text.
class Tabella {
 public:
  // std::runtime_error for a row whose number of fields is not that of the first line.
  explicit Tabella(std::string_view testo);

  std::size_t righe() const { return colonne_.empty() ? 0 : campi_.size() / colonne_.size(); }
  // std::out_of_range for a column that the table does not have.
  std::size_t colonna(std::string_view nome) const;
  std::string_view campo(std::size_t riga, std::size_t colonna) const;
  std::string_view campo(std::size_t riga, std::string_view nome) const { return campo(riga, colonna(nome)); }
  const std::vector<std::string_view>& colonne() const { return colonne_; }

 private:
  std::vector<std::string_view> colonne_;
  std::vector<std::string_view> campi_;
};

}  // namespace cu
