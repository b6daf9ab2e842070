// The config folder that the settings store and the autostart entry share, from a table of
// environments.
#include <gtest/gtest.h>

#include "common/TestText.h"
#include "shell/ConfigFolder.h"
#include "shell/Registry.h"
#include "shell/Settings.h"

namespace tolmen {
namespace {

TEST(ConfigFolder, ComesFromXdgConfigHomeThenHome) {
  const struct {
    const char* config;
    const char* home;
    const char* folder;
  } cases[] = {
      {"/c/cfg", "/h/user", "/c/cfg"},
      {"/c/cfg//", "/h/user", "/c/cfg"},
      {"", "/h/user", "/h/user/.config"},
      {"", "", ""},
  };
  for (const auto& c : cases) {
    test::ScopedEnv config("XDG_CONFIG_HOME", c.config);
    test::ScopedEnv home("HOME", c.home);
    const std::string folder = c.folder;
    EXPECT_EQ(ConfigFolder(), folder) << c.config << " " << c.home;
    EXPECT_EQ(Settings::DefaultPath(), folder.empty() ? "" : folder + "/Vellumator7/settings.ini");
    EXPECT_EQ(ReadRegistryValue(HKEY_CURRENT_USER, kShellFoldersKey, "Startup"),
              folder.empty() ? "" : folder + "/autostart");
  }
}

}  // namespace
}  // namespace tolmen
