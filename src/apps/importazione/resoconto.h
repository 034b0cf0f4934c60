#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "intake/annulla.h"
#include "intake/piano.h"

namespace cu {

// What became of a plan.
struct EsitoImportazione {
  bool applica = false;    // as asked for
  bool riuscita = false;   // applied, tested without errors, or nothing to write
  bool applicata = false;  // something was written
  std::optional<std::int32_t> lotto;
};

// Whether a name ends in .json or .csv, in any case.
bool fileDiResoconto(const std::string& file);

// Writes the report as the file's ending asks. Raises Error.
void scriviResoconto(const std::string& file, const intake::Piano& piano, const EsitoImportazione& esito);
// The two forms.
void resocontoJson(const intake::Piano& piano, const EsitoImportazione& esito,
                   const std::function<void(std::string_view)>& scrivi);  // in pieces, in order
std::string resocontoCsv(const intake::Piano& piano);

// Why a row is left out; of an invoice, how its amounts follow from the document.
std::vector<std::string> spiegazioni(const intake::Piano& piano, const intake::RigaPiano& riga);

// Every message on a line with its place: those of files and accounts, then those of the rows in order.
void scriviMessaggi(const intake::Piano& piano, std::ostream& uscita);

// Numbers as a line of a command has them, or as a window shows them.
enum class Migliaia : std::uint8_t { SenzaPunto, ConPunto };

// "120 nuovi, 3 uguali, 1 da decidere, 0 errori": the states that occur, and those four.
std::string dettiConteggi(const std::array<std::size_t, intake::kStatiRiga>& conteggi,
                          Migliaia migliaia = Migliaia::SenzaPunto);
// One line: "Prova: 120 nuovi, ... Non è stato scritto nulla."
std::string dettoEsito(const intake::Piano& piano, const EsitoImportazione& esito,
                       Migliaia migliaia = Migliaia::SenzaPunto);
// What taking a batch back does: "3 compensi e 1 percipiente tolti, 1 compenso ai valori di prima".
std::string dettoAnnullato(const intake::Annullato& annullato, Migliaia migliaia = Migliaia::SenzaPunto);

}  // namespace cu
