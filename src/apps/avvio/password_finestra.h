#pragma once

#include <string>

namespace cu {

// From here on a password that is not in a variable is the one that was given in a window for the same
// address; where there is none and no terminal either, a window asks for it. Passwords are kept in memory
// alone, until the program ends.
void chiediPasswordInFinestra();

void tieniPassword(const std::string& origine, const std::string& password);
void dimenticaPassword(const std::string& origine);
bool passwordTenuta(const std::string& origine);

}  // namespace cu
