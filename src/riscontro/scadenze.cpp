#include "riscontro/scadenze.h"

#include <algorithm>
#include <stdexcept>

#include "base/text.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu::riscontro {
namespace {

std::vector<std::string> parole(std::string_view testo) {
  std::vector<std::string> tutte;
  while (!testo.empty()) {
    const std::string_view parola = testo.substr(0, testo.find(' '));
    if (!parola.empty()) tutte.emplace_back(parola);
    testo.remove_prefix(std::min(parola.size() + 1, testo.size()));
  }
  return tutte;
}

bool nomina(const Scadenza& scadenza, const std::string& causale) {
  return std::find(scadenza.causali.begin(), scadenza.causali.end(), causale) != scadenza.causali.end();
}

// The dates that may hold for a reason: its own, and of the others those with a condition; without its own,
// all.
std::vector<const Scadenza*> diCausale(const std::vector<Scadenza>& scadenze, std::int32_t anno,
                                       const std::string& causale) {
  const auto vale = [anno](const Scadenza& una) { return una.anno == anno && !una.alPercipiente; };
  const bool ha = std::any_of(scadenze.begin(), scadenze.end(),
                              [&](const Scadenza& una) { return vale(una) && nomina(una, causale); });
  std::vector<const Scadenza*> sue;
  for (const Scadenza& una : scadenze) {
    if (!vale(una)) continue;
    const bool generale = una.causali.empty() && (!ha || !una.condizione.empty());
    if (generale || nomina(una, causale)) sue.push_back(&una);
  }
  return sue;
}

}  // namespace

std::vector<Scadenza> scadenze() {
  const Tabella tabella(risorsa("liste/scadenze.tsv"));
  std::vector<Scadenza> tutte;
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    const auto entro = Date::parseIso(tabella.campo(i, "Entro"));
    if (!entro) throw std::runtime_error("liste/scadenze.tsv: Entro");
    tutte.push_back({static_cast<std::int32_t>(leadingInteger(tabella.campo(i, "Anno"))),
                     tabella.campo(i, "Destinatario") == "percipiente", parole(tabella.campo(i, "Causali")),
                     *entro, std::string(tabella.campo(i, "Condizione")),
                     std::string(tabella.campo(i, "Fonte"))});
  }
  return tutte;
}

Termini termini(const std::vector<Scadenza>& scadenze, std::int32_t anno,
                const std::map<std::string, std::size_t>& daInviare, Date oggi) {
  Termini esito;
  std::map<const Scadenza*, Termine> perScadenza;
  for (const auto& [causale, quante] : daInviare) {
    if (quante == 0) continue;
    std::size_t passate = 0;
    const std::vector<const Scadenza*> sue = diCausale(scadenze, anno, causale);
    for (const Scadenza* una : sue) {
      Termine& termine = perScadenza[una];
      termine.entro = una->entro;
      termine.condizione = una->condizione;
      termine.fonte = una->fonte;
      termine.causali.push_back(causale);
      termine.certificazioni += quante;
      if (una->entro < oggi) ++passate;
    }
    if (passate > 0) (passate == sue.size() ? esito.inRitardo : esito.forseInRitardo) += quante;
  }
  for (auto& [scadenza, termine] : perScadenza) esito.tutti.push_back(std::move(termine));
  std::sort(esito.tutti.begin(), esito.tutti.end(), [](const Termine& a, const Termine& b) {
    return a.entro != b.entro ? a.entro < b.entro : a.causali < b.causali;
  });
  return esito;
}

}  // namespace cu::riscontro
