#include "platform/user_folders.h"

#include <cstdlib>

namespace cu {
namespace {

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

// An absolute path without a separator at its end; empty for anything else.
std::string absolute(const char* variable) {
  std::string path = environment(variable);
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path.starts_with('/') ? path : std::string();
}

}  // namespace

std::string stateFolder() {
#ifdef _WIN32
  return configurationFolder();
#else
  std::string named = absolute("XDG_STATE_HOME");
  if (!named.empty()) return named;
  const std::string home = absolute("HOME");
  return home.empty() ? std::string() : home + "/.local/state";
#endif
}

std::string configurationFolder() {
#ifdef _WIN32
  std::string local = environment("LOCALAPPDATA");
  for (char& c : local) c = c == '\\' ? '/' : c;
  return local;
#else
  std::string named = absolute("XDG_CONFIG_HOME");
  if (!named.empty()) return named;
  std::string home = environment("HOME");
  while (home.size() > 1 && home.ends_with('/')) home.pop_back();
  if (home == "/") home.clear();
  return home + "/.config";
#endif
}

}  // namespace cu
