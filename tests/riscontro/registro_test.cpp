#include "riscontro/registro.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "riscontro/riscontro_prova.h"

namespace cu::riscontro::prova {
namespace {

TEST(Registro, IsMissingInADatabaseWithoutItsTables) {
  const auto connessione = SqliteConnection::create(":memory:");
  creaSchema(*connessione);
  EXPECT_FALSE(Registro(*connessione).presente());
  EXPECT_EQ(creaRegistro(*connessione), 9U);
  EXPECT_TRUE(Registro(*connessione).presente());
  EXPECT_EQ(creaRegistro(*connessione), 0U);
}

// Takes the id of the next file for another program, as often as asked.
class TakenBefore : public Connection {
 public:
  TakenBefore(Connection& connection, int times) : connection_(connection), times_(times) {}
  std::int64_t Execute(std::string_view statement) override {
    if (statement.starts_with("INSERT INTO CuInvio") && times_-- > 0) {
      throw DatabaseError(DatabaseErrorKind::Duplicate, 2627, "INSERT", "Esiste già.");
    }
    return connection_.Execute(statement);
  }
  void Query(std::string_view source, RowStore& rows) override { connection_.Query(source, rows); }

 private:
  Connection& connection_;
  int times_;
};

TEST(Registro, TakesTheNextIdWhereAnotherProgramWasFaster) {
  ConRegistro con;
  con.scrivi({certificato("RSSMRC71C08L781I", "A")});
  TakenBefore fast(*con.connessione, 3);
  Invio next;
  next.idAzienda = 1;
  next.anno = 2017;
  EXPECT_EQ(Registro(fast).registra(next, {certificato("P", "A")}), 2);
  EXPECT_EQ(con.registro.certificate(1, 2017, false).size(), 2U);
  TakenBefore always(*con.connessione, 1000000);
  EXPECT_THROW(Registro(always).registra(next, {}), DatabaseError);
  EXPECT_EQ(con.registro.invii(1).size(), 2U);
}

TEST(Registro, AFileIsReadWhenItsIdIsItsOwn) {
  ConRegistro con;
  con.scrivi({certificato("RSSMRC71C08L781I", "A")});
  TakenBefore fast(*con.connessione, 2);
  Invio invio;
  invio.idAzienda = 1;
  invio.anno = 2017;
  int letture = 0;
  EXPECT_EQ(Registro(fast).registraLetto(invio,
                                         [&](Invio& suo, const auto& uno) {
                                           ++letture;
                                           uno(certificato("P", "A"));
                                           suo.impronta = "abc";
                                           suo.recordA = "A di coda";
                                           uno(certificato("Q", "M"));
                                         }),
            2);
  EXPECT_EQ(letture, 1) << "nothing is read before the id is taken";
  const auto trovato = con.registro.cerca("abc");
  ASSERT_TRUE(trovato);
  EXPECT_EQ(trovato->certificazioni, 2);
  EXPECT_EQ(trovato->moduli, 2);
  EXPECT_EQ(trovato->recordA, "A di coda");
  EXPECT_EQ(con.registro.certificate(1, 2017, false).size(), 3U);
}

TEST(Registro, AFileThatCannotBeReadLeavesNothing) {
  ConRegistro con;
  Invio invio;
  invio.idAzienda = 1;
  invio.anno = 2017;
  EXPECT_THROW(con.registro.registraLetto(invio,
                                          [&](Invio&, const auto& uno) {
                                            for (int i = 0; i < 100; ++i) uno(certificato("P", "A"));
                                            throw FileError(kErrorFileNotFound, "illeggibile");
                                          }),
               FileError);
  EXPECT_TRUE(con.registro.invii(1).empty());
  EXPECT_TRUE(con.registro.certificate(1, 2017, false).empty());
}

TEST(Registro, KeepsEachCertificateWithItsCells) {
  ConRegistro con;
  lettura::Certificato scritto = certificato("RSSMRC71C08L781I", "A");
  scritto.celle.push_back({"DA002002", "D'AMICO = \"è\" \t\\09"});
  scritto.moduli.push_back({2, 0, {{"AU001018", "10,00"}}});
  scritto.moduli.push_back({3, 0, {}});
  con.scrivi({certificato("00743110157", "M"), scritto});
  const auto lette = con.registro.certificate(1, 2017, true);
  ASSERT_EQ(lette.size(), 2U);
  EXPECT_EQ(lette[1].certificato.celle, scritto.celle);
  ASSERT_EQ(lette[1].certificato.moduli.size(), 3U);
  EXPECT_EQ(lette[1].certificato.moduli[0].celle, scritto.moduli[0].celle);
  EXPECT_EQ(lette[1].certificato.moduli[1].celle, scritto.moduli[1].celle);
  EXPECT_TRUE(lette[1].certificato.moduli[2].celle.empty());
  EXPECT_EQ(lette[1].certificato.causale(), "A");
  EXPECT_EQ(lette[1].certificato.numero, 2);
  EXPECT_EQ(lette[0].stato, Stato::Scritta);
  EXPECT_TRUE(con.registro.certificate(1, 2016, true).empty());
  EXPECT_TRUE(con.registro.certificate(2, 2017, true).empty());
  // Without its cells the reason is known all the same.
  EXPECT_EQ(con.registro.certificate(1, 2017, false)[0].certificato.causale(), "M");
}

TEST(Registro, FindsAFileByItsContent) {
  ConRegistro con;
  con.scrivi({certificato("A", "A")});
  const std::int64_t id = con.scrivi({certificato("B", "A"), certificato("C", "A")});
  const auto trovato = con.registro.cerca("impronta2");
  ASSERT_TRUE(trovato);
  EXPECT_EQ(trovato->id, id);
  EXPECT_EQ(trovato->certificazioni, 2);
  EXPECT_EQ(trovato->moduli, 2);
  EXPECT_EQ(trovato->dataInvio, "");
  EXPECT_EQ(trovato->recordB, std::string(1898, 'b'));
  EXPECT_FALSE(con.registro.cerca("altra"));
}

TEST(Registro, MarksAFileAsSentWithItsCertificates) {
  ConRegistro con;
  con.scrivi({certificato("A", "A")});
  const std::int64_t id = con.scrivi({certificato("B", "A"), certificato("C", "A")});
  con.registro.segnaInviato(id, *Date::fromYmd(2018, 3, 6));
  EXPECT_EQ(con.stati(), "scritta inviata inviata");
  EXPECT_EQ(con.registro.cerca("impronta2")->dataInvio, "2018-03-06");
}

TEST(Registro, TakesOutAFileThatWasOnlyWritten) {
  ConRegistro con;
  const std::int64_t primo = con.scrivi({certificato("A", "A")});
  const std::int64_t secondo = con.scrivi({certificato("B", "A"), certificato("C", "A")});
  con.registro.segnaInviato(primo, *Date::fromYmd(2018, 3, 6));
  EXPECT_FALSE(con.registro.soloScritto(primo));
  EXPECT_FALSE(con.registro.togli(primo));
  EXPECT_EQ(con.stati(), "inviata scritta scritta");
  EXPECT_TRUE(con.registro.soloScritto(secondo));
  EXPECT_TRUE(con.registro.togli(secondo));
  EXPECT_EQ(con.stati(), "inviata");
  EXPECT_FALSE(con.registro.cerca("impronta2"));
  Recordset moduli;
  moduli.Open(*con.connessione, "SELECT * FROM CuModulo");
  EXPECT_EQ(moduli.RecordCount(), 1U);
}

TEST(Registro, AFingerprintLeavesTheSignatureOut) {
  lettura::Certificato uno = certificato("A", "A");
  lettura::Certificato altro = uno;
  altro.celle.back().testo = "06032018";
  EXPECT_EQ(improntaCelle(uno), improntaCelle(altro));
  EXPECT_EQ(improntaCelle(uno).size(), 16U);
  altro.moduli[0].celle[1].testo = "100,01";
  EXPECT_NE(improntaCelle(uno), improntaCelle(altro));
}

TEST(Stato, HasItsWord) {
  for (const char* parola : {"scritta", "inviata", "accettata", "scartata", "annullata", "sostituita"}) {
    ASSERT_TRUE(statoDi(parola)) << parola;
    EXPECT_EQ(nome(*statoDi(parola)), parola);
  }
  EXPECT_FALSE(statoDi("persa"));
}

}  // namespace
}  // namespace cu::riscontro::prova
