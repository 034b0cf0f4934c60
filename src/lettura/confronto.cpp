#include "lettura/confronto.h"

#include <algorithm>
#include <set>
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

// The cells of the module with the number; none where there is no such module.
const std::vector<Valore>& celleDi(const Certificato& certificato, int numero) {
  static const std::vector<Valore> kNessuna;
  const auto trovato = std::find_if(certificato.moduli.begin(), certificato.moduli.end(),
                                    [numero](const Modulo& modulo) { return modulo.numero == numero; });
  return trovato == certificato.moduli.end() ? kNessuna : trovato->celle;
}

// The keys of a payee's certificates of any reason, and of its annulments.
const std::string kQualunque = "\n*";
const std::string kAnnullamento = "\n!";

std::string chiave(const Certificato& certificato) {
  return certificato.percipiente + "\n" + certificato.causale();
}

}  // namespace

std::vector<CasellaDiversa> diverse(const Certificato& vecchio, const Certificato& nuovo, bool soloD) {
  std::vector<CasellaDiversa> diverse;
  confronta(1, vecchio.celle, nuovo.celle, diverse);
  if (soloD) return diverse;
  std::set<int> numeri;
  for (const Certificato* const uno : {&vecchio, &nuovo}) {
    for (const Modulo& modulo : uno->moduli) numeri.insert(modulo.numero);
  }
  for (const int numero : numeri)
    confronta(numero, celleDi(vecchio, numero), celleDi(nuovo, numero), diverse);
  return diverse;
}

void Accostamento::aggiungi(Certificato certificato) {
  const bool senzaCausale = certificato.causale().empty();
  perChiave_[chiave(certificato)].push_back(posti_.size());
  if (!senzaCausale) perChiave_[certificato.percipiente + kQualunque].push_back(posti_.size());
  if (senzaCausale && certificato.operazione == "A") {
    perChiave_[certificato.percipiente + kAnnullamento].push_back(posti_.size());
  }
  posti_.push_back({std::move(certificato), false});
}

std::optional<Certificato> Accostamento::togli(const Certificato& certificato) {
  // An annulment has no record H, and so no reason.
  const bool senzaCausale = certificato.causale().empty();
  const std::string altra = !senzaCausale                   ? kAnnullamento
                            : certificato.operazione == "A" ? kQualunque
                                                            : std::string();
  for (const std::string& cercata :
       {chiave(certificato), altra.empty() ? std::string() : certificato.percipiente + altra}) {
    const auto trovati = perChiave_.find(cercata);
    if (trovati == perChiave_.end()) continue;
    Posto* scelto = nullptr;
    for (const std::size_t i : trovati->second) {
      Posto& posto = posti_[i];
      if (posto.tolto) continue;
      if (scelto == nullptr) scelto = &posto;
      // Of several with the same key the one that is equal.
      if (trovati->second.size() > 1 && diverse(posto.certificato, certificato).empty()) {
        scelto = &posto;
        break;
      }
    }
    if (scelto == nullptr) continue;
    scelto->tolto = true;
    return std::move(scelto->certificato);
  }
  return std::nullopt;
}

void Accostamento::rimasti(const std::function<void(const Certificato&)>& chiama) const {
  for (const Posto& posto : posti_) {
    if (!posto.tolto) chiama(posto.certificato);
  }
}

}  // namespace cu::lettura
