// The library's parser, compiled here alone.
#define TOML_IMPLEMENTATION
#include "toml/toml.h"
