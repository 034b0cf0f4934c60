#include "telematic/lettura.h"

#include <algorithm>
#include <string_view>

#include "base/ascii.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "telematic/catalogo.h"
#include "telematic/celle.h"

namespace cu::telematico {
namespace {

constexpr std::size_t kRiga = static_cast<std::size_t>(kLarghezzaRecord);

std::string_view campo(std::string_view linea, FieldPlace posto) {
  return linea.substr(posto.offset, posto.length);
}

std::string_view campo(std::string_view linea, const CampoRecord& riga) {
  return linea.substr(static_cast<std::size_t>(riga.posizione - 1), static_cast<std::size_t>(riga.lunghezza));
}

void aggiungi(std::vector<std::string>& testi, std::string_view nome, std::string_view valore) {
  const std::string_view rifilato = trim(valore);
  if (!rifilato.empty()) testi.push_back(std::string(nome) + ": " + da1252(rifilato));
}

struct Anno {
  std::int32_t anno;
  const modello::Modello& modello;
};

std::string_view fonte(modello::Record record, std::string_view codice, const Anno& di, bool primoModulo) {
  const std::int32_t anno = modello::annoTracciato(di.anno, di.modello);
  for (const modello::Campo& campo : di.modello.campi) {
    if (!haCella(campo, record) || !vale(campo, anno, primoModulo)) continue;
    const modello::Codice suo = modello::codice(campo);
    if (codice == std::string_view(suo.data(), suo.size())) return modello::fonte(campo);
  }
  return {};
}

void decodificaCelle(std::string_view linea, const Anno& anno, std::vector<std::string>& testi) {
  const modello::Record record = linea.front() == 'D' ? modello::Record::D : modello::Record::H;
  const bool primo =
      record == modello::Record::D || leadingInteger(campo(linea, posto(kTipoH, "Progressivo modulo"))) < 2;
  std::string codice;
  std::string valore;
  const auto chiudi = [&] {
    if (codice.empty()) return;
    const std::string_view colonna = fonte(record, codice, anno, primo);
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

std::vector<std::string> decodifica(std::string_view linea, std::int32_t anno,
                                    const modello::Modello& modello) {
  std::vector<std::string> testi;
  if (linea.size() != kRiga) return testi;
  switch (linea.front()) {
    case 'A':
      decodificaQuadro(linea, kTipoA, testi);
      break;
    case 'B':
      for (const Tavola parte : modello::tipoB(anno, modello)) decodificaQuadro(linea, parte, testi);
      break;
    case 'D':
      decodificaQuadro(linea, kTipoD, testi);
      decodificaCelle(linea, {anno, modello}, testi);
      break;
    case 'H':
      decodificaQuadro(linea, kTipoH, testi);
      decodificaCelle(linea, {anno, modello}, testi);
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
