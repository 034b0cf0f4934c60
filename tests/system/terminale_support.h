#pragma once

#include <string>
#include <vector>

namespace cu::test {

// A run of cuctl at a terminal, where `digitato` is typed once the program has shown `quando`.
struct AlTerminale {
  AlTerminale(std::vector<std::string> argomenti, const std::string& digitato,
              const std::string& quando = ": ");
  std::string visto;
  int codice = -1;
};

}  // namespace cu::test
