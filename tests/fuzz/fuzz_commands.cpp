// Any bytes as the input of a conversation: each line has one answer, which is JSON of the known structure,
// and the last one reports the end.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "automation/prova_support.h"

namespace {

bool hasShape(const nlohmann::json& answer) {
  if (!answer.is_object() || !answer.contains("id") || !answer.contains("result")) return false;
  if (answer["ok"].get<bool>() == answer.contains("error")) return false;
  return answer["windows"].is_array() && answer["effects"].is_array() && answer["ended"].is_boolean();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  std::size_t lines = 0;
  for (const char c : input) lines += c == '\n' ? 1 : 0;
  if (!input.empty() && input.back() != '\n') ++lines;

  const cu::test::Dialogo talk = cu::test::parlaTesto(input);
  for (const auto& answer : talk.risposte) {
    if (!hasShape(answer)) std::abort();
  }
  if (!talk.ultima()["ended"].get<bool>()) std::abort();
  // One answer before any command, one for each line, one at the end of the input; fewer when a form was
  // closed.
  if (talk.risposte.size() > lines + 2) std::abort();
  if (talk.esito == cu::Driver::Outcome::InputEnded && talk.risposte.size() != lines + 2) std::abort();
  return 0;
}
