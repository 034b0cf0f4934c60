#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/json.h"

namespace cu {

class Conversation;

// Parses the command in a line; raises Refused when it is invalid.
Json parseCommand(std::string_view line);

// Runs the command and returns its result, null for most; raises Refused when it cannot be executed.
JsonObject runCommand(Conversation& conversation, const Json& command);

// Name and arguments of every command, such as "row in row".
std::vector<std::string> commandShapes();

}  // namespace cu
