#pragma once

#include <cstdint>

namespace cu {

// The kind of communication; the numbers are those of the suite's tables. Nessuna: no option is on.
enum class Comunicazione : std::int32_t { Nessuna = 0, Ordinaria = 1, Annullamento = 2, Sostituzione = 3 };

// The kind of run. The launcher identifies a mode by its number; an unknown number is Altro, which prints
// without a preceding check.
enum class ModoCorsa { Altro, ContiIndividuali, Certificazione, CU };

// The destination of a print, with the numbers of the print control; any other number prints nothing.
enum class Uscita { Anteprima = 1, Stampante = 2, Pdf = 3, Foglio = 4, Posta = 5, File = 6 };

}  // namespace cu
