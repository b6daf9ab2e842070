// The one path to the record manager. Every record class reaches its file through GlobalIO, which
// fills the buffers from the object, makes the call, keeps the object in step, decides whether
// the status was expected, and owns the fatal dialog for a status that was not.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tolmen {

class BtObject;
class Tolmen;

// The module's buffers, one set for the process: filled from the object before each call and
// written back after it. The transaction calls use them as they stand.
struct BtGlobalState {
  std::string PosBlk = std::string(128, ' ');
  std::string DataBuf;
  int32_t DBLen = 0;
  std::string KeyBuf;
  int16_t KBLen = 255;
  int16_t KeyNum = 0;
  int16_t BtStatus = 0;
};

// One record operation on `object`. `key`, when given, is padded with blanks to 255 characters;
// `accepted` replaces the table's list of normal statuses for this call ("" accepts none);
// `label` is shown as the code section of the fatal dialog. The result is the object's STATUS_.
// A fatal status that the user answers with a shut-down or "carry on" ends the process
// (ProcessEnd is thrown).
void GlobalIO(Tolmen& app, BtObject& object, int32_t operation,
              const std::optional<std::string>& key = std::nullopt,
              const std::optional<std::string>& accepted = std::nullopt,
              const std::optional<std::string>& label = std::nullopt);

// The transaction calls go past GlobalIO with the module's buffers as they stand; they set
// BtStatus and nothing looks at it.
void BeginConcurrentTransaction(Tolmen& app);
void EndTransaction(Tolmen& app);
void AbortTransaction(Tolmen& app);

// Control characters of a buffer shown as "{hh}", for debug lines.
std::string VisibleControls(const std::string& text);

}  // namespace tolmen
