#include <gtest/gtest.h>

#include "rewrite_support.h"

namespace cu::sqlite {
namespace {

using test::refusal;

struct Refused {
  const char* text;
  const char* message;
};

TEST(Refusal, NamesTheConstructThatHasNoPlaceHere) {
  const std::string head = "costruzione non ammessa dal database incorporato: ";
  const Refused cases[] = {
      {"SELECT TOP 1 * FROM Conto", "TOP"},
      {"SELECT Anno INTO x FROM Conto", "SELECT ... INTO"},
      {"SELECT * FROM Conto WITH (NOLOCK)", "suggerimento WITH (...)"},
      {"SELECT * FROM Conto c WITH (NOLOCK)", "suggerimento WITH (...)"},
      {"SELECT * FROM Conto WITH (TABLOCKX)", "suggerimento WITH (...)"},
      {"SELECT * FROM Conto WITH (TABLOCKX, HOLDLOCK, NOLOCK)", "suggerimento WITH (...)"},
      {"SELECT * FROM Conto (NOLOCK)", "suggerimento o funzione dopo un nome di tabella"},
      {"SELECT * FROM Conto PIVOT (SUM(Anno) FOR Anno IN ([1])) p", "PIVOT"},
      {"SELECT * FROM Conto a UNPIVOT (x FOR y IN (z)) p", "UNPIVOT"},
      {"SELECT * FROM Conto OPTION (FAST 1)", "OPTION"},
      {"SELECT * FROM Conto ORDER BY Anno OFFSET 1 ROWS", "OFFSET"},
      {"SELECT * FROM Conto FOR XML AUTO", "FOR"},
      {"SELECT Anno FROM Conto EXCEPT SELECT 1", "EXCEPT"},
      {"SELECT Anno FROM Conto INTERSECT SELECT 1", "INTERSECT"},
      {"SELECT * FROM Conto CROSS APPLY f(1)", "CROSS APPLY"},
      {"SELECT * FROM Conto INNER HASH JOIN tmp12 ON 1 = 1", "suggerimento HASH in una JOIN"},
      {"SELECT ROW_NUMBER() OVER (ORDER BY Anno) FROM Conto", "OVER"},
      {"SELECT Nome COLLATE Latin1_General_CI_AS FROM Vista", "COLLATE"},
      {"SELECT Anno FROM Conto UNION ALL SELECT 1", "UNION"},
      {"SELECT Anno FROM Conto GROUP BY Anno", "GROUP BY"},
      {"SELECT COUNT(*) FROM Conto HAVING COUNT(*) > 1", "HAVING"},
      {"SELECT COUNT(DISTINCT Anno) FROM Conto", "DISTINCT in una funzione"},
      {"SELECT a.Anno FROM Conto a, tmp12 b", "tabelle separate da virgole"},
      {"SELECT a.Anno FROM Conto a RIGHT JOIN tmp12 b ON a.Anno = b.Anno", "RIGHT JOIN"},
      {"SELECT a.Anno FROM Conto a FULL OUTER JOIN tmp12 b ON a.Anno = b.Anno", "FULL OUTER"},
      {"SELECT a.Anno FROM Conto a CROSS JOIN tmp12 b", "CROSS JOIN"},
      {"SELECT a.Anno FROM (Conto a JOIN tmp12 b ON a.Anno = b.Anno)", "JOIN fra parentesi"},
      {"SELECT Anno FROM Conto WHERE Codice LIKE 'a%'", "LIKE"},
      {"SELECT Anno FROM Conto WHERE Codice NOT LIKE 'a%'", "LIKE"},
      {"SELECT Anno FROM Conto WHERE Anno BETWEEN 1 AND 2", "BETWEEN"},
      {"SELECT Anno FROM Conto WHERE Anno NOT IN (SELECT Anno FROM tmp12)", "IN con una query"},
      {"SELECT CASE Anno WHEN 1 THEN 2 END FROM Conto", "CASE con un valore"},
      {"SELECT CAST(Anno AS int) FROM Conto", "CAST"},
      {"SELECT Quota * 2 FROM Conto", "«*» fra valori"},
      {"SELECT Quota / 2 FROM Conto", "«/» fra valori"},
      {"SELECT Anno % 2 FROM Conto", "«%» fra valori"},
      {"SELECT c = Anno FROM Conto", "nome davanti all'espressione"},
      {"SELECT Anno FROM Conto WHERE Anno > ALL (SELECT 1)", "ALL in un confronto"},
      {"SELECT @x = 1", "assegnazione a una variabile"},
      {"SELECT @x", "variabile @x"},
      {"SELECT * FROM #t", "tabella temporanea"},
      {"SELECT * FROM altro.dbo.Conto", "nome con schema diverso da dbo"},
      {"SELECT * FROM dbo.altro.Conto", "nome di oggetto con più di due parti"},
      {"SELECT dbo.fn(1)", "funzione con schema"},
      {"INSERT INTO Conto DEFAULT VALUES", "INSERT ... DEFAULT VALUES"},
      {"INSERT INTO Conto EXEC p", "INSERT ... EXEC"},
      {"INSERT INTO Conto (Anno) VALUES (DEFAULT)", "DEFAULT fra i valori"},
      {"UPDATE TOP (1) Conto SET Anno = 1", "TOP"},
      {"UPDATE Conto SET Anno = 1 WHERE CURRENT OF c", "WHERE CURRENT OF"},
      {"DELETE Conto FROM Conto INNER JOIN tmp12 ON 1 = 1", "DELETE ... FROM ... JOIN"},
      {"DELETE FROM Conto OUTPUT deleted.Anno", "OUTPUT"},
      {"EXEC sp_help", "EXEC di una procedura"},
      {"EXEC('a' + 'b')", "EXEC di un'espressione"},
      {"DECLARE @x int", "DECLARE"},
      {"WHILE 1 = 1 SELECT 1", "WHILE"},
      {"PRINT 'x'", "PRINT"},
      {"USE altro", "USE"},
      {"GO", "GO"},
      {"TRUNCATE TABLE Conto", "TRUNCATE"},
      {"ALTER TABLE Conto ADD x int", "ALTER"},
      {"GRANT SELECT ON Conto TO x", "GRANT"},
      {"SET NOCOUNT ON", "SET"},
      {"BEGIN DELETE Conto END", "BEGIN DELETE"},
      {"IF 1 = 1 DELETE Conto ELSE DELETE tmp12", "IF ... ELSE"},
      {"CREATE PROCEDURE p AS SELECT 1", "CREATE PROCEDURE"},
      {"CREATE TRIGGER t ON Conto FOR INSERT AS SELECT 1", "CREATE TRIGGER"},
      {"CREATE TYPE Altro FROM int", "CREATE TYPE di un tipo non della suite"},
      {"CREATE TABLE t (a int IDENTITY(1,1))", "IDENTITY in una colonna"},
      {"CREATE TABLE t (a varchar(10) COLLATE x)", "COLLATE in una colonna"},
      {"CREATE TABLE t (a AS b + 1)", "colonna calcolata"},
      {"CREATE TABLE t (a int CHECK (a > 0))", "CHECK"},
      {"CREATE TABLE t (a int, UNIQUE (a))", "UNIQUE"},
      {"CREATE TABLE t (a int, PRIMARY KEY (a DESC))", "DESC in una chiave"},
      {"CREATE UNIQUE INDEX i ON Conto (Anno)", "CREATE UNIQUE"},
      {"CREATE TABLE t (a int REFERENCES Conto(Anno))", "REFERENCES"},
      {"CREATE TABLE t (a int PRIMARY KEY WITH (IGNORE_DUP_KEY = ON))", "IGNORE_DUP_KEY = ON"},
      {"CREATE TABLE t (a int) ON [ALTRO]", "gruppo di file diverso da PRIMARY"},
      {"CREATE INDEX i ON Conto (Anno) INCLUDE (Quota)", "indice con INCLUDE"},
      {"CREATE VIEW v WITH SCHEMABINDING AS SELECT 1 AS a", "CREATE VIEW ... WITH"},
      {"CREATE VIEW v (a) AS SELECT Anno FROM Conto", "elenco di colonne di una vista"},
      {"DROP INDEX i ON Conto", "DROP INDEX"},
      {"DROP TABLE IF EXISTS Conto", "DROP ... IF EXISTS"},
      {"DROP TABLE a, b", "DROP di più oggetti"},
      {"MERGE Conto c USING tmp12 t ON c.Anno = t.Anno WHEN NOT MATCHED BY SOURCE THEN DELETE;",
       "WHEN NOT MATCHED BY SOURCE"},
      {"MERGE Conto c USING tmp12 t ON c.Anno = t.Anno WHEN MATCHED THEN DELETE;", "DELETE in MERGE"},
      {"BEGIN TRY SELECT 1 END TRY", "BEGIN TRY"},
      {"BEGIN TRANSACTION nome", "nome di transazione"},
  };
  for (const Refused& each : cases) EXPECT_EQ(refusal(each.text), head + each.message) << each.text;
}

TEST(Refusal, TellsWhatCannotBeDecided) {
  const Refused cases[] = {
      {"SELECT Codice + Anno FROM tmp12",
       "«+» fra un testo e un numero intero: somma o concatenazione, non decidibile"},
      {"SELECT 'n. ' + 5", "«+» fra un testo e un numero: somma o concatenazione, non decidibile"},
      {"SELECT Pagato + 1 FROM Conto",
       "«+» fra una data e un numero: somma o concatenazione, non decidibile"},
      {"SELECT Codice - 1 FROM tmp12", "«-» con un testo: non decidibile"},
      {"SELECT Anno FROM tmp12 WHERE Codice = 5", "confronto fra un testo e un numero: non decidibile"},
      {"SELECT Anno FROM tmp12 WHERE Codice IN ('a', 5)", "IN fra un testo e un numero: non decidibile"},
      {"SELECT Anno FROM Conto WHERE Pagato = Codice", "confronto fra una data e un testo: non decidibile"},
      {"SELECT CASE WHEN Anno = 1 THEN Codice ELSE Lordo END FROM tmp12",
       "CASE fra un importo e un testo: non decidibile"},
      {"SELECT ISNULL(Anno, Lordo) FROM tmp12", "ISNULL fra un numero intero e un importo: non decidibile"},
      {"UPDATE tmp12 SET Lordo = Codice", "nella colonna Lordo va un importo, non un testo"},
      {"UPDATE Conto SET Codice = Pagato", "nella colonna Codice va un testo, non una data"},
      {"UPDATE Conto SET Pagato = 5", "nella colonna Pagato va una data, non un numero"},
      {"INSERT INTO Conto (Flag) SELECT Nome FROM Vista",
       "nella colonna Flag va un numero intero, non un testo"},
      {"SELECT YEAR(Codice) FROM tmp12", "YEAR di un testo"},
      {"SELECT RTRIM(Anno) FROM tmp12", "RTRIM di un numero intero: non decidibile"},
      {"SELECT SUM(Codice) FROM tmp12", "SUM di un testo: non decidibile"},
      {"SELECT Anno FROM tmp12 ORDER BY 1", "ORDER BY di una posizione"},
  };
  for (const Refused& each : cases) EXPECT_EQ(refusal(each.text), each.message) << each.text;
}

TEST(Refusal, NamesWhatTheDatabaseDoesNotHold) {
  const Refused cases[] = {
      {"SELECT * FROM Assente", "tabella o vista sconosciuta: Assente"},
      {"SELECT Assente FROM Conto", "colonna sconosciuta: Assente"},
      {"SELECT Conto.Assente FROM Conto", "colonna sconosciuta: Conto.Assente"},
      {"SELECT x.Anno FROM Conto c", "colonna sconosciuta: x.Anno"},
      {"SELECT Anno FROM Conto INNER JOIN tmp12 ON Flag = Lordo", "nome di colonna ambiguo: Anno"},
      {"SELECT a.Anno, b.Anno FROM Conto a INNER JOIN tmp12 b ON a.Flag = b.Lordo ORDER BY Anno",
       "nome di colonna ambiguo: Anno"},
      {"SELECT * FROM Conto INNER JOIN Conto ON Anno = Anno", "due tabelle con lo stesso nome: Conto"},
      {"SELECT x.* FROM Conto", "«*» senza tabella"},
      {"UPDATE Conto SET Assente = 1", "colonna sconosciuta: Conto.Assente"},
      {"UPDATE Vista SET Nome = 'x'", "una vista non si modifica: Vista"},
      {"DELETE FROM Vista", "una vista non si modifica: Vista"},
      {"INSERT INTO Conto (Anno, Anno) VALUES (1, 2)", "colonna ripetuta: Conto.Anno"},
      {"INSERT INTO Conto (Anno) VALUES (1, 2)", "INSERT in Conto: tante colonne quanti valori"},
      {"INSERT INTO Conto SELECT 1", "INSERT in Conto: tante colonne quanti valori"},
      {"INSERT INTO Anagrafica (Anagrafica) VALUES ('x')",
       "la colonna Anagrafica.IDAnagrafica non ammette il valore nullo"},
      {"INSERT INTO Anagrafica (IDAnagrafica) VALUES (NULL)",
       "la colonna IDAnagrafica non ammette il valore nullo"},
      {"SELECT SOUNDEX(Nome) FROM Vista", "funzione non ammessa dal database incorporato: SOUNDEX"},
      {"SELECT CONVERT(int, Anno) FROM Conto", "funzione non ammessa dal database incorporato: CONVERT"},
      {"SELECT LOWER(Nome) FROM Vista", "funzione non ammessa dal database incorporato: LOWER"},
      {"SELECT ROUND(Quota, 2) FROM Conto", "funzione non ammessa dal database incorporato: ROUND"},
      {"SELECT IFNULL(Anno, 1) FROM Conto", "funzione non ammessa dal database incorporato: IFNULL"},
      {"SELECT RTRIM(Nome, 'x') FROM Vista", "numero di argomenti di RTRIM"},
      {"DROP TABLE Assente", "tabella sconosciuta: Assente"},
      {"DROP VIEW Conto", "vista sconosciuta: Conto"},
      {"UPDATE Conto SET Anno = 1 FROM tmp12 t", "UPDATE ... FROM senza la tabella Conto in FROM"},
      {"UPDATE Conto SET Anno = 1 FROM Conto c LEFT JOIN tmp12 t ON c.Anno = t.Anno",
       "UPDATE ... FROM con JOIN non interna"},
      {"MERGE Conto c USING tmp12 t ON c.Anno = t.Anno WHEN MATCHED THEN UPDATE SET Anno = 1;",
       "MERGE che modifica una colonna di ON: Anno"},
      {"MERGE Conto c USING tmp12 t ON c.Anno = t.Anno WHEN MATCHED THEN UPDATE SET Flag = 1",
       "MERGE va chiusa da un punto e virgola"},
      {"CREATE TABLE t (a varchar(5) NOT NULL PRIMARY KEY)",
       "una chiave o un indice su una colonna di testo: a"},
      {"CREATE INDEX i ON tmp12 (Codice)", "una chiave o un indice su una colonna di testo: Codice"},
      {"CREATE INDEX i ON tmp12 (Assente)", "colonna sconosciuta: tmp12.Assente"},
      {"CREATE TABLE t (a int, a int)", "colonna ripetuta: a"},
      {"CREATE TABLE t (a int NULL PRIMARY KEY)", "una colonna della chiave primaria ammette NULL: a"},
      {"CREATE TABLE t (a xml)", "tipo non ammesso dal database incorporato: xml"},
      {"CREATE TABLE t (a decimal(18,6))", "un importo ha al più quattro decimali"},
      {"CREATE TABLE t (a int DEFAULT getdate())", "DEFAULT vuole un valore scritto per esteso"},
      {"CREATE VIEW v AS SELECT Anno + 1 FROM Conto", "vista v: colonna senza nome"},
      {"CREATE VIEW v AS SELECT Anno, Anno FROM Conto", "vista v: colonna ripetuta Anno"},
      {"CREATE VIEW v AS SELECT Anno FROM Conto ORDER BY Anno", "una vista non ha ORDER BY"},
      {"CREATE VIEW v AS SELECT OBJECT_ID('Conto') AS a FROM Conto",
       "costruzione non ammessa in una vista: OBJECT_ID"},
  };
  for (const Refused& each : cases) EXPECT_EQ(refusal(each.text), each.message) << each.text;
}

TEST(Refusal, TellsWhereAConditionAndWhereAValueBelongs) {
  EXPECT_EQ(refusal("SELECT Anno FROM Conto WHERE Anno"), "un valore dove occorre una condizione");
  EXPECT_EQ(refusal("SELECT (Anno = 1) FROM Conto"), "una condizione dove occorre un valore");
  EXPECT_EQ(refusal("SELECT Anno FROM Conto WHERE (SELECT Anno, Flag FROM Conto) = 1"),
            "una query come valore dà una colonna sola");
}

TEST(Refusal, TellsWhereATextBreaksOff) {
  EXPECT_EQ(refusal("SELECT"), "l'istruzione è incompleta");
  EXPECT_EQ(refusal("SELECT Anno FROM"), "l'istruzione è incompleta");
  EXPECT_EQ(refusal("SELECT Anno FROM Conto WHERE Anno ="), "l'istruzione è incompleta");
  EXPECT_EQ(refusal("INSERT INTO Conto VALUES (1"), "atteso «)», trovato la fine");
  EXPECT_EQ(refusal("UPDATE Conto Flag = 1"), "atteso «SET», trovato «Flag»");
  EXPECT_EQ(refusal("SELECT Anno, FROM Conto"), "«FROM» non è ammesso in questo punto");
  EXPECT_EQ(refusal("SELECT Anno FROM 'x'"), "un testo non è ammesso in questo punto");
}

TEST(Refusal, NeverShowsAValue) {
  for (const char* text : {"SELECT Anno FROM Conto WHERE Anno 'segreto'", "SELECT 'segreto' + 5",
                           "UPDATE Conto 'segreto'", "INSERT INTO Conto (Codice) VALUES ('segreto'"}) {
    const std::string message = refusal(text);
    EXPECT_EQ(message.find("segreto"), std::string::npos) << message;
    EXPECT_EQ(message.find("accepted"), std::string::npos) << message;
  }
}

TEST(Refusal, DeepAndLongTextsEndInAnError) {
  std::string nested = "SELECT ";
  for (int i = 0; i < 5000; ++i) nested += '(';
  EXPECT_EQ(refusal(nested), "espressione troppo annidata");
  std::string chain = "SELECT 1";
  for (int i = 0; i < 5000; ++i) chain += " + 1";
  EXPECT_EQ(refusal(chain), "espressione troppo lunga");
  std::string negations = "SELECT Anno FROM Conto WHERE ";
  for (int i = 0; i < 5000; ++i) negations += "NOT ";
  EXPECT_EQ(refusal(negations), "espressione troppo annidata");
  std::string signs = "SELECT ";
  for (int i = 0; i < 5000; ++i) signs += "- ";
  EXPECT_EQ(refusal(signs), "espressione troppo annidata");
}

}  // namespace
}  // namespace cu::sqlite
