// Columns that are proposed by headings which are not quite their names.

#include <algorithm>
#include <set>
#include <string_view>

#include "apps/importazione/colonne_scelte.h"
#include "base/text.h"
#include "intake/corrispondenza.h"

namespace cu {
namespace {

using Parole = std::vector<std::string>;

constexpr std::size_t kParolaCorta = 3;  // shorter ones ("di", "n.") say nothing

// The words of "Data pag." and of "DataPagamento", in lower case.
Parole paroleDi(std::string_view testo) {
  Parole parole;
  std::string parola;
  const auto chiudi = [&] {
    if (parola.size() >= kParolaCorta) parole.push_back(lowerAscii(parola));
    parola.clear();
  };
  char prima = ' ';
  for (const char c : testo) {
    const bool grande = c >= 'A' && c <= 'Z';
    const bool lettera = grande || (c >= 'a' && c <= 'z') || (static_cast<unsigned char>(c) & 0x80U) != 0;
    if (!lettera || (grande && prima >= 'a' && prima <= 'z')) chiudi();
    if (lettera) parola += c;
    prima = c;
  }
  chiudi();
  return parole;
}

bool cominciaCosi(const Parole& nome, const Parole& titolo) {
  return !titolo.empty() && std::equal(nome.begin(), nome.end(), titolo.begin(), titolo.end(),
                                       [](const std::string& intera, const std::string& inizio) {
                                         return intera.starts_with(inizio);
                                       });
}

bool somiglia(const intake::Colonna& colonna, const Parole& titolo) {
  if (cominciaCosi(paroleDi(colonna.nome), titolo)) return true;
  return std::any_of(colonna.altriNomi.begin(), colonna.altriNomi.end(), [&](std::string_view altro) {
    return !altro.empty() && cominciaCosi(paroleDi(altro), titolo);
  });
}

}  // namespace

std::optional<intake::Mappatura> conProposte(const FileScelto& file,
                                             const std::vector<ColonnaScelta>& scelte) {
  std::set<std::string> usati;
  for (const ColonnaScelta& una : scelte) usati.insert(una.intestazioni.begin(), una.intestazioni.end());
  intake::Mappatura mappatura = file.mappatura;
  bool altre = false;
  for (const std::string& titolo : intake::titoliDistinti(*file.tabella)) {
    if (usati.contains(titolo)) continue;
    const Parole parole = paroleDi(titolo);
    const ColonnaScelta* sola = nullptr;
    std::size_t simili = 0;
    for (const ColonnaScelta& una : scelte) {
      if (una.presente() || una.scelta || !somiglia(*una.colonna, parole)) continue;
      sola = &una;
      ++simili;
    }
    if (simili != 1 || mappatura.colonne.contains(sola->colonna->indice)) continue;
    cambiaFonte(mappatura, sola->colonna->indice, {{titolo}, {}, intake::Segno::ComeScritto});
    altre = true;
  }
  return altre ? std::optional(std::move(mappatura)) : std::nullopt;
}

}  // namespace cu
