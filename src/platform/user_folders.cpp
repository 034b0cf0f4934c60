#include "platform/user_folders.h"

#include <cstdlib>

namespace cu {
namespace {

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

}  // namespace

std::string configurationFolder() {
#ifdef _WIN32
  std::string local = environment("LOCALAPPDATA");
  for (char& c : local) c = c == '\\' ? '/' : c;
  return local;
#else
  // A relative path is not valid there.
  std::string named = environment("XDG_CONFIG_HOME");
  while (named.size() > 1 && named.ends_with('/')) named.pop_back();
  if (named.starts_with('/')) return named;
  std::string home = environment("HOME");
  while (home.size() > 1 && home.ends_with('/')) home.pop_back();
  if (home == "/") home.clear();
  return home + "/.config";
#endif
}

}  // namespace cu
