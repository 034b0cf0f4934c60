#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace cu {

using Json = nlohmann::json;                // input
using JsonObject = nlohmann::ordered_json;  // output, with the members in insertion order

// One line of JSON; bytes that are not UTF-8 become U+FFFD.
std::string toLine(const JsonObject& value);

// A text as a member, "" when there is none; a number as a member, null when it is not set.
JsonObject orNull(const std::optional<std::int64_t>& number);

}  // namespace cu
