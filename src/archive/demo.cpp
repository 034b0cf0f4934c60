#include "archive/demo.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "archive/azienda.h"
#include "archive/ricostruzione.h"
#include "base/ascii.h"
#include "base/codice_fiscale.h"
#include "base/text.h"
#include "data/inserimento.h"
#include "liste/liste.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu {
namespace {

constexpr int kPrimoAnno = 2014;
constexpr int kUltimoAnno = 2017;

// A fund that does not exist, for the fields left empty by the funds of the list.
constexpr std::int32_t kFondo = 100;
constexpr std::string_view kCodiceFiscaleFondo = "02159000583";
constexpr std::string_view kNomeFondo = "Fondo Dimostrativo di Previdenza dei Liberi Professionisti";

std::int64_t numero(std::string_view testo) { return leadingInteger(testo); }

Date giorno(std::string_view testo) { return Date::parseIso(testo).value_or(Date()); }

Decimal importo(std::string_view testo) {
  if (testo.empty()) return {};
  const std::optional<Decimal> valore = Decimal::parse(testo);
  if (!valore) throw std::runtime_error("importo non valido: " + std::string(testo));
  return *valore;
}

// Keys given as codes in the files.
class Chiavi {
 public:
  Chiavi() {
    for (const VoceInLista& voce : causaliPagamento()) causali_.emplace(voce.codice, voce.id);
    for (const VoceInLista& voce : categorieParticolari()) categorie_.emplace(voce.codice, voce.id);
    for (const VoceInLista& voce : eventiEccezionali()) eventi_.emplace(voce.codice, voce.id);
    for (const NazioneInLista& nazione : nazioni()) nazioni_.emplace(nazione.catasto, nazione.id);
  }
  std::int32_t causale(std::string_view codice) const { return causali_.at(codice); }
  std::int32_t categoria(std::string_view codice) const { return codice.empty() ? 0 : categorie_.at(codice); }
  std::int32_t evento(std::string_view codice) const { return codice.empty() ? 0 : eventi_.at(codice); }
  std::int32_t nazioneDiNascita(std::string_view luogo) const {
    return luogo.empty() ? 0 : nazioni_.at(luogo);
  }

 private:
  using Mappa = std::unordered_map<std::string_view, std::int32_t>;
  Mappa causali_;
  Mappa categorie_;
  Mappa eventi_;
  Mappa nazioni_;
};

bool estero(std::string_view luogo) { return !luogo.empty() && luogo.front() == 'Z'; }

// A municipality by its cadastral code, a foreign place by its id.
std::int64_t idLuogo(std::string_view campo) {
  if (campo.empty()) return 0;
  return isDigit(campo.front()) ? numero(campo) : idComune(campo);
}

// The fiscal code by name id, for names to which other lines refer.
using Codici = std::unordered_map<std::int64_t, std::string>;

Codici riempiAnagrafiche(Connection& connessione, const Chiavi& chiavi) {
  const Tabella t(risorsa("demo/anagrafiche.tsv"));
  Inserimento inserimento(connessione, "Anagrafica",
                          {"IDAnagrafica", "Anagrafica", "Nome", "PersonaFisica", "CodiceFiscale",
                           "PartitaIva", "EMailInternet", "Telefono", "Fax", "Cap", "Indirizzo", "Sesso",
                           "DataNascita", "IDComuneNascita", "IDNazionalita", "IDComune", "IDNazione"});
  Codici codici;
  for (std::size_t i = 0; i < t.righe(); ++i) {
    const std::int64_t id = numero(t.campo(i, "ID"));
    const bool persona = t.campo(i, "PersonaFisica") == "1";
    const std::string_view luogo = t.campo(i, "LuogoNascita");
    const Date nascita = giorno(t.campo(i, "DataNascita"));
    std::string codice(t.campo(i, "CodiceFiscale"));
    if (persona) {
      codice = codiceFiscale(
          {t.campo(i, "Anagrafica"), t.campo(i, "Nome"), t.campo(i, "Sesso") == "F", nascita, luogo});
    }
    inserimento.intero(id).testo(t.campo(i, "Anagrafica")).testo(t.campo(i, "Nome")).flag(persona);
    inserimento.testo(codice).testo(t.campo(i, "PartitaIva")).testo(t.campo(i, "EMailInternet"));
    inserimento.testo(t.campo(i, "Telefono")).testo(t.campo(i, "Fax")).testo(t.campo(i, "Cap"));
    inserimento.testo(t.campo(i, "Indirizzo")).testo(t.campo(i, "Sesso")).data(nascita);
    inserimento.id(estero(luogo) ? 0 : idLuogo(luogo));
    inserimento.id(estero(luogo) ? chiavi.nazioneDiNascita(luogo) : persona ? kItalia : 0);
    inserimento.id(idLuogo(t.campo(i, "Comune"))).id(numero(t.campo(i, "Nazione")));
    inserimento.riga();
    codici.emplace(id, codice.empty() ? std::string(t.campo(i, "PartitaIva")) : codice);
  }
  inserimento.chiudi();
  return codici;
}

void riempiPercipienti(Connection& connessione, const Chiavi& chiavi) {
  const Tabella t(risorsa("demo/percipienti.tsv"));
  Inserimento inserimento(connessione, "Percipiente",
                          {"IDAzienda", "IDAnagrafica", "Codice", "NonResidente", "NonResidenteSchumacker",
                           "CodiceFiscaleRappresentante", "CodiceIdentificazioneFiscaleEstero",
                           "CodiceAzPressoENPAM", "CodiceAzPressoENPAPI", "IDCategoriaParticolare",
                           "IDEventoEccezionale", "IDCUEntePrevidenziale", "IDCUCategoriaEntePrevidenziale"});
  for (std::size_t i = 0; i < t.righe(); ++i) {
    inserimento.intero(kAziendaDemo).intero(numero(t.campo(i, "ID"))).testo(t.campo(i, "Codice"));
    inserimento.flag(t.campo(i, "NonResidente") == "1").flag(t.campo(i, "NonResidenteSchumacker") == "1");
    inserimento.testo(t.campo(i, "CodiceFiscaleRappresentante"));
    inserimento.testo(t.campo(i, "CodiceIdentificazioneFiscaleEstero"));
    inserimento.testo(t.campo(i, "CodiceAzPressoENPAM")).testo(t.campo(i, "CodiceAzPressoENPAPI"));
    inserimento.id(chiavi.categoria(t.campo(i, "CategoriaParticolare")));
    inserimento.id(chiavi.evento(t.campo(i, "EventoEccezionale")));
    inserimento.id(numero(t.campo(i, "EntePrevidenziale")))
        .id(numero(t.campo(i, "CategoriaEntePrevidenziale")));
    inserimento.riga();
  }
  inserimento.chiudi();
}

void riempiCompensi(Connection& connessione, const Chiavi& chiavi) {
  const Tabella t(risorsa("demo/compensi.tsv"));
  std::vector<std::string> colonne{"IDCompenso",    "IDAzienda",       "IDAnagrafica", "IDCausalePagamento",
                                   "DataPagamento", "NumeroDocumento", "DataDocumento"};
  colonne.insert(colonne.end(), std::begin(kImportiConto), std::end(kImportiConto));
  Inserimento inserimento(connessione, "Compenso", colonne);
  for (std::size_t i = 0; i < t.righe(); ++i) {
    inserimento.intero(static_cast<std::int64_t>(i) + 1)
        .intero(kAziendaDemo)
        .intero(numero(t.campo(i, "ID")));
    inserimento.intero(chiavi.causale(t.campo(i, "Causale"))).data(giorno(t.campo(i, "DataPagamento")));
    inserimento.testo(t.campo(i, "NumeroDocumento")).data(giorno(t.campo(i, "DataDocumento")));
    for (std::string_view colonna : kImportiConto) inserimento.importo(importo(t.campo(i, colonna)));
    inserimento.riga();
  }
  inserimento.chiudi();
}

// Accounts without payments.
void riempiConti(Connection& connessione, const Chiavi& chiavi) {
  const Tabella t(risorsa("demo/conti.tsv"));
  std::vector<std::string> colonne{"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda"};
  colonne.insert(colonne.end(), std::begin(kImportiConto), std::end(kImportiConto));
  Inserimento inserimento(connessione, "ContoIndividuale", colonne);
  for (std::size_t i = 0; i < t.righe(); ++i) {
    inserimento.intero(numero(t.campo(i, "ID"))).intero(chiavi.causale(t.campo(i, "Causale")));
    inserimento.intero(numero(t.campo(i, "Anno"))).intero(kAziendaDemo);
    for (std::string_view colonna : kImportiConto) inserimento.importo(importo(t.campo(i, colonna)));
    inserimento.riga();
  }
  inserimento.chiudi();
}

bool contiene(std::string_view testo, std::string_view parte) {
  return testo.find(parte) != std::string_view::npos;
}

// A value of the long-format files, which have one line per filled field.
void scriviValore(Inserimento& inserimento, std::string_view colonna, std::string_view valore,
                  const Codici& codici) {
  if (contiene(colonna, "CodiceFiscale")) {
    // "=128": the fiscal code of that name.
    inserimento.testo(valore.front() == '=' ? std::string_view(codici.at(numero(valore.substr(1)))) : valore);
  } else if (contiene(colonna, "Protocollo") || contiene(colonna, "Progressivo") ||
             contiene(colonna, "Fusione")) {
    inserimento.testo(valore);
  } else if (contiene(colonna, "IDComune")) {
    inserimento.intero(idLuogo(valore));
  } else {
    inserimento.importo(importo(valore));
  }
}

// The end of the group of rows that are equal to the row `prima` in the first `chiavi` columns.
std::size_t fineGruppo(const Tabella& t, std::size_t prima, std::size_t chiavi) {
  std::size_t i = prima + 1;
  for (; i < t.righe(); ++i) {
    for (std::size_t k = 0; k < chiavi; ++k) {
      if (t.campo(i, k) != t.campo(prima, k)) return i;
    }
  }
  return i;
}

void riempiDatiAggiuntivi(Connection& connessione, const Chiavi& chiavi, const Codici& codici) {
  const Tabella t(risorsa("demo/dati_aggiuntivi.tsv"));
  for (std::size_t prima = 0; prima < t.righe();) {
    const std::size_t fine = fineGruppo(t, prima, 3);
    std::vector<std::string> colonne{"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda"};
    for (std::size_t i = prima; i < fine; ++i) colonne.emplace_back(t.campo(i, "Colonna"));
    Inserimento inserimento(connessione, "ContoIndividualeDatiAggiuntivi", colonne);
    inserimento.intero(numero(t.campo(prima, "ID"))).intero(chiavi.causale(t.campo(prima, "Causale")));
    inserimento.intero(numero(t.campo(prima, "Anno"))).intero(kAziendaDemo);
    for (std::size_t i = prima; i < fine; ++i) {
      scriviValore(inserimento, t.campo(i, "Colonna"), t.campo(i, "Valore"), codici);
    }
    inserimento.riga();
    inserimento.chiudi();
    prima = fine;
  }
}

void riempiModuli(Connection& connessione, const Chiavi& chiavi, const Codici& codici) {
  const Tabella t(risorsa("demo/moduli.tsv"));
  for (std::size_t prima = 0; prima < t.righe();) {
    const std::size_t fine = fineGruppo(t, prima, 5);
    std::vector<std::string> colonne{"IDModuloXContoIndividuale",
                                     "IDAnagrafica",
                                     "IDAzienda",
                                     "IDCausalePagamento",
                                     "Anno",
                                     "NumeroModulo",
                                     "Anticipazione"};
    bool anticipazione = false;
    for (std::size_t i = prima; i < fine; ++i) {
      if (t.campo(i, "Colonna") == "Anticipazione") {
        anticipazione = t.campo(i, "Valore") == "1";
      } else {
        colonne.emplace_back(t.campo(i, "Colonna"));
      }
    }
    Inserimento inserimento(connessione, "ModuloXContoIndividuale", colonne);
    inserimento.intero(numero(t.campo(prima, "IDModulo"))).intero(numero(t.campo(prima, "ID")));
    inserimento.intero(kAziendaDemo).intero(chiavi.causale(t.campo(prima, "Causale")));
    inserimento.intero(numero(t.campo(prima, "Anno"))).intero(numero(t.campo(prima, "NumeroModulo")));
    inserimento.flag(anticipazione);
    for (std::size_t i = prima; i < fine; ++i) {
      if (t.campo(i, "Colonna") == "Anticipazione") continue;
      scriviValore(inserimento, t.campo(i, "Colonna"), t.campo(i, "Valore"), codici);
    }
    inserimento.riga();
    inserimento.chiudi();
    prima = fine;
  }
}

void riempiFondo(Connection& connessione) {
  Inserimento ente(connessione, "CUEntePrevidenziale",
                   {"IDCUEntePrevidenziale", "CUCodiceFiscale", "CUDenominazioneEntePrevidenziale",
                    "CUCodiceEntePrevidenziale"});
  ente.intero(kFondo).testo(kCodiceFiscaleFondo).testo(kNomeFondo).testo("99").riga();
  ente.chiudi();
  Inserimento categoria(connessione, "CUCategoriaEntePrevidenziale",
                        {"IDCUCategoriaEntePrevidenziale", "CUCodiceCategoriaEntePrevidenziale"});
  categoria.intero(kFondo).testo("Z").riga();
  categoria.chiudi();
}

}  // namespace

void riempiDemo(Connection& connessione) {
  const Chiavi chiavi;
  riempiAzienda(connessione, {.idAzienda = kAziendaDemo,
                              .idFiliale = kFilialeDemo,
                              .idAnagrafica = kIdSede,
                              .idRappresentante = kIdRappresentante,
                              .idCarica = kRappresentanteLegale,
                              .primoAnno = 2013,
                              .ultimoAnno = 2019});
  riempiLocalitaEstere(connessione);
  riempiFondo(connessione);
  const Codici codici = riempiAnagrafiche(connessione, chiavi);
  riempiPercipienti(connessione, chiavi);
  riempiCompensi(connessione, chiavi);
  riempiConti(connessione, chiavi);
  for (int anno = kPrimoAnno; anno <= kUltimoAnno; ++anno) sommaCompensi(connessione, kAziendaDemo, anno);
  riempiDatiAggiuntivi(connessione, chiavi, codici);
  riempiModuli(connessione, chiavi, codici);
}

}  // namespace cu
