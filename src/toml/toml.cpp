// The only file that compiles the library's parser.
#define TOML_IMPLEMENTATION
#include "toml/toml.h"
