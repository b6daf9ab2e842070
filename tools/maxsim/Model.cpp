// Field names, UDF types and the rules a UDF value must meet.
#include "Model.h"

#include <algorithm>

#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/DateParse.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"

namespace tolmen::maxsim {

namespace {

constexpr std::array<const char*, 4> kUdfTypeWords = {"Table", "Date", "Numeric", "Alphanumeric"};

}  // namespace

bool IsNumericField(size_t field) {
  return field == kFieldRecType || field == kFieldContact || field == kFieldUseClientName;
}

std::optional<size_t> FindField(const std::string& name) {
  for (size_t i = 0; i < kClientFields.size(); ++i)
    if (EqualsNoCase(name, kClientFields[i])) return i;
  return std::nullopt;
}

const char* UdfTypeWord(UdfType type) {
  return kUdfTypeWords[static_cast<size_t>(type)];
}

std::optional<UdfType> ParseUdfType(const std::string& word) {
  for (size_t i = 0; i < kUdfTypeWords.size(); ++i)
    if (EqualsNoCase(word, kUdfTypeWords[i])) return static_cast<UdfType>(i);
  return std::nullopt;
}

std::optional<std::string> UdfValue(const Udf& udf, const std::string& value) {
  const std::string trimmed = Trim(value);
  if (trimmed.empty()) return std::string();
  switch (udf.type) {
    case UdfType::Table: {
      const auto item = std::find_if(udf.items.begin(), udf.items.end(),
                                     [&](const auto& i) { return EqualsNoCase(i, trimmed); });
      if (item == udf.items.end()) return std::nullopt;
      return *item;
    }
    case UdfType::Date: {
      double date = 0;
      if (!ParseDate(trimmed, date)) return std::nullopt;
      return FormatDate(date, "dd mmm yyyy");
    }
    case UdfType::Numeric: {
      const ParsedNumber number = ParseNumberText(trimmed);
      if (number.kind != NumberTextKind::Number || number.radix) return std::nullopt;
      return NumberText(number.value);
    }
    case UdfType::Alphanumeric:
      return value;
  }
  return std::nullopt;
}

int16_t Client::ContactNumber() const {
  return static_cast<int16_t>(Val(fields[kFieldContact]));
}

const std::string& Client::Name() const {
  return fields[kFieldLastName].empty() ? fields[kFieldClientName] : fields[kFieldLastName];
}

std::optional<size_t> AddressBook::FindUdf(const std::string& udfName) const {
  for (size_t i = 0; i < udfs.size(); ++i)
    if (EqualsNoCase(udfs[i].name, udfName)) return i;
  return std::nullopt;
}

}  // namespace tolmen::maxsim
