#include "transfer/AccountCodes.h"

#include <algorithm>

#include "pastel/pasDebtor.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/StatusCatalogue.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/Strings.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr long kCodeWidth = 6;

bool IsDigit(unsigned char c) {
  return c >= '0' && c <= '9';
}

bool IsPlainLetter(unsigned char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Characters the increment leaves as they are and carries past: everything outside the digits
// and the two alphabets of the character table.
bool PassesCarry(unsigned char c) {
  return c < '0' || c > 'z' || (c > '9' && c < 'A') || (c > 'Z' && c < 'a');
}

// A fault of the debtor file while looking for a free code: logged, then shown. Abort stops the
// run; every answer ends the client.
void ReportLookupFault(Tolmen& app, std::int16_t status, const std::string& startCode) {
  const std::string text =
      StatusText(status) + " in Pastel on Debtor " + startCode + " (Function GetNewCode)";
  LogError(app, text);
  const std::string& br = app.info.LineBreak;
  const int answer =
      app.ui.MsgBox(text + br + br + "There is an Error on the Pastel Debtors Table." + br +
                        "Please Fix and click Retry, otherwise Abort.",
                    vbAbortRetryIgnore + vbCritical, app.info.AppTitle + ": Fix Fault on Pastel!");
  if (answer == vbAbort) app.run.StopRequest = kStopCancel;
}

}  // namespace

std::string KeepAlphanumerics(const std::string& text) {
  std::string kept;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte == ' ' || IsDigit(byte) || IsPlainLetter(byte)) kept += c;
  }
  return Trim(kept);
}

std::string StripChar(const std::string& text, const std::string& character) {
  return RemoveChar(text, character);
}

std::string FixLength(const std::string& text, long length) {
  return PadToWidth(text, length);
}

std::string NextAccountCode(const std::string& code) {
  const double value = Val(code);
  const std::string cleaned = StripField(code);
  const long length = static_cast<long>(cleaned.size());

  std::string result;
  if (std::all_of(cleaned.begin(), cleaned.end(),
                  [](char c) { return IsDigit(static_cast<unsigned char>(c)); })) {
    result = NumberText(value + 1);
  } else {
    bool digitsOut = false;
    bool upperOut = false;
    bool lowerOut = false;
    long stoppedAt = 0;  // 1-based position where the increment stopped; 0 when it ran through
    for (long position = length; position >= 1; --position) {
      const auto c = static_cast<unsigned char>(cleaned[static_cast<size_t>(position - 1)]);
      if (c == ' ') continue;
      if (PassesCarry(c)) {
        result.insert(result.begin(), static_cast<char>(c));
        continue;
      }
      if (c == 'z' || c == 'Z' || c == '9') {
        result.insert(result.begin(), c == 'z' ? 'a' : c == 'Z' ? 'A' : '0');
        if (position == 1) (c == 'z' ? lowerOut : c == 'Z' ? upperOut : digitsOut) = true;
        continue;
      }
      result.insert(result.begin(), static_cast<char>(c + 1));
      stoppedAt = position;
      break;
    }
    if (static_cast<long>(result.size()) < length) {
      if (digitsOut)
        result = "1" + result;
      else if (upperOut)
        result = "A" + result;
      else if (lowerOut)
        result = "a" + result;
      else if (stoppedAt > 0)
        result = Left(cleaned, stoppedAt - 1) + result;
    }
  }
  return Right(String(length, '0') + result, length);
}

std::string GetNewCode(Tolmen& app, const std::string& name) {
  const RunOptions& options = app.options;
  const long prefixSize = options.PrefixSize;
  std::string prefix;
  if (prefixSize != 0)
    prefix = Left(UCase(StripChar(KeepAlphanumerics(name), " ")) + "0000000", prefixSize);

  pasDebtor& debtor = app.pastelFiles.Debtor();
  debtor.KeyNumber(0);
  const std::string startCode = prefix + Right("0000001", options.SuffixSize);
  const std::string topCode = prefix + Right("9999999", options.SuffixSize);

  debtor.GET_LESS_THAN_OR_EQUAL(FixLength(topCode, kCodeWidth));
  debtor.FROMFILE();
  const std::int16_t status = debtor.STATUS_;
  if (status != kStatusOk && status != kStatusKeyNotFound && status != kStatusEndOfFile) {
    ReportLookupFault(app, status, startCode);
    return "";
  }

  std::string candidate = startCode;
  if (status == kStatusOk) {
    const std::string highest = CStr(debtor.default_(2));
    if (EqualsNoCase(Left(highest, prefixSize), prefix)) candidate = NextAccountCode(highest);
  }
  for (;;) {
    debtor.GET_EQUAL(candidate);
    if (debtor.STATUS_ == kStatusKeyNotFound) break;
    candidate = NextAccountCode(candidate);
  }

  return app.ui.InputBox("Pastel Account Number for " + name + "?",
                         "Tolmen needs a Pastel Account No", candidate);
}

void CheckCodeSizes(Tolmen& app) {
  TextBox& prefix = app.screen.frmMain.txtPrefix;
  TextBox& suffix = app.screen.frmMain.txtSuffix;
  if (!IsNumeric(Variant(prefix.Text()))) suffix.SetText("4");
  if (!IsNumeric(Variant(suffix.Text()))) suffix.SetText("2");
  if (Val(prefix.Text() + suffix.Text()) < 2) suffix.SetText(NumberText(6 - Val(prefix.Text())));
}

}  // namespace tolmen
