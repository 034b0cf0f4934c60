-- What this program keeps for itself about the telematic files it has written. Nothing of the suite refers to these
-- tables, and the program works without them.
--
-- No foreign keys: a row may outlive what it names.

-- One row a file written.
CREATE TABLE [dbo].[CuInvio] (
  [IDInvio] [int] NOT NULL,
  [IDAzienda] [int] NOT NULL,
  [Anno] [int] NOT NULL,
  [Tipo] [int] NOT NULL,
  [Nome] [Note] NULL,
  [Impronta] [Descrizione] NOT NULL,
  [Momento] [datetime] NULL,
  [DataInvio] [datetime] NULL,
  [Certificazioni] [int] NOT NULL,
  [Moduli] [int] NOT NULL,
  [RecordA] [varchar](4000) NULL,
  [RecordB] [varchar](4000) NULL,
  CONSTRAINT [PK_CuInvio] PRIMARY KEY CLUSTERED ([IDInvio] ASC)
)
GO
-- One row a certificate of a file: its record D, and its state.
CREATE TABLE [dbo].[CuCertificazione] (
  [IDCertificazione] [int] NOT NULL,
  [IDInvio] [int] NOT NULL,
  [CodiceFiscale] [Descrizione] NOT NULL,
  [Causale] [Descrizione] NULL,
  [Nome] [Note] NULL,
  [Numero] [int] NOT NULL,
  [Operazione] [Descrizione] NULL,
  [RiferimentoProtocollo] [Descrizione] NULL,
  [RiferimentoProgressivo] [Descrizione] NULL,
  [Celle] [varchar](8000) NULL,
  [Impronta] [Descrizione] NOT NULL,
  [Stato] [Descrizione] NOT NULL,
  [Protocollo] [Descrizione] NULL,
  [Progressivo] [Descrizione] NULL,
  [Motivo] [Note] NULL,
  [DataEsito] [datetime] NULL,
  CONSTRAINT [PK_CuCertificazione] PRIMARY KEY CLUSTERED ([IDCertificazione] ASC)
)
GO
CREATE INDEX [IX_CuCertificazione_Invio] ON [dbo].[CuCertificazione] ([IDInvio])
GO
-- One row a module of a certificate: its record H.
CREATE TABLE [dbo].[CuModulo] (
  [IDCertificazione] [int] NOT NULL,
  [Modulo] [int] NOT NULL,
  [Celle] [varchar](8000) NULL,
  CONSTRAINT [PK_CuModulo] PRIMARY KEY CLUSTERED ([IDCertificazione] ASC, [Modulo] ASC)
)
GO
