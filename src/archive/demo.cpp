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
#include "schede/aziende.h"
#include "schede/compensi.h"
#include "schede/percipienti.h"

namespace cu {
namespace {

constexpr int kPrimoAnno = 2014;
constexpr int kUltimoAnno = 2017;

// A fund that does not exist, for the fields left empty by the funds of the list.
constexpr std::int32_t kFondo = 100;
constexpr std::string_view kCodiceFiscaleFondo = "02159000583";
constexpr std::string_view kNomeFondo = "Fondo Dimostrativo di Previdenza dei Liberi Professionisti";

std::int64_t numero(std::string_view testo) { return leadingInteger(testo); }
std::int32_t idScheda(std::string_view testo) { return static_cast<std::int32_t>(numero(testo)); }

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
std::int32_t idLuogo(std::string_view campo) {
  if (campo.empty()) return 0;
  return isDigit(campo.front()) ? idScheda(campo) : idComune(campo);
}

schede::SchedaAnagrafica anagrafica(const Tabella& t, std::size_t riga, const Chiavi& chiavi) {
  const bool persona = t.campo(riga, "PersonaFisica") == "1";
  const std::string_view luogo = t.campo(riga, "LuogoNascita");
  schede::SchedaAnagrafica scheda;
  scheda.id = idScheda(t.campo(riga, "ID"));
  scheda.anagrafica = t.campo(riga, "Anagrafica");
  scheda.nome = t.campo(riga, "Nome");
  scheda.personaFisica = persona;
  scheda.nascita = giorno(t.campo(riga, "DataNascita"));
  scheda.codiceFiscale = t.campo(riga, "CodiceFiscale");
  if (persona) {
    scheda.codiceFiscale =
        codiceFiscale({scheda.anagrafica, scheda.nome, t.campo(riga, "Sesso") == "F", scheda.nascita, luogo});
  }
  scheda.partitaIva = t.campo(riga, "PartitaIva");
  scheda.email = t.campo(riga, "EMailInternet");
  scheda.telefono = t.campo(riga, "Telefono");
  scheda.fax = t.campo(riga, "Fax");
  scheda.cap = t.campo(riga, "Cap");
  scheda.indirizzo = t.campo(riga, "Indirizzo");
  scheda.sesso = t.campo(riga, "Sesso");
  scheda.idComuneNascita = estero(luogo) ? 0 : idLuogo(luogo);
  scheda.idNazionalita = estero(luogo) ? chiavi.nazioneDiNascita(luogo) : persona ? kItalia : 0;
  scheda.idComune = idLuogo(t.campo(riga, "Comune"));
  scheda.idNazione = idScheda(t.campo(riga, "Nazione"));
  return scheda;
}

// The names by id.
using Anagrafiche = std::unordered_map<std::int64_t, schede::SchedaAnagrafica>;

Anagrafiche anagrafiche(const Chiavi& chiavi) {
  const Tabella t(risorsa("demo/anagrafiche.tsv"));
  Anagrafiche elenco;
  for (std::size_t i = 0; i < t.righe(); ++i) {
    elenco.emplace(numero(t.campo(i, "ID")), anagrafica(t, i, chiavi));
  }
  return elenco;
}

// The fiscal code, or the VAT number, of a name to which other lines refer.
std::string_view codice(const schede::SchedaAnagrafica& scheda) {
  return scheda.codiceFiscale.empty() ? scheda.partitaIva : scheda.codiceFiscale;
}

void riempiPercipienti(schede::Scrittura& scrittura, const Chiavi& chiavi, const Anagrafiche& nomi) {
  const Tabella t(risorsa("demo/percipienti.tsv"));
  for (std::size_t i = 0; i < t.righe(); ++i) {
    schede::SchedaPercipiente scheda;
    scheda.idAzienda = kAziendaDemo;
    scheda.anagrafica = nomi.at(numero(t.campo(i, "ID")));
    scheda.codice = t.campo(i, "Codice");
    scheda.nonResidente = t.campo(i, "NonResidente") == "1";
    scheda.schumacker = t.campo(i, "NonResidenteSchumacker") == "1";
    scheda.codiceFiscaleRappresentante = t.campo(i, "CodiceFiscaleRappresentante");
    scheda.codiceFiscaleEstero = t.campo(i, "CodiceIdentificazioneFiscaleEstero");
    scheda.codiceEnpam = t.campo(i, "CodiceAzPressoENPAM");
    scheda.codiceEnpapi = t.campo(i, "CodiceAzPressoENPAPI");
    scheda.idCategoriaParticolare = chiavi.categoria(t.campo(i, "CategoriaParticolare"));
    scheda.idEventoEccezionale = chiavi.evento(t.campo(i, "EventoEccezionale"));
    scheda.idEnte = idScheda(t.campo(i, "EntePrevidenziale"));
    scheda.idCategoriaEnte = idScheda(t.campo(i, "CategoriaEntePrevidenziale"));
    schede::Percipienti::aggiungi(scrittura, scheda);
  }
}

void riempiCompensi(schede::Scrittura& scrittura, const Chiavi& chiavi) {
  const Tabella t(risorsa("demo/compensi.tsv"));
  for (std::size_t i = 0; i < t.righe(); ++i) {
    schede::SchedaCompenso scheda;
    scheda.idAzienda = kAziendaDemo;
    scheda.idAnagrafica = idScheda(t.campo(i, "ID"));
    scheda.idCausale = chiavi.causale(t.campo(i, "Causale"));
    scheda.pagamento = giorno(t.campo(i, "DataPagamento"));
    scheda.numero = t.campo(i, "NumeroDocumento");
    scheda.documento = giorno(t.campo(i, "DataDocumento"));
    for (std::size_t k = 0; k < schede::kImporti; ++k) {
      scheda.importi[k] = importo(t.campo(i, kImportiConto[k]));
    }
    schede::Compensi::aggiungi(scrittura, scheda);
  }
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
                  const Anagrafiche& nomi) {
  if (contiene(colonna, "CodiceFiscale")) {
    // "=128": the fiscal code of that name.
    inserimento.testo(valore.front() == '=' ? codice(nomi.at(numero(valore.substr(1)))) : valore);
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

void riempiDatiAggiuntivi(Connection& connessione, const Chiavi& chiavi, const Anagrafiche& nomi) {
  const Tabella t(risorsa("demo/dati_aggiuntivi.tsv"));
  for (std::size_t prima = 0; prima < t.righe();) {
    const std::size_t fine = fineGruppo(t, prima, 3);
    std::vector<std::string> colonne{"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda"};
    for (std::size_t i = prima; i < fine; ++i) colonne.emplace_back(t.campo(i, "Colonna"));
    Inserimento inserimento(connessione, "ContoIndividualeDatiAggiuntivi", colonne);
    inserimento.intero(numero(t.campo(prima, "ID"))).intero(chiavi.causale(t.campo(prima, "Causale")));
    inserimento.intero(numero(t.campo(prima, "Anno"))).intero(kAziendaDemo);
    for (std::size_t i = prima; i < fine; ++i) {
      scriviValore(inserimento, t.campo(i, "Colonna"), t.campo(i, "Valore"), nomi);
    }
    inserimento.riga();
    inserimento.chiudi();
    prima = fine;
  }
}

void riempiModuli(Connection& connessione, const Chiavi& chiavi, const Anagrafiche& nomi) {
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
      scriviValore(inserimento, t.campo(i, "Colonna"), t.campo(i, "Valore"), nomi);
    }
    inserimento.riga();
    inserimento.chiudi();
    prima = fine;
  }
}

void riempiFondo(schede::Scrittura& scrittura) {
  scrittura.inserisci(schede::kEnte,
                      {Value::ofInteger(kFondo), Value::ofText(std::string(kCodiceFiscaleFondo)),
                       Value::ofText(std::string(kNomeFondo)), Value::ofText("99")});
  scrittura.inserisci(schede::kCategoriaEnte, {Value::ofInteger(kFondo), Value::ofText("Z")});
}

void riempiAziendaDemo(schede::Scrittura& scrittura, const Anagrafiche& nomi) {
  schede::SchedaAzienda azienda = aziendaInventata(kPrimoAnno, kUltimoAnno);
  azienda.id = kAziendaDemo;
  azienda.idFiliale = kFilialeDemo;
  azienda.sede = nomi.at(kIdSede);
  azienda.rappresentante = nomi.at(kIdRappresentante);
  schede::Aziende::aggiungi(scrittura, azienda);
}

}  // namespace

void riempiDemo(Connection& connessione) {
  const Chiavi chiavi;
  const Anagrafiche nomi = anagrafiche(chiavi);
  schede::Scrittura scrittura(connessione);
  riempiAziendaDemo(scrittura, nomi);
  riempiLocalitaEstere(scrittura);
  riempiFondo(scrittura);
  riempiPercipienti(scrittura, chiavi, nomi);
  riempiCompensi(scrittura, chiavi);
  scrittura.chiudi();
  riempiConti(connessione, chiavi);
  for (int anno = kPrimoAnno; anno <= kUltimoAnno; ++anno) sommaCompensi(connessione, kAziendaDemo, anno);
  riempiDatiAggiuntivi(connessione, chiavi, nomi);
  riempiModuli(connessione, chiavi, nomi);
}

}  // namespace cu
