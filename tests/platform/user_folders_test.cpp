#include "platform/user_folders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace cu {
namespace {

// As the desktop's programs find it.
TEST(UserFolders, TheConfigurationIsWhereTheEnvironmentSays) {
  const auto with = [](const char* named, const char* home) {
    setenv("XDG_CONFIG_HOME", named, 1);
    setenv("HOME", home, 1);
    return configurationFolder();
  };
  const char* const before = std::getenv("HOME");
  const std::string home = before == nullptr ? "" : before;
  EXPECT_EQ(with("/da/altra/parte/", "/home/anna"), "/da/altra/parte");
  EXPECT_EQ(with("", "/home/anna/"), "/home/anna/.config");
  EXPECT_EQ(with("relativa", "/home/anna"), "/home/anna/.config");
  EXPECT_EQ(with("", "/"), "/.config");
  unsetenv("XDG_CONFIG_HOME");
  setenv("HOME", home.c_str(), 1);
}

TEST(UserFolders, TheStateIsBesideTheDataOfPrograms) {
  const auto with = [](const char* named, const char* home) {
    setenv("XDG_STATE_HOME", named, 1);
    setenv("HOME", home, 1);
    return stateFolder();
  };
  const char* const before = std::getenv("HOME");
  const std::string home = before == nullptr ? "" : before;
  EXPECT_EQ(with("/da/altra/parte/", "/home/anna"), "/da/altra/parte");
  EXPECT_EQ(with("relativa", "/home/anna/"), "/home/anna/.local/state");
  EXPECT_EQ(with("", "relativa"), "");
  unsetenv("XDG_STATE_HOME");
  setenv("HOME", home.c_str(), 1);
}

}  // namespace
}  // namespace cu
