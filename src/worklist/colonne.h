#pragma once

#include <array>
#include <string_view>

namespace cu {

// The user types of the suite's database, and the server's int.
enum class Tipo { Int, Note, Descrizione, Importo, SiNo };

struct ColonnaLavoro {
  std::string_view nome;
  Tipo tipo = Tipo::Descrizione;
  bool nonNullo = false;
  std::string_view sorgente =
      {};  // in the SELECT that fills the table; empty for the view's column of the same name
};

// The account of a row of the view, for the subqueries of the load.
#define CONTO_DELLA_RIGA                                                               \
  " FROM ContoIndividuale CI WHERE RepContoIndividuale.IDAnagrafica = CI.IDAnagrafica" \
  " AND RepContoIndividuale.IDCausalePagamento = CI.IDCausalePagamento"                \
  " AND RepContoIndividuale.Anno = CI.Anno AND RepContoIndividuale.IDAzienda = CI.IDAzienda)"

// The work table, one row per payee, payment reason and year: its columns in the order of the table and of
// the SELECT that fills it by position.
inline constexpr std::array<ColonnaLavoro, 101> kColonneLavoro = {{
    {.nome = "Selezionato", .tipo = Tipo::Int, .sorgente = "1 AS Selezionato"},
    {.nome = "Modificato", .tipo = Tipo::Int, .sorgente = "0 AS Modificato"},
    {.nome = "AnagraficaPerc",
     .tipo = Tipo::Note,
     .sorgente = "RTRIM(Anagrafica + ' ' + ISNULL(Nome,'')) AS Anagrafica"},
    {.nome = "Nome", .tipo = Tipo::Descrizione},
    {.nome = "Codice", .tipo = Tipo::Descrizione, .nonNullo = true, .sorgente = "RTRIM(Codice) AS Codice"},
    {.nome = "Anticipazione", .tipo = Tipo::SiNo, .nonNullo = true},
    {.nome = "CodiceFiscale", .tipo = Tipo::Descrizione, .nonNullo = true},
    {.nome = "AmmontareLordo",
     .tipo = Tipo::Importo,
     .sorgente =
         "ISNULL(OnorarioProvvigioni,0) + ISNULL(SommeNonSoggette,0) + ISNULL(SommeNonSoggetteRegConv,0)"
         " + ISNULL((SELECT SUM(ISNULL(SommeNonSoggette,0)) FROM ModuloXContoIndividuale MXCI"
         " WHERE MXCI.Anno = RepContoIndividuale.Anno AND MXCI.IDAzienda = RepContoIndividuale.IDAzienda"
         " AND MXCI.IDAnagrafica = RepContoIndividuale.IDAnagrafica"
         " AND MXCI.IDCausalePagamento = RepContoIndividuale.IDCausalePagamento),0) AS AmmontareLordo"},
    {.nome = "SommeRegimeConvenzionale",
     .tipo = Tipo::Importo,
     .sorgente = "SommeNonSoggetteRegConv AS SommeRegimeConvenzionale"},
    {.nome = "IDCodicePerNonSoggetti", .tipo = Tipo::Int},
    {.nome = "CodicePerNonSoggetti", .tipo = Tipo::Descrizione},
    {.nome = "SommeNonSoggetteARitenuta",
     .tipo = Tipo::Importo,
     .sorgente = "CASE WHEN RTRIM(Codice) IN ('M','O') THEN 0 ELSE ISNULL(SommeNonSoggette,0) END"
                 " AS SommeNonSoggetteARitenuta"},
    {.nome = "Imponibile",
     .tipo = Tipo::Importo,
     .sorgente = "(SELECT OnorarioProvvigioni - ISNULL(QuotaProvvigioniNonSoggette,0)" CONTO_DELLA_RIGA
                 " AS Imponibile"},
    {.nome = "RitenuteAcconto", .tipo = Tipo::Importo, .sorgente = "RitenutaAcconto AS RitenuteAcconto"},
    {.nome = "RitenuteImposta",
     .tipo = Tipo::Importo,
     .sorgente = "(SELECT RitenutaImposta" CONTO_DELLA_RIGA " AS RitenuteImposta"},
    {.nome = "RitenuteSospese", .tipo = Tipo::Importo},
    {.nome = "AddRegionAcconto", .tipo = Tipo::Importo},
    {.nome = "AddRegionImposta", .tipo = Tipo::Importo},
    {.nome = "AddRegionSospesa", .tipo = Tipo::Importo},
    {.nome = "AddComunAcconto", .tipo = Tipo::Importo},
    {.nome = "AddComunImposta", .tipo = Tipo::Importo},
    {.nome = "AddComunSospesa", .tipo = Tipo::Importo},
    {.nome = "ImponibileAnniPrecedenti", .tipo = Tipo::Importo},
    {.nome = "RitenuteAnniPrecedenti", .tipo = Tipo::Importo},
    {.nome = "ContributiCaricoAzienda",
     .tipo = Tipo::Importo,
     .sorgente = "ContributoPrevidenziale - RitenutaPrevidenziale13 AS ContributiCaricoAzienda"},
    {.nome = "ContributiCaricoPercipiente",
     .tipo = Tipo::Importo,
     .sorgente = "RitenutaPrevidenziale13 AS ContributiCaricoPercipiente"},
    {.nome = "SpeseRimborsate",
     .tipo = Tipo::Importo,
     .sorgente =
         "CASE WHEN RTRIM(Codice) IN ('M','O') THEN ISNULL(SommeNonSoggette,0) ELSE 0 END SpeseRimborsate"},
    {.nome = "RitenuteRimborsate", .tipo = Tipo::Importo},
    {.nome = "ProtocolloAnnSost", .tipo = Tipo::Descrizione},
    {.nome = "ProgressivoAnnSost", .tipo = Tipo::Descrizione},
    {.nome = "FusioneComuni", .tipo = Tipo::Descrizione},
    {.nome = "FusioneComuniAnnoPrec", .tipo = Tipo::Descrizione},
    {.nome = "IDComuneResidenzaAnnoPrec", .tipo = Tipo::Int},
    {.nome = "IDComuneResidenzaAnnoCorr", .tipo = Tipo::Int},
    {.nome = "ComuneResidenzaAnnoPrec", .tipo = Tipo::Descrizione},
    {.nome = "ComuneResidenzaAnnoCorr", .tipo = Tipo::Descrizione},
    {.nome = "SiglaProvResidenzaAnnoPrec", .tipo = Tipo::Descrizione},
    {.nome = "SiglaProvResidenzaAnnoCorr", .tipo = Tipo::Descrizione},
    {.nome = "CodiceComuneDiNascitaPrec", .tipo = Tipo::Descrizione},
    {.nome = "CodiceComuneDiNascitaCorr", .tipo = Tipo::Descrizione},
    {.nome = "IDCategoriaParticolare", .tipo = Tipo::Int},
    {.nome = "IDEventoEccezionale", .tipo = Tipo::Int},
    {.nome = "NonResidente", .tipo = Tipo::SiNo},
    {.nome = "CodiceFiscaleRappresentante", .tipo = Tipo::Descrizione},
    {.nome = "CodiceIdentificazioneFiscaleEstero", .tipo = Tipo::Descrizione},
    {.nome = "QuotaProvvigioniNonSoggette",
     .tipo = Tipo::Importo,
     .sorgente = "(SELECT QuotaProvvigioniNonSoggette" CONTO_DELLA_RIGA " AS QuotaProvvigioniNonSoggette"},
    {.nome = "IDTipoCausalePagamento",
     .tipo = Tipo::Int,
     .sorgente =
         "(SELECT IDTipoCausalePagamento FROM CausalePagamento CP"
         " WHERE RepContoIndividuale.IDCausalePagamento = CP.IDCausalePagamento) AS IDTipoCausalePagamento"},
    {.nome = "CodiceAzPressoENPAM", .tipo = Tipo::Descrizione},
    {.nome = "CodiceAzPressoENPAPI", .tipo = Tipo::Descrizione},
    {.nome = "IDCUEntePrevidenziale", .tipo = Tipo::Int},
    {.nome = "IDCUCategoriaEntePrevidenziale", .tipo = Tipo::Int},
    {.nome = "CUCodiceFiscale", .tipo = Tipo::Descrizione},
    {.nome = "CUDenominazioneEntePrevidenziale", .tipo = Tipo::Note},
    {.nome = "CUCodiceEntePrevidenziale", .tipo = Tipo::Descrizione},
    {.nome = "CUCodiceCategoriaEntePrevidenziale", .tipo = Tipo::Descrizione},
    {.nome = "AltreIndennitaRitenuteOperate1", .tipo = Tipo::Importo},
    {.nome = "AltreIndennitaRitenuteOperate2", .tipo = Tipo::Importo},
    {.nome = "AltreIndennitaSommeCorrisposte1", .tipo = Tipo::Importo},
    {.nome = "AltreIndennitaSommeCorrisposte2", .tipo = Tipo::Importo},
    {.nome = "AltriContributi", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiAddComunAcconto", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiAddComunImposta", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiAddComunSospesa", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiAddRegionAcconto", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiAddRegionImposta", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiAddRegionSospesa", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiCodiceFiscale", .tipo = Tipo::Descrizione},
    {.nome = "AltriSoggettiImponibile", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiRitenuteImposta", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiRitenuteAcconto", .tipo = Tipo::Importo},
    {.nome = "AltriSoggettiRitenuteSospese", .tipo = Tipo::Importo},
    {.nome = "CodiceFiscaleIndennitaEsproprio", .tipo = Tipo::Descrizione},
    {.nome = "CodiceFiscaleLavoroAutonomo", .tipo = Tipo::Descrizione},
    {.nome = "CodiceFiscalePignoramentoTerzi", .tipo = Tipo::Descrizione},
    {.nome = "ContributiDovuti", .tipo = Tipo::Importo},
    {.nome = "ContributiVersati", .tipo = Tipo::Importo},
    {.nome = "ImportoAltriContributi", .tipo = Tipo::Importo},
    {.nome = "IndennitaEsproprioRitenuteOperate1", .tipo = Tipo::Importo},
    {.nome = "IndennitaEsproprioRitenuteOperate2", .tipo = Tipo::Importo},
    {.nome = "IndennitaEsproprioSommeCorrisposte1", .tipo = Tipo::Importo},
    {.nome = "IndennitaEsproprioSommeCorrisposte2", .tipo = Tipo::Importo},
    {.nome = "PignoramentoTerziCodiceFiscale1", .tipo = Tipo::Descrizione},
    {.nome = "PignoramentoTerziCodiceFiscale2", .tipo = Tipo::Descrizione},
    {.nome = "PignoramentoTerziRitenuteNonOperate1", .tipo = Tipo::Importo},
    {.nome = "PignoramentoTerziSommeNonTassate1", .tipo = Tipo::Importo},
    {.nome = "PignoramentoTerziRitenuteNonOperate2", .tipo = Tipo::Importo},
    {.nome = "PignoramentoTerziSommeNonTassate2", .tipo = Tipo::Importo},
    {.nome = "PignoramentoTerziRitenuteOperate1", .tipo = Tipo::Importo},
    {.nome = "PignoramentoTerziRitenuteOperate2", .tipo = Tipo::Importo},
    {.nome = "PignoramentoTerziSommeErogate1", .tipo = Tipo::Importo},
    {.nome = "PignoramentoTerziSommeErogate2", .tipo = Tipo::Importo},
    {.nome = "SommeCorrisposteDalCuratore", .tipo = Tipo::Importo},
    {.nome = "SommeCorrispostePreFallimento", .tipo = Tipo::Importo},
    {.nome = "NonResidenteSchumacker", .tipo = Tipo::SiNo},
    {.nome = "CodiceFiscaleRappresentanteAzienda", .tipo = Tipo::Descrizione},
    {.nome = "CodiceCarica", .tipo = Tipo::Descrizione},
    {.nome = "CodicePercipiente", .tipo = Tipo::Descrizione},
    {.nome = "IDAnagrafica", .tipo = Tipo::Int, .nonNullo = true},
    {.nome = "IDCausalePagamento", .tipo = Tipo::Int, .nonNullo = true},
    {.nome = "Anno", .tipo = Tipo::Int, .nonNullo = true},
    {.nome = "IDAzienda", .tipo = Tipo::Int, .nonNullo = true},
}};

#undef CONTO_DELLA_RIGA

// Those of a form with boxes of its own, behind the others.
inline constexpr std::array<ColonnaLavoro, 1> kColonneProprie = {{
    {.nome = "SommeRestituite", .tipo = Tipo::Importo},
}};

}  // namespace cu
