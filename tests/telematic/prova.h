#pragma once

#include <cstddef>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/fake_session.h"
#include "support/fixed_clock.h"
#include "support/memory_file_system.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "support/table.h"
#include "telematic/ambiente_telematico.h"
#include "telematic/riferimento.h"

namespace cu::test {

// clang-format off
inline const std::vector<std::string> kColonneTabellaLavoro = {
    "Selezionato", "Modificato", "AnagraficaPerc", "Nome", "Codice", "Anticipazione", "CodiceFiscale",
    "AmmontareLordo", "SommeRegimeConvenzionale", "IDCodicePerNonSoggetti", "CodicePerNonSoggetti",
    "SommeNonSoggetteARitenuta", "Imponibile", "RitenuteAcconto", "RitenuteImposta", "RitenuteSospese",
    "AddRegionAcconto", "AddRegionImposta", "AddRegionSospesa", "AddComunAcconto", "AddComunImposta",
    "AddComunSospesa", "ImponibileAnniPrecedenti", "RitenuteAnniPrecedenti", "ContributiCaricoAzienda",
    "ContributiCaricoPercipiente", "SpeseRimborsate", "RitenuteRimborsate", "ProtocolloAnnSost",
    "ProgressivoAnnSost", "FusioneComuni", "FusioneComuniAnnoPrec", "IDComuneResidenzaAnnoPrec",
    "IDComuneResidenzaAnnoCorr", "ComuneResidenzaAnnoPrec", "ComuneResidenzaAnnoCorr",
    "SiglaProvResidenzaAnnoPrec", "SiglaProvResidenzaAnnoCorr", "CodiceComuneDiNascitaPrec",
    "CodiceComuneDiNascitaCorr", "IDCategoriaParticolare", "IDEventoEccezionale", "NonResidente",
    "CodiceFiscaleRappresentante", "CodiceIdentificazioneFiscaleEstero", "QuotaProvvigioniNonSoggette",
    "IDTipoCausalePagamento", "CodiceAzPressoENPAM", "CodiceAzPressoENPAPI", "IDCUEntePrevidenziale",
    "IDCUCategoriaEntePrevidenziale", "CUCodiceFiscale", "CUDenominazioneEntePrevidenziale",
    "CUCodiceEntePrevidenziale", "CUCodiceCategoriaEntePrevidenziale", "AltreIndennitaRitenuteOperate1",
    "AltreIndennitaRitenuteOperate2", "AltreIndennitaSommeCorrisposte1", "AltreIndennitaSommeCorrisposte2",
    "AltriContributi", "AltriSoggettiAddComunAcconto", "AltriSoggettiAddComunImposta",
    "AltriSoggettiAddComunSospesa", "AltriSoggettiAddRegionAcconto", "AltriSoggettiAddRegionImposta",
    "AltriSoggettiAddRegionSospesa", "AltriSoggettiCodiceFiscale", "AltriSoggettiImponibile",
    "AltriSoggettiRitenuteImposta", "AltriSoggettiRitenuteAcconto", "AltriSoggettiRitenuteSospese",
    "CodiceFiscaleIndennitaEsproprio", "CodiceFiscaleLavoroAutonomo", "CodiceFiscalePignoramentoTerzi",
    "ContributiDovuti", "ContributiVersati", "ImportoAltriContributi", "IndennitaEsproprioRitenuteOperate1",
    "IndennitaEsproprioRitenuteOperate2", "IndennitaEsproprioSommeCorrisposte1",
    "IndennitaEsproprioSommeCorrisposte2", "PignoramentoTerziCodiceFiscale1",
    "PignoramentoTerziCodiceFiscale2", "PignoramentoTerziRitenuteNonOperate1",
    "PignoramentoTerziSommeNonTassate1", "PignoramentoTerziRitenuteNonOperate2",
    "PignoramentoTerziSommeNonTassate2", "PignoramentoTerziRitenuteOperate1",
    "PignoramentoTerziRitenuteOperate2", "PignoramentoTerziSommeErogate1", "PignoramentoTerziSommeErogate2",
    "SommeCorrisposteDalCuratore", "SommeCorrispostePreFallimento", "NonResidenteSchumacker",
    "CodiceFiscaleRappresentanteAzienda", "CodiceCarica", "CodicePercipiente", "IDAnagrafica",
    "IDCausalePagamento", "Anno", "IDAzienda",
};

inline const std::vector<std::string> kColonneAggiunte = {
    "Anagrafica", "Nome", "PersonaFisica", "EMailInternet", "Telefono", "Fax", "CodiceFiscaleSocieta",
    "CodiceFiscale", "Cap", "Indirizzo", "Sesso", "DataNascita", "NonResidente", "AnagraficaRapp",
    "NomeRapp", "CodiceFiscaleRapp", "CodiceCarica", "CodiceFiscaleAz", "AnagraficaAz", "PersonaFisicaAz",
    "NomeAz", "CapAz", "IndirizzoAz", "ComuneAz", "SiglaProvinciaAz", "TelefonoAz", "FaxAz",
    "EMailInternetAz", "ProvinciaNascita", "ComuneNascita", "ComuneRes", "CodiceCategoriaParticolare",
    "CodiceEventoEccezionale", "ComuneResidenzaAnnoPrec", "ComuneResidenzaAnnoCorr",
    "SiglaProvResidenzaAnnoPrec", "SiglaProvResidenzaAnnoCorr", "CodiceAttivita",
    "CodiceFiscaleRappresentante", "CodiceIdentificazioneFiscaleEstero", "PrefissoInternazionaleRes",
    "CodiceEventoEccezionaleAz",
};

inline const std::vector<std::string> kColonneModulo = {
    "IDModuloXContoIndividuale", "IDAnagrafica", "IDAzienda", "IDCausalePagamento", "Anno", "NumeroModulo",
    "IDCodicePerNonSoggetti", "AnnoModulo", "SommeNonSoggette", "ImponibileAnniPrec", "RitenuteAnniPrec",
    "Anticipazione", "ContributiCaricoAzienda", "ContributiCaricoPercipiente", "AltriContributi",
    "ImportoAltriContributi", "ContributiDovuti", "ContributiVersati", "AltriSoggettiCodiceFiscale",
    "AltriSoggettiImponibile", "AltriSoggettiRitenuteAcconto", "AltriSoggettiRitenuteImposta",
    "AltriSoggettiRitenuteSospese", "AltriSoggettiAddRegionAcconto", "AltriSoggettiAddRegionImposta",
    "AltriSoggettiAddRegionSospesa", "AltriSoggettiAddComunAcconto", "AltriSoggettiAddComunImposta",
    "AltriSoggettiAddComunSospesa", "CodiceFiscaleLavoroAutonomo", "CodiceFiscalePignoramentoTerzi",
    "CodiceFiscaleIndennitaEsproprio", "PignoramentoTerziCodiceFiscale1", "PignoramentoTerziSommeErogate1",
    "PignoramentoTerziRitenuteOperate1", "PignoramentoTerziSommeNonTassate1",
    "PignoramentoTerziCodiceFiscale2", "PignoramentoTerziSommeErogate2",
    "PignoramentoTerziRitenuteOperate2", "PignoramentoTerziSommeNonTassate2",
    "IndennitaEsproprioSommeCorrisposte1", "IndennitaEsproprioRitenuteOperate1",
    "AltreIndennitaSommeCorrisposte1", "AltreIndennitaRitenuteOperate1",
    "IndennitaEsproprioSommeCorrisposte2", "IndennitaEsproprioRitenuteOperate2",
    "AltreIndennitaSommeCorrisposte2", "AltreIndennitaRitenuteOperate2",
    "PignoramentoTerziRitenuteNonOperate1", "PignoramentoTerziRitenuteNonOperate2", "CodicePerNonSoggetti",
    "CUCodiceFiscale", "CUDenominazioneEntePrevidenziale", "CUCodiceEntePrevidenziale",
    "CUDenominazioneEntePrevidenziale", "CUCodiceCategoriaEntePrevidenziale",
};
// clang-format on

// The columns of the main query: those of the work table, then those of the joins, some of them repeated.
inline std::vector<std::string> colonnePrincipali() {
  std::vector<std::string> colonne = kColonneTabellaLavoro;
  colonne.insert(colonne.end(), kColonneAggiunte.begin(), kColonneAggiunte.end());
  return colonne;
}

// A query's answer. Of two columns with one name the first is used: the second contains values that must
// never appear.
inline Table risposta(const std::vector<std::string>& colonne, const std::vector<Contenuti>& righe) {
  Table tavola;
  for (const std::string& nome : colonne) tavola.columns.push_back({nome, ValueType::Null});
  const std::set<std::string> note(colonne.begin(), colonne.end());
  for (const Contenuti& riga : righe) {
    for (const auto& [nome, valore] : riga) {
      if (!note.contains(nome)) throw std::logic_error("the query has no column " + nome);
    }
    std::set<std::string> viste;
    std::vector<Value> valori;
    for (const std::string& nome : colonne) {
      const auto trovato = riga.find(nome);
      if (!viste.insert(nome).second) {
        valori.push_back(text("SBAGLIATO"));
      } else {
        valori.push_back(trovato == riga.end() ? Value() : trovato->second);
      }
    }
    tavola.rows.push_back(std::move(valori));
  }
  return tavola;
}
inline Table rispostaPrincipale(const std::vector<Contenuti>& righe) {
  return risposta(colonnePrincipali(), righe);
}
inline Table rispostaModuli(const std::vector<Contenuti>& righe) { return risposta(kColonneModulo, righe); }

// Rows in memory, as returned by a query.
class Righe {
 public:
  explicit Righe(const Table& tavola) {
    tavola.fill(store_);
    for (std::size_t i = 0; i < store_.size(); ++i) {
      celle_.emplace_back(store_.columns()->size());
      store_.read(i, celle_.back().data());
    }
  }
  const Columns& colonne() const { return *store_.columns(); }
  const CellView* operator[](std::size_t riga) const { return celle_.at(riga).data(); }
  std::size_t size() const { return celle_.size(); }

 private:
  RowStore store_;
  std::vector<std::vector<CellView>> celle_;
};

// The surroundings of a run.
struct Prova {
  explicit Prova(int annoCorsa) : anno(annoCorsa) {}
  AmbienteTelematico ambiente() {
    return {.database = database,
            .utilita = utilita,
            .files = files,
            .avanzamento = frontEnd,
            .visore = frontEnd,
            .clock = clock,
            .tabella = "tmpprequadrivio12",
            .anno = anno};
  }

  std::int32_t anno;
  MemoryFileSystem files;
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  FixedClock clock{2017, 3, 5};
  FakeDatabase database;
};

// One row of the main query for each certificate of the year 2016.
inline std::vector<Contenuti> certificati2016(int quanti) {
  std::vector<Contenuti> contenuti;
  for (int i = 1; i <= quanti; ++i) {
    contenuti.push_back({{"IDAnagrafica", whole(i)},
                         {"IDCausalePagamento", whole(1)},
                         {"Anno", whole(2016)},
                         {"IDAzienda", whole(1)},
                         {"Codice", text("A")},
                         {"CodiceFiscale", text("RSSMRA70A01H501U")},
                         {"Anagrafica", text("Rossi")},
                         {"ProtocolloAnnSost", text("12")},
                         {"ProgressivoAnnSost", text("3")},
                         {"AnagraficaAz", text("Quadrivio SRL")}});
  }
  return contenuti;
}

}  // namespace cu::test
