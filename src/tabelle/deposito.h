#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace cu::tabelle {

// Keeps texts at fixed addresses, packed.
class Deposito {
 public:
  std::string_view conserva(std::string_view testo);

 private:
  std::vector<std::unique_ptr<char[]>> blocchi_;
  char* libero_ = nullptr;
  std::size_t resto_ = 0;
};

}  // namespace cu::tabelle
