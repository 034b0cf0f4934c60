#include "lettura/certificato.h"

#include <algorithm>

#include "lettura/valori.h"

namespace cu::lettura {

const std::string& valoreDi(const std::vector<Valore>& celle, std::string_view codice) {
  static const std::string kNiente;
  const auto trovato =
      std::find_if(celle.begin(), celle.end(), [codice](const Valore& v) { return v.codice == codice; });
  return trovato == celle.end() ? kNiente : trovato->testo;
}

const std::string& Certificato::valore(std::string_view codice) const {
  const std::string& inD = valoreDi(celle, codice);
  return !inD.empty() || moduli.empty() ? inD : valoreDi(moduli.front().celle, codice);
}

std::int64_t centesimiDi(const std::string& testo) { return centesimi(testo, true).value_or(0); }

std::string importo(std::int64_t centesimi) {
  if (centesimi == 0) return {};
  std::string testo = euro(centesimi);
  std::erase(testo, '.');
  return testo;
}

std::int64_t nonSoggette(const Certificato& certificato) {
  std::int64_t somma = 0;
  for (const Modulo& modulo : certificato.moduli) {
    somma +=
        centesimiDi(valoreDi(modulo.celle, "AU001005")) + centesimiDi(valoreDi(modulo.celle, "AU001007"));
  }
  return somma;
}

}  // namespace cu::lettura
