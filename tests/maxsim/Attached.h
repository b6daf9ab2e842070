// A running maxsim over the demo address book, with the three automation objects attached to it
// on a virtual clock.
#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "common/MaxsimProcess.h"
#include "platform/automation/MaximizerAutomation.h"
#include "platform/ui/Clock.h"
#include "runtime/DateTime.h"

namespace tolmen::test {

class AttachedTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(maxsim_.Start());
    attach_ = MaxAttachObject::Attach(maxsim_.Socket(), clock_);
    app_ = attach_->GetApplicationObject();
    record_ = attach_->GetCurrentRecordObject();
  }
  // The output lines of a control command that must succeed.
  std::vector<std::string> Ctl(const std::vector<std::string>& args) {
    const RunResult result = maxsim_.Ctl(args);
    EXPECT_EQ(result.status, 0) << args.front();
    std::vector<std::string> lines;
    std::istringstream in(result.out);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }

  MaxsimProcess maxsim_;
  VirtualClock clock_{DateFromParts(2026, 11, 23, 9, 0, 0)};
  std::unique_ptr<MaxAttachObject> attach_;
  std::shared_ptr<MaxApplicationObject> app_;
  std::shared_ptr<MaxRecordObject> record_;
};

}  // namespace tolmen::test
