#include "apps/importazione/colonne_scelte.h"

#include <algorithm>
#include <set>

#include "apps/importazione/parole_finestra.h"
#include "intake/corrispondenza.h"
#include "intake/testo_cella.h"

namespace cu {
namespace {

constexpr std::size_t kEsempi = 3;

void osservaRespinti(ColonnaScelta& colonna, const intake::RigaLetta& riga, const std::string& intestazione) {
  for (const intake::Messaggio& uno : riga.messaggi) {
    // A value that is missing is none that cannot be read.
    const bool respinto = uno.gravita == intake::Gravita::Errore && uno.codice != intake::Codice::C01 &&
                          uno.colonna == intestazione;
    if (respinto && colonna.respinti++ == 0) colonna.primoRespinto = perLaFinestra(uno.testo);
  }
}

void osservaValori(ColonnaScelta& colonna, const intake::Lettura& lettura) {
  Date prima;
  Date ultima;
  const std::string& intestazione = lettura.intestazioni[colonna.colonna->indice];
  for (const intake::RigaLetta& riga : lettura.righe) {
    if (!riga.messaggi.empty() && !intestazione.empty()) osservaRespinti(colonna, riga, intestazione);
    const intake::Campo* const campo = riga.campo(colonna.colonna->indice);
    if (campo == nullptr || campo->derivato || campo->valore.isNull()) continue;
    ++colonna.valori;
    if (colonna.colonna->tipo == intake::TipoColonna::Data) {
      const Date giorno = campo->valore.date();
      if (prima == Date() || giorno < prima) prima = giorno;
      if (ultima == Date() || ultima < giorno) ultima = giorno;
    }
    if (colonna.esempi.size() == kEsempi) continue;
    std::string valore = valoreMostrato(campo->valore, colonna.colonna->tipo);
    const bool gia = std::find(colonna.esempi.begin(), colonna.esempi.end(), valore) != colonna.esempi.end();
    if (!gia) colonna.esempi.push_back(std::move(valore));
  }
  if (prima != Date()) colonna.estremi = "dal " + prima.toItalian() + " al " + ultima.toItalian();
}

}  // namespace

std::string valoreMostrato(CellView valore, intake::TipoColonna tipo) {
  using intake::TipoColonna;
  if (valore.isNull()) return {};
  switch (tipo) {
    case TipoColonna::Importo:
    case TipoColonna::Percentuale:
      return valore.decimal().toFixed(2, ',');
    case TipoColonna::Data:
      return valore.date().toItalian();
    case TipoColonna::Logico:
      return valore.integer() != 0 ? "sì" : "no";
    case TipoColonna::Testo:
    case TipoColonna::Codice:
    case TipoColonna::CodiceFiscale:
    case TipoColonna::PartitaIva:
    case TipoColonna::Cap:
    case TipoColonna::Sesso:
      break;
  }
  return valore.toText();
}

AltriUsi altriUsi(const std::vector<ColonnaScelta>& scelte, const intake::Colonna& colonna,
                  const std::string& titolo) {
  AltriUsi usi;
  for (const ColonnaScelta& una : scelte) {
    const bool usa =
        std::find(una.intestazioni.begin(), una.intestazioni.end(), titolo) != una.intestazioni.end();
    if (una.colonna == &colonna || !usa) continue;
    (una.scelta ? usi.tengono : usi.perdono).push_back(una.colonna->nome);
  }
  return usi;
}

bool unisceColonne(const intake::Colonna& colonna) {
  return colonna.tipo == intake::TipoColonna::Importo || colonna.tipo == intake::TipoColonna::Testo;
}

std::vector<ColonnaScelta> colonneScelte(const FileScelto& file, const intake::Lettura& lettura) {
  const std::vector<std::string> intestazioni = intake::titoliDistinti(*file.tabella);
  std::vector<ColonnaScelta> scelte;
  for (const intake::Colonna& colonna : intake::colonne(lettura.elenco)) {
    ColonnaScelta& una = scelte.emplace_back();
    una.colonna = &colonna;
    una.scelta = file.mappatura.colonne.contains(colonna.indice);
  }
  const intake::Corrispondenza trovate = intake::abbina(*file.tabella, lettura.elenco, file.mappatura);
  for (const intake::ColonnaTrovata& trovata : trovate.colonne) {
    ColonnaScelta& sua = scelte[trovata.colonna->indice];
    for (const std::size_t posto : trovata.posti) sua.intestazioni.push_back(intestazioni[posto]);
    sua.costante = trovata.costante;
    sua.segno = trovata.segno;
  }
  for (ColonnaScelta& una : scelte) osservaValori(una, lettura);
  return scelte;
}

// A profile cannot say that a column is not there: the empty constant gives no row a value.
void cambiaFonte(intake::Mappatura& mappatura, std::uint8_t colonna, intake::Fonte fonte) {
  if (fonte.colonne.empty() && !fonte.costante) fonte.costante.emplace();
  if (fonte.colonne.size() != 1) fonte.segno = intake::Segno::ComeScritto;
  mappatura.colonne[colonna] = std::move(fonte);
}

Significati testiDi(const FileScelto& file, const ColonnaScelta& colonna, std::size_t massimo) {
  const std::vector<std::string> intestazioni = intake::titoliDistinti(*file.tabella);
  std::set<std::string> testi;
  std::string appoggio;
  for (const std::string& sua : colonna.intestazioni) {
    const auto posto = static_cast<std::size_t>(std::find(intestazioni.begin(), intestazioni.end(), sua) -
                                                intestazioni.begin());
    for (const tabelle::RigaTabella& riga : file.tabella->righe) {
      if (testi.size() >= massimo) break;
      testi.emplace(intake::pulito(riga.cella(posto).testo, appoggio));
    }
  }
  const auto noti = file.mappatura.valori.find(colonna.colonna->indice);
  Significati significati;
  for (const std::string& testo : testi) {
    std::string significato;
    if (noti != file.mappatura.valori.end()) {
      const auto suo = noti->second.find(testo);
      if (suo != noti->second.end()) significato = suo->second;
    }
    significati.emplace_back(testo, std::move(significato));
  }
  return significati;
}

void cambiaSignificato(intake::Mappatura& mappatura, std::uint8_t colonna, const std::string& testo,
                       const std::string& significato) {
  auto& valori = mappatura.valori[colonna];
  if (significato.empty()) {
    valori.erase(testo);
    if (valori.empty()) mappatura.valori.erase(colonna);
  } else {
    valori[testo] = significato;
  }
}

}  // namespace cu
