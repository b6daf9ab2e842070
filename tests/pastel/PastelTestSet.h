// A Pastel set of accounts in a temporary folder, made from the demo description with changes,
// and an application over it with the script front-end as its user and a virtual clock.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "common/TempDir.h"
#include "pastel/PastelDataSet.h"
#include "platform/recordmanager/BtrCodes.h"
#include "platform/ui/ScriptUi.h"
#include "runtime/DateTime.h"
#include "shell/Tolmen.h"

namespace tolmen::testing {

namespace fs = std::filesystem;

inline nlohmann::json DemoSet() {
  std::ifstream in(std::string(TOLMEN_SOURCE_DIR) + "/tools/pasteldata/samples/demo.json");
  return nlohmann::json::parse(in);
}

class PastelSetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(root_ / "home");
    set_ = DemoSet();
  }

  // The folder of the set, with a trailing '/'.
  std::string Folder() const { return (root_ / "set").string() + "/"; }
  nlohmann::json& Files() { return set_["files"]; }

  // Starts the application with the script's lines as the user, at `now`.
  void Start(const std::vector<std::string>& script, double now = DateSerial(2024, 6, 15) + 0.5) {
    app_.reset();
    clock_ = std::make_unique<VirtualClock>(now);
    transcript_.str("");
    ui_ = std::make_unique<ScriptUi>(script, &transcript_, *clock_, "Tolmen");
    app_ = std::make_unique<Tolmen>(MakeAppInfo((root_ / "home").string() + "/", "1.0.0"), *ui_,
                                    *clock_, (root_ / "settings.ini").string());
  }
  // Creates the set as described now (through pasteldata's library code).
  void MakeSet() {
    if (!app_) Start({});
    CreatePastelSet(*app_, Folder(), set_);
  }

  // The records of a file in the order of its first key, read past the record classes.
  std::vector<std::string> Records(const std::string& path) {
    std::string pos(128, ' '), data, key = path;
    int32_t length = 0;
    EXPECT_EQ(app_->engine.BTRCALL(kOpOpen, pos, data, length, key, 255, 0), 0) << path;
    std::vector<std::string> records;
    for (uint16_t op = kOpGetFirst;; op = kOpGetNext) {
      data.assign(8192, '\0');
      length = 8192;
      key.assign(255, ' ');
      if (app_->engine.BTRCALL(op, pos, data, length, key, 255, 0) != 0) break;
      records.push_back(data.substr(0, static_cast<size_t>(length)));
    }
    app_->engine.BTRCALL(kOpClose, pos, data, length, key, 255, 0);
    return records;
  }
  std::string FirstRecord(const std::string& name) {
    const std::vector<std::string> records = Records(Folder() + name);
    EXPECT_FALSE(records.empty()) << name;
    return records.empty() ? "" : records[0];
  }

  std::string Transcript() const { return transcript_.str(); }

  test::TempDir dir_{"tolmen-pastel-"};  // first in, last out: everything below lives in it
  fs::path root_ = dir_.Path();
  nlohmann::json set_;
  std::unique_ptr<VirtualClock> clock_;
  std::ostringstream transcript_;
  std::unique_ptr<ScriptUi> ui_;
  std::unique_ptr<Tolmen> app_;
};

}  // namespace tolmen::testing
