// The toolkit's paths and reads on a real set of accounts made from the demo description.
#include <gtest/gtest.h>

#include <algorithm>

#include "../pastel/PastelTestSet.h"
#include "pastel/pasDcodeFile.h"
#include "pastel/pasDebtor.h"
#include "recordio/FieldCodecs.h"
#include "recordio/StatusCatalogue.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "toolkit/quilletToolkit.h"

namespace tolmen {
namespace {

using testing::PastelSetTest;
using json = nlohmann::json;

class ToolkitTest : public PastelSetTest {
 protected:
  quilletToolkit& Toolkit() { return app_->toolkit; }
  // The status of an answer and the number of fields behind it.
  static std::pair<int, int> Read(std::string answer) {
    const int status = static_cast<int>(Val(PopField(answer, "|")));
    return {status, static_cast<int>(std::count(answer.begin(), answer.end(), '|')) + 1};
  }
};

TEST_F(ToolkitTest, DataPathIsTestedOnTheDebtorFile) {
  MakeSet();
  EXPECT_EQ(Toolkit().SetDataPath(Folder()), "0");
  EXPECT_EQ(Toolkit().DataPath, Folder());  // one trailing '/'
  EXPECT_FALSE(Toolkit().DebtorFile().IsOpen);
  EXPECT_EQ(Toolkit().DebtorFile().FileName, "\"" + Folder() + "ACCMASD.DAT\"");
  EXPECT_EQ(Toolkit().CategoryFile().FileName, "\"" + Folder() + "ACCDCAT.DAT\"");
  EXPECT_EQ(Toolkit().SetDataPath((root_ / "set").string()), "0");
  EXPECT_EQ(Toolkit().DataPath, Folder());
  EXPECT_EQ(Toolkit().SetDataPath((root_ / "nowhere").string()), "12");
  EXPECT_EQ(Toolkit().SetGLPath("/ledger"), "");
  EXPECT_EQ(Toolkit().GLPath, "/ledger/");
  std::string password = "kept";
  EXPECT_EQ(Toolkit().GetPassword(password), "");
  EXPECT_EQ(password, "kept");
}

TEST_F(ToolkitTest, OnlyFourNamesAreKnown) {
  MakeSet();
  std::string name = "ACCPRD";
  EXPECT_EQ(Toolkit().NumberOfRecords(name), 0);  // no data path yet
  Toolkit().SetDataPath(Folder());
  EXPECT_EQ(Toolkit().NumberOfRecords(name), -1);
  std::string key;
  std::int32_t field = 1;
  for (std::string unknown : {"ACCPRD", "accstkst", "ACCPRMSY", "AccMasD.dat "}) {
    EXPECT_EQ(Toolkit().GetNearest(unknown, 0, key), "1|");
    EXPECT_EQ(Toolkit().GetNext(unknown, 0), "11|");
    EXPECT_EQ(Toolkit().GetRecord(unknown, 0, key), "11|");
    EXPECT_EQ(Toolkit().GetField(unknown, 0, key, field), "11|");
  }
  PastelRecord* object = nullptr;
  name = "accmasd";
  EXPECT_TRUE(Toolkit().OpenObject(name, object));
  EXPECT_EQ(name, "ACCMASD");
  EXPECT_EQ(object, &Toolkit().DebtorFile());
  EXPECT_TRUE(object->IsOpen);
  name = "AccDcat.dat";
  EXPECT_TRUE(Toolkit().OpenObject(name, object));
  EXPECT_EQ(object, &Toolkit().CategoryFile());
  EXPECT_EQ(Toolkit().NumberOfRecords(name), 3);
}

TEST_F(ToolkitTest, WalksAndSearchesAnswerStatusStrings) {
  Files()["AccMasD.dat"][1]["3"] = "Carrow | Sons";  // a pipe inside a field
  MakeSet();
  Toolkit().SetDataPath(Folder());
  std::string table = "ACCMASD", key;
  std::vector<std::string> answers = {Toolkit().GetNearest(table, 0, key)};
  EXPECT_EQ(key, "ABE001" + std::string(249, ' '));
  while (answers.back().rfind("0|", 0) == 0) answers.push_back(Toolkit().GetNext(table, 0));
  ASSERT_EQ(answers.size(), 5u);
  EXPECT_EQ(answers[4], "9|");
  const std::string name = "Abelard Bookbinders" + std::string(21, ' ');
  EXPECT_EQ(answers[0].substr(0, 54), "0|1|ABE001|" + name + "|0|");
  EXPECT_EQ(Read(answers[0]), std::make_pair(0, 125));
  EXPECT_EQ(Read(answers[1]), std::make_pair(0, 126));  // the pipe makes one field more
  EXPECT_EQ(Read(answers[2]), std::make_pair(0, 125));

  key = "CAR001";
  EXPECT_EQ(Toolkit().GetRecord(table, 0, key).substr(0, 11), "0|2|CAR001|");
  std::int32_t field = 75;
  EXPECT_EQ(Toolkit().GetField(table, 0, key, field), "0|20000");
  field = 68;
  EXPECT_EQ(Toolkit().GetField(table, 0, key, field), "0|False");
  key = "ZZZ999";
  EXPECT_EQ(Toolkit().GetRecord(table, 0, key), "4|");
  EXPECT_EQ(Toolkit().GetField(table, 0, key, field), "4|");
  key = "ZZZ999";
  EXPECT_EQ(Toolkit().GetNearest(table, 0, key), "90|9 " + StatusText(9));

  // Categories are keyed by their number: a blank key reads as 8224 and finds nothing.
  std::string categories = "ACCDCAT";
  key = "";
  EXPECT_EQ(Toolkit().GetNearest(categories, 0, key), "90|9 " + StatusText(9));
  key = MkI(2);
  EXPECT_EQ(Toolkit().GetRecord(categories, 0, key), "0|2|Wholesale");
}

TEST_F(ToolkitTest, NextAnswers3OnlyWhenTheOpenFailedAndTerminateReleases) {
  MakeSet();
  Toolkit().SetDataPath((root_ / "nowhere").string());
  std::string table = "ACCMASD";
  EXPECT_EQ(Toolkit().GetNext(table, 0), "3|");

  Toolkit().SetDataPath(Folder());
  // The open reads the first record, so the next one is the second.
  EXPECT_EQ(Toolkit().GetNext(table, 0).substr(0, 11), "0|2|CAR001|");
  std::string key, categories = "ACCDCAT";
  Toolkit().GetRecord(table, 0, key = "ABE001");
  Toolkit().GetRecord(categories, 0, key = MkI(1));
  pasDcodeFile* category = &Toolkit().CategoryFile();
  EXPECT_TRUE(Toolkit().DebtorFile().IsOpen);
  Toolkit().Class_Terminate();
  EXPECT_FALSE(Toolkit().DebtorFile().IsOpen);  // a fresh object
  EXPECT_EQ(Toolkit().DebtorFile().FileName, "");
  EXPECT_EQ(&Toolkit().CategoryFile(), category);  // left alone
  EXPECT_TRUE(category->IsOpen);
}

}  // namespace
}  // namespace tolmen
