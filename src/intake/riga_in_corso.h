#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "intake/archivio_letto.h"
#include "intake/piano.h"

namespace cu::intake {

// A row while it is planned: what it says and what is said of it.
class RigaInCorso {
 public:
  RigaInCorso(Piano& piano, RigaPiano& riga);
  // Of values that are not those of the plan's reading. The row's position tells what was decided of it.
  RigaInCorso(Piano& piano, RigaPiano& riga, const Lettura& lettura, const RigaLetta& letta);

  const RigaLetta& letta() const { return letta_; }
  const Lettura& lettura() const { return lettura_; }
  RigaPiano& riga() { return riga_; }
  const RichiestaPiano& richiesta() const { return piano_.richiesta; }
  const Decisione& decisione() const { return decisione_; }

  void segnala(Codice codice, std::uint8_t colonna, std::string testo);
  template <class C>
  void segnala(Codice codice, C colonna, std::string testo) {
    segnala(codice, static_cast<std::uint8_t>(colonna), std::move(testo));
  }
  void segnala(Codice codice, std::string testo);
  void derivato(std::uint8_t colonna) { riga_.derivati.push_back(colonna); }
  template <class C>
  void derivato(C colonna) {
    derivato(static_cast<std::uint8_t>(colonna));
  }

  // The state by the messages so far: an error, something to decide, or `altrimenti`.
  StatoRiga stato(StatoRiga altrimenti) const;
  bool conErrori() const { return stato(StatoRiga::Nuovo) == StatoRiga::Errore; }

  // Of a record that is there: equal, `dove` where it is another row; or different, with what differs.
  void uguale(const std::string& dove = {});
  void diverso(const std::string& cosa);

 private:
  Piano& piano_;
  RigaPiano& riga_;
  const Lettura& lettura_;
  const RigaLetta& letta_;
  Decisione decisione_;
};

// Whether a row is one to plan: one that is left out, or that the reading found wrong, gets its state here.
bool daPianificare(RigaInCorso& corso);

// The id of a code of a list; none and a message for an unknown one, unless `proprio` takes it: the id is
// then 0 until it has been added to the list.
std::optional<std::int32_t> idDelCodice(RigaInCorso& corso, std::uint8_t colonna, std::string_view codice,
                                        const schede::ElencoCodici& elenco, std::string* proprio = nullptr);

// A municipality by name or code; none and a message where there is none, or several.
std::optional<std::int32_t> idDelComune(RigaInCorso& corso, std::uint8_t colonna, std::string_view nome,
                                        std::string_view provincia, const schede::Luoghi& luoghi);
std::optional<std::int32_t> idDellaNazione(RigaInCorso& corso, std::uint8_t colonna, std::string_view nome,
                                           const schede::Luoghi& luoghi);
// Several places of one name: the one decided, or a message with the candidates.
std::optional<std::int32_t> scegliLuogo(RigaInCorso& corso, std::uint8_t colonna, std::string_view nome,
                                        const std::vector<const schede::Luogo*>& luoghi);

// "Rossi Mario, RSSMRA80A01H501U"
std::string detto(const schede::SchedaAnagrafica& scheda);

void pianificaAziende(Piano& piano, const ArchivioLetto& archivio, ProgressSink* avanzamento);
void pianificaPercipienti(Piano& piano, const ArchivioLetto& archivio, ProgressSink* avanzamento);
void pianificaCompensi(Piano& piano, const ArchivioLetto& archivio, ProgressSink* avanzamento);

}  // namespace cu::intake
