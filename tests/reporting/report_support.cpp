#include "report_support.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <sstream>
#include <stdexcept>

#include "archive/archivio.h"
#include "suite/catalogo_stampe.h"

namespace cu::test {

Connection& demo() {
  static const std::unique_ptr<SqliteConnection> connection = [] {
    auto made = SqliteConnection::create(":memory:");
    creaArchivio(*made, ContenutoArchivio::Dimostrativo);
    return made;
  }();
  return *connection;
}

CommandResult runCommand(const std::string& command) {
  std::FILE* const pipe = ::popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("cannot run " + command);
  CommandResult result;
  char block[4096];
  for (std::size_t n = 0; (n = std::fread(block, 1, sizeof block, pipe)) > 0;) result.output.append(block, n);
  const int status = ::pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

std::string pdfText(const std::string& path) {
  const CommandResult result = runCommand("pdftotext -layout '" + path + "' -");
  if (result.status != 0) throw std::runtime_error("pdftotext: " + result.output);
  return result.output;
}

int count(const std::string& text, const std::string& piece) {
  int found = 0;
  for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + piece.size()))
    ++found;
  return found;
}

std::string squeezed(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c != ' ' || result.empty() || result.back() != ' ') result += c;
  }
  return result;
}

int pageCount(const std::string& path) {
  const std::string info = runCommand("pdfinfo '" + path + "'").output;
  const std::size_t at = info.find("Pages:");
  if (at == std::string::npos) throw std::runtime_error("pdfinfo: " + info);
  return std::stoi(info.substr(at + 6));
}

namespace {

double attribute(const std::string& line, const std::string& name) {
  const std::size_t at = line.find(name + "=\"");
  if (at == std::string::npos) throw std::runtime_error("no " + name + " in " + line);
  return std::stod(line.substr(at + name.size() + 2));
}

}  // namespace

std::vector<PdfWord> pdfWords(const std::string& path) {
  std::istringstream lines(runCommand("pdftotext -bbox '" + path + "' -").output);
  std::vector<PdfWord> words;
  int page = 0;
  double width = 0;
  double height = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.find("<page ") != std::string::npos) {
      ++page;
      width = attribute(line, "width");
      height = attribute(line, "height");
    }
    if (line.find("<word ") == std::string::npos) continue;
    const std::size_t text = line.find('>') + 1;
    words.push_back({page, width, height, attribute(line, "xMin"), attribute(line, "yMin"),
                     attribute(line, "xMax"), attribute(line, "yMax"),
                     line.substr(text, line.find("</word>") - text)});
  }
  return words;
}

PrintShop::PrintShop() : PrintShop(reporting::embeddedDefinitionFiles()) {}

PrintShop::PrintShop(std::vector<reporting::DefinitionFile> definitions)
    : reports(std::make_unique<PdfReports>(ReportSurroundings{screen, files, clock, "Quadrivio"},
                                           std::move(definitions))) {}

std::unique_ptr<ReportEngine> PrintShop::engine(const std::string& report, std::int32_t objectType,
                                                std::int32_t definition, const std::string& formula) {
  auto made = reports->create();
  made->setSession(12, 1, 1);
  made->setConnection(demo());
  made->setObjectType(objectType);
  made->setSelectionFormula(formula);
  made->setReportFile(report);
  made->setDefinition(definition);
  return made;
}

std::unique_ptr<ReportEngine> PrintShop::engine(const std::string& report, const std::string& formula) {
  const CatalogoStampe catalogue;
  for (const int type : {246, 247, 342}) {
    for (const ReportInfo& each : catalogue.reports(type)) {
      if (each.name == report) return engine(report, type, each.definition, formula);
    }
  }
  throw std::runtime_error("no such report: " + report);
}

std::string PrintShop::print(const std::string& report, const std::string& formula, const std::string& name) {
  auto made = engine(report, formula);
  nameFile(*made, folder / name);
  made->run(3);
  return folder / name;
}

void PrintShop::nameFile(ReportEngine& engine, const std::string& path) {
  engine.setOutputMode(0);
  engine.setOutputPath(path);
  engine.setOutputFormat(0);
}

std::vector<std::string> PrintShop::filesLeft() const {
  std::vector<std::string> names;
  for (const auto& each : std::filesystem::directory_iterator(folder.path())) {
    names.push_back(each.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

void chooseLines(const std::vector<ChosenLine>& lines, int kind, int intermediary,
                 const std::string& signature) {
  demo().Execute("DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342");
  for (const ChosenLine& line : lines) {
    RowStore reason;
    demo().Query("SELECT IDCausalePagamento FROM CausalePagamento WHERE Codice = '" + line.reason + "'",
                 reason);
    std::vector<CellView> cells(1);
    reason.read(0, cells.data());
    demo().Execute(
        "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, "
        "Path3) VALUES (" +
        std::to_string(line.payee) + "," + cells[0].toText() + ",12,342,1," + std::to_string(kind) + "," +
        std::to_string(intermediary) + "," + (signature.empty() ? "NULL" : "'" + signature + "'") + ")");
  }
}

std::string formFormula(int year) {
  return "{__ViewName.Anno} = " + std::to_string(year) +
         " AND {__ViewName.IDAzienda} = 1 AND {__ViewName.IDUtente} = 12";
}

}  // namespace cu::test
