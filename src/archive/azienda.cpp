#include "archive/azienda.h"

#include "base/text.h"
#include "data/inserimento.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu {
namespace {

constexpr std::int32_t kIdAttivita = 1;
constexpr std::int32_t kCodiceAttivita = 1;
constexpr std::string_view kAteco = "620909";  // other activities of information technology

// Individual accounts, free certificate, ministerial form.
constexpr std::int32_t kTipiOggetto[] = {246, 247, 342};

}  // namespace

void riempiAzienda(Connection& connessione, const DatiAzienda& dati) {
  const auto una = [&](std::string_view tabella, std::initializer_list<std::string_view> colonne,
                       std::initializer_list<std::int32_t> valori) {
    Inserimento inserimento(connessione, tabella, colonne);
    for (std::int32_t valore : valori) inserimento.intero(valore);
    inserimento.riga();
    inserimento.chiudi();
  };
  una("Azienda", {"IDAzienda", "IDAnagrafica"}, {dati.idAzienda, dati.idAnagrafica});
  una("ConfigurazioneGenerale",
      {"IDAzienda", "IDAnagraficaRappresentante", "IDCodiceCaricaRappresentante", "IDFilialePrevalente"},
      {dati.idAzienda, dati.idRappresentante, dati.idCarica, dati.idFiliale});
  una("ConfigurazioneCompensiATerzi", {"IDAzienda"}, {dati.idAzienda});
  una("AttivitaAzienda", {"IDAttivitaAzienda", "IDAzienda"}, {kIdAttivita, dati.idAzienda});
  una("Filiale", {"IDFiliale", "IDAzienda", "IDAttivitaAzienda"},
      {dati.idFiliale, dati.idAzienda, kIdAttivita});

  Inserimento contabile(connessione, "ConfigurazioneContabile", {"IDAzienda", "InterlineaGiornale"});
  contabile.intero(dati.idAzienda).testo("1").riga();
  contabile.chiudi();

  Inserimento codice(connessione, "CodiceAttivita", {"IDCodiceAttivita", "CodiceAttivita"});
  codice.intero(kCodiceAttivita).testo(kAteco).riga();
  codice.chiudi();

  Inserimento periodi(connessione, "PeriodoIva", {"IDPeriodoIva", "IDAzienda", "Anno"});
  Inserimento attivita(connessione, "AttivitaAziendaPerPeriodoIva",
                       {"IDAttivitaAzienda", "IDPeriodoIva", "IDCodiceAttivita"});
  for (int anno = dati.primoAnno; anno <= dati.ultimoAnno; ++anno) {
    const std::int32_t periodo = anno - dati.primoAnno + 1;
    periodi.intero(periodo).intero(dati.idAzienda).intero(anno).riga();
    attivita.intero(kIdAttivita).intero(periodo).intero(kCodiceAttivita).riga();
  }
  periodi.chiudi();
  attivita.chiudi();

  Inserimento predefinite(connessione, "DefaultFilialePerTipoOggetto",
                          {"IDDefaultFilialePerTipoOggetto", "IDTipoOggetto", "IDFiliale"});
  std::int32_t numero = 0;
  for (std::int32_t tipo : kTipiOggetto)
    predefinite.intero(++numero).intero(tipo).intero(dati.idFiliale).riga();
  predefinite.chiudi();
}

std::vector<LocalitaEstera> localitaEstere() {
  const Tabella t(risorsa("demo/localita_estere.tsv"));
  std::vector<LocalitaEstera> elenco;
  for (std::size_t i = 0; i < t.righe(); ++i) {
    elenco.push_back({static_cast<std::int32_t>(leadingInteger(t.campo(i, "ID"))), t.campo(i, "Localita"),
                      static_cast<std::int32_t>(leadingInteger(t.campo(i, "Nazione")))});
  }
  return elenco;
}

void riempiLocalitaEstere(Connection& connessione) {
  Inserimento luoghi(connessione, "Comune", {"IDComune", "Comune"});
  for (const LocalitaEstera& luogo : localitaEstere()) luoghi.intero(luogo.id).testo(luogo.nome).riga();
  luoghi.chiudi();
}

}  // namespace cu
