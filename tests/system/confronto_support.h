#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace cu::test {

// Where a value differs from what is expected of it; "" when it does not. An expected object names only the
// members that count; a list counts whole. Instead of a value may stand {"$contains":"text"} for a text,
// {"$count":n} for a list, {"$has":[...]} for a list that holds these among others, {"$any":true}.
std::string differenza(const nlohmann::json& atteso, const nlohmann::json& trovato,
                       const std::string& dove = "$");

}  // namespace cu::test
