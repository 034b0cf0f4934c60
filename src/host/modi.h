#pragma once

#include <cstdint>

namespace cu {

// The kind of communication; the numbers are those of the suite's tables. None is chosen where the options
// are all off.
enum class Comunicazione : std::int32_t { Nessuna = 0, Ordinaria = 1, Annullamento = 2, Sostituzione = 3 };

// What a run makes. The launcher knows the modes by number; one that it does not name is Altro, which prints
// without a test before it.
enum class ModoCorsa { Altro, ContiIndividuali, Certificazione, CU };

// Where a print goes, by the numbers of the print control; any other number prints nothing.
enum class Uscita { Anteprima = 1, Stampante = 2, Pdf = 3, Foglio = 4, Posta = 5, File = 6 };

}  // namespace cu
