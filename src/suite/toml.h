#pragma once

// The TOML library, the same way in every file of this room; no header of the room includes this one.
#define TOML_HEADER_ONLY 1
#define TOML_EXCEPTIONS 0
#define TOML_ENABLE_UNRELEASED_FEATURES 0
#include <toml++/toml.h>
