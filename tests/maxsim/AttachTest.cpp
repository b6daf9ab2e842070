// Attaching to maxsim, and what the automation objects do when the instance is not there, goes
// away, dies in the middle of a call or stops answering.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

#include "Attached.h"
#include "common/ErrorOf.h"
#include "common/TestText.h"

namespace tolmen::test {
namespace {

constexpr int kUnavailable = 462;
constexpr int kCallFailed = -2147023170;

double Seconds(std::chrono::steady_clock::time_point since) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

// Leaves a socket file behind that nobody listens at, as a crashed instance does.
void MakeStaleSocket(const std::string& path) {
  const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
  ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
  ::close(fd);
}

TEST(AttachTest, NobodyAnsweringGivesNaAndALaterAttachReachesTheInstance) {
  VirtualClock clock{DateFromParts(2026, 11, 23, 9, 0, 0)};
  MaxsimProcess maxsim;
  MakeStaleSocket(maxsim.Socket());

  auto early = MaxAttachObject::Attach(maxsim.Socket(), clock);
  auto earlyApp = early->GetApplicationObject();
  auto earlyRecord = early->GetCurrentRecordObject();
  ASSERT_NE(earlyRecord, nullptr);
  EXPECT_EQ(earlyApp->GetCurrentDBPath(), "n/a");
  EXPECT_EQ(ErrorOf([&] { earlyRecord->GetListCount(); }), kUnavailable);

  // maxsim replaces the stale socket file with its own, readable by its user alone.
  ASSERT_TRUE(maxsim.Start());
  struct stat info {};
  ASSERT_EQ(::stat(maxsim.Socket().c_str(), &info), 0);
  EXPECT_TRUE(S_ISSOCK(info.st_mode));
  EXPECT_EQ(info.st_mode & 0777, 0600u);

  // Objects made while nobody answered stay so; only a new attach reaches the instance.
  EXPECT_EQ(earlyApp->GetCurrentDBPath(), "n/a");
  auto app = MaxAttachObject::Attach(maxsim.Socket(), clock)->GetApplicationObject();
  EXPECT_EQ(app->GetCurrentDBPath(), std::filesystem::absolute(maxsim.Database()).string());

  // A second instance on the same socket refuses to start; the first one is unharmed.
  EXPECT_EQ(RunMaxsim({"serve", maxsim.Database(), "--socket", maxsim.Socket()}).status, 1);
  EXPECT_EQ(app->GetVisibilityState(), "normal");

  EXPECT_EQ(maxsim.Ctl({"quit"}).status, 0);
  EXPECT_EQ(maxsim.Wait(), 0);
  EXPECT_FALSE(std::filesystem::exists(maxsim.Socket()));
}

using LinkTest = AttachedTest;

TEST_F(LinkTest, ClosedDatabaseAnswersNaAndRefusedCallsRaise440WhileTheLinkGoesOn) {
  const std::string path = app_->GetCurrentDBPath();
  ASSERT_EQ(maxsim_.Ctl({"close"}).status, 0);
  EXPECT_EQ(app_->GetCurrentDBPath(), "n/a");
  EXPECT_EQ(record_->GetListCount(), 0);
  EXPECT_EQ(record_->GetFieldValue("Identification"), "");

  ASSERT_EQ(maxsim_.Ctl({"open", maxsim_.Database()}).status, 0);
  EXPECT_EQ(app_->GetCurrentDBPath(), path);
  EXPECT_EQ(record_->GetListCount(), 12);
  // An open of a folder without an address book fails and keeps the database open.
  EXPECT_EQ(maxsim_.Ctl({"open", maxsim_.Folder().File("nothing")}).status, 1);
  EXPECT_EQ(app_->GetCurrentDBPath(), path);

  EXPECT_EQ(ErrorOf([&] { record_->ScrollList("Sideways"); }), 440);
  EXPECT_EQ(ErrorOf([&] { attach_->GetApplicationObject()->SetAlarm("Maybe"); }), 440);
  EXPECT_EQ(record_->GetListCount(), 12);
}

TEST_F(LinkTest, InstanceKilledBetweenCallsRaisesAndNothingHangs) {
  ASSERT_EQ(record_->GetListCount(), 12);
  maxsim_.Kill();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(ErrorOf([&] { record_->GetFieldValue("Identification"); }), kUnavailable);
  // The link stays broken for every object of the attachment, the path included.
  EXPECT_EQ(ErrorOf([&] { app_->GetCurrentDBPath(); }), kUnavailable);
  EXPECT_EQ(ErrorOf([&] { app_->SetAlarm("On"); }), kUnavailable);
  EXPECT_LT(Seconds(start), 1.0);
  // A new attach finds nobody: a Maximizer with no database.
  EXPECT_EQ(
      MaxAttachObject::Attach(maxsim_.Socket(), clock_)->GetApplicationObject()->GetCurrentDBPath(),
      "n/a");
}

TEST_F(LinkTest, InstanceDyingOrSilentDuringACallRaisesWithinTheTimeout) {
  ScopedEnv timeout("MAXIMIZER_TIMEOUT", "1");
  auto record = MaxAttachObject::Attach(maxsim_.Socket(), clock_)->GetCurrentRecordObject();
  ASSERT_EQ(record->GetListCount(), 12);

  // Stopped: the request goes out, no answer comes; the call gives up after the timeout.
  maxsim_.Signal(SIGSTOP);
  auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(ErrorOf([&] { record->GetListCount(); }), kCallFailed);
  EXPECT_GE(Seconds(start), 0.9);
  EXPECT_LT(Seconds(start), 3.0);
  maxsim_.Signal(SIGCONT);
  // The late answer is not taken for the next call's: the link is given up.
  EXPECT_EQ(ErrorOf([&] { record->GetListCount(); }), kUnavailable);

  // Killed while the call waits: the call fails at once, not at the timeout.
  auto second = MaxAttachObject::Attach(maxsim_.Socket(), clock_)->GetCurrentRecordObject();
  ASSERT_EQ(second->GetFieldValue("Identification"), "240115/0001");
  maxsim_.Signal(SIGSTOP);
  std::thread killer([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    maxsim_.Signal(SIGKILL);
  });
  start = std::chrono::steady_clock::now();
  try {
    second->GetFieldValue("Identification");
    ADD_FAILURE() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), kCallFailed);
    EXPECT_EQ(error.Description(), "Automation error: The remote procedure call failed.");
  }
  EXPECT_LT(Seconds(start), 0.9);
  killer.join();
  maxsim_.Wait();
}

}  // namespace
}  // namespace tolmen::test
