-- The history of what was imported: each batch, its files, the rows that it wrote with their values before and after,
-- and the accounts that it changed. Identity by reference, repeated files and the way back depend on it. The program
-- works without these tables, but imports nothing.
--
-- No foreign keys: a row may outlive what it names. Values are written in the order of the table's columns, parted by
-- tabs (schede/testo_riga.h).

-- One row a batch.
CREATE TABLE [dbo].[CuImportazione] (
  [IDImportazione] [int] NOT NULL,
  [IDAzienda] [int] NULL,
  [Elenco] [Descrizione] NOT NULL,
  [Momento] [Descrizione] NULL,
  [Utente] [Descrizione] NULL,
  [Stato] [Descrizione] NOT NULL,
  [MomentoAnnullamento] [Descrizione] NULL,
  [Nuovi] [int] NOT NULL,
  [Uguali] [int] NOT NULL,
  [Diversi] [int] NOT NULL,
  [DaDecidere] [int] NOT NULL,
  [Errori] [int] NOT NULL,
  [Esclusi] [int] NOT NULL,
  CONSTRAINT [PK_CuImportazione] PRIMARY KEY CLUSTERED ([IDImportazione] ASC)
)
GO
-- One row a file of a batch.
CREATE TABLE [dbo].[CuImportazioneFile] (
  [IDImportazione] [int] NOT NULL,
  [Numero] [int] NOT NULL,
  [Nome] [Note] NULL,
  [Foglio] [Descrizione] NULL,
  [Dimensione] [Importo] NULL,
  [Impronta] [Descrizione] NOT NULL,
  CONSTRAINT [PK_CuImportazioneFile] PRIMARY KEY CLUSTERED ([IDImportazione] ASC, [Numero] ASC)
)
GO
-- One row a file in an envelope: what the envelope holds. The same document without it has this digest as its own.
CREATE TABLE [dbo].[CuImportazioneContenuto] (
  [IDImportazione] [int] NOT NULL,
  [Numero] [int] NOT NULL,
  [Impronta] [Descrizione] NOT NULL,
  CONSTRAINT [PK_CuImportazioneContenuto] PRIMARY KEY CLUSTERED ([IDImportazione] ASC, [Numero] ASC)
)
GO
-- One row for each row inserted, updated or removed, in the order in which it was written.
CREATE TABLE [dbo].[CuImportazioneRiga] (
  [IDImportazione] [int] NOT NULL,
  [Numero] [int] NOT NULL,
  [Tabella] [Descrizione] NOT NULL,
  [Chiave] [Descrizione] NOT NULL,
  [Operazione] [Descrizione] NOT NULL,
  [Prima] [varchar](8000) NULL,
  [Dopo] [varchar](8000) NULL,
  [Riferimento] [Descrizione] NULL,
  CONSTRAINT [PK_CuImportazioneRiga] PRIMARY KEY CLUSTERED ([IDImportazione] ASC, [Numero] ASC)
)
GO
-- One row for each account whose payments a batch changed: its amounts before, which are null where the batch made it,
-- and the sum of its payments before.
CREATE TABLE [dbo].[CuImportazioneConto] (
  [IDImportazione] [int] NOT NULL,
  [Anno] [int] NOT NULL,
  [IDAnagrafica] [int] NOT NULL,
  [IDCausalePagamento] [int] NOT NULL,
  [Prima] [varchar](8000) NULL,
  [Somma] [varchar](8000) NULL,
  CONSTRAINT [PK_CuImportazioneConto] PRIMARY KEY CLUSTERED ([IDImportazione] ASC, [Anno] ASC, [IDAnagrafica] ASC, [IDCausalePagamento] ASC)
)
GO
