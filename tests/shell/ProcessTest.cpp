// tolmen run as a process with the script front-end: exit status, transcript, settings left.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <functional>
#include <thread>

#include "ShellFixture.h"

namespace tolmen::testing {
namespace {

class ProcessTest : public ::testing::Test {
 protected:
  // Runs tolmen with `args` and `script` as its user; its exit status (-1 if it did not end
  // normally, or not within 30 seconds, when it is killed). `whileRunning` is called with the
  // process id every 50 ms until the process ends. `realClock` leaves the time unset.
  int Tolmen(const std::vector<std::string>& args, const std::string& script = "",
             const std::function<void(pid_t)>& whileRunning = {}, bool realClock = false) {
    WriteText(dir_.File("script.txt"), script);
    fs::create_directories(dir_.File(home_));
    std::vector<std::string> env = {"TOLMEN_UI=script",
                                    "TOLMEN_SCRIPT=" + dir_.File("script.txt"),
                                    "TOLMEN_TRANSCRIPT=" + dir_.File("transcript.txt"),
                                    "TOLMEN_HOME=" + dir_.File(home_),
                                    "XDG_CONFIG_HOME=" + dir_.File("config"),
                                    "XDG_RUNTIME_DIR=" + dir_.File("run"),
                                    "MAXIMIZER_SOCKET=" + dir_.File("run/none.sock"),
                                    "HOME=" + dir_.File("user"),
                                    "TZ=UTC",
                                    "LC_ALL=C"};
    if (!realClock) env.push_back("TOLMEN_NOW=2024-06-15 12:00:00");
    std::vector<char*> envp;
    for (std::string& e : env) envp.push_back(e.data());
    envp.push_back(nullptr);
    std::string program = std::string(TOLMEN_BIN_DIR) + "/tolmen";
    std::vector<char*> argp = {program.data()};
    for (const std::string& arg : args) argp.push_back(const_cast<char*>(arg.c_str()));
    argp.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 2, dir_.File("stderr.txt").c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, argp[0], &actions, nullptr, argp.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0) return -1;
    int status = 0;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (waitpid(pid, &status, WNOHANG) == 0) {
      if (std::chrono::steady_clock::now() > deadline) {
        kill(pid, SIGKILL);
        waitpid(pid, &status, 0);
        return -1;
      }
      if (whileRunning) whileRunning(pid);
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string Transcript() const { return ReadFile(dir_.File("transcript.txt")); }
  std::string Errors() const { return ReadFile(dir_.File("stderr.txt")); }
  std::string Settings() const { return ReadFile(dir_.File("config/Vellumator7/settings.ini")); }

  test::TempDir dir_{"tolmen-process-"};
  std::string home_ = "home";  // the program's folder in dir_, as UTF-8
};

TEST_F(ProcessTest, TemplateRunThatCannotStartExitsTwo) {
  // Missing: the message (after the one for Maximizer), and the window waits for its user.
  EXPECT_EQ(Tolmen({"/SILENT", "/QUIT", "missing.ktf"}), 2);
  EXPECT_EQ(Transcript(),
            "== MsgBox | Maximizer Required! | OK | Exclamation\n"
            "Please run Maximizer before running Tolmen!\n-> OK\n"
            "== MsgBox | Tolmen Start-Up Error | OK | Exclamation\n"
            "The Template " +
                dir_.File("home") +
                "/missing.ktf specified in the Command Line does not exist!\n"
                "-> OK\n");
  EXPECT_TRUE(Contains(Settings(), "MultiYear=0\n"));

  // Present, but no Maximizer answers: the run cannot start either.
  WriteText(dir_.File("home/monthly.KTF"), "TOLMEN TEMPLATE FILE\r\n");
  EXPECT_EQ(Tolmen({"/SILENT", "/QUIT", "monthly.KTF"}), 2);
  EXPECT_FALSE(fs::exists(dir_.File("home/Tolmen.LOG")));
}

// UTF-8 names on disk and in argv are found (and read: neither file is a template); a folder that
// Windows-1252 cannot hold is refused by name before anything starts.
TEST_F(ProcessTest, AccentedProgramFolderAndTemplateNamesAreFound) {
  const std::string notATemplate =
      "== MsgBox | Invalid File in Tolmen | OK | Critical\n"
      "Tolmen is not a valid Tolmen Template file.\n-> OK\n";
  home_ = "h\xC3\xB6m\xC3\xA9";  // hömé
  WriteText(dir_.File(home_ + "/CURRENT.KTF"), "not a template\r\n");
  EXPECT_EQ(Tolmen({}), 0);
  EXPECT_TRUE(Contains(Transcript(), notATemplate)) << Transcript();
  fs::remove(dir_.File(home_ + "/CURRENT.KTF"));

  WriteText(dir_.File(home_ + "/d\xC3\xA9mo.KTF"), "not a template\r\n");
  EXPECT_EQ(Tolmen({"/SILENT", "d\xC3\xA9mo.KTF"}), 2);
  EXPECT_TRUE(Contains(Transcript(), notATemplate)) << Transcript();

  EXPECT_EQ(Tolmen({"n\xC3\xA9"
                    "ant.KTF"}),
            2);
  EXPECT_TRUE(Contains(Transcript(), "The Template " + dir_.File(home_) +
                                         "/n\xC3\xA9"
                                         "ant.KTF specified in the Command Line "
                                         "does not exist!\n"))
      << Transcript();

  home_ = "home-\xCE\xA9";  // omega
  fs::remove(dir_.File("transcript.txt"));
  EXPECT_EQ(Tolmen({}), 2);
  EXPECT_FALSE(fs::exists(dir_.File("transcript.txt")));
  EXPECT_EQ(Errors(), "tolmen: The path " + dir_.File("home-?") +
                          "/ holds a character outside Windows-1252 and cannot be used\n");
}

TEST_F(ProcessTest, ACloseFromTheSystemUnloadsTheWindowAndSavesTheSettings) {
  // The script waits for minutes on the real clock; the session ends meanwhile.
  bool sent = false;
  const int status = Tolmen(
      {}, "@minutes 5\n",
      [&](pid_t pid) {
        if (!sent && Contains(Transcript(), "@ minutes 5\n")) sent = kill(pid, SIGTERM) == 0;
      },
      true);
  EXPECT_TRUE(sent);
  EXPECT_EQ(status, 0);
  for (const char* line :
       {"[Settings]\n", "Billing=True\n", "Billing2=True\n", "View2Max=True\n", "MultiYear=0\n"})
    EXPECT_TRUE(Contains(Settings(), line)) << line;
}

TEST_F(ProcessTest, ADialogThatComesBackAfterTheScriptEndedEndsTheProcessWithFour) {
  // A template whose Pastel folder holds no Pastel set: the folder box proposes the same folder
  // again and again.
  WriteText(dir_.File("home/damaged.KTF"),
            "TOLMEN TEMPLATE FILE\r\n*Pastel Data Folder: /\r\nPastel Password: \r\n");
  EXPECT_EQ(Tolmen({}, "@click mnuFile \"&Open Template...\"\n= " + dir_.File("home/damaged.KTF")),
            4);
  // The box was answered by default; the second time it came straight back, the process ended.
  const std::string transcript = Transcript();
  const std::string end = "-> = /\n!! script ended inside a loop\n";
  ASSERT_GT(transcript.size(), end.size()) << transcript;
  EXPECT_EQ(transcript.substr(transcript.size() - end.size()), end) << transcript;
}

}  // namespace
}  // namespace tolmen::testing
