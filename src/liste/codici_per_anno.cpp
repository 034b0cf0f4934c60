#include "liste/codici_per_anno.h"

#include <algorithm>
#include <limits>

#include "base/text.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu {
namespace {

constexpr std::int32_t kPrima = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMai = std::numeric_limits<std::int32_t>::max();

std::int32_t annoScritto(std::string_view testo, std::int32_t senza) {
  return testo.empty() ? senza : static_cast<std::int32_t>(leadingInteger(testo));
}

}  // namespace

CodiciPerAnno::CodiciPerAnno(std::string_view elenco) {
  const Tabella tabella(risorsa("liste/" + std::string(elenco) + "_per_anno.tsv"));
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    righe_.push_back({.id = annoScritto(tabella.campo(i, "ID"), 0),
                      .codice = tabella.campo(i, "Codice"),
                      .dal = annoScritto(tabella.campo(i, "Dal"), kPrima),
                      .al = annoScritto(tabella.campo(i, "Al"), kMai),
                      .certa = annoScritto(tabella.campo(i, "Certa"), kPrima),
                      .tolta = annoScritto(tabella.campo(i, "Tolta"), kMai),
                      .gruppo = annoScritto(tabella.campo(i, "Gruppo"), 0),
                      .significato = tabella.campo(i, "Significato")});
  }
  const Tabella completi(risorsa("liste/elenchi_completi.tsv"));
  for (std::size_t i = 0; i < completi.righe(); ++i) {
    if (completi.campo(i, "Elenco") == elenco) {
      completi_.push_back(annoScritto(completi.campo(i, "Anno"), kMai));
    }
  }
}

Validita CodiciPerAnno::di(std::string_view codice, std::int32_t anno) const {
  Validita trovata = Validita::Ignota;
  for (const Riga& riga : righe_) {
    if (riga.codice != codice) continue;
    if (anno >= riga.dal && anno <= riga.al) return anno >= riga.certa ? Validita::Nota : Validita::Dubbia;
    if (anno >= riga.tolta) trovata = Validita::Tolta;
  }
  return trovata;
}

bool CodiciPerAnno::completo(std::int32_t anno) const {
  return std::find(completi_.begin(), completi_.end(), anno) != completi_.end();
}

bool CodiciPerAnno::ammesso(std::string_view codice, std::int32_t anno) const {
  switch (di(codice, anno)) {
    case Validita::Nota:
    case Validita::Dubbia:
      return true;
    case Validita::Tolta:
      return false;
    case Validita::Ignota:
      break;
  }
  return !completo(anno);
}

std::string CodiciPerAnno::elencoDi(std::int32_t anno) const {
  std::string elenco;
  for (const Riga& riga : righe_) {
    if (anno < riga.dal || anno > riga.al || anno < riga.certa) continue;
    if (!elenco.empty()) elenco += ", ";
    elenco += riga.codice;
  }
  return elenco;
}

std::vector<std::string_view> CodiciPerAnno::codici() const {
  std::vector<std::string_view> codici;
  for (const Riga& riga : righe_) {
    if (codici.empty() || codici.back() != riga.codice) codici.push_back(riga.codice);
  }
  return codici;
}

std::vector<CodiciPerAnno::Aggiunta> CodiciPerAnno::aggiunte() const {
  std::vector<Aggiunta> aggiunte;
  for (const Riga& riga : righe_) {
    if (riga.id == 0) continue;
    if (aggiunte.empty() || aggiunte.back().codice != riga.codice) {
      aggiunte.push_back({riga.id, std::string(riga.codice), riga.gruppo, std::string(riga.significato)});
    } else {
      aggiunte.back().significato += "; " + std::string(riga.significato);
    }
  }
  return aggiunte;
}

const CodiciPerAnno& causaliPerAnno() {
  static const CodiciPerAnno kCodici("causali");
  return kCodici;
}

const CodiciPerAnno& codiciNonSoggettiPerAnno() {
  static const CodiciPerAnno kCodici("codici_non_soggetti");
  return kCodici;
}

const CodiciPerAnno& categorieEntiPerAnno() {
  static const CodiciPerAnno kCodici("categorie_enti");
  return kCodici;
}

const CodiciPerAnno& eventiEccezionaliPerAnno() {
  static const CodiciPerAnno kCodici("eventi_eccezionali");
  return kCodici;
}

}  // namespace cu
