// The writers reuse composed lines; the engine composes each line from the values of its fields. For all rows
// the two are required to produce the same bytes.

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>

#include "base/error.h"
#include "telematic/catalogo.h"
#include "telematic/cu_file_seq.h"
#include "telematic/engine/records.h"
#include "telematic/prova.h"

namespace cu {
namespace {

using test::Contenuti;
using test::RigaForma;

class Sorte {
 public:
  explicit Sorte(unsigned seme) : motore_(seme) {}
  int tra(int minimo, int massimo) {
    return minimo + static_cast<int>(motore_() % static_cast<unsigned>(massimo - minimo + 1));
  }
  bool una(int su) { return tra(1, su) == 1; }
  template <class T>
  const T& scegli(const std::vector<T>& tra_questi) {
    return tra_questi[static_cast<std::size_t>(tra(0, static_cast<int>(tra_questi.size()) - 1))];
  }
  std::string parola(int massimo) {
    static const std::vector<std::string> kLettere = {"a", "b", "z", "M", "Q", " ", "'", "7", "0", "-", "à",
                                                      "è", "ö", "É", "ß", "ñ", "+", "/", ".", "A", "x"};
    std::string testo;
    for (int n = tra(0, massimo); n > 0; --n) testo += scegli(kLettere);
    return testo;
  }
  std::string cifre(int massimo) {
    std::string testo;
    for (int n = tra(0, massimo); n > 0; --n) testo += static_cast<char>('0' + tra(0, 9));
    return testo;
  }

 private:
  std::mt19937 motore_;
};

Value sorteggia(Sorte& sorte, test::Come come) {
  switch (come) {
    case test::Come::Testo:
    case test::Come::Maiuscolo:
      return test::text(sorte.parola(sorte.una(12) ? 90 : 20));
    case test::Come::Destra:
    case test::Come::DestraRifilato:
      return test::text(sorte.cifre(sorte.una(40) ? 18 : 4));
    case test::Come::Data:
      return test::day(sorte.tra(1900, 2016), sorte.tra(1, 12), sorte.tra(1, 28));
    case test::Come::Telefono:
      return test::text(sorte.una(3) ? sorte.parola(15) : "045/" + sorte.cifre(9));
    case test::Come::Importo:
      if (sorte.una(3)) return Value::ofDecimal(Decimal());
      return Value::ofDecimal(Decimal::fromScaled(
          sorte.una(60) ? std::int64_t{100'000'000'000'000'000} + sorte.tra(0, 9999)
                        : sorte.tra(-1'000'000'000, 1'000'000'000) / (sorte.una(4) ? 100'000 : 1)));
    case test::Come::Flag:
      return test::whole(sorte.tra(-1, 1));
    case test::Come::Firma:
    case test::Come::Uno:
    case test::Come::Altro:
      return {};
  }
  return {};
}

void riempi(Sorte& sorte, const std::vector<RigaForma>& forma, Contenuti& riga) {
  for (const RigaForma& r : forma) {
    if (r.fonte.empty() || r.fonte[0] == '#' || sorte.una(3)) continue;
    riga[r.fonte] = sorteggia(sorte, r.come);
  }
}

Contenuti rigaASorte(Sorte& sorte) {
  Contenuti riga;
  riempi(sorte, test::kFormaD, riga);
  riempi(sorte, test::formaH(true), riga);
  riga["FaxAz"] = test::text(sorte.parola(12));
  riga["PersonaFisica"] = test::whole(sorte.tra(-1, 1));
  riga["NonResidente"] = test::whole(sorte.tra(0, 1));
  riga["NonResidenteSchumacker"] = test::whole(sorte.tra(0, 1));
  riga["Codice"] = test::text(sorte.scegli<std::string>({"A", "G", "H", "I", "N", "n", "M", "N "}));
  riga["Anno"] = test::whole(sorte.tra(2013, 2018));
  if (sorte.una(2)) riga["CodicePerNonSoggetti"] = test::text(sorte.cifre(2));
  if (sorte.una(2)) riga["SommeNonSoggetteARitenuta"] = sorteggia(sorte, test::Come::Importo);
  if (sorte.una(2)) riga["QuotaProvvigioniNonSoggette"] = sorteggia(sorte, test::Come::Importo);
  riga["IDCUEntePrevidenziale"] = test::whole(sorte.tra(0, 3));
  riga["CodiceAzPressoENPAM"] = test::text(sorte.parola(20));
  riga["CodiceAzPressoENPAPI"] = test::text(sorte.parola(20));
  riga["CodiceFiscale"] = test::text(sorte.parola(20));
  return riga;
}

// The engine's path: values set in the catalogue by name, the record written from its fields.
class Lenta {
 public:
  Lenta(int anno, test::Prova& prova) : file_(prova.files, prova.frontEnd) {
    telematico::creaCatalogo(catalogo_, anno);
    file_.setFilePathName("/lenta.cur");
    file_.OpenFile(0);
  }
  void scrivi(const std::string& record, const std::map<std::string, std::string>& quadro,
              const std::map<std::string, std::string>& celle) {
    const CUFields& campi = catalogo_.Item(record).Fields();
    for (int n = 1; n <= 75; ++n) campi.Item("Campo" + std::to_string(n)).setValue("");
    for (const auto& [nome, valore] : quadro) campi.Item(nome).setValue(valore);
    for (const auto& [nome, valore] : celle) campi.Item(nome).setValue(valore);
    file_.WriteRecord(catalogo_.Item(record));
  }

 private:
  CURecords catalogo_;
  FileSeq file_;
};

// Returns false when the row cannot be written; then neither path writes it.
template <class Veloce, class Attesa>
bool prova(const Veloce& veloce, const Attesa& attesa) {
  bool possibile = true;
  try {
    attesa();
  } catch (const std::length_error&) {
    possibile = false;
  }
  try {
    veloce();
    EXPECT_TRUE(possibile) << "a value that does not fit was written";
  } catch (const Error& error) {
    EXPECT_FALSE(possibile) << error.description();
    EXPECT_EQ(error.number(), 5);
  }
  return possibile;
}

class Confronto : public testing::TestWithParam<int> {};

TEST_P(Confronto, BothRoadsGiveTheSameBytes) {
  constexpr int kRighe = 40;
  const int anno = GetParam();
  Sorte sorte(static_cast<unsigned>(anno));
  test::Prova ambiente(anno);
  std::vector<Contenuti> righe;
  std::vector<Contenuti> aggiunti;
  for (int i = 0; i < kRighe; ++i) {
    righe.push_back(rigaASorte(sorte));
    Contenuti modulo;
    riempi(sorte, test::formaH(false), modulo);
    if (sorte.una(2)) modulo["AnnoModulo"] = test::whole(sorte.tra(0, 2020));
    aggiunti.push_back(std::move(modulo));
  }
  const test::Righe principali(test::rispostaPrincipale(righe));
  const test::Righe moduli(test::rispostaModuli(aggiunti));

  CUFileSeq veloce(ambiente.ambiente());
  veloce.setFilePathName("/veloce.cur");
  ASSERT_TRUE(veloce.OpenFile());
  veloce.legaQueryPrincipale(principali.colonne());
  veloce.legaQueryModuli(moduli.colonne());
  Lenta lenta(anno, ambiente);

  int scritti = 0;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    const test::Riferimento riferimento(anno, righe[i]);
    const test::Riferimento delModulo(anno, aggiunti[i]);
    const std::string codice =
        test::Riferimento::grande(test::Riferimento::codifica(righe[i]["CodiceFiscale"].view().toText()))
            .substr(0, 16);
    const std::string numero = std::to_string(10001 + i).substr(0, 5);
    std::map<std::string, std::string> quadro = {{"Cod. Fisc. Sost. imposta", "01234567890"},
                                                 {"Cod. Fisc. Percipiente", codice},
                                                 {"Progressivo Certificazione", numero}};
    const auto certificazione = static_cast<std::int32_t>(10001 + i);
    const auto con = [&quadro](std::map<std::string, std::string> altri) {
      altri.insert(quadro.begin(), quadro.end());
      return altri;
    };
    scritti += prova(
        [&] {
          veloce.WriteRecordTipoD(principali[i], certificazione, "01234567890", Comunicazione::Ordinaria,
                                  Date::fromYmd(2017, 2, 28).value());
        },
        [&] {
          lenta.scrivi("TipoD",
                       con({{"Tipo Record", "D"},
                            {"Progressivo modulo", "00000001"},
                            {"Prot. ass. da Serv. telem.-Id. invio", std::string(17, '0')},
                            {"Progr. ass. da Serv. telem. alla singola CU", "000000"},
                            {"Flag conferma Singola Certif.", "0"},
                            {"Filler 3", "A"}}),
                       test::Riferimento::campi(riferimento.celleD("28022017")));
        });
    scritti += prova(
        [&] { veloce.WriteRecordTipoH(principali[i], certificazione, 1, "01234567890", nullptr); },
        [&] {
          lenta.scrivi("TipoH",
                       con({{"Tipo Record", "H"}, {"Progressivo modulo", "00000001"}, {"Filler 7", "A"}}),
                       test::Riferimento::campi(riferimento.celleH1()));
        });
    scritti += prova(
        [&] { veloce.WriteRecordTipoH(principali[i], certificazione, 2, "01234567890", moduli[i]); },
        [&] {
          lenta.scrivi("TipoH",
                       con({{"Tipo Record", "H"}, {"Progressivo modulo", "00000002"}, {"Filler 7", "A"}}),
                       test::Riferimento::campi(delModulo.celleHAltri()));
        });
  }
  const std::string& una = ambiente.files.files.at("/veloce.cur");
  const std::string& altra = ambiente.files.files.at("/lenta.cur");
  ASSERT_EQ(una.size(), altra.size());
  for (std::size_t at = 0; at < una.size(); at += 1900) {
    ASSERT_EQ(una.substr(at, 1900), altra.substr(at, 1900)) << "line " << at / 1900;
  }
  EXPECT_EQ(una.size(), static_cast<std::size_t>(scritti) * 1900);
  EXPECT_GT(scritti, kRighe * 2) << "the rows must be such that most can be written";
  EXPECT_EQ(veloce.NumRecD() + veloce.NumRecH(), scritti);
}

INSTANTIATE_TEST_SUITE_P(RunYears, Confronto, testing::Range(2013, 2019), testing::PrintToStringParamName());

}  // namespace
}  // namespace cu
