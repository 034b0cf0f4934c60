#pragma once

namespace cu {

// The exit codes of every command.
inline constexpr int kRiuscito = 0;
inline constexpr int kRifiutato = 1;     // the wizard rejected or warned, or an error occurred
inline constexpr int kUsoSbagliato = 2;  // wrong usage, or an invalid profile

}  // namespace cu
