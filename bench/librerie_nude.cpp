// A program that does nothing, with the libraries that the command line program has at its start, and loads
// those that its arguments name.

#include <dlfcn.h>

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (*argv[i] != '\0' && dlopen(argv[i], RTLD_LAZY | RTLD_LOCAL) == nullptr) return 1;
  }
}
