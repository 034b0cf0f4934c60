-- The suite's tables and views, as far as this system needs them, in the dialect of SQL Server. Statements are
-- separated by lines of GO alone. The embedded database receives the same texts.
--
-- No foreign keys: old data hold ids of 0. No index on a text column.

-- User types
CREATE TYPE [dbo].[Note] FROM [varchar](1000) NULL
GO
CREATE TYPE [dbo].[Descrizione] FROM [varchar](255) NULL
GO
CREATE TYPE [dbo].[Importo] FROM [decimal](18, 4) NULL
GO
CREATE TYPE [dbo].[SiNo] FROM [smallint] NULL
GO

-- Names and places
CREATE TABLE [dbo].[Azienda] (
  [IDAzienda] [int] NOT NULL,
  [IDAnagrafica] [int] NULL,
  CONSTRAINT [PK_Azienda] PRIMARY KEY CLUSTERED ([IDAzienda] ASC)
)
GO
CREATE TABLE [dbo].[Anagrafica] (
  [IDAnagrafica] [int] NOT NULL,
  [Anagrafica] [Note] NOT NULL,
  [Nome] [Descrizione] NULL,
  [PersonaFisica] [SiNo] NULL,
  [CodiceFiscale] [Descrizione] NULL,
  [PartitaIva] [Descrizione] NULL,
  [EMailInternet] [Descrizione] NULL,
  [Telefono] [Descrizione] NULL,
  [Fax] [Descrizione] NULL,
  [Cap] [Descrizione] NULL,
  [Indirizzo] [Descrizione] NULL,
  [Sesso] [Descrizione] NULL,
  [DataNascita] [datetime] NULL,
  [IDComuneNascita] [int] NULL,
  [IDNazionalita] [int] NULL,
  [IDComune] [int] NULL,
  [IDNazione] [int] NULL,
  CONSTRAINT [PK_Anagrafica] PRIMARY KEY CLUSTERED ([IDAnagrafica] ASC)
)
GO
CREATE TABLE [dbo].[Comune] (
  [IDComune] [int] NOT NULL,
  [Comune] [Descrizione] NULL,
  [IDProvincia] [int] NULL,
  [CodiceComuneDiNascita] [Descrizione] NULL,
  CONSTRAINT [PK_Comune] PRIMARY KEY CLUSTERED ([IDComune] ASC)
)
GO
CREATE TABLE [dbo].[Provincia] (
  [IDProvincia] [int] NOT NULL,
  [Provincia] [Descrizione] NULL,
  CONSTRAINT [PK_Provincia] PRIMARY KEY CLUSTERED ([IDProvincia] ASC)
)
GO
CREATE TABLE [dbo].[Nazione] (
  [IDNazione] [int] NOT NULL,
  [Nazione] [Descrizione] NULL,
  [PrefissoInternazionale] [Descrizione] NULL,
  CONSTRAINT [PK_Nazione] PRIMARY KEY CLUSTERED ([IDNazione] ASC)
)
GO

-- Codes of the forms
CREATE TABLE [dbo].[CodiceCarica] (
  [IDCodiceCarica] [int] NOT NULL,
  [Codice] [Descrizione] NULL,
  [CodiceCarica] [Descrizione] NULL,
  CONSTRAINT [PK_CodiceCarica] PRIMARY KEY CLUSTERED ([IDCodiceCarica] ASC)
)
GO
CREATE TABLE [dbo].[CategoriaParticolare] (
  [IDCategoriaParticolare] [int] NOT NULL,
  [CodiceCategoriaParticolare] [Descrizione] NULL,
  CONSTRAINT [PK_CategoriaParticolare] PRIMARY KEY CLUSTERED ([IDCategoriaParticolare] ASC)
)
GO
CREATE TABLE [dbo].[EventoEccezionale] (
  [IDEventoEccezionale] [int] NOT NULL,
  [CodiceEventoEccezionale] [Descrizione] NULL,
  CONSTRAINT [PK_EventoEccezionale] PRIMARY KEY CLUSTERED ([IDEventoEccezionale] ASC)
)
GO

-- The company
CREATE TABLE [dbo].[ConfigurazioneGenerale] (
  [IDAzienda] [int] NOT NULL,
  [CodiceFiscaleSocieta] [Descrizione] NULL,
  [IDAnagraficaRappresentante] [int] NULL,
  [IDCodiceCaricaRappresentante] [int] NULL,
  [IDFilialePrevalente] [int] NULL,
  CONSTRAINT [PK_ConfigurazioneGenerale] PRIMARY KEY CLUSTERED ([IDAzienda] ASC)
)
GO
CREATE TABLE [dbo].[ConfigurazioneCompensiATerzi] (
  [IDAzienda] [int] NOT NULL,
  [IDEventoEccezionale] [int] NULL,
  CONSTRAINT [PK_ConfigurazioneCompensiATerzi] PRIMARY KEY CLUSTERED ([IDAzienda] ASC)
)
GO
CREATE TABLE [dbo].[ConfigurazioneContabile] (
  [IDAzienda] [int] NOT NULL,
  [InterlineaGiornale] [Descrizione] NULL,
  CONSTRAINT [PK_ConfigurazioneContabile] PRIMARY KEY CLUSTERED ([IDAzienda] ASC)
)
GO
CREATE TABLE [dbo].[ConfigurazioneElencoCliFor] (
  [IDAzienda] [int] NOT NULL,
  [CodiceFiscaleIntermediario] [Descrizione] NULL,
  [TipoComunicazione] [int] NULL,
  [DataImpegno] [datetime] NULL,
  CONSTRAINT [PK_ConfigurazioneElencoCliFor] PRIMARY KEY CLUSTERED ([IDAzienda] ASC)
)
GO
CREATE TABLE [dbo].[Filiale] (
  [IDFiliale] [int] NOT NULL,
  [IDAzienda] [int] NULL,
  [IDAttivitaAzienda] [int] NULL,
  CONSTRAINT [PK_Filiale] PRIMARY KEY CLUSTERED ([IDFiliale] ASC)
)
GO
CREATE TABLE [dbo].[AttivitaAzienda] (
  [IDAttivitaAzienda] [int] NOT NULL,
  [IDAzienda] [int] NULL,
  CONSTRAINT [PK_AttivitaAzienda] PRIMARY KEY CLUSTERED ([IDAttivitaAzienda] ASC)
)
GO
CREATE TABLE [dbo].[AttivitaAziendaPerPeriodoIva] (
  [IDAttivitaAzienda] [int] NOT NULL,
  [IDPeriodoIva] [int] NOT NULL,
  [IDCodiceAttivita] [int] NULL,
  CONSTRAINT [PK_AttivitaAziendaPerPeriodoIva] PRIMARY KEY CLUSTERED ([IDAttivitaAzienda] ASC, [IDPeriodoIva] ASC)
)
GO
CREATE TABLE [dbo].[PeriodoIva] (
  [IDPeriodoIva] [int] NOT NULL,
  [IDAzienda] [int] NULL,
  [Anno] [int] NULL,
  CONSTRAINT [PK_PeriodoIva] PRIMARY KEY CLUSTERED ([IDPeriodoIva] ASC)
)
GO
CREATE TABLE [dbo].[CodiceAttivita] (
  [IDCodiceAttivita] [int] NOT NULL,
  [CodiceAttivita] [Descrizione] NULL,
  CONSTRAINT [PK_CodiceAttivita] PRIMARY KEY CLUSTERED ([IDCodiceAttivita] ASC)
)
GO
CREATE TABLE [dbo].[DefaultFilialePerTipoOggetto] (
  [IDDefaultFilialePerTipoOggetto] [int] NOT NULL,
  [IDTipoOggetto] [int] NULL,
  [IDFiliale] [int] NULL,
  CONSTRAINT [PK_DefaultFilialePerTipoOggetto] PRIMARY KEY CLUSTERED ([IDDefaultFilialePerTipoOggetto] ASC)
)
GO

-- Reasons of payment, funds, payees
CREATE TABLE [dbo].[CausalePagamento] (
  [IDCausalePagamento] [int] NOT NULL,
  [Codice] [Descrizione] NULL,
  [CausalePagamento] [Descrizione] NULL,
  [IDTipoCausalePagamento] [int] NULL,
  CONSTRAINT [PK_CausalePagamento] PRIMARY KEY CLUSTERED ([IDCausalePagamento] ASC)
)
GO
CREATE TABLE [dbo].[CodicePerNonSoggetti] (
  [IDCodicePerNonSoggetti] [int] NOT NULL,
  [Codice] [Descrizione] NULL,
  [Descrizione] [Descrizione] NULL,
  CONSTRAINT [PK_CodicePerNonSoggetti] PRIMARY KEY CLUSTERED ([IDCodicePerNonSoggetti] ASC)
)
GO
CREATE TABLE [dbo].[CUEntePrevidenziale] (
  [IDCUEntePrevidenziale] [int] NOT NULL,
  [CUCodiceFiscale] [Descrizione] NULL,
  [CUDenominazioneEntePrevidenziale] [Note] NULL,
  [CUCodiceEntePrevidenziale] [Descrizione] NULL,
  CONSTRAINT [PK_CUEntePrevidenziale] PRIMARY KEY CLUSTERED ([IDCUEntePrevidenziale] ASC)
)
GO
CREATE TABLE [dbo].[CUCategoriaEntePrevidenziale] (
  [IDCUCategoriaEntePrevidenziale] [int] NOT NULL,
  [CUCodiceCategoriaEntePrevidenziale] [Descrizione] NULL,
  CONSTRAINT [PK_CUCategoriaEntePrevidenziale] PRIMARY KEY CLUSTERED ([IDCUCategoriaEntePrevidenziale] ASC)
)
GO
CREATE TABLE [dbo].[Percipiente] (
  [IDAzienda] [int] NOT NULL,
  [IDAnagrafica] [int] NOT NULL,
  [Codice] [Descrizione] NULL,
  [NonResidente] [SiNo] NULL,
  [NonResidenteSchumacker] [SiNo] NULL,
  [CodiceFiscaleRappresentante] [Descrizione] NULL,
  [CodiceIdentificazioneFiscaleEstero] [Descrizione] NULL,
  [CodiceAzPressoENPAM] [Descrizione] NULL,
  [CodiceAzPressoENPAPI] [Descrizione] NULL,
  [IDCategoriaParticolare] [int] NULL,
  [IDEventoEccezionale] [int] NULL,
  [IDCUEntePrevidenziale] [int] NULL,
  [IDCUCategoriaEntePrevidenziale] [int] NULL,
  CONSTRAINT [PK_Percipiente] PRIMARY KEY CLUSTERED ([IDAzienda] ASC, [IDAnagrafica] ASC)
)
GO

-- The accounts: one line a payee, reason and year
CREATE TABLE [dbo].[ContoIndividuale] (
  [IDAnagrafica] [int] NOT NULL,
  [IDCausalePagamento] [int] NOT NULL,
  [Anno] [int] NOT NULL,
  [IDAzienda] [int] NOT NULL,
  [OnorarioProvvigioni] [Importo] NULL,
  [QuotaProvvigioniNonSoggette] [Importo] NULL,
  [SommeNonSoggette] [Importo] NULL,
  [SommeNonSoggetteRegConv] [Importo] NULL,
  [RitenutaAcconto] [Importo] NULL,
  [RitenutaImposta] [Importo] NULL,
  [ContributoPrevidenziale] [Importo] NULL,
  [RitenutaPrevidenziale13] [Importo] NULL,
  CONSTRAINT [PK_ContoIndividuale] PRIMARY KEY CLUSTERED ([IDAnagrafica] ASC, [IDCausalePagamento] ASC, [Anno] ASC, [IDAzienda] ASC)
)
GO
CREATE INDEX [IX_ContoIndividuale_Azienda] ON [dbo].[ContoIndividuale] ([IDAzienda] ASC, [Anno] ASC)
GO
CREATE TABLE [dbo].[ContoIndividualeDatiAggiuntivi] (
  [IDAnagrafica] [int] NOT NULL,
  [IDCausalePagamento] [int] NOT NULL,
  [Anno] [int] NOT NULL,
  [IDAzienda] [int] NOT NULL,
  [QuotaProvvigioniNonSoggette] [Importo] NULL,
  [Anticipazione] [SiNo] NULL DEFAULT 0,
  [IDCodicePerNonSoggetti] [int] NULL,
  [RitenuteSospese] [Importo] NULL,
  [AddRegionAcconto] [Importo] NULL,
  [AddRegionImposta] [Importo] NULL,
  [AddRegionSospesa] [Importo] NULL,
  [AddComunAcconto] [Importo] NULL,
  [AddComunImposta] [Importo] NULL,
  [AddComunSospesa] [Importo] NULL,
  [ImponibileAnniPrecedenti] [Importo] NULL,
  [RitenuteAnniPrecedenti] [Importo] NULL,
  [RitenuteRimborsate] [Importo] NULL,
  [AltriContributi] [SiNo] NULL,
  [ImportoAltriContributi] [Importo] NULL,
  [ContributiDovuti] [Importo] NULL,
  [ContributiVersati] [Importo] NULL,
  [SommeCorrispostePreFallimento] [Importo] NULL,
  [SommeCorrisposteDalCuratore] [Importo] NULL,
  [AltriSoggettiCodiceFiscale] [Descrizione] NULL,
  [AltriSoggettiImponibile] [Importo] NULL,
  [AltriSoggettiRitenuteAcconto] [Importo] NULL,
  [AltriSoggettiRitenuteImposta] [Importo] NULL,
  [AltriSoggettiRitenuteSospese] [Importo] NULL,
  [AltriSoggettiAddRegionAcconto] [Importo] NULL,
  [AltriSoggettiAddRegionImposta] [Importo] NULL,
  [AltriSoggettiAddRegionSospesa] [Importo] NULL,
  [AltriSoggettiAddComunAcconto] [Importo] NULL,
  [AltriSoggettiAddComunImposta] [Importo] NULL,
  [AltriSoggettiAddComunSospesa] [Importo] NULL,
  [CodiceFiscaleLavoroAutonomo] [Descrizione] NULL,
  [CodiceFiscalePignoramentoTerzi] [Descrizione] NULL,
  [CodiceFiscaleIndennitaEsproprio] [Descrizione] NULL,
  [PignoramentoTerziCodiceFiscale1] [Descrizione] NULL,
  [PignoramentoTerziSommeErogate1] [Importo] NULL,
  [PignoramentoTerziRitenuteOperate1] [Importo] NULL,
  [PignoramentoTerziRitenuteNonOperate1] [SiNo] NULL,
  [PignoramentoTerziSommeNonTassate1] [Importo] NULL,
  [PignoramentoTerziCodiceFiscale2] [Descrizione] NULL,
  [PignoramentoTerziSommeErogate2] [Importo] NULL,
  [PignoramentoTerziRitenuteOperate2] [Importo] NULL,
  [PignoramentoTerziRitenuteNonOperate2] [SiNo] NULL,
  [PignoramentoTerziSommeNonTassate2] [Importo] NULL,
  [IndennitaEsproprioSommeCorrisposte1] [Importo] NULL,
  [IndennitaEsproprioRitenuteOperate1] [Importo] NULL,
  [AltreIndennitaSommeCorrisposte1] [Importo] NULL,
  [AltreIndennitaRitenuteOperate1] [Importo] NULL,
  [IndennitaEsproprioSommeCorrisposte2] [Importo] NULL,
  [IndennitaEsproprioRitenuteOperate2] [Importo] NULL,
  [AltreIndennitaSommeCorrisposte2] [Importo] NULL,
  [AltreIndennitaRitenuteOperate2] [Importo] NULL,
  [ProtocolloAnnSost] [Descrizione] NULL,
  [ProgressivoAnnSost] [Descrizione] NULL,
  [FusioneComuni] [Descrizione] NULL,
  [FusioneComuniAnnoPrec] [Descrizione] NULL,
  [IDComuneResidenzaAnnoPrec] [int] NULL,
  [IDComuneResidenzaAnnoCorr] [int] NULL,
  CONSTRAINT [PK_ContoIndividualeDatiAggiuntivi] PRIMARY KEY CLUSTERED ([IDAnagrafica] ASC, [IDCausalePagamento] ASC, [Anno] ASC, [IDAzienda] ASC)
)
GO

-- Modules of the form from number 2
CREATE TABLE [dbo].[ModuloXContoIndividuale] (
  [IDModuloXContoIndividuale] [int] NOT NULL,
  [IDAnagrafica] [int] NOT NULL,
  [IDAzienda] [int] NOT NULL,
  [IDCausalePagamento] [int] NOT NULL,
  [Anno] [int] NOT NULL,
  [NumeroModulo] [int] NULL,
  [IDCodicePerNonSoggetti] [int] NULL,
  [AnnoModulo] [int] NULL,
  [SommeNonSoggette] [Importo] NULL,
  [ImponibileAnniPrec] [Importo] NULL,
  [RitenuteAnniPrec] [Importo] NULL,
  [Anticipazione] [SiNo] NULL,
  [ContributiCaricoAzienda] [Importo] NULL,
  [ContributiCaricoPercipiente] [Importo] NULL,
  [AltriContributi] [SiNo] NULL,
  [ImportoAltriContributi] [Importo] NULL,
  [ContributiDovuti] [Importo] NULL,
  [ContributiVersati] [Importo] NULL,
  [AltriSoggettiCodiceFiscale] [Descrizione] NULL,
  [AltriSoggettiImponibile] [Importo] NULL,
  [AltriSoggettiRitenuteAcconto] [Importo] NULL,
  [AltriSoggettiRitenuteImposta] [Importo] NULL,
  [AltriSoggettiRitenuteSospese] [Importo] NULL,
  [AltriSoggettiAddRegionAcconto] [Importo] NULL,
  [AltriSoggettiAddRegionImposta] [Importo] NULL,
  [AltriSoggettiAddRegionSospesa] [Importo] NULL,
  [AltriSoggettiAddComunAcconto] [Importo] NULL,
  [AltriSoggettiAddComunImposta] [Importo] NULL,
  [AltriSoggettiAddComunSospesa] [Importo] NULL,
  [CodiceFiscaleLavoroAutonomo] [Descrizione] NULL,
  [CodiceFiscalePignoramentoTerzi] [Descrizione] NULL,
  [CodiceFiscaleIndennitaEsproprio] [Descrizione] NULL,
  [PignoramentoTerziCodiceFiscale1] [Descrizione] NULL,
  [PignoramentoTerziSommeErogate1] [Importo] NULL,
  [PignoramentoTerziRitenuteOperate1] [Importo] NULL,
  [PignoramentoTerziSommeNonTassate1] [Importo] NULL,
  [PignoramentoTerziCodiceFiscale2] [Descrizione] NULL,
  [PignoramentoTerziSommeErogate2] [Importo] NULL,
  [PignoramentoTerziRitenuteOperate2] [Importo] NULL,
  [PignoramentoTerziSommeNonTassate2] [Importo] NULL,
  [IndennitaEsproprioSommeCorrisposte1] [Importo] NULL,
  [IndennitaEsproprioRitenuteOperate1] [Importo] NULL,
  [AltreIndennitaSommeCorrisposte1] [Importo] NULL,
  [AltreIndennitaRitenuteOperate1] [Importo] NULL,
  [IndennitaEsproprioSommeCorrisposte2] [Importo] NULL,
  [IndennitaEsproprioRitenuteOperate2] [Importo] NULL,
  [AltreIndennitaSommeCorrisposte2] [Importo] NULL,
  [AltreIndennitaRitenuteOperate2] [Importo] NULL,
  [PignoramentoTerziRitenuteNonOperate1] [SiNo] NULL,
  [PignoramentoTerziRitenuteNonOperate2] [SiNo] NULL,
  CONSTRAINT [PK_ModuloXContoIndividuale] PRIMARY KEY CLUSTERED ([IDModuloXContoIndividuale] ASC)
)
GO
CREATE INDEX [IX_ModuloXContoIndividuale_Conto] ON [dbo].[ModuloXContoIndividuale] ([IDAnagrafica] ASC, [IDCausalePagamento] ASC, [Anno] ASC, [IDAzienda] ASC)
GO

-- The payments
CREATE TABLE [dbo].[Compenso] (
  [IDCompenso] [int] NOT NULL,
  [IDAzienda] [int] NOT NULL,
  [IDAnagrafica] [int] NOT NULL,
  [IDCausalePagamento] [int] NOT NULL,
  [DataPagamento] [datetime] NULL,
  [NumeroDocumento] [Descrizione] NULL,
  [DataDocumento] [datetime] NULL,
  [OnorarioProvvigioni] [Importo] NULL,
  [QuotaProvvigioniNonSoggette] [Importo] NULL,
  [SommeNonSoggette] [Importo] NULL,
  [SommeNonSoggetteRegConv] [Importo] NULL,
  [RitenutaAcconto] [Importo] NULL,
  [RitenutaImposta] [Importo] NULL,
  [ContributoPrevidenziale] [Importo] NULL,
  [RitenutaPrevidenziale13] [Importo] NULL,
  CONSTRAINT [PK_Compenso] PRIMARY KEY CLUSTERED ([IDCompenso] ASC)
)
GO
CREATE INDEX [IX_Compenso_Conto] ON [dbo].[Compenso] ([IDAzienda] ASC, [IDAnagrafica] ASC, [IDCausalePagamento] ASC)
GO

-- What a user has chosen to print
CREATE TABLE [dbo].[TabellaRicorsione2] (
  [IDPath1] [int] NULL,
  [IDPath2] [int] NULL,
  [IDUtente] [int] NULL,
  [IDFunzione] [int] NULL,
  [Path14] [int] NULL,
  [Path1] [int] NULL,
  [Path2] [int] NULL,
  [Path3] [Descrizione] NULL
)
GO
CREATE INDEX [IX_TabellaRicorsione2_Utente] ON [dbo].[TabellaRicorsione2] ([IDUtente] ASC, [IDFunzione] ASC)
GO

-- One row for each row of ContoIndividuale, whatever is missing beside it. The code of a reason that is not
-- there, or has none, is null, and so is an advance that was stored so: the worklist rejects both
CREATE VIEW [dbo].[RepContoIndividuale] AS
SELECT CI.IDAnagrafica, CI.IDCausalePagamento, CI.Anno, CI.IDAzienda, CI.OnorarioProvvigioni,
       CI.QuotaProvvigioniNonSoggette, CI.SommeNonSoggette, CI.SommeNonSoggetteRegConv, CI.RitenutaAcconto,
       CI.RitenutaImposta, CI.ContributoPrevidenziale, CI.RitenutaPrevidenziale13,
       Anag.Anagrafica, Anag.Nome,
       CASE WHEN RTRIM(ISNULL(Anag.CodiceFiscale, '')) = '' THEN ISNULL(Anag.PartitaIva, '') ELSE Anag.CodiceFiscale END AS CodiceFiscale,
       Causale.Codice, Causale.Codice AS CodiceCausalePagamento,
       Causale.CausalePagamento,
       Perc.Codice AS CodicePercipiente, Perc.IDAzienda AS IDAziendaPercipiente,
       CASE WHEN Dati.IDAnagrafica IS NULL THEN ISNULL(Dati.Anticipazione, 0) ELSE Dati.Anticipazione END AS Anticipazione,
       Dati.IDCodicePerNonSoggetti, Dati.RitenuteSospese, Dati.AddRegionAcconto, Dati.AddRegionImposta,
       Dati.AddRegionSospesa, Dati.AddComunAcconto, Dati.AddComunImposta, Dati.AddComunSospesa,
       Dati.ImponibileAnniPrecedenti, Dati.RitenuteAnniPrecedenti, Dati.RitenuteRimborsate,
       Dati.AltriContributi, Dati.ImportoAltriContributi, Dati.ContributiDovuti, Dati.ContributiVersati,
       Dati.SommeCorrispostePreFallimento, Dati.SommeCorrisposteDalCuratore,
       Dati.AltriSoggettiCodiceFiscale, Dati.AltriSoggettiImponibile, Dati.AltriSoggettiRitenuteAcconto,
       Dati.AltriSoggettiRitenuteImposta, Dati.AltriSoggettiRitenuteSospese,
       Dati.AltriSoggettiAddRegionAcconto, Dati.AltriSoggettiAddRegionImposta,
       Dati.AltriSoggettiAddRegionSospesa, Dati.AltriSoggettiAddComunAcconto,
       Dati.AltriSoggettiAddComunImposta, Dati.AltriSoggettiAddComunSospesa,
       Dati.CodiceFiscaleLavoroAutonomo, Dati.CodiceFiscalePignoramentoTerzi,
       Dati.CodiceFiscaleIndennitaEsproprio, Dati.PignoramentoTerziCodiceFiscale1,
       Dati.PignoramentoTerziSommeErogate1, Dati.PignoramentoTerziRitenuteOperate1,
       Dati.PignoramentoTerziRitenuteNonOperate1, Dati.PignoramentoTerziSommeNonTassate1,
       Dati.PignoramentoTerziCodiceFiscale2, Dati.PignoramentoTerziSommeErogate2,
       Dati.PignoramentoTerziRitenuteOperate2, Dati.PignoramentoTerziRitenuteNonOperate2,
       Dati.PignoramentoTerziSommeNonTassate2, Dati.IndennitaEsproprioSommeCorrisposte1,
       Dati.IndennitaEsproprioRitenuteOperate1, Dati.AltreIndennitaSommeCorrisposte1,
       Dati.AltreIndennitaRitenuteOperate1, Dati.IndennitaEsproprioSommeCorrisposte2,
       Dati.IndennitaEsproprioRitenuteOperate2, Dati.AltreIndennitaSommeCorrisposte2,
       Dati.AltreIndennitaRitenuteOperate2, Dati.ProtocolloAnnSost, Dati.ProgressivoAnnSost,
       Dati.FusioneComuni, Dati.FusioneComuniAnnoPrec, Dati.IDComuneResidenzaAnnoPrec,
       Dati.IDComuneResidenzaAnnoCorr,
       NonSoggetti.Codice AS CodicePerNonSoggetti,
       ComunePrec.Comune AS ComuneResidenzaAnnoPrec, ProvinciaPrec.Provincia AS SiglaProvResidenzaAnnoPrec,
       ComunePrec.CodiceComuneDiNascita AS CodiceComuneDiNascitaPrec,
       ComuneCorr.Comune AS ComuneResidenzaAnnoCorr, ProvinciaCorr.Provincia AS SiglaProvResidenzaAnnoCorr,
       ComuneCorr.CodiceComuneDiNascita AS CodiceComuneDiNascitaCorr,
       Perc.NonResidente, Perc.NonResidenteSchumacker, Perc.CodiceFiscaleRappresentante,
       Perc.CodiceIdentificazioneFiscaleEstero, Perc.CodiceAzPressoENPAM, Perc.CodiceAzPressoENPAPI,
       Perc.IDCategoriaParticolare, Perc.IDEventoEccezionale,
       Perc.IDCUEntePrevidenziale, Perc.IDCUCategoriaEntePrevidenziale,
       Ente.CUCodiceFiscale, Ente.CUDenominazioneEntePrevidenziale, Ente.CUCodiceEntePrevidenziale,
       CategoriaEnte.CUCodiceCategoriaEntePrevidenziale,
       Rapp.CodiceFiscale AS CodiceFiscaleRappresentanteAzienda, Carica.Codice AS CodiceCarica
FROM ContoIndividuale CI
LEFT JOIN Anagrafica Anag ON CI.IDAnagrafica = Anag.IDAnagrafica
LEFT JOIN CausalePagamento Causale ON CI.IDCausalePagamento = Causale.IDCausalePagamento
LEFT JOIN Percipiente Perc ON CI.IDAzienda = Perc.IDAzienda AND CI.IDAnagrafica = Perc.IDAnagrafica
LEFT JOIN ContoIndividualeDatiAggiuntivi Dati ON CI.IDAnagrafica = Dati.IDAnagrafica
     AND CI.IDCausalePagamento = Dati.IDCausalePagamento AND CI.Anno = Dati.Anno AND CI.IDAzienda = Dati.IDAzienda
LEFT JOIN CodicePerNonSoggetti NonSoggetti ON Dati.IDCodicePerNonSoggetti = NonSoggetti.IDCodicePerNonSoggetti
LEFT JOIN Comune ComunePrec ON Dati.IDComuneResidenzaAnnoPrec = ComunePrec.IDComune
LEFT JOIN Provincia ProvinciaPrec ON ComunePrec.IDProvincia = ProvinciaPrec.IDProvincia
LEFT JOIN Comune ComuneCorr ON Dati.IDComuneResidenzaAnnoCorr = ComuneCorr.IDComune
LEFT JOIN Provincia ProvinciaCorr ON ComuneCorr.IDProvincia = ProvinciaCorr.IDProvincia
LEFT JOIN CUEntePrevidenziale Ente ON Perc.IDCUEntePrevidenziale = Ente.IDCUEntePrevidenziale
LEFT JOIN CUCategoriaEntePrevidenziale CategoriaEnte
     ON Perc.IDCUCategoriaEntePrevidenziale = CategoriaEnte.IDCUCategoriaEntePrevidenziale
LEFT JOIN ConfigurazioneGenerale Conf ON CI.IDAzienda = Conf.IDAzienda
LEFT JOIN Anagrafica Rapp ON Conf.IDAnagraficaRappresentante = Rapp.IDAnagrafica
LEFT JOIN CodiceCarica Carica ON Conf.IDCodiceCaricaRappresentante = Carica.IDCodiceCarica
GO

-- One row for each payment
CREATE VIEW [dbo].[RepCompenso] AS
SELECT Comp.IDCompenso, Comp.IDAzienda, Comp.IDAnagrafica, Comp.IDCausalePagamento, Comp.DataPagamento,
       Comp.NumeroDocumento, Comp.DataDocumento,
       Comp.OnorarioProvvigioni, Comp.QuotaProvvigioniNonSoggette, Comp.SommeNonSoggette,
       Comp.SommeNonSoggetteRegConv, Comp.RitenutaAcconto, Comp.RitenutaImposta,
       Comp.ContributoPrevidenziale, Comp.RitenutaPrevidenziale13,
       Year(Comp.DataPagamento) AS Anno, Perc.Codice,
       Anag.Anagrafica, Anag.Nome,
       CASE WHEN RTRIM(ISNULL(Anag.CodiceFiscale, '')) = '' THEN ISNULL(Anag.PartitaIva, '') ELSE Anag.CodiceFiscale END AS CodiceFiscale,
       Causale.Codice AS CodicePagamento, Causale.CausalePagamento
FROM Compenso Comp
LEFT JOIN Anagrafica Anag ON Comp.IDAnagrafica = Anag.IDAnagrafica
LEFT JOIN Percipiente Perc ON Comp.IDAzienda = Perc.IDAzienda AND Comp.IDAnagrafica = Perc.IDAnagrafica
LEFT JOIN CausalePagamento Causale ON Comp.IDCausalePagamento = Causale.IDCausalePagamento
GO

-- One row for each payee
CREATE VIEW [dbo].[RepPercipienteCD] AS
SELECT Perc.IDAzienda, Perc.IDAnagrafica, Perc.Codice, Anag.Anagrafica, Anag.Nome
FROM Percipiente Perc
LEFT JOIN Anagrafica Anag ON Perc.IDAnagrafica = Anag.IDAnagrafica
GO

-- Behind the ministerial form: one row for each line chosen and each year of its account
CREATE VIEW [dbo].[RepCertificazioneUnica] AS
SELECT Sel.IDUtente, Sel.Path1, Sel.Path2, Sel.Path3, Conto.*,
       ISNULL(Conto.OnorarioProvvigioni, 0) + ISNULL(Conto.SommeNonSoggette, 0) + ISNULL(Conto.SommeNonSoggetteRegConv, 0)
         + ISNULL((SELECT SUM(ISNULL(Modulo.SommeNonSoggette, 0)) FROM ModuloXContoIndividuale Modulo
                   WHERE Modulo.IDAnagrafica = Conto.IDAnagrafica AND Modulo.IDCausalePagamento = Conto.IDCausalePagamento
                     AND Modulo.Anno = Conto.Anno AND Modulo.IDAzienda = Conto.IDAzienda), 0) AS AmmontareLordo,
       Conto.SommeNonSoggetteRegConv AS SommeRegimeConvenzionale,
       CASE WHEN RTRIM(Conto.Codice) IN ('M', 'O') THEN 0 ELSE ISNULL(Conto.SommeNonSoggette, 0) END AS SommeNonSoggetteARitenuta,
       CASE WHEN RTRIM(Conto.Codice) IN ('M', 'O') THEN ISNULL(Conto.SommeNonSoggette, 0) ELSE 0 END AS SpeseRimborsate,
       Conto.OnorarioProvvigioni - ISNULL(Conto.QuotaProvvigioniNonSoggette, 0) AS Imponibile,
       Conto.RitenutaAcconto AS RitenuteAcconto, Conto.RitenutaImposta AS RitenuteImposta,
       Conto.ContributoPrevidenziale - Conto.RitenutaPrevidenziale13 AS ContributiCaricoAzienda,
       Conto.RitenutaPrevidenziale13 AS ContributiCaricoPercipiente,
       Anag.PersonaFisica, Anag.Sesso, Anag.DataNascita, Anag.Indirizzo, Anag.Cap,
       Anag.EMailInternet, Anag.Telefono, Anag.Fax,
       CASE WHEN ISNULL(NazNascita.Nazione, '') = '' OR UPPER(NazNascita.Nazione) = 'ITALIA' THEN ComNascita.Comune ELSE NazNascita.Nazione END AS ComuneNascita,
       CASE WHEN ISNULL(NazNascita.Nazione, '') = '' OR UPPER(NazNascita.Nazione) = 'ITALIA' THEN ProvNascita.Provincia ELSE 'EE' END AS ProvinciaNascita,
       ComRes.Comune AS ComuneRes, ProvRes.Provincia AS SiglaProvinciaRes, NazRes.Nazione AS NazioneRes,
       NazRes.PrefissoInternazionale AS PrefissoInternazionaleRes,
       Categoria.CodiceCategoriaParticolare, Evento.CodiceEventoEccezionale,
       CASE WHEN ISNULL(AnagAz.CodiceFiscale, '') = '' THEN AnagAz.PartitaIva ELSE AnagAz.CodiceFiscale END AS CodiceFiscaleAz,
       AnagAz.Anagrafica AS AnagraficaAz, AnagAz.Nome AS NomeAz, AnagAz.PersonaFisica AS PersonaFisicaAz,
       AnagAz.Cap AS CapAz, AnagAz.Indirizzo AS IndirizzoAz,
       ComAz.Comune AS ComuneAz, ProvAz.Provincia AS SiglaProvinciaAz,
       AnagAz.Telefono AS TelefonoAz, AnagAz.Fax AS FaxAz, AnagAz.EMailInternet AS EMailInternetAz,
       Conf.CodiceFiscaleSocieta, Rapp.Anagrafica AS AnagraficaRapp, Rapp.Nome AS NomeRapp,
       EventoAz.CodiceEventoEccezionale AS CodiceEventoEccezionaleAz,
       (SELECT MAX(Attivita.CodiceAttivita) FROM AttivitaAziendaPerPeriodoIva PerPeriodo
        INNER JOIN PeriodoIva Periodo ON PerPeriodo.IDPeriodoIva = Periodo.IDPeriodoIva
        INNER JOIN CodiceAttivita Attivita ON PerPeriodo.IDCodiceAttivita = Attivita.IDCodiceAttivita
        WHERE PerPeriodo.IDAttivitaAzienda = Fil.IDAttivitaAzienda
          AND Periodo.IDAzienda = Conto.IDAzienda AND Periodo.Anno = Conto.Anno) AS CodiceAttivita,
       Elenco.CodiceFiscaleIntermediario, Elenco.TipoComunicazione, Elenco.DataImpegno
FROM TabellaRicorsione2 Sel
INNER JOIN RepContoIndividuale Conto ON Sel.IDPath1 = Conto.IDAnagrafica AND Sel.IDPath2 = Conto.IDCausalePagamento
     AND Sel.Path14 = Conto.IDAzienda
LEFT JOIN Anagrafica Anag ON Conto.IDAnagrafica = Anag.IDAnagrafica
LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita = ComNascita.IDComune
LEFT JOIN Provincia ProvNascita ON ComNascita.IDProvincia = ProvNascita.IDProvincia
LEFT JOIN Nazione NazNascita ON Anag.IDNazionalita = NazNascita.IDNazione
LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune
LEFT JOIN Provincia ProvRes ON ComRes.IDProvincia = ProvRes.IDProvincia
LEFT JOIN Nazione NazRes ON Anag.IDNazione = NazRes.IDNazione
LEFT JOIN CategoriaParticolare Categoria ON Conto.IDCategoriaParticolare = Categoria.IDCategoriaParticolare
LEFT JOIN EventoEccezionale Evento ON Conto.IDEventoEccezionale = Evento.IDEventoEccezionale
LEFT JOIN Azienda Az ON Conto.IDAzienda = Az.IDAzienda
LEFT JOIN Anagrafica AnagAz ON Az.IDAnagrafica = AnagAz.IDAnagrafica
LEFT JOIN Comune ComAz ON AnagAz.IDComune = ComAz.IDComune
LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia = ProvAz.IDProvincia
LEFT JOIN ConfigurazioneGenerale Conf ON Conto.IDAzienda = Conf.IDAzienda
LEFT JOIN Anagrafica Rapp ON Conf.IDAnagraficaRappresentante = Rapp.IDAnagrafica
LEFT JOIN Filiale Fil ON Conf.IDFilialePrevalente = Fil.IDFiliale
LEFT JOIN ConfigurazioneCompensiATerzi ConfTerzi ON Conto.IDAzienda = ConfTerzi.IDAzienda
LEFT JOIN EventoEccezionale EventoAz ON ConfTerzi.IDEventoEccezionale = EventoAz.IDEventoEccezionale
LEFT JOIN ConfigurazioneElencoCliFor Elenco ON Conto.IDAzienda = Elenco.IDAzienda
WHERE Sel.IDFunzione = 342
GO
