// Starting maxsim and the application for the Maximizer tests.
#include "common/MaximizerTestKit.h"

#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "common/MaxsimProcess.h"
#include "common/TestText.h"
#include "maximizer/MaximizerControls.h"
#include "shell/AppInfo.h"

namespace tolmen::test {

nlohmann::json DemoBook() {
  std::ifstream in(std::string(TOLMEN_SOURCE_DIR) + "/tools/maxsim/samples/demo.json");
  return nlohmann::json::parse(in);
}

Maxsim::Maxsim(const std::string& root, std::string socket)
    : root_(root), socket_(std::move(socket)) {}

Maxsim::~Maxsim() {
  Stop();
}

std::string Maxsim::Init(const std::string& name, const nlohmann::json& description) {
  const std::string folder = root_ + "/" + name;
  const std::string file = root_ + "/" + name + ".json";
  std::ofstream(file) << description.dump(1);
  const RunResult init = RunMaxsim({"init", folder, "--from", file});
  EXPECT_EQ(init.status, 0) << "maxsim init " << name;
  return folder;
}

bool Maxsim::Serve(const std::string& folder) {
  Stop();
  pid_ = SpawnMaxsim({"serve", folder, "--socket", socket_}, stdout_);
  std::string text;
  return pid_ > 0 && ReadFrom(stdout_, text, "ready\n");
}

void Maxsim::Kill() {
  if (pid_ > 0) {
    ::kill(pid_, SIGKILL);
    Reap(pid_);
  }
  pid_ = -1;
}

void Maxsim::Stop() {
  if (pid_ > 0) {
    ::kill(pid_, SIGTERM);
    Reap(pid_);
  }
  pid_ = -1;
  if (stdout_ >= 0) ::close(stdout_);
  stdout_ = -1;
}

MaximizerTest::MaximizerTest()
    : socket_(dir_.File("maximizer.sock")), maxsim_(dir_.Path().string(), socket_) {
  // Tolmen looks for Maximizer at the socket the test's maxsim uses.
  ::setenv("MAXIMIZER_SOCKET", socket_.c_str(), 1);
  std::filesystem::create_directories(dir_.Path() / "home");
}

MaximizerTest::~MaximizerTest() {
  app_.reset();
  ui_.reset();
  script_.reset();
}

void MaximizerTest::Start(const std::vector<std::string>& script) {
  app_.reset();
  transcript_.str("");
  script_ = std::make_unique<ScriptUi>(script, &transcript_, clock_, "Tolmen");
  ui_ = std::make_unique<HookedUi>(*script_);
  app_ = std::make_unique<Tolmen>(MakeAppInfo(dir_.File("home") + "/", "1.0.0"), *ui_, clock_,
                                  dir_.File("settings.ini"));
  WireMaximizerControls(*app_);
}

std::string MaximizerTest::ServeBook(const nlohmann::json& description) {
  const std::string folder = maxsim_.Init("db", description);
  EXPECT_TRUE(maxsim_.Serve(folder));
  return folder;
}

int MaximizerTest::Count(const std::string& text) const {
  return Occurrences(Transcript(), text);
}

std::vector<std::string> MaximizerTest::LogLines() {
  app_->log.Close();  // at debugging level 0 the log stays open
  return TextLines(ReadFile(app_->log.Path()));
}

void ExpectInOrder(const std::vector<std::string>& lines, const std::vector<std::string>& wanted) {
  size_t at = 0;
  for (const std::string& entry : wanted) {
    while (at < lines.size() && lines[at] != entry) ++at;
    ASSERT_LT(at, lines.size()) << "not found in order: " << entry;
    ++at;
  }
}

}  // namespace tolmen::test
