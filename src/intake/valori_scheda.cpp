#include "intake/valori_scheda.h"

#include <algorithm>
#include <string>

#include "base/text.h"
#include "liste/liste.h"

namespace cu::intake {
namespace {

// A row being filled: under the columns of a list.
class ValoriDi {
 public:
  explicit ValoriDi(Elenco elenco) : valori_(colonne(elenco).size()) {}

  template <class C>
  void testo(C colonna, const std::string& valore) {
    if (!valore.empty()) a(colonna) = Value::ofText(valore);
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

bool categoriaInElenco(std::string_view codice) {
  static const std::vector<VoceInLista> kCategorie = categorieEntiPrevidenziali();
  return std::any_of(kCategorie.begin(), kCategorie.end(),
                     [&](const VoceInLista& una) { return una.codice == codice; });
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

std::vector<Value> valoriAzienda(const schede::SchedaAzienda& azienda, const schede::Luoghi& luoghi,
                                 const schede::Elenchi& elenchi) {
  using enum ColonnaAzienda;
  ValoriDi valori(Elenco::Aziende);
  valori.testo(CodiceFiscale, azienda.sede.codiceFiscale);
  valori.testo(PartitaIva, azienda.sede.partitaIva);
  valori.testo(Denominazione, azienda.sede.anagrafica);
  valori.testo(Nome, azienda.sede.nome);
  valori.testo(Indirizzo, azienda.sede.indirizzo);
  valori.testo(Cap, azienda.sede.cap);
  valori.testo(Comune, scriviComune(luoghi, azienda.sede.idComune, std::nullopt));
  valori.testo(Provincia, scriviProvincia(luoghi, azienda.sede.idComune));
  valori.testo(Telefono, azienda.sede.telefono);
  valori.testo(Fax, azienda.sede.fax);
  valori.testo(Email, azienda.sede.email);
  valori.testo(CodiceAttivita, azienda.codiceAttivita);
  valori.testo(RappresentanteCodiceFiscale, azienda.rappresentante.codiceFiscale);
  valori.testo(RappresentanteCognome, azienda.rappresentante.anagrafica);
  valori.testo(RappresentanteNome, azienda.rappresentante.nome);
  valori.testo(RappresentanteCarica, elenchi.cariche.codice(azienda.idCarica));
  valori.testo(CodiceFiscaleSocieta, azienda.codiceFiscaleSocieta);
  valori.testo(EventoEccezionale, elenchi.eventi.codice(azienda.idEventoEccezionale));
  valori.testo(IntermediarioCodiceFiscale, azienda.intermediario);
  if (azienda.impegno != 0) valori.testo(Impegno, fromInteger(azienda.impegno));
  valori.giorno(DataImpegno, azienda.dataImpegno);
  return valori.presi();
}

std::vector<Value> valoriPercipiente(const schede::SchedaPercipiente& p, const AccantoPercipiente& accanto,
                                     const schede::Luoghi& luoghi, const schede::Elenchi& elenchi) {
  using enum ColonnaPercipiente;
  const schede::SchedaAnagrafica& a = p.anagrafica;
  ValoriDi valori(Elenco::Percipienti);
  valori.testo(Codice, p.codice);
  valori.testo(CodiceFiscale, a.codiceFiscale);
  valori.testo(PartitaIva, a.partitaIva);
  valori.testo(Cognome, a.anagrafica);
  valori.testo(Nome, a.nome);
  valori.logico(PersonaFisica, a.personaFisica);
  valori.testo(Sesso, a.sesso);
  valori.giorno(DataNascita, a.nascita);
  luoghiDi(valori, a, accanto, luoghi);
  valori.testo(Indirizzo, a.indirizzo);
  valori.testo(Cap, a.cap);
  valori.testo(Email, a.email);
  valori.testo(Telefono, a.telefono);
  valori.testo(Fax, a.fax);
  valori.logico(NonResidente, p.nonResidente);
  valori.logico(Schumacker, p.schumacker);
  valori.testo(CodiceFiscaleEstero, p.codiceFiscaleEstero);
  valori.testo(CodiceFiscaleRappresentante, p.codiceFiscaleRappresentante);
  valori.testo(CategoriaParticolare, elenchi.categorie.codice(p.idCategoriaParticolare));
  valori.testo(EventoEccezionale, elenchi.eventi.codice(p.idEventoEccezionale));
  ente(valori, p, accanto, elenchi);
  valori.testo(CodiceAziendaENPAM, p.codiceEnpam);
  valori.testo(CodiceAziendaENPAPI, p.codiceEnpapi);
  return valori.presi();
}

std::vector<Value> valoriCompenso(const schede::SchedaCompenso& compenso,
                                  const schede::SchedaPercipiente* percipiente,
                                  std::int32_t idCodiceNonSoggette, const schede::Elenchi& elenchi) {
  using enum ColonnaCompenso;
  using I = schede::Importo;
  ValoriDi valori(Elenco::Compensi);
  const auto importo = [&](I quale) { return compenso.importi[posto(quale)]; };
  if (percipiente != nullptr) {
    valori.testo(CodicePercipiente, percipiente->codice);
    valori.testo(CodiceFiscale, percipiente->anagrafica.codiceFiscale);
    valori.testo(PartitaIva, percipiente->anagrafica.partitaIva);
  }
  valori.testo(Causale, elenchi.causali.codice(compenso.idCausale));
  valori.giorno(DataPagamento, compenso.pagamento);
  valori.testo(NumeroDocumento, compenso.numero);
  valori.giorno(DataDocumento, compenso.documento);
  // An amount is required, be it zero.
  valori.a(Onorario) = Value::ofDecimal(importo(I::Onorario));
  valori.importo(QuotaNonSoggetta, importo(I::QuotaNonSoggetta));
  valori.importo(SommeNonSoggette, importo(I::SommeNonSoggette));
  valori.importo(SommeRegimeConvenzionale, importo(I::RegimeConvenzionale));
  valori.importo(RitenutaAcconto, importo(I::RitenutaAcconto));
  valori.importo(RitenutaImposta, importo(I::RitenutaImposta));
  valori.importo(ContributoPrevidenziale, importo(I::ContributoPrevidenziale));
  valori.importo(ContributoPercipiente, importo(I::ContributoPercipiente));
  valori.testo(CodiceNonSoggette, elenchi.nonSoggette.codice(idCodiceNonSoggette));
  return valori.presi();
}

}  // namespace cu::intake
