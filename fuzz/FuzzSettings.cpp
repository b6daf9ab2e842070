// The settings file: any bytes read as the store; a value saved into it reads back, and a store
// written once is written again byte for byte (every entry survives its own escaping).
#include <fstream>
#include <sstream>

#include "FuzzSupport.h"
#include "Targets.h"
#include "shell/Settings.h"

namespace tolmen::fuzz {
namespace {

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace

int FuzzSettings(const uint8_t* data, size_t size) {
  const std::string bytes = Bytes(data, size);
  FUZZ_CHECK(UnescapeIni(EscapeIni(bytes)) == bytes);

  const std::string path = ScratchFolder() + "settings.ini";
  WriteFile(path, bytes);
  // The probe: a value of the input's own bytes, under a section and key the input may hold too.
  const std::string value = bytes.substr(0, 64);
  {
    Settings store(path);
    (void)store.GetSetting("Options", "Folder", "default");
    store.SaveSetting("Fuzz", "Probe", value);
    FUZZ_CHECK(store.GetSetting("Fuzz", "Probe") == value);
  }
  const std::string written = ReadAll(path);
  {
    Settings store(path);
    FUZZ_CHECK(store.GetSetting("Fuzz", "Probe") == value);
    store.SaveSetting("Fuzz", "Probe", value);
  }
  FUZZ_CHECK(ReadAll(path) == written);
  return 0;
}

}  // namespace tolmen::fuzz
