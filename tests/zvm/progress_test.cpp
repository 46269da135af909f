// How the time that is left is told.
#include "zvm/verbs/progress.h"

#include <gtest/gtest.h>

namespace zevfit::test {
namespace {

TEST(DurationText, HasHoursOnlyWhereThereAreSome) {
  struct Row {
    double seconds;
    const char* text;
  };
  const Row rows[] = {
      {0, "0:00"},
      {0.4, "0:00"},
      {9.5, "0:10"},
      {59.4, "0:59"},
      {59.6, "1:00"},
      {125, "2:05"},
      {3599.4, "59:59"},
      {3599.6, "1:00:00"},
      {3725, "1:02:05"},
      {36610, "10:10:10"},
      {-5, "0:00"},
      // A time without end is told as the longest one: 277777777 hours and 2800 seconds.
      {1e300, "277777777:46:40"},
  };
  for (const auto& [seconds, text] : rows) EXPECT_EQ(verbs::durationText(seconds), text) << seconds;
}

}  // namespace
}  // namespace zevfit::test
