#include "intake/valori_scheda.h"

#include <algorithm>
#include <string>

#include "base/text.h"
#include "liste/liste.h"

namespace cu::intake {
namespace {

// The columns that have a text of a record as it is.
template <class C, class Scheda>
struct TestoDi {
  C colonna;
  std::string Scheda::*campo;
};
using Anagrafica = schede::SchedaAnagrafica;
using A = ColonnaAzienda;
using P = ColonnaPercipiente;

constexpr TestoDi<A, Anagrafica> kTestiSede[] = {{A::CodiceFiscale, &Anagrafica::codiceFiscale},
                                                 {A::PartitaIva, &Anagrafica::partitaIva},
                                                 {A::Denominazione, &Anagrafica::anagrafica},
                                                 {A::Nome, &Anagrafica::nome},
                                                 {A::Indirizzo, &Anagrafica::indirizzo},
                                                 {A::Cap, &Anagrafica::cap},
                                                 {A::Telefono, &Anagrafica::telefono},
                                                 {A::Fax, &Anagrafica::fax},
                                                 {A::Email, &Anagrafica::email}};
constexpr TestoDi<A, Anagrafica> kTestiRappresentante[] = {
    {A::RappresentanteCodiceFiscale, &Anagrafica::codiceFiscale},
    {A::RappresentanteCognome, &Anagrafica::anagrafica},
    {A::RappresentanteNome, &Anagrafica::nome}};
constexpr TestoDi<A, schede::SchedaAzienda> kTestiAzienda[] = {
    {A::CodiceAttivita, &schede::SchedaAzienda::codiceAttivita},
    {A::CodiceFiscaleSocieta, &schede::SchedaAzienda::codiceFiscaleSocieta},
    {A::IntermediarioCodiceFiscale, &schede::SchedaAzienda::intermediario}};
constexpr TestoDi<P, Anagrafica> kTestiAnagrafica[] = {{P::CodiceFiscale, &Anagrafica::codiceFiscale},
                                                       {P::PartitaIva, &Anagrafica::partitaIva},
                                                       {P::Cognome, &Anagrafica::anagrafica},
                                                       {P::Nome, &Anagrafica::nome},
                                                       {P::Sesso, &Anagrafica::sesso},
                                                       {P::Indirizzo, &Anagrafica::indirizzo},
                                                       {P::Cap, &Anagrafica::cap},
                                                       {P::Email, &Anagrafica::email},
                                                       {P::Telefono, &Anagrafica::telefono},
                                                       {P::Fax, &Anagrafica::fax}};
constexpr TestoDi<P, schede::SchedaPercipiente> kTestiPercipiente[] = {
    {P::Codice, &schede::SchedaPercipiente::codice},
    {P::CodiceFiscaleEstero, &schede::SchedaPercipiente::codiceFiscaleEstero},
    {P::CodiceFiscaleRappresentante, &schede::SchedaPercipiente::codiceFiscaleRappresentante},
    {P::CodiceAziendaENPAM, &schede::SchedaPercipiente::codiceEnpam},
    {P::CodiceAziendaENPAPI, &schede::SchedaPercipiente::codiceEnpapi}};

// A row being filled: under the columns of a list.
class ValoriDi {
 public:
  explicit ValoriDi(Elenco elenco) : valori_(colonne(elenco).size()) {}

  template <class C>
  void testo(C colonna, const std::string& valore) {
    if (!valore.empty()) a(colonna) = Value::ofText(valore);
  }
  template <class C, class Scheda, std::size_t N>
  void testi(const TestoDi<C, Scheda> (&tavola)[N], const Scheda& scheda) {
    for (const TestoDi<C, Scheda>& uno : tavola) testo(uno.colonna, scheda.*uno.campo);
  }
  template <class C>
  void logico(C colonna, bool valore) {
    a(colonna) = Value::ofInteger(valore ? 1 : 0);
  }
  template <class C>
  void giorno(C colonna, Date valore) {
    if (valore != Date()) a(colonna) = Value::ofDate(valore);
  }
  template <class C>
  void importo(C colonna, Decimal valore) {
    if (!valore.isZero()) a(colonna) = Value::ofDecimal(valore);
  }
  template <class C>
  Value& a(C colonna) {
    return valori_[static_cast<std::size_t>(colonna)];
  }
  std::vector<Value> presi() { return std::move(valori_); }

 private:
  std::vector<Value> valori_;
};

// The name of a municipality, or its code where the name does not find it again.
std::string scriviComune(const schede::Luoghi& luoghi, std::int32_t id, std::optional<Date> giorno) {
  const schede::Luogo* const luogo = luoghi.comuneDiId(id);
  if (luogo == nullptr) return {};
  if (luoghi.comune(luogo->nome, luogo->provincia, giorno).uno() == luogo || luogo->catasto.empty()) {
    return luogo->nome;
  }
  return luogo->catasto;
}

std::string scriviProvincia(const schede::Luoghi& luoghi, std::int32_t id) {
  const schede::Luogo* const luogo = luoghi.comuneDiId(id);
  return luogo == nullptr ? std::string() : luogo->provincia;
}

std::string scriviNazione(const schede::Luoghi& luoghi, std::int32_t id) {
  const schede::Luogo* const luogo = luoghi.nazioneDiId(id);
  return luogo == nullptr ? std::string() : luogo->nome;
}

// Whether every new database has the body.
bool inElenco(const schede::Ente& ente) {
  static const std::vector<EnteInLista> kEnti = entiPrevidenziali();
  return std::any_of(kEnti.begin(), kEnti.end(), [&](const EnteInLista& uno) {
    return uno.codiceFiscale == ente.codiceFiscale && uno.nome == ente.nome && uno.codice == ente.codice;
  });
}

bool inElenco(const std::vector<VoceInLista>& elenco, std::string_view codice) {
  return std::any_of(elenco.begin(), elenco.end(),
                     [&](const VoceInLista& una) { return una.codice == codice; });
}
bool categoriaInElenco(std::string_view codice) {
  static const std::vector<VoceInLista> kCategorie = categorieEntiPrevidenziali();
  return inElenco(kCategorie, codice);
}
// Whether it is a code of this database alone.
bool eventoProprio(std::string_view codice) {
  static const std::vector<VoceInLista> kEventi = eventiEccezionali();
  return !codice.empty() && !inElenco(kEventi, codice);
}
bool categoriaPropria(std::string_view codice) {
  static const std::vector<VoceInLista> kCategorie = categorieParticolari();
  return !codice.empty() && !inElenco(kCategorie, codice);
}

void ente(ValoriDi& valori, const schede::SchedaPercipiente& p, const AccantoPercipiente& accanto,
          const schede::Elenchi& elenchi) {
  using enum ColonnaPercipiente;
  const schede::Ente* const suo = elenchi.ente(p.idEnte);
  const std::string categoria =
      accanto.categoria.empty() ? elenchi.categorieEnti.codice(p.idCategoriaEnte) : accanto.categoria;
  valori.testo(CategoriaEnte, categoria);
  if (suo == nullptr) {
    valori.testo(EntePrevidenziale, accanto.enteNome);
    valori.testo(CodiceFiscaleEnte, accanto.enteCodiceFiscale);
    return valori.testo(CodiceEnte, accanto.enteCodice);
  }
  valori.testo(EntePrevidenziale, suo->nome.empty() ? suo->codiceFiscale : suo->nome);
  if (inElenco(*suo) && (categoria.empty() || categoriaInElenco(categoria))) return;
  valori.testo(CodiceFiscaleEnte, suo->codiceFiscale);
  valori.testo(CodiceEnte, suo->codice);
}

void luoghiDi(ValoriDi& valori, const schede::SchedaAnagrafica& a, const AccantoPercipiente& accanto,
              const schede::Luoghi& luoghi) {
  using enum ColonnaPercipiente;
  const std::int32_t italia = luoghi.italia();
  std::optional<Date> nascita;
  if (a.nascita != Date()) nascita = a.nascita;
  valori.testo(ComuneNascita, scriviComune(luoghi, a.idComuneNascita, nascita));
  valori.testo(ProvinciaNascita, scriviProvincia(luoghi, a.idComuneNascita));
  if (a.idNazionalita != italia || a.idComuneNascita == 0) {
    valori.testo(NazioneNascita, scriviNazione(luoghi, a.idNazionalita));
  }
  valori.testo(Comune, accanto.localitaEstera.empty() ? scriviComune(luoghi, a.idComune, std::nullopt)
                                                      : accanto.localitaEstera);
  valori.testo(Provincia, scriviProvincia(luoghi, a.idComune));
  valori.testo(Nazione, scriviNazione(luoghi, a.idNazione));
}

}  // namespace

std::vector<Value> valoriAzienda(const schede::SchedaAzienda& azienda, const AccantoAzienda& accanto,
                                 const schede::Luoghi& luoghi, const schede::Elenchi& elenchi) {
  using enum ColonnaAzienda;
  ValoriDi valori(Elenco::Aziende);
  valori.testi(kTestiSede, azienda.sede);
  valori.testi(kTestiRappresentante, azienda.rappresentante);
  valori.testi(kTestiAzienda, azienda);
  valori.testo(Comune, scriviComune(luoghi, azienda.sede.idComune, std::nullopt));
  valori.testo(Provincia, scriviProvincia(luoghi, azienda.sede.idComune));
  valori.testo(RappresentanteCarica, elenchi.cariche.codice(azienda.idCarica));
  const std::string& evento =
      accanto.evento.empty() ? elenchi.eventi.codice(azienda.idEventoEccezionale) : accanto.evento;
  valori.testo(EventoEccezionale, evento);
  if (eventoProprio(evento)) valori.logico(CodiciPropri, true);
  if (azienda.impegno != 0) valori.testo(Impegno, fromInteger(azienda.impegno));
  valori.giorno(DataImpegno, azienda.dataImpegno);
  return valori.presi();
}

std::vector<Value> valoriPercipiente(const schede::SchedaPercipiente& p, const AccantoPercipiente& accanto,
                                     const schede::Luoghi& luoghi, const schede::Elenchi& elenchi) {
  using enum ColonnaPercipiente;
  const schede::SchedaAnagrafica& a = p.anagrafica;
  ValoriDi valori(Elenco::Percipienti);
  valori.testi(kTestiAnagrafica, a);
  valori.testi(kTestiPercipiente, p);
  valori.logico(PersonaFisica, a.personaFisica);
  valori.giorno(DataNascita, a.nascita);
  luoghiDi(valori, a, accanto, luoghi);
  valori.logico(NonResidente, p.nonResidente);
  valori.logico(Schumacker, p.schumacker);
  const std::string& categoria = accanto.categoriaParticolare.empty()
                                     ? elenchi.categorie.codice(p.idCategoriaParticolare)
                                     : accanto.categoriaParticolare;
  const std::string& evento =
      accanto.evento.empty() ? elenchi.eventi.codice(p.idEventoEccezionale) : accanto.evento;
  valori.testo(CategoriaParticolare, categoria);
  valori.testo(EventoEccezionale, evento);
  if (categoriaPropria(categoria) || eventoProprio(evento)) valori.logico(CodiciPropri, true);
  ente(valori, p, accanto, elenchi);
  return valori.presi();
}

std::vector<Value> valoriCompenso(const schede::SchedaCompenso& compenso,
                                  const schede::SchedaPercipiente* percipiente,
                                  std::int32_t idCodiceNonSoggette, const schede::Elenchi& elenchi) {
  using enum ColonnaCompenso;
  ValoriDi valori(Elenco::Compensi);
  if (percipiente != nullptr) {
    valori.testo(CodicePercipiente, percipiente->codice);
    valori.testo(CodiceFiscale, percipiente->anagrafica.codiceFiscale);
    valori.testo(PartitaIva, percipiente->anagrafica.partitaIva);
  }
  valori.testo(Causale, elenchi.causali.codice(compenso.idCausale));
  valori.giorno(DataPagamento, compenso.pagamento);
  valori.testo(NumeroDocumento, compenso.numero);
  valori.giorno(DataDocumento, compenso.documento);
  for (std::size_t i = 0; i < kColonneImporti.size(); ++i) {
    valori.importo(kColonneImporti[i], compenso.importi[i]);
  }
  // An amount is required, be it zero.
  valori.a(Onorario) = Value::ofDecimal(compenso.importi[posto(schede::Importo::Onorario)]);
  valori.testo(CodiceNonSoggette, elenchi.nonSoggette.codice(idCodiceNonSoggette));
  return valori.presi();
}

}  // namespace cu::intake
