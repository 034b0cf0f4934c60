#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fatture_prova.h"

namespace cu::intake {
namespace {

using prova::Banco;
using prova::daRossi;
using prova::daVerdi;
using prova::FileProva;
using prova::numerata;
using prova::pianoDi;
using prova::xmlDi;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

FileProva conIvaDiRossi(FileProva file) {
  file.partitaIva = daRossi().partitaIva;
  return file;
}
FileProva senzaCodice(FileProva file) {
  file.codiceFiscale.clear();
  return file;
}
FileProva daNeri(const std::string& numero) {
  FileProva file = daVerdi(numerata(numero));
  file.codiceFiscale = codiceFiscale({"Neri", "Ugo", false, prova::giorno(1970, 2, 3), "F205"});
  file.nome = "<Nome>Ugo</Nome><Cognome>Neri</Cognome>";
  return file;
}
void daiIvaARossi(Banco& banco, const std::string& altro = "") {
  banco->Execute("UPDATE Anagrafica SET PartitaIva = '" + daRossi().partitaIva + "'" + altro +
                 " WHERE CodiceFiscale = 'RSSMRA80A01H501U'");
}

TEST(PercipientiFatture, ACodeOfAnotherPayeeMakesTheVatNumberNoKey) {
  Banco banco(prova::riempito());
  daiIvaARossi(banco);
  const std::vector<std::string> file = {xmlDi(conIvaDiRossi(daVerdi(numerata("1")))),
                                         xmlDi(senzaCodice(daRossi(numerata("2"))))};
  EXPECT_EQ(Banco::stati(pianoDi(banco, {file[1]})), "nuovo");
  const Piano piano = pianoDi(banco, file);
  EXPECT_EQ(Banco::stati(piano), "nuovo da decidere");
  EXPECT_THAT(prova::codiciDi(piano.righe[1]), HasSubstr("P09"));
  ASSERT_EQ(piano.righe[1].candidati.size(), 1U);
  EXPECT_THAT(piano.righe[1].candidati[0].testo, HasSubstr("P1 Rossi"));
  EXPECT_THAT(Banco::messaggi(piano),
              Contains(HasSubstr("è di più codici fiscali, " + prova::codiceDiVerdi() +
                                 ", RSSMRA80A01H501U: P1 Rossi")));
  banco.richiesta.decisioni[{1, 0}] = {.idAnagrafica = piano.righe[1].candidati[0].id};
  EXPECT_EQ(Banco::stati(pianoDi(banco, file)), "nuovo nuovo");
}

TEST(PercipientiFatture, CodesThatConflictLeaveAPayeeWithoutOneToAPerson) {
  Banco banco(prova::riempito());
  daiIvaARossi(banco, ", CodiceFiscale = NULL");
  const std::string verdi = xmlDi(conIvaDiRossi(daVerdi(numerata("1"))));
  EXPECT_THAT(pianoDi(banco, {verdi}).percipienti, IsEmpty()) << "the number is P1's alone";
  const std::vector<std::string> file = {verdi, xmlDi(conIvaDiRossi(daNeri("2")))};
  EXPECT_EQ(Banco::stati(pianoDi(banco, file)), "da decidere da decidere");
  banco.richiesta.fatture.fonte = FontePagamento::Documento;
  banco.richiesta.decisioni[{0, 0}] = {.nuovoPercipiente = true};
  banco.richiesta.decisioni[{1, 0}] = {.nuovoPercipiente = true};
  const Piano piano = pianoDi(banco, file);
  EXPECT_EQ(Banco::stati(piano), "nuovo nuovo");
  EXPECT_EQ(piano.percipienti.size(), 2U);
}

TEST(PercipientiFatture, NobodyIsProposedByAVatNumberOfSeveralCodes) {
  Banco banco(prova::riempito());
  FileProva neri = daNeri("2");
  neri.partitaIva = daVerdi().partitaIva;
  FileProva nessuno = senzaCodice(daNeri("3"));
  nessuno.partitaIva = daVerdi().partitaIva;
  const Piano piano = pianoDi(banco, {xmlDi(daVerdi(numerata("1"))), xmlDi(neri), xmlDi(nessuno)});
  EXPECT_EQ(Banco::stati(piano), "nuovo nuovo da decidere");
  EXPECT_EQ(piano.percipienti.size(), 2U);
  EXPECT_THAT(prova::codiciDi(piano.righe[2]), HasSubstr("P09"));
}

TEST(PercipientiFatture, AccountsListNewPayeesInTheirOrderAfterTheOthers) {
  Banco banco(prova::riempito());
  FileProva neri = daNeri("2");
  neri.partitaIva = prova::ivaDi("0555444334");
  const Piano piano = pianoDi(banco, {xmlDi(daVerdi(numerata("1"))), xmlDi(neri), xmlDi(daRossi())});
  ASSERT_EQ(Banco::stati(piano), "nuovo nuovo nuovo");
  std::string codici;
  for (const ContoPiano& conto : piano.conti) codici += conto.percipiente + " ";
  EXPECT_EQ(codici, "P1 P3 P4 ");
  for (const RigaPiano& riga : piano.righe) {
    EXPECT_EQ(piano.conti[static_cast<std::size_t>(riga.conto)].idAnagrafica,
              piano.compensi[riga.voce].dopo.idAnagrafica);
  }
}

}  // namespace
}  // namespace cu::intake
