#pragma once

namespace cu {

// The exit codes of every command.
inline constexpr int kRiuscito = 0;
inline constexpr int kRifiutato = 1;     // the wizard refused or warned, or something failed
inline constexpr int kUsoSbagliato = 2;  // wrong usage, or a wrong profile

}  // namespace cu
