#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace cu {

// A table stored as text: a line of column names, then one line per row, fields separated by tabs, UTF-8. The
// views are valid as long as the text.
class Tabella {
 public:
  // Raises std::runtime_error for a row whose number of fields differs from that of the first line.
  explicit Tabella(std::string_view testo);

  std::size_t righe() const { return colonne_.empty() ? 0 : campi_.size() / colonne_.size(); }
  // Raises std::out_of_range for an unknown column.
  std::size_t colonna(std::string_view nome) const;
  std::string_view campo(std::size_t riga, std::size_t colonna) const;
  std::string_view campo(std::size_t riga, std::string_view nome) const { return campo(riga, colonna(nome)); }
  const std::vector<std::string_view>& colonne() const { return colonne_; }

 private:
  std::vector<std::string_view> colonne_;
  std::vector<std::string_view> campi_;
};

}  // namespace cu
