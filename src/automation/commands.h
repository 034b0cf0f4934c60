#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/json.h"

namespace cu {

class Conversation;

// The command in a line; Refused when it is none.
Json parseCommand(std::string_view line);

// Runs it and gives its result, null for most; Refused when it cannot be done.
JsonObject runCommand(Conversation& conversation, const Json& command);

// Name and arguments of every command, such as "row in row".
std::vector<std::string> commandShapes();

}  // namespace cu
