// Files of the years from 2019 on in the forms published for them: each line is composed here by its
// positions.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using Argomenti = std::vector<std::string>;

constexpr const char* kAzienda = "04123450126";
constexpr const char* kProtocolloCitato = "27030612345678901";

// What differs from year to year.
struct Anno {
  int anno;
  const char* fornitura;
  const char* esenti;  // code of the sums that are not income
  const char* quota;   // and of the share of the commissions
};

class ModuliPubblicati : public ::testing::TestWithParam<Anno> {
 protected:
  ModuliPubblicati() : posto_(Posto::Database::Nessuno) {
    EXPECT_EQ(posto_.crea({"--empty"}).codice, 0);
    EXPECT_EQ(posto_.sulDatabase("upgrade", {"--codes"}).codice, 0);
    posto_.imposta("session.today", "2027-03-05T10:30:00");
    posto_.imposta("telematic.forms", "\"published\"");
    importa("companies",
            "CodiceFiscale;Denominazione;Indirizzo;Cap;Comune;Provincia;Telefono;CodiceAttivita;"
            "RappresentanteCodiceFiscale;RappresentanteCognome;RappresentanteNome;RappresentanteCarica\n"
            "04123450126;Officina Srl;Via Mazzini 12;37121;Verona;VR;045 1234567;251100;GZZLRA75C52L781Z;"
            "Guizzi;Laura;1\n");
    importa(
        "payees",
        "Codice;CodiceFiscale;Cognome;Nome;Indirizzo;Cap;Comune;Provincia;EntePrevidenziale;CategoriaEnte\n"
        "P001;RSSMRC71C08L781I;Rossi;Marco;Via Roma 1;37121;Verona;VR;;\n"
        "P002;BRTNNA68D52L781K;Bertoni;Anna;Via Roma 2;37121;Verona;VR;;\n"
        "P003;CLAGNN71H57L781T;Calo;Giovanna;Via Roma 3;37121;Verona;VR;ENPAPI;I\n");
  }

  void importa(const std::string& che, const std::string& tabella) {
    Argomenti argomenti = {"import", che, posto_.cartella().write(che + ".csv", tabella), "--apply"};
    argomenti.insert(argomenti.end(), {"--database", posto_.indirizzo()});
    if (posto_.databaseDelServer() != nullptr) {
      argomenti.insert(argomenti.end(), {"--password-env", kVariabilePassword});
    }
    if (che != "companies") argomenti.insert(argomenti.end(), {"--company", kAzienda});
    const Esecuzione fatta = posto_.cuctl(argomenti);
    EXPECT_EQ(fatta.codice, 0) << fatta.uscita << fatta.errori;
  }

  // A professional with refunded expenses, a commission agent, a payee with contributions.
  void pagamenti(const std::string& esenti, const std::string& quota) {
    const std::string anno = std::to_string(GetParam().anno);
    importa("payments",
            "CodicePercipiente;Causale;DataPagamento;Onorario;QuotaNonSoggetta;SommeNonSoggette;"
            "CodiceNonSoggette;RitenutaAcconto;ContributoDitta;ContributoPercipiente\n"
            "P001;A;20/05/" +
                anno + ";2000,00;;102,00;" + esenti + ";400,00;;\n" + "P002;Q;21/05/" + anno +
                ";1000,00;500,00;;" + quota + ";115,00;;\n" + "P003;M2;22/05/" + anno +
                ";3000,00;;;;600,00;240,00;120,00\n");
    posto_.lettore()->esegui(
        "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAnagrafica, IDAzienda, Anno, IDCausalePagamento,"
        " Anticipazione, ContributiDovuti, ContributiVersati) SELECT IDAnagrafica, IDAzienda, Anno,"
        " IDCausalePagamento, 0, 360, 360 FROM ContoIndividuale WHERE IDCausalePagamento = 13");
  }

  Esecuzione crea(const Argomenti& altri = {}) {
    Argomenti argomenti = {"make",
                           "--profile",
                           posto_.profilo(),
                           "--year",
                           std::to_string(GetParam().anno),
                           "--folder",
                           posto_.cartella() / "Documenti",
                           "--signature-date",
                           "2027-03-01"};
    argomenti.insert(argomenti.end(), altri.begin(), altri.end());
    return posto_.cuctl(argomenti);
  }
  std::string file() const {
    return posto_.cartella() /
           ("Documenti/CUR_" + std::string(kAzienda) + "_" + std::to_string(GetParam().anno) + ".cur");
  }
  std::vector<std::string> righe() const {
    std::ifstream ingresso(file(), std::ios::binary);
    const std::string tutto{std::istreambuf_iterator<char>(ingresso), {}};
    std::vector<std::string> linee;
    for (std::size_t da = 0; da < tutto.size();) {
      const std::size_t fine = tutto.find("\r\n", da);
      linee.push_back(tutto.substr(da, fine - da));
      da = fine == std::string::npos ? tutto.size() : fine + 2;
    }
    return linee;
  }
  void controlla() {
    const Esecuzione valido = posto_.cuctl({"validate", file(), "--strict"});
    EXPECT_EQ(valido.codice, 0) << valido.uscita << valido.errori;
    const Esecuzione uguale = posto_.cuctl({"verify", file(), "--profile", posto_.profilo()});
    EXPECT_EQ(uguale.codice, 0) << uguale.uscita << uguale.errori;
  }

  // Texts by their positions from 1.
  using Campi = std::vector<std::pair<std::size_t, std::string>>;
  static std::string linea(const Campi& campi) {
    std::string linea(1898, ' ');
    linea.back() = 'A';
    for (const auto& [posizione, testo] : campi) linea.replace(posizione - 1, testo.size(), testo);
    return linea;
  }
  static std::string conCelle(Campi campi, const std::vector<std::string>& celle) {
    std::size_t posizione = 90;
    for (const std::string& cella : celle) {
      campi.emplace_back(posizione, cella);
      posizione += 24;
    }
    return linea(campi);
  }
  static std::string destra(const std::string& codice, const std::string& valore) {
    return codice + std::string(16 - valore.size(), ' ') + valore;
  }

  std::string recordA() const {
    return linea({{1, "A"}, {16, GetParam().fornitura}, {21, "01"}, {23, kAzienda}});
  }
  std::string recordB(const char* correzioni) const {
    Campi campi = {{1, "B"},         {2, kAzienda},         {18, "00000001"},   {74, "04711230587"},
                   {91, correzioni}, {137, "OFFICINA SRL"}, {297, "0451234567"}};
    // Up to CU 2020 the event has one digit; from CU 2021 two, and all behind it moves.
    const std::size_t da = pubblicato_ && GetParam().anno >= 2020 ? 1 : 0;
    campi.insert(campi.end(), {{309, da == 1 ? "00" : "0"},
                               {310 + da, "GZZLRA75C52L781Z"},
                               {326 + da, "01"},
                               {328 + da, "GUIZZI"},
                               {352 + da, "LAURA"},
                               {372 + da, "00000000000"},
                               {402, "00000003"},
                               {410, "01"},
                               {428, "0"},
                               {429, "00000000"},
                               {437, "0"}});
    if (pubblicato_ && GetParam().anno >= 2021) campi.emplace_back(527, "0");
    return linea(campi);
  }
  struct Persona {
    const char* numero;
    const char* codice;
    std::vector<std::string> dati;
    std::vector<std::string> esteri = {};  // cells of a non-resident
  };
  static Persona agente() {
    return {"00001",
            "BRTNNA68D52L781K",
            {"DA002002BERTONI", "DA002003ANNA", "DA002004F", "DA002005        12041968"}};
  }
  static Persona iscritta() {
    return {"00002",
            "CLAGNN71H57L781T",
            {"DA002002CALO", "DA002003GIOVANNA", "DA002004F", "DA002005        17061971"}};
  }
  static Persona professionista() {
    return {"00003",
            "RSSMRC71C08L781I",
            {"DA002002ROSSI", "DA002003MARCO", "DA002004M", "DA002005        08031971"}};
  }
  static std::string recordD(const Persona& di, const std::string& operazione) {
    const bool ordinaria = operazione.empty();
    std::vector<std::string> celle = {
        "DA00100104123450126", "DA001002OFFICINA SRL", "DA001004Verona",
        "DA001005VR",          "DA00100637121",        "DA001007Via Mazzini 12",
        "DA0010080451234567",  "DA001010251100",       std::string("DA002001") + di.codice};
    celle.insert(celle.end(), di.dati.begin(), di.dati.end());
    celle.insert(celle.end(), {"DA002006Verona", "DA002007VR"});
    celle.insert(celle.end(), di.esteri.begin(), di.esteri.end());
    celle.insert(celle.end(), {destra("DA003001", "01032027"), destra("DA003002", "1")});
    return conCelle({{1, "D"},
                     {2, kAzienda},
                     {18, "00000001"},
                     {26, di.codice},
                     {42, di.numero},
                     {47, ordinaria ? std::string(17, '0') : kProtocolloCitato},
                     {64, ordinaria ? "000000" : "000007"},
                     {84, ordinaria ? " " : operazione},
                     {89, "0"}},
                    celle);
  }
  static std::string recordH(const Persona& di, const std::vector<std::string>& celle) {
    return conCelle({{1, "H"}, {2, kAzienda}, {18, "00000001"}, {26, di.codice}, {42, di.numero}}, celle);
  }
  static std::string recordZ(const char* moduli) {
    return linea({{1, "Z"},
                  {16, "000000001"},
                  {25, "000000000"},
                  {34, "000000003"},
                  {43, "000000000"},
                  {52, moduli},
                  {61, "000000000"}});
  }
  std::vector<std::string> attese(const std::string& operazione) const {
    const auto importo = [](const char* codice, const char* valore) { return destra(codice, valore); };
    return {recordA(),
            recordB(operazione.empty() ? "00" : "01"),
            recordD(agente(), operazione),
            recordH(agente(), {"AU001001Q", importo("AU001004", "1000,00"),
                               destra("AU001006", GetParam().quota), importo("AU001007", "500,00"),
                               importo("AU001008", "500,00"), importo("AU001009", "115,00")}),
            recordD(iscritta(), operazione),
            recordH(iscritta(), {"AU001001M2", importo("AU001004", "3000,00"), importo("AU001008", "3000,00"),
                                 importo("AU001009", "600,00"), "AU00102997151870587", "AU001030ENPAPI",
                                 "AU001033I", importo("AU001034", "240,00"), importo("AU001035", "120,00"),
                                 importo("AU001038", "360,00"), importo("AU001039", "360,00")}),
            recordD(professionista(), operazione),
            recordH(professionista(), {"AU001001A", importo("AU001004", "2102,00"),
                                       destra("AU001006", GetParam().esenti), importo("AU001007", "102,00"),
                                       importo("AU001008", "2000,00"), importo("AU001009", "400,00")}),
            recordZ("000000003")};
  }

  Posto posto_;
  bool pubblicato_ = true;
};

TEST_P(ModuliPubblicati, AreWrittenAsTheyAreAttested) {
  pagamenti(GetParam().esenti, GetParam().quota);
  const Esecuzione creato = crea();
  ASSERT_EQ(creato.codice, 0) << creato.uscita << creato.errori;
  EXPECT_EQ(righe(), attese(""));
  controlla();

  const Argomenti riferimenti = {"--protocol", kProtocolloCitato, "--progressive", "7"};
  Argomenti sostituzione = {"--kind", "3"};
  sostituzione.insert(sostituzione.end(), riferimenti.begin(), riferimenti.end());
  ASSERT_EQ(crea(sostituzione).codice, 0);
  EXPECT_EQ(righe(), attese("S"));
  controlla();

  Argomenti annullamento = {"--kind", "2"};
  annullamento.insert(annullamento.end(), riferimenti.begin(), riferimenti.end());
  ASSERT_EQ(crea(annullamento).codice, 0);
  EXPECT_EQ(righe(), (std::vector<std::string>{recordA(), recordB("10"), recordD(agente(), "A"),
                                               recordD(iscritta(), "A"), recordD(professionista(), "A"),
                                               recordZ("000000000")}));
  controlla();
}

TEST_P(ModuliPubblicati, SayInTheirFootThatTheyAreNotOfficial) {
  pagamenti(GetParam().esenti, GetParam().quota);
  posto_.imposta("printing.engine", "\"pdf\"");
  const auto stampato = [&] {
    const Esecuzione creato = crea({"--cumulative"});
    EXPECT_EQ(creato.codice, 0) << creato.uscita << creato.errori;
    std::string testo;
    for (const std::string& nome : posto_.file("Documenti")) {
      const std::string percorso = posto_.cartella() / ("Documenti/" + nome);
      if (percorso == file() || !nome.ends_with(".cur")) continue;
      testo +=
          esegui({"/usr/bin/env", "pdftotext", "-layout", percorso, "-"}, posto_.cartella().path()).uscita;
      std::filesystem::remove(percorso);
    }
    return testo;
  };
  const std::string piede = "CU " + std::to_string(GetParam().anno + 1) + ", modello non ufficiale";
  EXPECT_THAT(stampato(), HasSubstr(piede));
  posto_.imposta("telematic.forms", "\"fixed\"");
  const std::string fisso = stampato();
  EXPECT_THAT(fisso, HasSubstr("CERTIFICAZIONE UNICA"));
  EXPECT_THAT(fisso, Not(HasSubstr("non ufficiale")));
}

// From 2019 on no code stands for the others.
TEST_P(ModuliPubblicati, AskForTheCodeOfSumsNotSubject) {
  pagamenti("", GetParam().quota);
  const Esecuzione creato = crea();
  EXPECT_EQ(creato.codice, 1);
  EXPECT_THAT(creato.uscita, HasSubstr("Manca il codice delle somme non soggette (casella 6)"));
  EXPECT_THAT(creato.uscita, HasSubstr("Rossi Marco"));
  EXPECT_THAT(creato.errori,
              HasSubstr("non sono del modello dell'anno: il file telematico non è stato creato"));
  EXPECT_EQ(righe(), std::vector<std::string>());
  // Without the key the file is written as before.
  posto_.imposta("telematic.forms", "");
  EXPECT_EQ(crea().codice, 0);
  EXPECT_THAT(righe().at(7), HasSubstr(destra("AU001006", "7")));
  EXPECT_EQ(righe().at(1).substr(308, 17), "0GZZLRA75C52L781Z");
}

INSTANTIATE_TEST_SUITE_P(Years, ModuliPubblicati,
                         ::testing::Values(Anno{2019, "CUR20", "8", "7"}, Anno{2020, "CUR21", "8", "7"},
                                           Anno{2021, "CUR22", "22", "21"}, Anno{2022, "CUR23", "22", "21"},
                                           Anno{2023, "CUR24", "22", "21"}, Anno{2024, "CUR25", "22", "21"},
                                           Anno{2025, "CUR26", "22", "21"}),
                         [](const ::testing::TestParamInfo<Anno>& info) {
                           return std::to_string(info.param.anno);
                         });

// From 2024 on two boxes between those of a non-resident are of unknown content.
class NonResidenti : public ModuliPubblicati {
 protected:
  void SetUp() override {
    pagamenti(GetParam().esenti, GetParam().quota);
    const auto database = posto_.lettore();
    database->esegui(
        "UPDATE Percipiente SET NonResidente = 1, CodiceIdentificazioneFiscaleEstero = 'FR123' WHERE Codice "
        "= "
        "'P001'");
    database->esegui(
        "UPDATE Anagrafica SET IDNazione = (SELECT MAX(IDNazione) FROM Nazione WHERE PrefissoInternazionale "
        "= "
        "'029') WHERE CodiceFiscale = 'RSSMRC71C08L781I'");
  }
  std::vector<std::string> celleEstere() const {
    const bool spostate = GetParam().anno >= 2024;
    return {"DA002040FR123", "DA002041Verona", spostate ? "DA002043Via Roma 1" : "DA002042Via Roma 1",
            destra(spostate ? "DA002045" : "DA002044", "029")};
  }
};

TEST_P(NonResidenti, AreNamedBeforeTheFileWhereBoxesRemainBlank) {
  const Esecuzione senza = crea();
  if (GetParam().anno >= 2024) {
    EXPECT_EQ(senza.codice, 1);
    EXPECT_THAT(senza.errori, HasSubstr("il contenuto delle caselle 42 e 44"));
    EXPECT_THAT(senza.errori, HasSubstr("\nRossi Marco (RSSMRC71C08L781I).\n"));
    EXPECT_EQ(righe(), std::vector<std::string>());
  } else {
    EXPECT_EQ(senza.codice, 0) << senza.errori;
    EXPECT_EQ(senza.errori, "");
  }
  const Esecuzione confermato = crea({"--yes"});
  ASSERT_EQ(confermato.codice, 0) << confermato.errori;
  Persona estero = professionista();
  estero.esteri = celleEstere();
  EXPECT_EQ(righe().at(6), recordD(estero, ""));
  controlla();
}

INSTANTIATE_TEST_SUITE_P(Years, NonResidenti,
                         ::testing::Values(Anno{2023, "CUR24", "22", "21"}, Anno{2024, "CUR25", "22", "21"},
                                           Anno{2025, "CUR26", "22", "21"}),
                         [](const ::testing::TestParamInfo<Anno>& info) {
                           return std::to_string(info.param.anno);
                         });

// A profile without the key writes each later year in the form of 2018, byte by byte, and derives the code.
class ModelloDiAllora : public ModuliPubblicati {
 protected:
  ModelloDiAllora() {
    pubblicato_ = false;
    posto_.imposta("telematic.forms", "");
  }
};

TEST_P(ModelloDiAllora, IsThatOf2018UpTo2030) {
  pagamenti("", "");
  const Esecuzione creato = crea();
  ASSERT_EQ(creato.codice, 0) << creato.uscita << creato.errori;
  EXPECT_EQ(righe(), attese(""));
  posto_.imposta("telematic.forms", "\"fixed\"");
  ASSERT_EQ(crea({"--kind", "3", "--protocol", kProtocolloCitato, "--progressive", "7"}).codice, 0);
  EXPECT_EQ(righe(), attese("S"));
  controlla();
}

INSTANTIATE_TEST_SUITE_P(Years, ModelloDiAllora,
                         ::testing::Values(Anno{2018, "CUR19", "7", "7"}, Anno{2019, "CUR20", "7", "7"},
                                           Anno{2020, "CUR21", "7", "7"}, Anno{2021, "CUR22", "7", "7"},
                                           Anno{2022, "CUR23", "7", "7"}, Anno{2023, "CUR24", "7", "7"},
                                           Anno{2024, "CUR25", "7", "7"}, Anno{2025, "CUR26", "7", "7"},
                                           Anno{2026, "CUR27", "7", "7"}, Anno{2027, "CUR28", "7", "7"},
                                           Anno{2028, "CUR29", "7", "7"}, Anno{2029, "CUR30", "7", "7"},
                                           Anno{2030, "CUR31", "7", "7"}),
                         [](const ::testing::TestParamInfo<Anno>& info) {
                           return std::to_string(info.param.anno);
                         });

}  // namespace
}  // namespace cu::test
