// An import of electronic invoices from an archive as a user's own process: read, planned and applied.
// Argument: the number of invoices.

#include <zip.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "child_run.h"
#include "misura.h"

namespace cu::bench {
namespace {

constexpr int kRounds = 3;
constexpr int kPayees = 2000;

// A payee's fiscal code, surname and name.
struct Seller {
  std::string code;
  std::string surname;
  std::string name;
};

std::vector<std::string> cellsOf(const std::string& line) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') quoted = !quoted;
    if (c == ';' && !quoted) {
      cells.emplace_back();
    } else if (c != '"') {
      cells.back() += c;
    }
  }
  return cells;
}

std::string element(const std::string& name, const std::string& content) {
  return "<" + name + ">" + content + "</" + name + ">\n";
}

std::string amount(int cents) {
  char text[32];
  std::snprintf(text, sizeof text, "%d.%02d", cents / 100, cents % 100);
  return text;
}

std::string header(const Seller& seller, const std::string& buyer) {
  return element(
      "FatturaElettronicaHeader",
      element("CedentePrestatore",
              element("DatiAnagrafici", element("CodiceFiscale", seller.code) +
                                            element("Anagrafica", element("Nome", seller.name) +
                                                                      element("Cognome", seller.surname)) +
                                            element("RegimeFiscale", "RF01")) +
                  element("Sede", element("Indirizzo", "Via Roma") + element("CAP", "37121") +
                                      element("Comune", "Verona") + element("Provincia", "VR") +
                                      element("Nazione", "IT"))) +
          element("CessionarioCommittente", element("DatiAnagrafici", element("CodiceFiscale", buyer))));
}

std::string line(int number, const std::string& text, int cents, bool subject) {
  return element("DettaglioLinee", element("NumeroLinea", std::to_string(number)) +
                                       element("Descrizione", text) + element("PrezzoTotale", amount(cents)) +
                                       element("AliquotaIVA", subject ? "22.00" : "0.00") +
                                       (subject ? element("Ritenuta", "SI") : element("Natura", "N1")));
}

// A fee note with a fund, a fee and its expenses.
std::string invoice(const Seller& seller, const std::string& buyer, int number) {
  const int fee = 10000 + number % 5000 * 25;
  char date[16];
  std::snprintf(date, sizeof date, "2017-%02d-%02d", 1 + number % 12, 1 + number % 28);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<p:FatturaElettronica versione=\"FPR12\" "
         "xmlns:p=\"http://ivaservizi.agenziaentrate.gov.it/docs/xsd/fatture/v1.2\">\n" +
         header(seller, buyer) +
         element("FatturaElettronicaBody",
                 element("DatiGenerali",
                         element("DatiGeneraliDocumento",
                                 element("TipoDocumento", "TD06") + element("Divisa", "EUR") +
                                     element("Data", date) + element("Numero", "F" + std::to_string(number)) +
                                     element("DatiRitenuta", element("TipoRitenuta", "RT01") +
                                                                 element("ImportoRitenuta", amount(fee / 5)) +
                                                                 element("AliquotaRitenuta", "20.00") +
                                                                 element("CausalePagamento", "A")) +
                                     element("DatiCassaPrevidenziale",
                                             element("TipoCassa", "TC04") + element("AlCassa", "4.00") +
                                                 element("ImportoContributoCassa", amount(fee / 25)) +
                                                 element("AliquotaIVA", "22.00")))) +
                     element("DatiBeniServizi", line(1, "Consulenza", fee, true) +
                                                    line(2, "Anticipazioni art. 15", 1250, false))) +
         "</p:FatturaElettronica>\n";
}

class Invoices {
 public:
  explicit Invoices(int count) : count_(count) {
    cuctl_ = (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "cuctl").string();
    prepare();
  }

  void measure() {
    const std::string what = "import of " + grouped(count_) + " invoices of an archive";
    Cost ours;
    for (int i = 0; i < kRounds; ++i) {
      copyBase();
      const Cost mine = importAll();
      ours = {std::min(ours.seconds, mine.seconds), std::max(ours.mebibytes, mine.mebibytes)};
    }
    print({.name = what, .ours = ours.seconds, .promise = "value:30"});
    print({.name = "memory of the " + what, .ours = ours.mebibytes, .promise = "value:200", .unit = "MiB"});
    print({.name = what + " again", .ours = importAll().seconds});
  }

 private:
  // A company whose payees have no payments of the year.
  void prepare() {
    const std::string base = "sqlite:" + folder_.file("base.db");
    run({cuctl_, "create", "--database", base, "--payees", std::to_string(kPayees), "--years", "2016",
         "--seed", "1"});
    const std::string payees = folder_.file("payees.csv");
    const std::string companies = folder_.file("companies.csv");
    run({cuctl_, "export", "payees", "--database", base, "--company", "1", "--output", payees});
    run({cuctl_, "export", "companies", "--database", base, "--company", "1", "--output", companies});
    const std::string buyer = column(companies, "CodiceFiscale").at(0);
    const std::vector<std::string> codes = column(payees, "CodiceFiscale");
    const std::vector<std::string> surnames = column(payees, "Cognome");
    const std::vector<std::string> names = column(payees, "Nome");
    std::vector<Seller> sellers;
    for (std::size_t i = 0; i < codes.size(); ++i) {
      if (codes[i].size() == 16 && !names[i].empty()) sellers.push_back({codes[i], surnames[i], names[i]});
    }
    if (sellers.size() < 100) throw std::runtime_error("payees are missing");
    writeArchive(sellers, buyer);
  }

  // Of a table that the program has written; its heading begins with a byte order mark.
  static std::vector<std::string> column(const std::string& file, const std::string& name) {
    std::ifstream table(file);
    std::string text;
    std::getline(table, text);
    const std::vector<std::string> heading = cellsOf(text.substr(3));
    const auto found = std::find(heading.begin(), heading.end(), name);
    if (found == heading.end()) throw std::runtime_error("no column " + name);
    std::vector<std::string> values;
    while (std::getline(table, text))
      values.push_back(cellsOf(text).at(static_cast<std::size_t>(found - heading.begin())));
    return values;
  }

  void writeArchive(const std::vector<Seller>& sellers, const std::string& buyer) const {
    zip_t* const archive = zip_open(folder_.file("fatture.zip").c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    if (archive == nullptr) throw std::runtime_error("no archive");
    std::vector<std::string> texts(static_cast<std::size_t>(count_));
    for (int i = 0; i < count_; ++i) {
      const Seller& seller = sellers[static_cast<std::size_t>(i) % sellers.size()];
      std::string& text = texts[static_cast<std::size_t>(i)];
      text = invoice(seller, buyer, i);
      const std::string name = "IT" + seller.code + "_" + std::to_string(10000 + i) + ".xml";
      zip_file_add(archive, name.c_str(), zip_source_buffer(archive, text.data(), text.size(), 0),
                   ZIP_FL_ENC_UTF_8);
    }
    if (zip_close(archive) != 0) throw std::runtime_error("the archive is not written");
  }

  void copyBase() const {
    for (const char* end : {".db-wal", ".db-shm"})
      std::filesystem::remove(folder_.file(std::string("import") + end));
    std::filesystem::copy_file(folder_.file("base.db"), folder_.file("import.db"),
                               std::filesystem::copy_options::overwrite_existing);
  }

  Cost importAll() const {
    return run({cuctl_, "import", "invoices", folder_.file("fatture.zip"), "--database",
                "sqlite:" + folder_.file("import.db"), "--company", "1", "--payment-date", "2017-12-15",
                "--accept", "A04,P11", "--apply"});
  }

  int count_;
  ScratchFolder folder_{"cu_fatture_misure"};
  std::string cuctl_;
};

}  // namespace
}  // namespace cu::bench

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  cu::bench::Invoices(std::atoi(argv[1])).measure();
}
