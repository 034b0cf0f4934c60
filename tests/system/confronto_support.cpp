#include "system/confronto_support.h"

#include <algorithm>

namespace cu::test {

using nlohmann::json;

namespace {

std::string diverso(const json& atteso, const json& trovato, const std::string& dove) {
  return dove + ": expected " + atteso.dump() + ", found " + trovato.dump();
}

bool soloMembro(const json& valore, const char* nome) {
  return valore.is_object() && valore.size() == 1 && valore.contains(nome);
}

std::string confrontaOggetti(const json& atteso, const json& trovato, const std::string& dove) {
  for (const auto& [nome, valore] : atteso.items()) {
    if (!trovato.contains(nome)) return dove + "." + nome + ": missing";
    const std::string qui = differenza(valore, trovato[nome], dove + "." + nome);
    if (!qui.empty()) return qui;
  }
  return {};
}

std::string confrontaElenchi(const json& atteso, const json& trovato, const std::string& dove) {
  if (atteso.size() != trovato.size()) return diverso(atteso, trovato, dove);
  for (std::size_t i = 0; i < atteso.size(); ++i) {
    const std::string qui = differenza(atteso[i], trovato[i], dove + "[" + std::to_string(i) + "]");
    if (!qui.empty()) return qui;
  }
  return {};
}

std::string cercaTutti(const json& attesi, const json& trovato, const std::string& dove) {
  if (!trovato.is_array()) return diverso(attesi, trovato, dove);
  for (const json& atteso : attesi) {
    const bool presente = std::any_of(trovato.begin(), trovato.end(),
                                      [&](const json& voce) { return differenza(atteso, voce).empty(); });
    if (!presente) return dove + ": lacks " + atteso.dump();
  }
  return {};
}

}  // namespace

std::string differenza(const json& atteso, const json& trovato, const std::string& dove) {
  if (soloMembro(atteso, "$any")) return {};
  if (soloMembro(atteso, "$has")) return cercaTutti(atteso["$has"], trovato, dove);
  if (soloMembro(atteso, "$count")) {
    const bool giusto = trovato.is_array() && trovato.size() == atteso["$count"].get<std::size_t>();
    return giusto ? std::string() : diverso(atteso, trovato, dove);
  }
  if (soloMembro(atteso, "$contains")) {
    const bool giusto =
        trovato.is_string() &&
        trovato.get<std::string>().find(atteso["$contains"].get<std::string>()) != std::string::npos;
    return giusto ? std::string() : diverso(atteso, trovato, dove);
  }
  if (atteso.is_object() && trovato.is_object()) return confrontaOggetti(atteso, trovato, dove);
  if (atteso.is_array() && trovato.is_array()) return confrontaElenchi(atteso, trovato, dove);
  return atteso == trovato ? std::string() : diverso(atteso, trovato, dove);
}

}  // namespace cu::test
