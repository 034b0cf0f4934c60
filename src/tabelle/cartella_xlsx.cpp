#include "tabelle/cartella_xlsx.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/text.h"
#include "tabelle/composizione.h"
#include "tabelle/errore.h"
#include "tabelle/lettore_xml.h"
#include "tabelle/testo_xlsx.h"

namespace cu::tabelle {
namespace {

constexpr const char* kCartella = "xl/workbook.xml";

// 0 for what is no number.
int numeroFormato(std::string_view testo) {
  int numero = 0;
  const char* const fine = testo.data() + testo.size();
  const auto letto = std::from_chars(testo.data(), fine, numero);
  return letto.ec == std::errc() && letto.ptr == fine ? numero : 0;
}

// A relationship's target, from the archive's root: "worksheets/sheet1.xml", "/xl/worksheets/sheet1.xml" and
// "../xl/worksheets/sheet1.xml" are the same.
std::string parteDi(std::string_view destinazione) {
  std::vector<std::string> passi = {"xl"};
  if (destinazione.starts_with('/')) passi.clear();
  while (!destinazione.empty()) {
    const std::size_t fine = std::min(destinazione.find('/'), destinazione.size());
    const std::string_view passo = destinazione.substr(0, fine);
    destinazione.remove_prefix(std::min(fine + 1, destinazione.size()));
    if (passo == "..") {
      if (!passi.empty()) passi.pop_back();
    } else if (!passo.empty() && passo != ".") {
      passi.emplace_back(passo);
    }
  }
  std::string parte;
  for (const std::string& passo : passi) parte += (parte.empty() ? "" : "/") + passo;
  return parte;
}

}  // namespace

CartellaXlsx::CartellaXlsx(std::string_view byte, std::string_view nome, const Limiti& limiti)
    : nome_(nome), limiti_(limiti), archivio_(byte, nome, limiti) {
  if (!archivio_.trova(kCartella)) rifiutaArchivio();
  leggiCartella();
  leggiRelazioni();
  for (std::size_t i = 0; i < fogli_.size(); ++i) {
    const auto trovata = parti_.find(relazioniDeiFogli_[i]);
    if (trovata != parti_.end()) fogli_[i].parte = trovata->second;
  }
  // What is no worksheet, such as a chart, has no cells.
  std::erase_if(fogli_, [](const FoglioXlsx& foglio) { return foglio.parte.empty(); });
}

void CartellaXlsx::rifiutaArchivio() const {
  std::string che = "un archivio ZIP senza un foglio di calcolo";
  if (archivio_.trova("xl/workbook.bin")) {
    che = "una cartella di lavoro binaria XLSB: salvarla come XLSX o CSV";
  } else if (archivio_.trova("content.xml") && archivio_.trova("mimetype")) {
    che = "un documento OpenDocument (ODS): salvarlo come XLSX o CSV";
  } else if (archivio_.trova("word/document.xml")) {
    che = "un documento di testo DOCX, non una tabella: salvare la tabella come XLSX o CSV";
  }
  throw ErroreTabella("F02", posto(), "Il file è " + che);
}

std::size_t CartellaXlsx::membro(const std::string& parte) const {
  const auto trovato = archivio_.trova(parte);
  if (!trovato) {
    throw ErroreTabella("F03", posto(), "Il file è danneggiato o incompleto: manca " + parte);
  }
  return *trovato;
}

void CartellaXlsx::leggiCartella() {
  LettoreXml xml(archivio_, membro(kCartella), posto());
  while (xml.avanza()) {
    if (xml.inizio("workbookPr")) {
      dal1904_ = xml.vero("date1904");
    } else if (xml.inizio("calcPr")) {
      daRicalcolare_ = xml.vero("fullCalcOnLoad");
    } else if (xml.inizio("sheet")) {
      const std::string_view stato = xml.attributo("state");
      const bool nascosto = stato == "hidden" || stato == "veryHidden";
      fogli_.push_back({{std::string(xml.attributo("name")), nascosto}, {}});
      relazioniDeiFogli_.push_back(std::string(xml.relazione()));
    }
  }
}

void CartellaXlsx::leggiRelazioni() {
  LettoreXml xml(archivio_, membro("xl/_rels/workbook.xml.rels"), posto());
  while (xml.avanza()) {
    if (!xml.inizio("Relationship") || xml.attributo("TargetMode") == "External") {
      continue;
    }
    const std::string_view tipo = xml.attributo("Type");
    const std::string parte = parteDi(xml.attributo("Target"));
    if (tipo.ends_with("/worksheet")) {
      parti_[std::string(xml.attributo("Id"))] = parte;
    } else if (tipo.ends_with("/styles")) {
      parteStili_ = parte;
    } else if (tipo.ends_with("/sharedStrings")) {
      parteTesti_ = parte;
    }
  }
}

const FoglioXlsx& CartellaXlsx::scegli(const std::string& nome) const {
  const std::string voluto = normalizza(nome);
  const FoglioXlsx* scelto = nullptr;
  std::string elenco;
  for (const FoglioXlsx& foglio : fogli_) {
    if (nome.empty() ? !foglio.foglio.nascosto : foglio.foglio.nome == nome) return foglio;
    if (scelto == nullptr && normalizza(foglio.foglio.nome) == voluto) scelto = &foglio;
    if (elenco.size() < 200) elenco += (elenco.empty() ? "\"" : ", \"") + foglio.foglio.nome + '"';
  }
  if (scelto != nullptr && !nome.empty()) return *scelto;
  if (nome.empty()) throw ErroreTabella("F02", posto(), "La cartella di lavoro non ha fogli visibili");
  throw ErroreTabella("F02", posto(), "Il foglio \"" + nome + "\" non c'è; ci sono: " + elenco);
}

void CartellaXlsx::leggiStiliETesti(Deposito& deposito) {
  // A workbook without dates needs no styles, one without texts no list of them.
  if (const auto stili = archivio_.trova(parteStili_)) leggiStili(*stili);
  if (!parteTesti_.empty()) leggiTesti(membro(parteTesti_), deposito);
}

void CartellaXlsx::leggiStili(std::size_t membroStili) {
  LettoreXml xml(archivio_, membroStili, posto());
  std::map<int, Formato> propri;
  bool delleCelle = false;
  while (xml.avanza()) {
    if (xml.inizio("numFmt")) {
      propri[numeroFormato(xml.attributo("numFmtId"))] =
          formatoDiCodice(std::string(xml.attributo("formatCode")));
    } else if (xml.inizio("cellXfs")) {
      delleCelle = true;
    } else if (xml.fine("cellXfs")) {
      delleCelle = false;
    } else if (delleCelle && xml.inizio("xf")) {
      const int numero = numeroFormato(xml.attributo("numFmtId"));
      const auto proprio = propri.find(numero);
      formati_.push_back(proprio != propri.end() ? proprio->second : formatoPredefinito(numero));
    }
  }
}

void CartellaXlsx::leggiTesti(std::size_t membroTesti, Deposito& deposito) {
  LettoreXml xml(archivio_, membroTesti, posto());
  while (xml.avanza()) {
    if (!xml.inizio("si")) continue;
    const std::string testo = leggiTestoXlsx(xml, "si");
    verificaLunghezza(testo, limiti_, posto());
    testi_.push_back(deposito.conserva(testo));
  }
}

Formato CartellaXlsx::formato(std::size_t stile) const {
  return stile < formati_.size() ? formati_[stile] : Formato::Numero;
}

std::optional<std::string_view> CartellaXlsx::testo(std::size_t indice) const {
  if (indice >= testi_.size()) return std::nullopt;
  return testi_[indice];
}

}  // namespace cu::tabelle
