#include "system/corsa_support.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>

#include "system/lettore_db_support.h"

namespace cu::test {
namespace {

using nlohmann::json;

constexpr const char* kFile = "Documenti/CUR_04123450233_2016.cur";
constexpr const char* kAltroFile = "Documenti/CUR_04123450233_2015.cur";
constexpr const char* kAltraCopia = "Documenti/Comunicazioni CU/CUR_04123450233_2015.cur";
constexpr const char* kAltrui = "un file di un altro anno";
constexpr const char* kImpostazioni = "[\"Altro\".\"Sezione\"]\nNome = \"valore\"\n";

// The module of the line in the editor: a new one, or the one left by an earlier run.
constexpr const char* kModulo = "modulo";

constexpr std::array kPassi = {R"j({"do":"click","on":"frmWizard.optstType(1)"})j",
                               R"j({"do":"click","on":"frmWizard.optCode"})j",
                               R"j({"do":"choose","in":"frmWizard.KRNCboEsCont(0)","text":"2016"})j",
                               R"j({"do":"choose","in":"frmWizard.KrnCDPerc(0)","code":"P001"})j",
                               R"j({"do":"choose","in":"frmWizard.KrnCDPerc(1)","code":"P003"})j",
                               R"j({"do":"click","on":"frmWizard.cmdNav(3)"})j",
                               R"j({"do":"doubleclick","in":"frmWizard.grdCompensi","row":1})j",
                               R"j({"do":"enter","in":"frmCompenso2017.curField(23)","text":"12,5"})j",
                               R"j({"do":"click","on":"frmCompenso2017.cmdAltriModuli"})j",
                               kModulo,
                               R"j({"do":"enter","in":"frmCompenso2017.curField(18)","text":"77"})j",
                               R"j({"do":"click","on":"frmCompenso2017.cmdSave"})j",
                               R"j({"do":"click","on":"frmCompenso2017.cmdOk"})j",
                               R"j({"do":"click","on":"frmWizard.cmdSelect(1)"})j",
                               R"j({"do":"click","on":"frmWizard.cmdSelect(0)"})j",
                               R"j({"do":"click","on":"frmWizard.cmdNav(3)"})j",
                               R"j({"do":"click","on":"frmWizard.cmdNav(4)"})j",
                               R"j({"do":"click","on":"frmMsgLink.Command1"})j",
                               R"j({"do":"close","window":"frmWizard"})j"};

// Created once, copied for each place.
const std::string& databaseModello() {
  static const TempFolder cartella;
  static const std::string file = [] {
    std::string nome = cartella / "demo.db";
    const Esecuzione esito =
        esegui({CU_CUCTL, "create", "--database", "sqlite:" + nome, "--demo"}, cartella.path());
    if (esito.codice != 0) throw std::runtime_error("cuctl create: " + esito.errori);
    return nome;
  }();
  return file;
}

// The text of a box, an error or a log.
std::string testo(const json& modale) {
  if (modale.contains("text")) return modale.at("text");
  return modale.contains("rows") ? modale.at("rows").dump() : modale.dump();
}

bool domandaDiFine(const json& modale) {
  return testo(modale).find("Confermare l'abbandono") != std::string::npos;
}

}  // namespace

LuogoCorsa::LuogoCorsa(bool moduli) : LuogoCorsa(moduli, std::filesystem::temp_directory_path().string()) {}

LuogoCorsa::LuogoCorsa(bool moduli, const std::string& dove) : cartella_(dove) {
  std::filesystem::copy_file(databaseModello(), cartella_ / "demo.db");
  std::filesystem::create_directories(cartella_ / "Documenti/Comunicazioni CU");
  cartella_.write(kAltroFile, kAltrui);
  cartella_.write(kAltraCopia, kAltrui);
  cartella_.write("settings.toml", kImpostazioni);
  cartella_.write(
      "profilo.toml",
      std::string("[session]\nuser = 12\ncompany = 1\nbranch = 1\ntitle = \"Quadrivio\"\n"
                  "help_folder = \"/guida\"\nsettings_section = \"Sessione12\"\n"
                  "processes = [ { name = \"Wizard stampa\", function = 247 } ]\n"
                  "today = 2017-03-05T10:30:00\n[database]\nurl = \"sqlite:demo.db\"\n"
                  "[currency]\ndecimals = true\nsymbol = \"€\"\ndecimal = \",\"\nthousands = \".\"\n"
                  "[folders]\ndocuments = \"Documenti\"\nsettings = \"settings.toml\"\n"
                  "[trace]\nsql = \"trace.sql\"\n") +
          (moduli ? "" : "[printing]\nengine = \"record\"\n"));
}

std::string LuogoCorsa::file() const { return cartella_.read(kFile); }

std::map<std::string, std::string> LuogoCorsa::conti() const {
  LettoreDb lettore(cartella_ / "demo.db");
  std::map<std::string, std::string> tavole;
  for (const char* tavola : {"ContoIndividuale", "ContoIndividualeDatiAggiuntivi", "ModuloXContoIndividuale",
                             "ConfigurazioneElencoCliFor", "Anagrafica", "Percipiente"}) {
    tavole[tavola] = lettore.tavola(tavola);
  }
  return tavole;
}

namespace {

// The files of a folder with the telematic file's extension, by name.
std::map<std::string, std::string> conEstensione(const TempFolder& cartella, const std::string& sotto) {
  std::map<std::string, std::string> trovati;
  for (const auto& voce : std::filesystem::directory_iterator(cartella / sotto)) {
    if (!voce.is_regular_file() || voce.path().extension() != ".cur") continue;
    const std::string nome = sotto + "/" + voce.path().filename().string();
    trovati[nome] = cartella.read(nome);
  }
  return trovati;
}

}  // namespace

std::size_t LuogoCorsa::stampe() const {
  const auto trovati = conEstensione(cartella_, "Documenti");
  return static_cast<std::size_t>(std::count_if(trovati.begin(), trovati.end(), [](const auto& trovato) {
    return trovato.second.starts_with("%PDF-");
  }));
}

bool LuogoCorsa::soloInteri(const std::string& file) const {
  for (const auto& [nome, contenuto] : conEstensione(cartella_, "Documenti")) {
    if (nome == kFile || nome == kAltroFile) continue;
    if (!contenuto.starts_with("%PDF-") || !contenuto.ends_with("%%EOF\n")) return false;
  }
  for (const auto& [nome, contenuto] : conEstensione(cartella_, "Documenti/Comunicazioni CU")) {
    if (nome != kAltraCopia && contenuto != file) return false;
  }
  return true;
}

std::string LuogoCorsa::integrita() const {
  return LettoreDb(cartella_ / "demo.db").testo("PRAGMA integrity_check");
}

bool LuogoCorsa::altruiIntatti() const {
  return cartella_.read(kAltroFile) == kAltrui && cartella_.read(kAltraCopia) == kAltrui &&
         cartella_.read("settings.toml").find("Nome = \"valore\"") != std::string::npos;
}

CorsaGuidata::CorsaGuidata(const LuogoCorsa& luogo)
    : processo_(std::make_unique<Processo>(
          std::vector<std::string>{CU_CUCTL, "drive", "--profile", luogo.profilo()}, errori_.path())) {
  const auto prima = risposta();
  if (prima && !prima->at("modal").is_null()) rispondi(*prima);
}

std::size_t CorsaGuidata::passi() { return kPassi.size(); }

std::optional<json> CorsaGuidata::risposta() {
  const auto riga = processo_->riga();
  if (!riga) return std::nullopt;
  return json::parse(*riga);
}

std::optional<json> CorsaGuidata::manda(const json& comando) {
  if (!processo_->scrivi(comando.dump() + "\n")) return std::nullopt;
  return risposta();
}

std::string CorsaGuidata::comando() {
  const std::string testo = kPassi[prossimo_++];
  if (testo != kModulo) return testo;
  const auto griglia = manda({{"do", "get"}, {"of", "frmCompenso2017.grdAltriModuli"}});
  const bool vuota = !griglia || !griglia->at("ok").get<bool>() || griglia->at("result").at("rows") == 0;
  return vuota ? R"j({"do":"click","on":"frmCompenso2017.cmdNew"})j"
               : R"j({"do":"press","in":"frmCompenso2017.grdAltriModuli","row":1,"column":"NumeroModulo"})j";
}

bool CorsaGuidata::passo() {
  const auto prima = manda(json::parse(comando()));
  if (!prima) return false;
  if (prima->at("ok").get<bool>()) ++accettati_;
  return rispondi(*prima);
}

// Answers boxes one after the other, as long as there are any.
bool CorsaGuidata::rispondi(json risposta) {
  while (!risposta.at("modal").is_null()) {
    const json modale = risposta.at("modal");
    if (!domandaDiFine(modale)) detti_.push_back(testo(modale));
    const auto altra = manda({{"do", "answer"}, {"with", modale.value("default", "ok")}});
    if (!altra) return false;
    if (!altra->at("ok").get<bool>()) throw std::runtime_error("an answer is refused: " + altra->dump());
    risposta = *altra;
  }
  return true;
}

void CorsaGuidata::comincia() { processo_->scrivi(comando() + "\n"); }

void CorsaGuidata::finisci() {
  while (prossimo_ < passi() && passo()) {
  }
  processo_->chiudiIngresso();
  processo_->resto();
  codice_ = processo_->codice();
  if (const std::string errori = processo_->errori(); !errori.empty()) detti_.push_back(errori);
}

}  // namespace cu::test
