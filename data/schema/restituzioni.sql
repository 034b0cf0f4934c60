-- What the accounts of the suite have no column for: box 22 of the forms from CU 2023 on.
-- One row an account. No foreign keys: a row may outlive its account.
CREATE TABLE [dbo].[CuRestituzione] (
  [IDAnagrafica] [int] NOT NULL,
  [IDCausalePagamento] [int] NOT NULL,
  [Anno] [int] NOT NULL,
  [IDAzienda] [int] NOT NULL,
  [SommeRestituite] [Importo] NULL,
  CONSTRAINT [PK_CuRestituzione] PRIMARY KEY CLUSTERED ([IDAnagrafica] ASC, [IDCausalePagamento] ASC, [Anno] ASC, [IDAzienda] ASC)
)
GO
