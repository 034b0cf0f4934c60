// Any bytes as an electronic invoice, in an envelope or without: messages of one line with known codes, or
// documents whose payments keep the rules of an account.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "fatture/compensi.h"
#include "fatture/lettura_fattura.h"

namespace {

using cu::Decimal;
using cu::fatture::Rilievo;

void check(bool kept, const char* what) {
  if (kept) return;
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

void checkMessages(const std::vector<Rilievo>& messages) {
  constexpr std::string_view kCodes =
      "F01 F02 F03 F04 F05 C01 C02 V01 V03 V04 V05 V09 R02 R06 R07 R08 R09 R10";
  for (const Rilievo& message : messages) {
    check(message.codice.size() == 3 && kCodes.find(message.codice) != std::string_view::npos,
          "an unknown code");
    for (const char c : cu::fatture::detto(message)) {
      check(static_cast<unsigned char>(c) >= 0x20, "a message of several lines");
    }
  }
}

void checkPayments(const cu::fatture::Fattura& document) {
  const cu::fatture::EsitoFattura outcome = cu::fatture::compensiDi(document);
  checkMessages(outcome.rilievi);
  check(outcome.escluso.empty() || outcome.compensi.empty(), "a payment of a document that is left out");
  for (const auto& payment : outcome.compensi) {
    checkMessages(payment.rilievi);
    check(!payment.deciso || !payment.candidati.empty(), "decided without a candidate");
    check(payment.deciso || !payment.rilievi.empty(), "to be decided without a reason");
    for (const auto& candidate : payment.candidati) {
      check(!candidate.spiegazione.empty(), "a candidate without explanation");
      if (!payment.deciso) continue;
      const auto& amounts = candidate.importi;
      check(amounts.quotaNonSoggetta.abs() <= amounts.onorario.abs(), "a share above the fee");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const cu::fatture::Letto read = cu::fatture::leggiFattura(bytes, "file.xml");
  checkMessages(read.rilievi);
  check(read.genere != cu::fatture::Genere::Illeggibile || read.conErrori(), "unreadable without a reason");
  for (const auto& document : read.fatture) {
    checkMessages(document.rilievi);
    checkPayments(document);
  }
  return 0;
}
