#include "apps/importazione/parole_finestra.h"

#include <array>
#include <string_view>

namespace cu {
namespace {

struct Rimedio {
  std::string_view comando;
  std::string_view finestra;
};
constexpr auto kRimedi = std::to_array<Rimedio>({
    {"indicarlo con --dates dmy, mdy o ymd", "indicarlo nel passo Lettura, in «Date»"},
    {"indicare il segno dei decimali (--decimal) o delle migliaia",
     "indicare nel passo Lettura il segno dei decimali o delle migliaia"},
    {"è data due volte", "è data due volte: scegliere qui sotto quale vale"},
    {"i segni delle migliaia si indicano nella mappatura (migliaia)",
     "il segno delle migliaia si indica nel passo Lettura"},
});

}  // namespace

std::string perLaFinestra(std::string testo) {
  for (const Rimedio& uno : kRimedi) {
    const std::size_t dove = testo.find(uno.comando);
    if (dove != std::string::npos) testo.replace(dove, uno.comando.size(), uno.finestra);
  }
  return testo;
}

}  // namespace cu
