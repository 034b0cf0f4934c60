-- The mark of a database that this program has created: its ids are this program's to give, while in the database of
-- an installed suite the suite numbers its own rows.
CREATE TABLE [dbo].[CuArchivio] (
  [IDArchivio] [int] NOT NULL,
  [Versione] [int] NOT NULL,
  CONSTRAINT [PK_CuArchivio] PRIMARY KEY CLUSTERED ([IDArchivio] ASC)
)
GO
INSERT INTO [dbo].[CuArchivio] ([IDArchivio], [Versione]) VALUES (1, 1)
GO
