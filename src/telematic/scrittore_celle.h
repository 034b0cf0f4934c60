#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/value.h"
#include "data/rowstore.h"
#include "modello/modello.h"
#include "telematic/celle.h"

namespace cu::telematico {

// The value that could not be written, and the reason.
struct Guasto {
  enum class Motivo { Nessuno, TroppoLungo, CelleEsaurite };
  Motivo motivo = Motivo::Nessuno;
  const modello::Campo* campo = nullptr;
};

// Fills the cells of one kind of record from a row of its query: the boxes of the run year's form. Their
// columns are looked up once per query.
class ScrittoreCelle {
 public:
  ScrittoreCelle(const modello::Modello& modello, modello::Record record, std::int32_t gAnno,
                 bool primoModulo);

  // Binds the columns of the following rows. Raises Error 3265 when one required by the year is missing.
  // Cheap when the columns are unchanged.
  void lega(const Columns& colonne);

  // `dataFirma` is the date of the signature, 8 characters; only record D needs it.
  [[nodiscard]] Guasto scrivi(const CellView* riga, std::string_view dataFirma, Celle& celle);

 private:
  using Ordinale = std::uint16_t;
  struct Passo {
    modello::Codice codice{};
    modello::Forma forma = modello::Forma::Testo;
    std::uint8_t condizione = 0;        // a bit mask with one bit
    std::array<Ordinale, 4> colonne{};  // the source and the other columns
    const modello::Campo* campo = nullptr;
  };
  struct ColonneCondizioni {
    Ordinale personaFisica = 0;
    Ordinale nonResidente = 0;
    Ordinale schumacker = 0;
    Ordinale anticipazione = 0;
    Ordinale codice = 0;
    std::vector<Ordinale> contributi;
  };

  bool stesse(const Columns& colonne) const;
  bool serve(modello::Condizione condizione) const;
  std::uint8_t condizioni(const CellView* riga) const;

  using Motivo = Guasto::Motivo;
  Motivo esegui(const Passo& passo, const CellView* riga, std::string_view dataFirma, Celle& celle);
  static Motivo sinistra(const Passo& passo, std::string_view valore, Celle& celle);
  static Motivo destra(const Passo& passo, std::string_view valore, Celle& celle);
  static Motivo importo(const Passo& passo, Decimal valore, Celle& celle);
  Motivo data(const Passo& passo, const CellView& cella, Celle& celle);
  Motivo telefono(const Passo& passo, const CellView* riga, Celle& celle);
  Motivo codiceNonSoggetti(const Passo& passo, const CellView* riga, Celle& celle);
  std::string_view testo(const CellView& cella);
  std::string_view maiuscolo(const CellView& cella);
  std::string_view pulito(const CellView& cella);

  const modello::Modello& modello_;
  std::vector<Passo> passi_;
  std::uint8_t condizioniUsate_ = 0;
  ColonneCondizioni colonne_;
  bool legato_ = false;
  std::vector<std::string> nomiLegati_;
  std::string appoggio_;  // buffer for the conversion to the code page; grows to the longest text
};

}  // namespace cu::telematico
