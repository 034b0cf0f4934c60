// Composing and writing the records D and H from rows in memory: the product's writers compared with a
// hand-written composer for this one form. Both write the same bytes, which is checked first, into blocks
// that are discarded. Also the access to the fields of the catalogue by name.

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text.h"
#include "host/filesystem.h"
#include "misura.h"
#include "telematic/catalogo.h"
#include "telematic/cu_file_seq.h"
#include "telematic/engine/records.h"
#include "telematic/prova.h"
#include "telematic_a_mano.h"

namespace {

using namespace cu;
using test::amount;
using test::text;
using test::whole;

constexpr std::size_t kRows = 2000;
constexpr int kRounds = 60;
constexpr int kLookUps = 1000;

// Keeps the compiler from removing unused results.
volatile std::size_t sink = 0;

constexpr std::size_t kBlock = 552 * 1900;

// Collects blocks as the platform's file does; keeps all data only for the comparison.
class Blocks : public OutputFile {
 public:
  explicit Blocks(std::string* whole) : whole_(whole) { block_.reserve(kBlock); }
  void write(std::string_view bytes) override {
    if (block_.size() + bytes.size() > kBlock) flush();
    block_.append(bytes);
  }
  void close() override { flush(); }

 private:
  void flush() {
    if (whole_ != nullptr) whole_->append(block_);
    sink = sink + static_cast<unsigned char>(block_.back());
    block_.clear();
  }
  std::string block_;
  std::string* whole_;
};

class BlockFiles : public test::MemoryFileSystem {
 public:
  std::string* whole = nullptr;
  std::unique_ptr<OutputFile> openForOutput(const std::string&) override {
    return std::make_unique<Blocks>(whole);
  }
};

// An ordinary company: most payees are residents with a few amounts; one in eight has contributions, one in
// ten comes from abroad, one in six has an accent in the name, one in five a further module.
test::Contenuti payee(std::size_t n) {
  const auto number = static_cast<std::int64_t>(n);
  test::Contenuti row = {
      {"CodiceFiscaleAz", text("01234567890")},
      {"AnagraficaAz", text("Società Agricola Valpolicella s.r.l.")},
      {"ComuneAz", text("Verona")},
      {"SiglaProvinciaAz", text("VR")},
      {"CapAz", text("37121")},
      {"IndirizzoAz", text("Via Giuseppe Mazzini 112")},
      {"TelefonoAz", text("045 123 4567")},
      {"EMailInternetAz", text("amministrazione@valpolicella.it")},
      {"CodiceAttivita", text("011000")},
      {"CodiceFiscale", text("RSSMRA80A01L78" + std::to_string(n % 10) + "X")},
      {"Anagrafica", text(n % 6 == 0 ? "Nicolò Dell'Aquilà" : "Bianchi")},
      {"Nome", text("Giovanni " + std::to_string(n % 40))},
      {"PersonaFisica", whole(1)},
      {"Sesso", text("M")},
      {"DataNascita", test::day(1960 + static_cast<int>(n % 40), 1 + static_cast<int>(n % 12), 15)},
      {"ComuneNascita", text("San Giovanni Lupatoto")},
      {"ProvinciaNascita", text("VR")},
      {"NonResidente", whole(n % 10 == 0 ? 1 : 0)},
      {"ComuneRes", text("München")},
      {"Indirizzo", text("Leopoldstraße 12")},
      {"PrefissoInternazionaleRes", text("094")},
      {"ComuneResidenzaAnnoCorr", text(n % 4 == 0 ? "Villafranca di Verona" : "")},
      {"Codice", text(n % 7 == 0 ? "N" : "A")},
      {"Anno", whole(2016)},
      {"Anticipazione", whole(0)},
      {"AmmontareLordo", amount(std::to_string(1000 + number * 7) + ".35")},
      {"SommeNonSoggetteARitenuta", amount(n % 3 == 0 ? "120.5" : "0")},
      {"Imponibile", amount(std::to_string(1000 + number * 7) + ".35")},
      {"RitenuteAcconto", amount(std::to_string(200 + number) + ".07")},
      {"AddRegionAcconto", amount("12.3")},
      {"SpeseRimborsate", amount("0")},
      {"ContributiCaricoAzienda", amount(n % 8 == 0 ? "300" : "0")},
      {"ContributiCaricoPercipiente", amount(n % 8 == 0 ? "150" : "0")},
      {"CUCodiceFiscale", text("80078750587")},
      {"CUDenominazioneEntePrevidenziale", text("ISTITUTO NAZIONALE PREVIDENZA SOCIALE")},
      {"CUCodiceCategoriaEntePrevidenziale", text("1")}};
  for (const char* zero :
       {"RitenuteImposta", "RitenuteSospese", "AltriSoggettiImponibile", "PignoramentoTerziSommeErogate1",
        "IndennitaEsproprioSommeCorrisposte1", "AltreIndennitaSommeCorrisposte1"}) {
    row[zero] = amount("0");
  }
  return row;
}

struct Rows {
  Rows() : principali(make(false)), moduli(make(true)) {}
  static test::Table make(bool modules) {
    std::vector<test::Contenuti> rows;
    for (std::size_t n = 0; n < kRows; ++n) {
      if (!modules) {
        rows.push_back(payee(n));
      } else {
        rows.push_back({{"AnnoModulo", whole(2012)},
                        {"SommeNonSoggette", amount("55.1")},
                        {"ImponibileAnniPrec", amount("10")}});
      }
    }
    return modules ? test::rispostaModuli(rows) : test::rispostaPrincipale(rows);
  }
  test::Righe principali;
  test::Righe moduli;
};

const Rows& rows() {
  static const Rows all;
  return all;
}

const Date kSignature = Date::fromYmd(2017, 2, 28).value();
constexpr std::string_view kCompany = "01234567890";

void ours(std::string* whole) {
  static test::Prova prova(2016);
  BlockFiles files;
  files.whole = whole;
  AmbienteTelematico around = prova.ambiente();
  CUFileSeq file({.database = around.database,
                  .utilita = around.utilita,
                  .files = files,
                  .avanzamento = around.avanzamento,
                  .visore = around.visore,
                  .clock = around.clock,
                  .tabella = around.tabella,
                  .anno = around.anno});
  if (!file.OpenFile()) std::abort();
  const Rows& r = rows();
  file.legaQueryPrincipale(r.principali.colonne());
  for (std::size_t i = 0; i < kRows; ++i) {
    const auto number = static_cast<std::int32_t>(i + 1);
    file.WriteRecordTipoD(r.principali[i], number, kCompany, Comunicazione::Ordinaria, kSignature);
    file.WriteRecordTipoH(r.principali[i], number, 1, kCompany, nullptr);
    if (i % 5 == 0) {
      file.legaQueryModuli(r.moduli.colonne());
      file.WriteRecordTipoH(r.principali[i], number, 2, kCompany, r.moduli[i]);
    }
  }
  file.CloseFile();
}

struct CellRow {
  const CellView* cells;
  bool isNull(int n) const { return cells[n].isNull(); }
  std::string_view text(int n) const { return cells[n].text(); }
  std::int64_t amount(int n) const { return cells[n].isNull() ? 0 : cells[n].decimal().scaled(); }
  std::int64_t whole(int n) const { return cells[n].isNull() ? 0 : cells[n].integer(); }
  Date day(int n) const { return cells[n].date(); }
};

void byHand(std::string* whole) {
  Blocks file(whole);
  bench::ComposizioneAMano hand;
  const Rows& r = rows();
  for (std::size_t i = 0; i < kRows; ++i) {
    const CellRow row{r.principali[i]};
    const int number = static_cast<int>(i + 1);
    file.write(hand.certificato(row, number, kCompany, kSignature));
    file.write(hand.primoModulo(row, number, kCompany));
    if (i % 5 == 0) file.write(hand.altroModulo(row, CellRow{r.moduli[i]}, number, 2, kCompany));
  }
  file.close();
}

void checkSameBytes() {
  std::string a;
  std::string b;
  ours(&a);
  byHand(&b);
  if (a == b && a.size() == kRows * 1900 * 11 / 5) return;
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    if (a[i] != b[i]) {
      std::fprintf(stderr, "line %zu, position %zu\n%s\n%s\n", i / 1900, i % 1900 + 1,
                   a.substr(i / 1900 * 1900, 1900).c_str(), b.substr(i / 1900 * 1900, 1900).c_str());
      break;
    }
  }
  std::abort();
}

void composing() {
  checkSameBytes();
  const bench::Pair times = bench::best(
      kRounds, [] { ours(nullptr); }, [] { byHand(nullptr); });
  bench::print({"composing " + bench::grouped(kRows * 11 / 5) + " lines from rows in memory", times.ours,
                times.limit, "the same lines composed by hand for one form"});
}

void lookUps() {
  CURecords catalogue;
  telematico::creaCatalogo(catalogue, 2016);
  std::vector<std::string> names;
  std::unordered_map<std::string, const IField*> bare;
  const CURecord& record = catalogue.Item(std::string_view("TipoB"));
  for (const IField* field : record.Fields().NewEnum()) {
    names.push_back(field->Name());
    bare.emplace(lowerAscii(field->Name()), field);
  }
  const bench::Pair times = bench::best(
      kRounds,
      [&] {
        for (int i = 0; i < kLookUps; ++i) {
          for (const std::string& name : names) {
            sink = sink + static_cast<std::size_t>(record.Fields().Item(std::string_view(name)).Offset());
          }
        }
      },
      [&] {
        for (int i = 0; i < kLookUps; ++i) {
          for (const std::string& name : names) {
            sink = sink + static_cast<std::size_t>(bare.find(lowerAscii(name))->second->Offset());
          }
        }
      });
  const double count = static_cast<double>(kLookUps) * static_cast<double>(names.size());
  bench::print({"a field of the catalogue by its name", times.ours / count, times.limit / count,
                "a hash table of the lower-case names"});
}

}  // namespace

int main() {
  composing();
  lookUps();
  return 0;
}
