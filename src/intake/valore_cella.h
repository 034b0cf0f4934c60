#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/value.h"
#include "intake/colonne.h"
#include "intake/corrispondenza.h"
#include "intake/data_cella.h"
#include "intake/importo_cella.h"
#include "intake/lettura_righe.h"
#include "intake/messaggi.h"
#include "tabelle/tabella.h"

namespace cu::intake {

// A column of the table with what its rows have shown of it.
struct ColonnaLetta {
  const ColonnaTrovata* trovata = nullptr;
  std::optional<OrdineData> ordine;  // none: the column is ambiguous, and that is reported
  bool croci = false;                // a flag is an X, so that no X is no
  int ultimoAnno = 0;                // that a year of two digits can be

  const Colonna& colonna() const { return *trovata->colonna; }
};

// What a cell gives. Without `letta` it is empty, or what it has was reported.
struct ValoreLetto {
  bool letta = false;
  bool svuotata = false;
  bool vuota = true;  // nothing is there
  CellView valore;
};

// Reads cells of a table by the kind of their column. Texts that are not as in the file are kept by the
// reading.
class LettoreCelle {
 public:
  LettoreCelle(Lettura& lettura, const SegniImporto& segni, bool dal1904)
      : lettura_(lettura), segni_(segni), dal1904_(dal1904) {}

  ValoreLetto leggi(const ColonnaLetta& colonna, const tabelle::RigaTabella& riga,
                    std::vector<Messaggio>& messaggi);

 private:
  struct Cella {
    std::string_view testo;  // cleaned
    tabelle::Genere genere = tabelle::Genere::Vuota;
    bool delFile = true;  // the text is the table's, which the reading keeps
  };
  // Without a value where the cell has none; that is reported.
  std::optional<Cella> prendi(const ColonnaLetta& colonna, const tabelle::Cella& cella,
                              std::vector<Messaggio>& messaggi);
  Cella conValori(const ColonnaLetta& colonna, Cella cella);
  ValoreLetto una(const ColonnaLetta& colonna, const Cella& cella, std::vector<Messaggio>& messaggi);
  ValoreLetto testo(const ColonnaLetta& colonna, const Cella& cella, std::vector<Messaggio>& messaggi);
  ValoreLetto importo(const ColonnaLetta& colonna, const Cella& cella, std::vector<Messaggio>& messaggi);
  ValoreLetto data(const ColonnaLetta& colonna, const Cella& cella, std::vector<Messaggio>& messaggi);
  ValoreLetto parola(const ColonnaLetta& colonna, const Cella& cella, std::vector<Messaggio>& messaggi);
  ValoreLetto unita(const ColonnaLetta& colonna, ValoreLetto prima, const ValoreLetto& dopo);

  Lettura& lettura_;
  const SegniImporto& segni_;
  bool dal1904_;
  std::string appoggio_;
};

// "S", "sì", "1", "X", "true" and their opposites; nullopt for any other text.
std::optional<bool> logicoDiTesto(std::string_view testo);

}  // namespace cu::intake
