#include <gtest/gtest.h>

#include "fatture/compensi.h"
#include "fatture/documento_prova.h"
#include "fatture/lettura_fattura.h"

// What the arithmetic of a document leaves to a person.
namespace cu::fatture {
namespace {

using prova::DocumentoProva;
using prova::LineaProva;
using prova::parcella;

CompensoProposto compensoDi(const DocumentoProva& documento) {
  prova::FileProva file;
  file.documenti = {documento};
  const EsitoFattura esito = compensiDi(leggiFattura(prova::fileXml(file), "prova.xml").fatture.at(0));
  EXPECT_EQ(esito.compensi.size(), 1U);
  return esito.compensi.empty() ? CompensoProposto() : esito.compensi[0];
}

CompensoProposto conLinea(const LineaProva& linea) {
  DocumentoProva documento = parcella();
  documento.linee.push_back(linea);
  return compensoDi(documento);
}

TEST(DubbiCompensi, AWordMakesNoExpenseOfWhatVatIsDueOn) {
  const CompensoProposto gestione = conLinea({"300.00", false, "22.00", "", "Gestione spese condominiali"});
  EXPECT_FALSE(gestione.deciso);
  ASSERT_EQ(gestione.candidati.size(), 2U);
  EXPECT_EQ(gestione.candidati[0].importi.sommeNonSoggette.toText(), "0");
  EXPECT_EQ(gestione.candidati[1].importi.sommeNonSoggette.toText(), "300");
  EXPECT_TRUE(conLinea({"300.00", false, "0.00", "N4", "Spese anticipate"}).deciso);
}

TEST(DubbiCompensi, AnExemptServiceBesideMarkedLinesIsNoExpense) {
  EXPECT_FALSE(conLinea({"500.00", false, "0.00", "N4", "Docenza esente"}).deciso);
  EXPECT_TRUE(conLinea({"500.00", false, "0.00", "N1", "Visure"}).deciso);
}

TEST(DubbiCompensi, ATaxWithoutTheDiscountOfTheDocument) {
  DocumentoProva documento = parcella();
  documento.altro = "<ScontoMaggiorazione><Tipo>SC</Tipo><Importo>150.00</Importo></ScontoMaggiorazione>";
  const CompensoProposto senza = compensoDi(documento);
  EXPECT_FALSE(senza.deciso);
  ASSERT_EQ(senza.candidati.size(), 2U);
  EXPECT_EQ(senza.candidati[0].importi.onorario.toText(), "1000");
  EXPECT_EQ(senza.candidati[1].importi.onorario.toText(), "850");
  ASSERT_EQ(senza.rilievi.size(), 1U);
  EXPECT_EQ(senza.rilievi[0].codice, "R02");
  documento.ritenute[0].importo = "170.00";
  EXPECT_TRUE(compensoDi(documento).deciso);
}

}  // namespace
}  // namespace cu::fatture
