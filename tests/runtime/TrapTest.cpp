#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <ios>
#include <iterator>
#include <new>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "runtime/RuntimeError.h"
#include "runtime/Trap.h"

namespace tolmen {
namespace {

constexpr int kAbort = 3;
constexpr int kRetry = 4;
constexpr int kIgnore = 5;

// A statement that fails `failures` times with the given error, then succeeds.
struct FlakyStatement {
  int failures;
  int runs = 0;
  void operator()() {
    ++runs;
    if (runs <= failures) throw RuntimeError(53);
  }
};

// Retry runs the statement again; Ignore, Abort and anything else stop after the answer.
TEST(Trap, AnswersDecideWhetherTheStatementRunsAgain) {
  const struct {
    int failures;
    std::vector<int> answers;  // one for each failure asked about
    TrapResult result;
    int runs;
  } cases[] = {{2, {kRetry, kRetry}, TrapResult::Done, 3},
               {5, {kRetry, kRetry, kIgnore}, TrapResult::Ignored, 3},
               {5, {kIgnore}, TrapResult::Ignored, 1},
               {5, {kAbort}, TrapResult::Aborted, 1},
               {5, {2}, TrapResult::Aborted, 1},  // Cancel
               {5, {7}, TrapResult::Aborted, 1},
               {0, {}, TrapResult::Done, 1}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.answers.empty() ? -1 : c.answers.back());
    FlakyStatement statement{c.failures};
    size_t asked = 0;
    const TrapResult result = RunTrapped([&] { statement(); },
                                         [&](const RuntimeError& e) {
                                           EXPECT_EQ(e.Number(), 53);
                                           if (asked == c.answers.size())
                                             throw std::logic_error("asked once too often");
                                           return c.answers[asked++];
                                         });
    EXPECT_EQ(result, c.result);
    EXPECT_EQ(statement.runs, c.runs);
    EXPECT_EQ(asked, c.answers.size());
  }
}

TEST(Trap, StandardExceptionsBecomeClassicErrors) {
  namespace fs = std::filesystem;
  auto fsError = [](std::errc code) {
    return fs::filesystem_error("open", fs::path("/x"), std::make_error_code(code));
  };
  const struct {
    std::function<void()> statement;
    int number;
  } cases[] = {{[] { throw std::bad_alloc(); }, 7},
               {[] { throw std::vector<int>().at(3); }, 9},
               {[] { throw std::overflow_error("x"); }, 6},
               {[&] { throw fsError(std::errc::no_such_file_or_directory); }, 53},
               {[&] { throw fsError(std::errc::no_space_on_device); }, 61},
               {[&] { throw fsError(std::errc::permission_denied); }, 75},
               {[&] { throw fsError(std::errc::not_a_directory); }, 76},
               {[&] { throw fsError(std::errc::file_exists); }, 58},
               {[] { throw std::system_error(std::make_error_code(std::errc::io_error)); }, 57},
               {[] { throw std::ios_base::failure("write"); }, 57},
               {[] { throw std::invalid_argument("x"); }, 5},
               {[] { throw std::runtime_error("socket closed"); }, 440},
               {[] { throw RuntimeError(462); }, 462}};
  for (const auto& c : cases) {
    RuntimeError seen(0);
    RunTrapped(c.statement, [&](const RuntimeError& e) {
      seen = e;
      return kAbort;
    });
    EXPECT_EQ(seen.Number(), c.number);
  }
  RuntimeError other = ToRuntimeError(std::runtime_error("socket closed"));
  EXPECT_EQ(other.Description(), "socket closed");
  EXPECT_EQ(ToRuntimeError(std::bad_alloc()).Description(), "Out of memory");
}

// What PassOver swallows: run-time errors and every other standard exception; the statement
// ends where it failed. Anything else, such as the process ending from inside, goes through.
TEST(Trap, PassOverSwallowsStandardExceptionsOnly) {
  struct EndOfProcess {};  // not a std::exception, as the process end is not
  const struct {
    std::function<void()> failure;
    bool passedOver;
  } cases[] = {{[] {}, true},
               {[] { throw RuntimeError(53); }, true},
               {[] { throw std::runtime_error("socket closed"); }, true},
               {[] { throw std::vector<int>().at(3); }, true},
               {[] { throw std::bad_alloc(); }, true},
               {[] { throw EndOfProcess{}; }, false},
               {[] { throw 42; }, false}};
  for (size_t i = 0; i < std::size(cases); ++i) {
    int reached = 0;
    const auto statement = [&] {
      reached = 1;
      cases[i].failure();
      reached = 2;
    };
    if (cases[i].passedOver) {
      EXPECT_NO_THROW(PassOver(statement)) << i;
    } else {
      EXPECT_ANY_THROW(PassOver(statement)) << i;
    }
    EXPECT_EQ(reached, i == 0 ? 2 : 1) << i;
  }
}

TEST(RuntimeError, ClassicTexts) {
  const struct {
    int number;
    const char* text;
  } cases[] = {{5, "Invalid procedure call or argument"},
               {6, "Overflow"},
               {9, "Subscript out of range"},
               {13, "Type mismatch"},
               {53, "File not found"},
               {75, "Path/File access error"},
               {91, "Object variable or With block variable not set"},
               {429, "ActiveX component can't create object"},
               {462, "The remote server machine does not exist or is unavailable"},
               {12345, "Application-defined or object-defined error"}};
  for (const auto& c : cases) {
    EXPECT_EQ(ErrorText(c.number), c.text);
    RuntimeError e(c.number);
    EXPECT_EQ(e.Description(), c.text);
    EXPECT_STREQ(e.what(), c.text);
  }
  EXPECT_EQ(RuntimeError(5, "Bad date").Description(), "Bad date");
}

}  // namespace
}  // namespace tolmen
