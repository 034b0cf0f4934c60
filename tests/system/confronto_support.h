#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace cu::test {

// The difference between a value and its expectation; "" when there is none. An expected object contains only
// the members that matter; a list is compared whole. Instead of a value the expectation may be
// {"$contains":"text"} for a text, {"$count":n} for a list, {"$has":[...]} for a list that contains at least
// these, {"$any":true}.
std::string differenza(const nlohmann::json& atteso, const nlohmann::json& trovato,
                       const std::string& dove = "$");

}  // namespace cu::test
