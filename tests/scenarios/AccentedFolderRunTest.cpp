// A program's folder and a Pastel folder named with accented letters: the template is opened
// through the file dialog, the run finds the Pastel files and writes its import file and log
// beside them, and a template saved under an accented name gets that name on disk in UTF-8.
#include <gtest/gtest.h>

#include <filesystem>

#include "ScenarioKit.h"
#include "runtime/Cp1252.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;

class AccentedFolderRunTest : public ScenarioTest {
 protected:
  AccentedFolderRunTest() : ScenarioTest("h\xC3\xB6m\xC3\xA9", "p\xC3\xA4stel") {}  // hömé, pästel
};

TEST_F(AccentedFolderRunTest, TemplatesPastelFilesAndTheLogAreFoundUnderTheirNames) {
  ASSERT_NO_FATAL_FAILURE(MakeWorld(json::array({Company("A", "Acme Trading", "ACM001")})));
  WriteTemplate();
  ASSERT_NO_FATAL_FAILURE(Maximizer({"select", "A"}));
  std::vector<std::string> script = ImportScript({"Yes", "No"});
  script.push_back("@click mnuFile \"&Save Template...\"");
  script.push_back("= " + Utf8ToCp1252(Home()) + "s\xE4v\xE9.KTF");
  EXPECT_EQ(Run(script, "/C"), 0);

  const std::string pastel = Utf8ToCp1252(PastelFolder());  // as the system writes it
  EXPECT_EQ(PastelFileLines("MaxCus01.csv"),
            (std::vector<std::string>{Customer{"ACM001", "Acme Trading"}.Line()}));
  const std::vector<std::string> log = PastelFileLines("Tolmen.LOG");
  ASSERT_GE(log.size(), 6u);
  EXPECT_EQ(log[4], "Pastel    Data: " + pastel);
  EXPECT_EQ(log.back(), "1 Pastel Debtors (0 new) were written to file " + pastel + "MaxCus01.csv");

  const std::string saved = Home() + "s\xC3\xA4v\xC3\xA9.KTF";
  ASSERT_TRUE(fs::exists(saved)) << Transcript();
  EXPECT_TRUE(Contains(ReadFile(saved), pastel + "\r\n"));
}

}  // namespace
}  // namespace tolmen::test
