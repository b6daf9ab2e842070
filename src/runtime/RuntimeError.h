// The run-time error of the classic runtime: a number and its text (6 "Overflow", 13 "Type
// mismatch", 53 "File not found", ...). Conversions and file routines throw it; each long routine
// catches it in its own error path.
#pragma once

#include <stdexcept>
#include <string>

namespace tolmen {

class RuntimeError : public std::runtime_error {
 public:
  // The classic text for the number.
  explicit RuntimeError(int number);
  RuntimeError(int number, const std::string& description);
  int Number() const { return number_; }
  const std::string& Description() const { return description_; }

 private:
  int number_;
  std::string description_;
};

// The classic text of an error number; "Application-defined or object-defined error" for
// numbers the runtime has no text of.
std::string ErrorText(int number);

}  // namespace tolmen
