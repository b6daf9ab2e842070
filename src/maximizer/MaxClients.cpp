#include "maximizer/MaxClients.h"

#include "recordio/FieldCodecs.h"
#include "recordio/TextHelpers.h"
#include "runtime/Strings.h"

namespace tolmen {
namespace {

constexpr std::size_t kPhoneStart = 152;
constexpr std::size_t kPhoneWidth = 22;

}  // namespace

MaxClients::MaxClients(Tolmen& app) : MaxRecord(app, "maxCLIENTS", kRecordLength) {}

std::string MaxClients::Clie_id() const {
  return CleanText(Bytes(24, kIdWidth));
}

double MaxClients::LastModifyTime() const {
  return CvTime(Bytes(138, 4));
}

std::string MaxClients::PhoneBlock(int n, int part) const {
  if (n < 1 || n > 4) return "";
  const std::size_t block = static_cast<std::size_t>(n - 1) * 3 + static_cast<std::size_t>(part);
  return Bytes(kPhoneStart + block * kPhoneWidth, kPhoneWidth);
}

std::string MaxClientKey(const std::string& identification) {
  std::string id = Trim(identification).substr(0, MaxClients::kIdWidth);
  id.resize(MaxClients::kIdWidth, '\0');
  return id + std::string(2, '\0');
}

}  // namespace tolmen
