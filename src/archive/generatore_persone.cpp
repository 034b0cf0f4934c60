#include "archive/generatore_persone.h"

#include <array>

#include "archive/generatore_testi.h"
#include "base/codice_fiscale.h"
#include "base/text.h"
#include "liste/liste.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu {
namespace {

std::vector<std::string_view> colonna(std::string_view nomeRisorsa) {
  const Tabella t(risorsa(nomeRisorsa));
  std::vector<std::string_view> elenco;
  for (std::size_t i = 0; i < t.righe(); ++i) elenco.push_back(t.campo(i, std::size_t{0}));
  return elenco;
}

// Seven digits of the number, three of an office, the check digit.
std::string numeroDitta(std::int32_t numero, std::int64_t ufficio) {
  std::string testo = unito({cifre(numero, 7), cifre(ufficio, 3)});
  testo += cifraDiControllo(testo);
  return testo;
}

constexpr std::array<std::string_view, 6> kForme = {"S.r.l.", "S.n.c.",     "S.a.s.",
                                                    "S.p.A.", "Soc. Coop.", "& Figli S.n.c."};
constexpr std::array<std::string_view, 7> kAttivitaDitte = {
    "Studio Associato",
    "Costruzioni",
    "Servizi",
    "Rappresentanze",
    "Consulenze Aziendali",
    "Consorzio Artigiano per la Manutenzione e la Gestione degli Impianti",
    "Mediazioni"};
constexpr std::array<std::string_view, 4> kFormeEstere = {"GmbH", "S.A.R.L.", "Ltd.", "S.L."};

}  // namespace

Inventore::Inventore()
    : cognomi_(colonna("sintetica/cognomi.tsv")),
      vie_(colonna("sintetica/vie.tsv")),
      luoghiNascita_(comuni()),
      localitaEstere_(localitaEstere()) {
  const Tabella nomi(risorsa("sintetica/nomi.tsv"));
  for (std::size_t i = 0; i < nomi.righe(); ++i) {
    (nomi.campo(i, "Sesso") == "F" ? nomiFemminili_ : nomiMaschili_).push_back(nomi.campo(i, "Nome"));
  }
  for (const ComuneInLista& comune : luoghiNascita_) {
    if (!comune.soppresso) comuni_.push_back(comune);
  }
  for (const NazioneInLista& nazione : nazioni()) {
    if (!nazione.catasto.empty()) nazioniNascita_.push_back(nazione);
  }
}

PercipienteInventato Inventore::inventa(std::int32_t numero, Casuale& caso) const {
  PercipienteInventato p;
  const std::uint32_t tiro = caso.sotto(100);
  p.tipo = tiro < 78   ? TipoPercipiente::Persona
           : tiro < 93 ? TipoPercipiente::Ditta
           : tiro < 98 ? TipoPercipiente::PersonaEstera
                       : TipoPercipiente::DittaEstera;
  if (p.persona()) {
    persona(p, caso);
  } else {
    ditta(p, caso);
  }
  residenza(p, numero, caso);
  return p;
}

void Inventore::persona(PercipienteInventato& p, Casuale& caso) const {
  p.femmina = caso.percento(45);
  p.anagrafica = caso.scelta(cognomi_);
  if (caso.percento(4)) p.anagrafica += unito({" ", caso.scelta(cognomi_)});
  const auto& nomi = p.femmina ? nomiFemminili_ : nomiMaschili_;
  p.nome = caso.scelta(nomi);
  if (caso.percento(12)) p.nome += unito({" ", caso.scelta(nomi)});
  const std::int32_t primo = Date::fromYmd(1940, 1, 1)->serial();
  const std::int32_t ultimo = Date::fromYmd(1993, 12, 31)->serial();
  p.nascita = Date::fromSerial(static_cast<std::int32_t>(caso.tra(primo, ultimo)));
  std::string_view luogo;
  if (caso.percento(p.tipo == TipoPercipiente::PersonaEstera ? 85 : 6)) {
    const NazioneInLista& nazione = caso.scelta(nazioniNascita_);
    p.idNazionalita = nazione.id;
    luogo = nazione.catasto;
  } else {
    const ComuneInLista& comune = caso.scelta(luoghiNascita_);
    p.idComuneNascita = comune.id;
    p.idNazionalita = kItalia;
    luogo = comune.catasto;
  }
  p.codiceFiscale = codiceFiscale({p.anagrafica, p.nome, p.femmina, p.nascita, luogo});
}

void Inventore::ditta(PercipienteInventato& p, Casuale& caso) const {
  if (p.tipo == TipoPercipiente::DittaEstera) {
    p.anagrafica = unito({caso.scelta(cognomi_), " International ", caso.scelta(kFormeEstere)});
    return;
  }
  p.anagrafica = unito({caso.scelta(kAttivitaDitte), " ", caso.scelta(cognomi_), " ", caso.scelta(kForme)});
}

void Inventore::residenza(PercipienteInventato& p, std::int32_t numero, Casuale& caso) const {
  p.indirizzo = unito({caso.scelta(vie_), " ", fromInteger(caso.tra(1, 199))});
  if (p.residente()) {
    p.idComune = comune(caso).id;
    p.idNazione = kItalia;
    p.cap = cifre(caso.tra(10, 98168), 5);
  } else {
    const LocalitaEstera& luogo = caso.scelta(localitaEstere_);
    p.idComune = luogo.id;
    p.idNazione = luogo.idNazione;
    p.cap = cifre(caso.tra(1000, 99999), 5);
    p.identificazioneEstera = unito({"EX", cifre(numero, 9)});
    p.schumacker = p.persona() && caso.percento(30);
  }
  if (!p.persona()) {
    p.partitaIva = numeroDitta(numero, p.residente() ? caso.tra(1, 103) : 999);
    // An old record may contain only the VAT number.
    if (!caso.percento(10)) p.codiceFiscale = p.partitaIva;
  } else if (p.residente() && caso.percento(60)) {
    p.partitaIva = numeroDitta(numero, caso.tra(1, 103));
  }
  if (caso.percento(40)) p.eMail = unito({"percipiente", fromInteger(numero), "@posta.example"});
  if (caso.percento(50))
    p.telefono = unito({"0", cifre(caso.tra(2, 99), 2), "/", cifre(caso.tra(100000, 9999999), 6)});
}

}  // namespace cu
