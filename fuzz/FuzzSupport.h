// What the fuzz targets share: the check that turns a broken promise into a failure, a scratch
// folder of the process, and a front-end that answers every dialog without a user.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/ui/HeadlessUi.h"

namespace tolmen::fuzz {

// A promise of the code under test that an input broke. Nothing in the product throws it, so the
// fuzzer sees it as a crash and the replay test names the input.
class FuzzFailure : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

#define FUZZ_CHECK(condition)                                                                    \
  do {                                                                                           \
    if (!(condition))                                                                            \
      throw ::tolmen::fuzz::FuzzFailure(std::string(__FILE__) + ":" + std::to_string(__LINE__) + \
                                        ": " #condition);                                        \
  } while (false)

std::string Bytes(const uint8_t* data, size_t size);

// A folder of this process under the temporary folder, made on first use, with a trailing '/'.
const std::string& ScratchFolder();
// Replaces the file with the bytes.
void WriteFile(const std::string& path, const std::string& bytes);

// Answers message boxes with the button that goes on (OK, Ignore, never Retry, which could ask
// for ever), Yes and No in turn where both are offered; input boxes and file dialogs with Cancel
// (an input box that proposes its default again after a failure would ask for ever). The main
// loop returns at once.
class FuzzUi final : public HeadlessUi {
 public:
  explicit FuzzUi(Clock& clock) : HeadlessUi(clock, "Tolmen") {}
  int MsgBox(const std::string& prompt, int style, const std::string& title) override;
  std::string InputBox(const std::string&, const std::string&, const std::string&) override {
    return "";
  }
  bool FileDialog(const FileDialogRequest&, std::string&) override { return false; }
  void Beep() override {}
  void Yield(long) override {}
  void Run(WindowModel&) override {}
  std::string PrinterName() override { return ""; }
  bool PrintText(const std::string&) override { return false; }
  bool OpenInEditor(const std::string&) override { return false; }
  bool ShowHelp(const std::string&, const std::string&) override { return false; }
  void TrayAdd(const std::string&) override {}
  void TrayModify(const std::string&) override {}
  void TrayRemove() override {}
  int Boxes() const { return boxes_; }

 private:
  int boxes_ = 0;
};

}  // namespace tolmen::fuzz
