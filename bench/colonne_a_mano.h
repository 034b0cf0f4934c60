#pragma once

namespace cu::bench {

// The columns of the main query and of the module query, in their order.
// clang-format off
enum Principale : int {
    Selezionato, Modificato, AnagraficaPerc, Nome, Codice, Anticipazione, CodiceFiscale, AmmontareLordo,
    SommeRegimeConvenzionale, IDCodicePerNonSoggetti, CodicePerNonSoggetti, SommeNonSoggetteARitenuta,
    Imponibile, RitenuteAcconto, RitenuteImposta, RitenuteSospese, AddRegionAcconto, AddRegionImposta,
    AddRegionSospesa, AddComunAcconto, AddComunImposta, AddComunSospesa, ImponibileAnniPrecedenti,
    RitenuteAnniPrecedenti, ContributiCaricoAzienda, ContributiCaricoPercipiente, SpeseRimborsate,
    RitenuteRimborsate, ProtocolloAnnSost, ProgressivoAnnSost, FusioneComuni, FusioneComuniAnnoPrec,
    IDComuneResidenzaAnnoPrec, IDComuneResidenzaAnnoCorr, ComuneResidenzaAnnoPrec, ComuneResidenzaAnnoCorr,
    SiglaProvResidenzaAnnoPrec, SiglaProvResidenzaAnnoCorr, CodiceComuneDiNascitaPrec,
    CodiceComuneDiNascitaCorr, IDCategoriaParticolare, IDEventoEccezionale, NonResidente,
    CodiceFiscaleRappresentante, CodiceIdentificazioneFiscaleEstero, QuotaProvvigioniNonSoggette,
    IDTipoCausalePagamento, CodiceAzPressoENPAM, CodiceAzPressoENPAPI, IDCUEntePrevidenziale,
    IDCUCategoriaEntePrevidenziale, CUCodiceFiscale, CUDenominazioneEntePrevidenziale,
    CUCodiceEntePrevidenziale, CUCodiceCategoriaEntePrevidenziale, AltreIndennitaRitenuteOperate1,
    AltreIndennitaRitenuteOperate2, AltreIndennitaSommeCorrisposte1, AltreIndennitaSommeCorrisposte2,
    AltriContributi, AltriSoggettiAddComunAcconto, AltriSoggettiAddComunImposta,
    AltriSoggettiAddComunSospesa, AltriSoggettiAddRegionAcconto, AltriSoggettiAddRegionImposta,
    AltriSoggettiAddRegionSospesa, AltriSoggettiCodiceFiscale, AltriSoggettiImponibile,
    AltriSoggettiRitenuteImposta, AltriSoggettiRitenuteAcconto, AltriSoggettiRitenuteSospese,
    CodiceFiscaleIndennitaEsproprio, CodiceFiscaleLavoroAutonomo, CodiceFiscalePignoramentoTerzi,
    ContributiDovuti, ContributiVersati, ImportoAltriContributi, IndennitaEsproprioRitenuteOperate1,
    IndennitaEsproprioRitenuteOperate2, IndennitaEsproprioSommeCorrisposte1,
    IndennitaEsproprioSommeCorrisposte2, PignoramentoTerziCodiceFiscale1, PignoramentoTerziCodiceFiscale2,
    PignoramentoTerziRitenuteNonOperate1, PignoramentoTerziSommeNonTassate1,
    PignoramentoTerziRitenuteNonOperate2, PignoramentoTerziSommeNonTassate2,
    PignoramentoTerziRitenuteOperate1, PignoramentoTerziRitenuteOperate2, PignoramentoTerziSommeErogate1,
    PignoramentoTerziSommeErogate2, SommeCorrisposteDalCuratore, SommeCorrispostePreFallimento,
    NonResidenteSchumacker, CodiceFiscaleRappresentanteAzienda, CodiceCarica, CodicePercipiente,
    IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, Anagrafica, Nome_102, PersonaFisica, EMailInternet,
    Telefono, Fax, CodiceFiscaleSocieta, CodiceFiscale_108, Cap, Indirizzo, Sesso, DataNascita,
    NonResidente_113, AnagraficaRapp, NomeRapp, CodiceFiscaleRapp, CodiceCarica_117, CodiceFiscaleAz,
    AnagraficaAz, PersonaFisicaAz, NomeAz, CapAz, IndirizzoAz, ComuneAz, SiglaProvinciaAz, TelefonoAz,
    FaxAz, EMailInternetAz, ProvinciaNascita, ComuneNascita, ComuneRes, CodiceCategoriaParticolare,
    CodiceEventoEccezionale, ComuneResidenzaAnnoPrec_134, ComuneResidenzaAnnoCorr_135,
    SiglaProvResidenzaAnnoPrec_136, SiglaProvResidenzaAnnoCorr_137, CodiceAttivita,
    CodiceFiscaleRappresentante_139, CodiceIdentificazioneFiscaleEstero_140, PrefissoInternazionaleRes,
    CodiceEventoEccezionaleAz,
};

enum Modulo : int {
    M_IDModuloXContoIndividuale, M_IDAnagrafica, M_IDAzienda, M_IDCausalePagamento, M_Anno, M_NumeroModulo,
    M_IDCodicePerNonSoggetti, M_AnnoModulo, M_SommeNonSoggette, M_ImponibileAnniPrec, M_RitenuteAnniPrec,
    M_Anticipazione, M_ContributiCaricoAzienda, M_ContributiCaricoPercipiente, M_AltriContributi,
    M_ImportoAltriContributi, M_ContributiDovuti, M_ContributiVersati, M_AltriSoggettiCodiceFiscale,
    M_AltriSoggettiImponibile, M_AltriSoggettiRitenuteAcconto, M_AltriSoggettiRitenuteImposta,
    M_AltriSoggettiRitenuteSospese, M_AltriSoggettiAddRegionAcconto, M_AltriSoggettiAddRegionImposta,
    M_AltriSoggettiAddRegionSospesa, M_AltriSoggettiAddComunAcconto, M_AltriSoggettiAddComunImposta,
    M_AltriSoggettiAddComunSospesa, M_CodiceFiscaleLavoroAutonomo, M_CodiceFiscalePignoramentoTerzi,
    M_CodiceFiscaleIndennitaEsproprio, M_PignoramentoTerziCodiceFiscale1, M_PignoramentoTerziSommeErogate1,
    M_PignoramentoTerziRitenuteOperate1, M_PignoramentoTerziSommeNonTassate1,
    M_PignoramentoTerziCodiceFiscale2, M_PignoramentoTerziSommeErogate2,
    M_PignoramentoTerziRitenuteOperate2, M_PignoramentoTerziSommeNonTassate2,
    M_IndennitaEsproprioSommeCorrisposte1, M_IndennitaEsproprioRitenuteOperate1,
    M_AltreIndennitaSommeCorrisposte1, M_AltreIndennitaRitenuteOperate1,
    M_IndennitaEsproprioSommeCorrisposte2, M_IndennitaEsproprioRitenuteOperate2,
    M_AltreIndennitaSommeCorrisposte2, M_AltreIndennitaRitenuteOperate2,
    M_PignoramentoTerziRitenuteNonOperate1, M_PignoramentoTerziRitenuteNonOperate2, M_CodicePerNonSoggetti,
    M_CUCodiceFiscale, M_CUDenominazioneEntePrevidenziale, M_CUCodiceEntePrevidenziale,
    M_CUDenominazioneEntePrevidenziale_54, M_CUCodiceCategoriaEntePrevidenziale,
};
// clang-format on

}  // namespace cu::bench
