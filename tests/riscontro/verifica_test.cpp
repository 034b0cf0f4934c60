#include "riscontro/verifica.h"

#include <gmock/gmock.h>

#include <set>

#include "riscontro/operazioni_prova.h"

namespace cu::riscontro::prova {
namespace {

using lettura::Coppia;
using lettura::EsitoConfronto;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::size_t kRiga = 1900;

// The accounts as they were read once.
class ContiLetti : public ContiAttesi {
 public:
  ContiLetti(Frontespizio frontespizio, std::vector<Conto> conti)
      : frontespizio_(std::move(frontespizio)), conti_(std::move(conti)) {}
  Frontespizio frontespizio(std::int32_t /*anno*/) override { return frontespizio_; }
  void conti(std::int32_t /*anno*/, const std::function<void(const Conto&)>& ricevi) override {
    for (const Conto& conto : conti_) ricevi(conto);
  }
  std::vector<Riferimento> riferimenti(std::int32_t /*anno*/, const std::string& /*percipiente*/) override {
    return {};
  }

 private:
  Frontespizio frontespizio_;
  std::vector<Conto> conti_;
};

std::optional<EsitoVerifica> verificaTesto(const std::string& testo, ContiAttesi& attesi,
                                           const lettura::RiceviCoppia& ricevi) {
  lettura::prova::TestoLetto sorgente(testo);
  return verifica(sorgente, attesi, ricevi);
}

bool uguale(const std::string& testo, ContiAttesi& attesi) {
  bool uguale = true;
  const auto esito = verificaTesto(testo, attesi, [&](const Coppia& coppia) {
    uguale = uguale && coppia.esito == EsitoConfronto::Uguale;
  });
  return uguale && esito && esito->errori == 0 && esito->testate.empty();
}

// "B Denominazione: BOTTEGA > ALTRA", of the heads and of the certificates.
std::vector<std::string> differenze(const std::string& testo, ContiAttesi& attesi) {
  std::vector<std::string> trovate;
  const auto metti = [&](const lettura::CasellaDiversa& d) {
    trovate.push_back(std::to_string(d.modulo) + " " + d.campo + ": " + d.vecchio + " > " + d.nuovo);
  };
  const auto esito = verificaTesto(testo, attesi, [&](const Coppia& coppia) {
    if (coppia.esito == EsitoConfronto::SoloNuovo) trovate.push_back("missing in the file");
    if (coppia.esito == EsitoConfronto::SoloVecchio) trovate.push_back("missing in the accounts");
    for (const lettura::CasellaDiversa& diversa : coppia.caselle) metti(diversa);
  });
  if (!esito) return {"no year"};
  for (const lettura::CasellaDiversa& diversa : esito->testate) metti(diversa);
  return trovate;
}

class Verifiche : public Dimostrativa {
 protected:
  ContiDelDatabase attesi() { return {*connessione_, 1, utilita_}; }
  static std::string quale(const Conto& conto) {
    return "IDAnagrafica = " + std::to_string(conto.idAnagrafica) +
           " AND IDCausalePagamento = " + std::to_string(conto.idCausale);
  }
  // Few accounts, one of them with a second module, so that many files of them can be read.
  void pochi(std::int32_t anno) {
    const std::vector<Conto> tutti = conti(anno);
    std::string condizione = "0 = 1";
    std::size_t presi = 0;
    for (const Conto& conto : tutti) {
      if (conto.certificato.moduli.size() < 2 && presi > 1) continue;
      if (presi++ > 2) break;
      condizione += " OR (" + quale(conto) + ")";
    }
    soloConti(anno, condizione);
  }
  std::set<std::string> nonVisti(std::int32_t anno);
};

DatiFornitura intermediario(const char* impegno) {
  DatiFornitura dati;
  dati.UsoIntermediari = true;
  dati.CodiceFiscaleIntermediario = "RSSMRC71C08L781I";
  dati.TipoComIntermediario = impegno;
  dati.DataImpegnoIntermediario = *Date::fromYmd(2018, 3, 1);
  return dati;
}

class OgniAnno : public Verifiche, public ::testing::WithParamInterface<std::int32_t> {};

// Other characters that a position may hold by mistake: of the same kind, and of others.
std::set<char> altri(char c) {
  std::set<char> altri = {'0', 'K', ' '};
  if (c >= '0' && c <= '9') altri.insert(c == '9' ? '1' : static_cast<char>(c + 1));
  if (c >= 'A' && c <= 'Z') altri.insert(static_cast<char>(c + 'a' - 'A'));
  if (c >= 'a' && c <= 'z') altri.insert(static_cast<char>(c - 'a' + 'A'));
  altri.erase(c);
  return altri;
}

// "D DA003001" where the position lies in the value of a cell; "D 89" elsewhere.
std::string luogo(const std::string& riga, std::size_t posizione) {
  const std::string record(1, riga.front());
  if ((record == "D" || record == "H") && posizione >= 90 && posizione < 1890) {
    const std::size_t inizio = posizione - (posizione - 90) % 24;
    if (posizione >= inizio + 8) return record + " " + riga.substr(inizio - 1, 8);
  }
  return record + " " + std::to_string(posizione);
}

TEST_P(OgniAnno, AFreshFileIsEqual) {
  ContiDelDatabase conti = attesi();
  const std::string testo = scrivi(GetParam());
  EXPECT_THAT(differenze(testo, conti), IsEmpty());
  EXPECT_TRUE(uguale(testo, conti));
}

// Where a changed byte of the year's file is not seen, of a record of each kind.
std::set<std::string> Verifiche::nonVisti(std::int32_t anno) {
  const std::string sano = scrivi(anno);
  ContiLetti letti(leggiFrontespizio(*connessione_, {1, anno, modello_}), conti(anno));
  EXPECT_TRUE(uguale(sano, letti));
  EXPECT_EQ(sano.size() % kRiga, 0U);
  std::set<std::string> provate;
  std::set<std::string> nonViste;
  for (std::size_t inizio = 0; inizio < sano.size(); inizio += kRiga) {
    const std::string riga = sano.substr(inizio, kRiga);
    // One of each record, and of the modules the first and a further one.
    const std::string modulo = riga[0] == 'H' ? riga.substr(17, 8) : "";
    if (!provate.insert(riga[0] + modulo).second) continue;
    for (std::size_t i = 0; i < kRiga; ++i) {
      for (const char c : altri(riga[i])) {
        std::string testo = sano;
        testo[inizio + i] = c;
        if (uguale(testo, letti)) nonViste.insert(luogo(riga, i + 1));
      }
    }
  }
  EXPECT_THAT(provate, ::testing::IsSupersetOf({"A", "B", "D", "H00000001", "Z"}));
  return nonViste;
}

TEST_P(OgniAnno, OneChangedByteIsFoundAnywhereButInTheSignature) {
  pochi(GetParam());
  EXPECT_THAT(nonVisti(GetParam()), ElementsAre("D DA003001", "D DA003002"));
}

INSTANTIATE_TEST_SUITE_P(Verifica, OgniAnno, ::testing::Values(2014, 2015, 2016, 2017),
                         ::testing::PrintToStringParamName());

// In the forms published for them; all payees are non-residents.
class OgniAnnoPubblicato : public OgniAnno {
 protected:
  void SetUp() override {
    pubblica(GetParam());
    connessione_->Execute(
        "UPDATE Percipiente SET NonResidente = 1, CodiceIdentificazioneFiscaleEstero = 'EX123'");
    pochi(GetParam());
  }
};

TEST_P(OgniAnnoPubblicato, OneChangedByteIsFoundAnywhereButInTheSignature) {
  ContiDelDatabase conti(*connessione_, 1, utilita_, modello_);
  const std::string testo = scrivi(GetParam());
  EXPECT_THAT(differenze(testo, conti), IsEmpty());
  EXPECT_THAT(testo, ::testing::HasSubstr(GetParam() < 2024 ? "DA002044" : "DA002045"));
  EXPECT_THAT(nonVisti(GetParam()), ElementsAre("D DA003001", "D DA003002"));
}

INSTANTIATE_TEST_SUITE_P(Verifica, OgniAnnoPubblicato, ::testing::Values(2020, 2024),
                         ::testing::PrintToStringParamName());

TEST_F(Verifiche, NameTheFieldsOfTheFirstRecords) {
  std::string testo = scrivi(2017);
  testo.replace(22, 1, "9");
  testo.replace(kRiga + 136, 7, "PALAZZO");
  ContiDelDatabase conti = attesi();
  EXPECT_THAT(
      differenze(testo, conti),
      ElementsAre("0 A Cod. Fisc. fornitore: 94123450233 > 04123450233",
                  "0 B Denominazione: PALAZZO LESSINIA SERVIZI S.R.L. > BOTTEGA LESSINIA SERVIZI S.R.L."));
}

TEST_F(Verifiche, NameTheHeadsOfACertificate) {
  pochi(2017);
  std::string testo = scrivi(2017);
  const std::size_t d = 2 * kRiga;
  testo.replace(d + 69, 4, "MIO ");
  testo.replace(d + 88, 1, "1");
  testo.replace(d + kRiga + 63, 2, "SU");
  ContiDelDatabase conti = attesi();
  EXPECT_THAT(differenze(testo, conti),
              ElementsAre("1 D Spazio a disp. utente: MIO > ", "1 D Flag conferma Singola Certif.: 1 > 0",
                          "1 H Spazio a disp. utente: SU > "));
}

TEST_F(Verifiche, NameANumberThatSkipsSome) {
  soloConti(2017, quale(conti(2017).front()));
  std::string testo = scrivi(2017);
  const auto numera = [&](const char* numero) {
    for (std::size_t riga = 0; riga < testo.size(); riga += kRiga) {
      if (testo[riga] == 'D' || testo[riga] == 'H') testo.replace(riga + 41, 5, numero);
    }
  };
  numera("00003");
  ContiDelDatabase conti = attesi();
  EXPECT_THAT(differenze(testo, conti), ElementsAre("1 D Progressivo Certificazione: 00003 > 1"));
}

TEST_F(Verifiche, FollowWhatTheCompanyIs) {
  const std::string testo = scrivi(2017);
  connessione_->Execute(
      "UPDATE Anagrafica SET Telefono = '', Fax = '045/99' WHERE IDAnagrafica ="
      " (SELECT IDAnagrafica FROM Azienda WHERE IDAzienda = 1)");
  ContiDelDatabase conti = attesi();
  std::vector<std::string> trovate = differenze(testo, conti);
  ASSERT_FALSE(trovate.empty());
  EXPECT_THAT(trovate.back(), ::testing::EndsWith("> 045/99"));
  EXPECT_THAT(trovate.back(), ::testing::StartsWith("0 B Telefono/Fax"));
  EXPECT_THAT(trovate.front(), ::testing::StartsWith("1 DA001008"));
  EXPECT_THAT(differenze(scrivi(2017), conti), IsEmpty());
}

TEST_F(Verifiche, AcceptTheIntermediaryOfTheSettingsAlone) {
  const std::string testo = scrivi(2017, intermediario("2"));
  ContiDelDatabase conti = attesi();
  EXPECT_THAT(
      differenze(testo, conti),
      ElementsAre("0 A Tipo fornitore: 10 > 01", "0 A Cod. Fisc. fornitore: RSSMRC71C08L781I > 04123450233",
                  "0 B Cod. Fisc. intermediario: RSSMRC71C08L781I > ",
                  "0 B Impegno a trasmettere via telem. dich.: 2 > 0",
                  "0 B Data dell'impegno: 01032018 > 00000000", "0 B Firma intermediario: 1 > 0"));
  connessione_->Execute("DELETE FROM ConfigurazioneElencoCliFor");
  connessione_->Execute(
      "INSERT INTO ConfigurazioneElencoCliFor (IDAzienda, CodiceFiscaleIntermediario, TipoComunicazione,"
      " DataImpegno) VALUES (1, 'rssmrc71c08l781i', 2, '20180301')");
  EXPECT_THAT(differenze(testo, conti), IsEmpty());
  std::string altro = testo;
  altro.replace(kRiga + 428, 2, "02");
  EXPECT_THAT(differenze(altro, conti), ElementsAre("0 B Data dell'impegno: 02032018 > 01032018"));
}

TEST_F(Verifiche, AcceptTheIntermediaryOfASupplyOnRecord) {
  const std::string testo = scrivi(2017, intermediario("1"));
  Invio invio;
  invio.idAzienda = 1;
  invio.anno = 2017;
  invio.momento = "2018-03-05 10:30:00";
  invio.recordA = testo.substr(0, 1898);
  invio.recordB = testo.substr(kRiga, 1898);
  registro_.registra(invio, {});
  ContiDelDatabase conti = attesi();
  EXPECT_THAT(differenze(testo, conti), IsEmpty());
}

TEST_F(Verifiche, HoldACorrectionAgainstWhatItRefersTo) {
  connessione_->Execute(
      "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAzienda, IDAnagrafica, IDCausalePagamento, Anno)"
      " SELECT IDAzienda, IDAnagrafica, IDCausalePagamento, Anno FROM ContoIndividuale C WHERE Anno = 2017"
      " AND NOT EXISTS (SELECT 1 FROM ContoIndividualeDatiAggiuntivi D WHERE D.IDAzienda = C.IDAzienda AND"
      " D.IDAnagrafica = C.IDAnagrafica AND D.IDCausalePagamento = C.IDCausalePagamento AND D.Anno ="
      " C.Anno)");
  connessione_->Execute(
      "UPDATE ContoIndividualeDatiAggiuntivi SET ProtocolloAnnSost = '18030612345678901',"
      " ProgressivoAnnSost = '7' WHERE Anno = 2017");
  pochi(2017);
  ContiDelDatabase conti = attesi();
  for (const Comunicazione tipo : {Comunicazione::Annullamento, Comunicazione::Sostituzione}) {
    DatiFornitura dati;
    dati.TipoComunicazione = tipo;
    std::string testo = scrivi(2017, dati);
    EXPECT_THAT(differenze(testo, conti), IsEmpty());
    testo.replace(2 * kRiga + 62, 1, "2");
    testo.replace(2 * kRiga + 68, 1, "8");
    EXPECT_THAT(differenze(testo, conti),
                ElementsAre("1 D Prot. ass. da Serv. telem.-Id. invio: 18030612345678902 > 18030612345678901",
                            "1 D Progr. ass. da Serv. telem. alla singola CU: 000008 > 7"));
  }
}

TEST_F(Verifiche, TellWhatIsMissingOnEitherSide) {
  pochi(2017);
  const std::vector<Conto> prima = conti(2017);
  ASSERT_GE(prima.size(), 2U);
  const std::string testo = scrivi(2017);
  soloConti(2017, "NOT (" + quale(prima[0]) + ")");
  ContiDelDatabase conti = attesi();
  EXPECT_THAT(differenze(testo, conti), ElementsAre("missing in the accounts"));
  const std::string meno = scrivi(2017);
  EXPECT_THAT(differenze(meno, conti), IsEmpty());
  connessione_->Execute(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, OnorarioProvvigioni,"
      " QuotaProvvigioniNonSoggette, RitenutaAcconto) VALUES (" +
      std::to_string(prima[0].idAnagrafica) + ", " + std::to_string(prima[0].idCausale) +
      ", 2017, 1, 1000, 0, 200)");
  EXPECT_THAT(differenze(meno, conti), ElementsAre("missing in the file"));
}

TEST_F(Verifiche, SayNothingOfAFileWithoutAYear) {
  std::string testo = scrivi(2017);
  testo.replace(15, 5, "ABC18");
  ContiDelDatabase conti = attesi();
  EXPECT_THAT(differenze(testo, conti), ElementsAre("no year"));
}

}  // namespace
}  // namespace cu::riscontro::prova
