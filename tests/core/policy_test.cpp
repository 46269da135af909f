// What the policies of handlers catch, and what passes them.

#include "session/policy.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <new>
#include <ostream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <typeinfo>
#include <vector>

namespace zevfit {
namespace {

struct Thrown {
  std::string name;
  std::function<void()> statement;
  /// The exception is of the type that was thrown, not a base of it.
  std::function<bool(const std::exception&)> isThis;
};

void PrintTo(const Thrown& row, std::ostream* out) { *out << row.name; }

template <class Exception>
Thrown thrown(const char* name, const Exception& exception) {
  return {name, [exception] { throw exception; },
          [](const std::exception& met) { return typeid(met) == typeid(Exception); }};
}

/// What the data make happen.
std::vector<Thrown> dropped() {
  return {thrown("Fault", Fault("Division by zero")), thrown("bad_alloc", std::bad_alloc()),
          thrown("bad_array_new_length", std::bad_array_new_length())};
}

/// What only an error of the program itself, or of the machine, makes happen.
std::vector<Thrown> passed() {
  return {thrown("logic_error", std::logic_error("a range of the nugget")),
          thrown("out_of_range", std::out_of_range("at")),
          thrown("length_error", std::length_error("resize")),
          thrown("runtime_error", std::runtime_error("not a fault")),
          thrown("bad_function_call", std::bad_function_call()),
          thrown("filesystem_error",
                 std::filesystem::filesystem_error("no file", std::make_error_code(std::errc()))),
          {"int", [] { throw 7; }, nullptr}};
}

class PolicyDrops : public testing::TestWithParam<Thrown> {};

TEST_P(PolicyDrops, WithTheResultOfTheFailureStep) {
  int failures = 0;
  const int result = attempt(
      [&]() -> int {
        GetParam().statement();
        return 1;
      },
      [&] { return 2 + failures++; });
  EXPECT_EQ(result, 2);
  EXPECT_EQ(failures, 1);
}

TEST_P(PolicyDrops, AndKeepsWhatIsDoneSoFar) {
  std::string done = "begun";
  endSilently([&] {
    done += ", at it";
    GetParam().statement();
    done += ", ended";
  });
  EXPECT_EQ(done, "begun, at it");
}

INSTANTIATE_TEST_SUITE_P(Exceptions, PolicyDrops, testing::ValuesIn(dropped()),
                         [](const auto& row) { return row.param.name; });

class PolicyPasses : public testing::TestWithParam<Thrown> {
 protected:
  /// The body ends with what was thrown, as it is.
  static void expectToPass(const std::function<void()>& body) {
    try {
      body();
      FAIL() << "the exception was swallowed";
    } catch (const std::exception& met) {
      ASSERT_TRUE(GetParam().isThis) << "another exception: " << met.what();
      EXPECT_TRUE(GetParam().isThis(met)) << met.what();
    } catch (int met) {
      EXPECT_EQ(met, 7);
      EXPECT_FALSE(GetParam().isThis);
    }
  }
};

TEST_P(PolicyPasses, WithoutAFailureStep) {
  int failures = 0;
  expectToPass([&] { attempt([] { GetParam().statement(); }, [&] { ++failures; }); });
  EXPECT_EQ(failures, 0);
}

TEST_P(PolicyPasses, ASilentEndToo) {
  expectToPass([] { endSilently([] { GetParam().statement(); }); });
}

TEST_P(PolicyPasses, ThroughPoliciesOneWithinTheOther) {
  expectToPass([] { endSilently([] { endSilently([] { GetParam().statement(); }); }); });
}

INSTANTIATE_TEST_SUITE_P(Exceptions, PolicyPasses, testing::ValuesIn(passed()),
                         [](const auto& row) { return row.param.name; });

TEST(Policy, WithoutAFailureTheBodysResultCounts) {
  int failures = 0;
  EXPECT_EQ(attempt([] { return 1; }, [&] { return 2 + failures++; }), 1);
  EXPECT_EQ(failures, 0);
}

TEST(Policy, AFaultOfTheFailureStepPasses) {
  EXPECT_THROW(attempt([] { throw Fault("first"); }, [] { throw Fault("second"); }), Fault);
}

}  // namespace
}  // namespace zevfit
