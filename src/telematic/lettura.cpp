#include "telematic/lettura.h"

#include <algorithm>
#include <string_view>

#include "base/ascii.h"
#include "base/text.h"
#include "modello/modello.h"
#include "telematic/catalogo.h"
#include "telematic/celle.h"
#include "telematic/testo1252.h"

namespace cu::telematico {
namespace {

constexpr std::size_t kRiga = static_cast<std::size_t>(kLarghezzaRecord);
constexpr std::string_view kFineRiga = "\r\n";
constexpr std::size_t kPasso = kRiga + kFineRiga.size();

std::string_view campo(std::string_view linea, FieldPlace posto) {
  return linea.substr(posto.offset, posto.length);
}

std::string_view campo(std::string_view linea, const CampoRecord& riga) {
  return linea.substr(static_cast<std::size_t>(riga.posizione - 1), static_cast<std::size_t>(riga.lunghezza));
}

std::int32_t annoDellaFornitura(std::string_view rigaA) {
  const std::string_view codice = campo(rigaA, posto(kTipoA, "Codice fornitura"));
  const std::string_view cifre = codice.substr(3);
  const bool leggibile = codice.starts_with("CUR") && std::all_of(cifre.begin(), cifre.end(), isDigit);
  return leggibile ? static_cast<std::int32_t>(2000 + leadingInteger(cifre) - 1) : 0;
}

// Where a line of 1900 bytes does not end as it must, its number from 1; 0 when all do.
std::size_t rigaDifettosa(std::string_view contenuto) {
  for (std::size_t at = 0, n = 1; at < contenuto.size(); at += kPasso, ++n) {
    if (contenuto.size() - at < kPasso || contenuto.substr(at + kRiga, kFineRiga.size()) != kFineRiga)
      return n;
  }
  return 0;
}

std::string difettoDi(std::string_view contenuto, const RiepilogoFile& r) {
  if (contenuto.empty()) return "Il file è vuoto.";
  if (const std::size_t n = rigaDifettosa(contenuto); n != 0) {
    return "La riga " + fromInteger(static_cast<std::int64_t>(n)) + " non è lunga 1900 byte.";
  }
  if (contenuto.front() != 'A') return "Il file non comincia con il record A.";
  const std::string_view ultima = contenuto.substr(contenuto.size() - kPasso, kRiga);
  if (ultima.front() != 'Z') return "Manca il record Z: il file è incompleto.";
  const auto conta = [&](FieldPlace posto) { return leadingInteger(campo(ultima, posto)); };
  if (conta(posto(kTipoZ, "N° rec. Tipo D")) != static_cast<std::int64_t>(r.righeD) ||
      conta(posto(kTipoZ, "N° rec. Tipo H")) != static_cast<std::int64_t>(r.righeH) ||
      conta(posto(kTipoZ, "N° rec. Tipo B")) != static_cast<std::int64_t>(r.righeB)) {
    return "I totali del record Z non corrispondono alle righe del file.";
  }
  return "";
}

void aggiungi(std::vector<std::string>& testi, std::string_view nome, std::string_view valore) {
  const std::string_view rifilato = trim(valore);
  if (!rifilato.empty()) testi.push_back(std::string(nome) + ": " + da1252(rifilato));
}

std::string_view fonte(modello::Record record, std::string_view codice, std::int32_t anno, bool primoModulo) {
  for (const modello::Campo& campo : modello::kModello.campi) {
    if (!haCella(campo, record) || !vale(campo, anno, primoModulo)) continue;
    const modello::Codice suo = modello::codice(campo);
    if (codice == std::string_view(suo.data(), suo.size())) return modello::fonte(campo);
  }
  return {};
}

void decodificaCelle(std::string_view linea, std::int32_t anno, std::vector<std::string>& testi) {
  const modello::Record record = linea.front() == 'D' ? modello::Record::D : modello::Record::H;
  const bool primo =
      record == modello::Record::D || leadingInteger(campo(linea, posto(kTipoH, "Progressivo modulo"))) < 2;
  std::string codice;
  std::string valore;
  const auto chiudi = [&] {
    if (codice.empty()) return;
    const std::string_view colonna = fonte(record, codice, modello::annoTracciato(anno), primo);
    aggiungi(testi, colonna.empty() ? codice : codice + " (" + std::string(colonna) + ")", valore);
  };
  for (std::size_t n = 0; n < kCelle; ++n) {
    const std::string_view cella = linea.substr(kPrimaCella - 1 + n * kLarghezzaCella, kLarghezzaCella);
    const std::string_view suo = cella.substr(0, kLunghezzaCodice);
    const std::string_view contenuto = cella.substr(kLunghezzaCodice);
    if (suo == codice && contenuto.front() == kSegnoContinuazione) {
      valore += contenuto.substr(1);
      continue;
    }
    chiudi();
    codice = trim(suo);
    valore = contenuto;
  }
  chiudi();
}

void decodificaQuadro(std::string_view linea, Tavola tavola, std::vector<std::string>& testi) {
  for (const CampoRecord& riga : tavola) {
    if (riga.volte == 1 && !riga.nome.starts_with("Filler")) aggiungi(testi, riga.nome, campo(linea, riga));
  }
}

}  // namespace

RiepilogoFile riepiloga(std::string_view contenuto) {
  RiepilogoFile r;
  r.byte = contenuto.size();
  for (std::size_t at = 0; at < contenuto.size(); at += kPasso) {
    ++r.righe;
    switch (contenuto[at]) {
      case 'A':
        ++r.righeA;
        break;
      case 'B':
        ++r.righeB;
        break;
      case 'D':
        ++r.righeD;
        break;
      case 'H':
        ++r.righeH;
        break;
      case 'Z':
        ++r.righeZ;
        break;
      default:
        break;
    }
  }
  if (contenuto.size() >= kPasso && contenuto.front() == 'A')
    r.anno = annoDellaFornitura(contenuto.substr(0, kRiga));
  r.difetto = difettoDi(contenuto, r);
  return r;
}

std::string inParole(const RiepilogoFile& r) {
  const auto numero = [](std::size_t n) { return fromInteger(static_cast<std::int64_t>(n)); };
  return numero(r.byte) + " byte, " + numero(r.righe) + (r.righe == 1 ? " riga: " : " righe: ") +
         numero(r.righeA) + " A, " + numero(r.righeB) + " B, " + numero(r.righeD) + " D, " +
         numero(r.righeH) + " H, " + numero(r.righeZ) + " Z. " +
         (r.completo() ? "Il file è completo." : r.difetto);
}

std::vector<std::string> decodifica(std::string_view linea, std::int32_t anno) {
  std::vector<std::string> testi;
  if (linea.size() != kRiga) return testi;
  switch (linea.front()) {
    case 'A':
      decodificaQuadro(linea, kTipoA, testi);
      break;
    case 'B':
      for (const Tavola parte : modello::tipoB(anno)) decodificaQuadro(linea, parte, testi);
      break;
    case 'D':
      decodificaQuadro(linea, kTipoD, testi);
      decodificaCelle(linea, anno, testi);
      break;
    case 'H':
      decodificaQuadro(linea, kTipoH, testi);
      decodificaCelle(linea, anno, testi);
      break;
    case 'Z':
      decodificaQuadro(linea, kTipoZ, testi);
      break;
    default:
      break;
  }
  return testi;
}

}  // namespace cu::telematico
