#include "intake/nazione_iso.h"

#include <algorithm>
#include <array>

namespace cu::intake {
namespace {

struct PaeseIso {
  std::string_view iso;
  std::string_view catasto;
};

constexpr auto kPaesi = std::to_array<PaeseIso>({
    {"AD", "Z101"}, {"AE", "Z215"}, {"AL", "Z100"}, {"AR", "Z600"}, {"AT", "Z102"}, {"AU", "Z700"},
    {"BA", "Z153"}, {"BE", "Z103"}, {"BG", "Z104"}, {"BR", "Z602"}, {"BY", "Z139"}, {"CA", "Z401"},
    {"CH", "Z133"}, {"CL", "Z603"}, {"CN", "Z210"}, {"CO", "Z604"}, {"CY", "Z211"}, {"CZ", "Z156"},
    {"DE", "Z112"}, {"DK", "Z107"}, {"DZ", "Z301"}, {"EE", "Z144"}, {"EG", "Z336"}, {"EL", "Z115"},
    {"ES", "Z131"}, {"FI", "Z109"}, {"FR", "Z110"}, {"GB", "Z114"}, {"GR", "Z115"}, {"HK", "Z221"},
    {"HR", "Z149"}, {"HU", "Z134"}, {"ID", "Z223"}, {"IE", "Z116"}, {"IL", "Z226"}, {"IN", "Z222"},
    {"IR", "Z224"}, {"IS", "Z117"}, {"JP", "Z219"}, {"KR", "Z213"}, {"LI", "Z119"}, {"LT", "Z146"},
    {"LU", "Z120"}, {"LV", "Z145"}, {"MA", "Z330"}, {"MC", "Z123"}, {"MD", "Z140"}, {"ME", "Z159"},
    {"MK", "Z148"}, {"MT", "Z121"}, {"MX", "Z514"}, {"NL", "Z126"}, {"NO", "Z125"}, {"NZ", "Z719"},
    {"PE", "Z611"}, {"PH", "Z216"}, {"PL", "Z127"}, {"PT", "Z128"}, {"RO", "Z129"}, {"RS", "Z158"},
    {"RU", "Z154"}, {"SE", "Z132"}, {"SG", "Z248"}, {"SI", "Z150"}, {"SK", "Z155"}, {"SM", "Z130"},
    {"TH", "Z241"}, {"TN", "Z352"}, {"TR", "Z243"}, {"TW", "Z217"}, {"UA", "Z138"}, {"UK", "Z114"},
    {"US", "Z404"}, {"UY", "Z613"}, {"VA", "Z106"}, {"VE", "Z614"}, {"VN", "Z251"}, {"XI", "Z114"},
    {"XK", "Z160"}, {"ZA", "Z347"},
});

}  // namespace

std::string_view catastoDiIso(std::string_view paese) {
  const auto* const suo =
      std::find_if(kPaesi.begin(), kPaesi.end(), [&](const PaeseIso& uno) { return uno.iso == paese; });
  return suo == kPaesi.end() ? std::string_view() : suo->catasto;
}

}  // namespace cu::intake
