// An application over a temporary folder with the template handlers wired, the script front-end
// as its user, and helpers to write and read template files there.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "common/TestText.h"
#include "pastel/PastelTestSet.h"
#include "templates/TemplateFile.h"
#include "wizard/TemplateControls.h"

namespace tolmen::testing {

class TemplateTest : public PastelSetTest {
 protected:
  void Begin(const std::vector<std::string>& script = {}) {
    Start(script);
    WireTemplateControls(*app_);
  }
  MainForm& Form() { return app_->screen.frmMain; }
  std::string Path(const std::string& name) const { return (root_ / name).string(); }

  // Writes the lines, each ended by `eol`, and gives the file's path.
  std::string Write(const std::string& name, const std::vector<std::string>& lines,
                    const std::string& eol = "\r\n") {
    std::ofstream out(Path(name), std::ios::binary);
    for (const std::string& line : lines) out << line << eol;
    return Path(name);
  }
  static std::string Read(const std::string& path) { return test::ReadFile(path); }
  static std::string CrLf(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
  }
  bool Said(const std::string& text) const { return Transcript().find(text) != std::string::npos; }
  // The category list and the next free number as LoadCategories leaves them for a set with two
  // categories.
  void FillCategories() {
    for (const char* entry : {"<0> NONE", "<1> Retail Sales", "<2> Wholesale"})
      Form().cboCategories.AddItem(entry);
    app_->client.NextCategoryNumber = 3;
  }
};

}  // namespace tolmen::testing
