// The demo played in the Qt window gives the script front-end's transcript and import file.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <cstdlib>
#include <string>

#include "common/TempDir.h"
#include "common/TestText.h"

namespace tolmen::test {
namespace {

// The file's text with its world's folder named WORLD, so that two worlds compare.
std::string InWorld(const std::string& path, const std::string& world) {
  std::string text = ReadFile(path);
  for (size_t at = text.find(world); at != std::string::npos; at = text.find(world, at))
    text.replace(at, world.size(), "WORLD");
  return text;
}

// Plays the demo on `ui` in `world`; tolmen's exit status as play.sh leaves it.
int Play(const std::string& ui, const std::string& world, const std::string& shots = "") {
  const std::string command = std::string("TOLMEN_SCREENSHOTS='") + shots + "' bash '" +
                              TOLMEN_SOURCE_DIR + "/tools/demo/play.sh' '" + TOLMEN_BIN_DIR +
                              "/..' " + ui + " '" + world + "' > '" + world + ".out' 2>&1";
  if (std::system(command.c_str()) != 0) return -1;
  return std::stoi(ReadFile(world + "/status"));
}

TEST(DemoInWindowTest, TheWindowPlaysTheDemoAsTheScriptFrontEndDoes) {
  TempDir dir("tolmen-qtdemo-");
  const std::string script = dir.File("script"), window = dir.File("window");
  const std::string shots = dir.File("shots");
  // The demo's book holds one client twice on purpose, so the run counts one error (status 1).
  ASSERT_EQ(Play("script", script), 1) << ReadFile(script + ".out");
  ASSERT_EQ(Play("qt", window, shots), 1) << ReadFile(window + ".out");

  const std::string transcript = InWorld(script + "/transcript.txt", script);
  ASSERT_NE(transcript.find("== MsgBox"), std::string::npos) << transcript;
  EXPECT_EQ(InWorld(window + "/transcript.txt", window), transcript);
  const std::string customers = ReadFile(script + "/pastel/MaxCus01.csv");
  EXPECT_FALSE(customers.empty());
  EXPECT_EQ(ReadFile(window + "/pastel/MaxCus01.csv"), customers);

  // Every page seen, every dialog and the end, numbered in order; none of them empty.
  const QStringList files = QDir(QString::fromStdString(shots)).entryList({"*.png"}, QDir::Files);
  ASSERT_GE(files.size(), 4) << files.join(" ").toStdString();
  EXPECT_TRUE(files.first().startsWith("001-page-")) << files.first().toStdString();
  EXPECT_TRUE(files.last().endsWith("-end.png")) << files.last().toStdString();
  EXPECT_GE(files.filter("-msgbox.png").size(), 2);
  EXPECT_EQ(files.filter("-filedialog.png").size(), 1);
  for (const QString& file : files) {
    const QImage image(QDir(QString::fromStdString(shots)).filePath(file));
    EXPECT_GT(image.width(), 100) << file.toStdString();
    EXPECT_GT(image.height(), 50) << file.toStdString();
  }
}

}  // namespace
}  // namespace tolmen::test
