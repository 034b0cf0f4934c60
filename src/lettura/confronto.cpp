#include "lettura/confronto.h"

#include <algorithm>
#include <utility>

namespace cu::lettura {
namespace {

bool firma(const std::string& codice) { return codice == "DA003001" || codice == "DA003002"; }

void confronta(int modulo, const std::vector<Valore>& vecchie, const std::vector<Valore>& nuove,
               std::vector<CasellaDiversa>& diverse) {
  const std::size_t prima = diverse.size();
  for (const Valore& vecchia : vecchie) {
    const std::string& nuova = valoreDi(nuove, vecchia.codice);
    if (!firma(vecchia.codice) && nuova != vecchia.testo) {
      diverse.push_back({modulo, vecchia.codice, vecchia.testo, nuova});
    }
  }
  for (const Valore& nuova : nuove) {
    if (!firma(nuova.codice) && valoreDi(vecchie, nuova.codice).empty() && !nuova.testo.empty()) {
      diverse.push_back({modulo, nuova.codice, {}, nuova.testo});
    }
  }
  std::stable_sort(diverse.begin() + static_cast<std::ptrdiff_t>(prima), diverse.end(),
                   [](const CasellaDiversa& a, const CasellaDiversa& b) { return a.campo < b.campo; });
}

const std::vector<Valore>& celleDi(const Certificato& certificato, std::size_t modulo) {
  static const std::vector<Valore> kNessuna;
  return modulo < certificato.moduli.size() ? certificato.moduli[modulo].celle : kNessuna;
}

std::string chiave(const Certificato& certificato) {
  return certificato.percipiente + "\n" + certificato.causale();
}

}  // namespace

std::vector<CasellaDiversa> diverse(const Certificato& vecchio, const Certificato& nuovo, bool soloD) {
  std::vector<CasellaDiversa> diverse;
  confronta(1, vecchio.celle, nuovo.celle, diverse);
  const std::size_t moduli = soloD ? 0 : std::max(vecchio.moduli.size(), nuovo.moduli.size());
  for (std::size_t i = 0; i < moduli; ++i) {
    confronta(static_cast<int>(i) + 1, celleDi(vecchio, i), celleDi(nuovo, i), diverse);
  }
  return diverse;
}

void Accostamento::aggiungi(Certificato certificato) {
  perChiave_[chiave(certificato)].push_back(posti_.size());
  if (!certificato.causale().empty()) perChiave_[certificato.percipiente + "\n*"].push_back(posti_.size());
  posti_.push_back({std::move(certificato), false});
}

std::optional<Certificato> Accostamento::togli(const Certificato& certificato) {
  for (const std::string& cercata :
       {chiave(certificato),
        certificato.causale().empty() ? certificato.percipiente + "\n*" : std::string()}) {
    const auto trovati = perChiave_.find(cercata);
    if (trovati == perChiave_.end()) continue;
    for (std::size_t& i = prossimo_[cercata]; i < trovati->second.size(); ++i) {
      Posto& posto = posti_[trovati->second[i]];
      if (!std::exchange(posto.tolto, true)) return std::move(posto.certificato);
    }
  }
  return std::nullopt;
}

void Accostamento::rimasti(const std::function<void(const Certificato&)>& chiama) const {
  for (const Posto& posto : posti_) {
    if (!posto.tolto) chiama(posto.certificato);
  }
}

}  // namespace cu::lettura
