#pragma once

#include <string>
#include <vector>

namespace cu::test {

// The text of a statement without its values: every literal as '?', every number as 0.
std::string formaDi(const std::string& istruzione);

// The statements of a trace, in order.
std::vector<std::string> istruzioniDi(const std::string& traccia);

}  // namespace cu::test
