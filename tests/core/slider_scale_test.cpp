#include "model/slider_scale.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "session/fault.h"

namespace zevfit {
namespace {

constexpr SillScale kTen{0, 10, 32000};        // 3200 positions to a unit
constexpr SillScale kFromMinus{-2, 2, 32000};  // 8000 positions to a unit
constexpr RangeScale kHundred{100, 32000};     // 2000 - 0.0001 over 32000
constexpr double kHuge = std::numeric_limits<double>::max();

TEST(SillPosition, IsTheValuesShareOfTheAxis) {
  struct Row {
    SillScale scale;
    double value;
    int position;
  };
  for (const Row& row : std::vector<Row>{
           {kTen, 0, 0},
           {kTen, 2.5, 8000},
           {kTen, 10, 32000},
           {kFromMinus, -2, 0},
           {kFromMinus, 0, 16000},
           {kFromMinus, 1.5, 28000},
           // Beyond the slider, but within 16 bits: the slider refuses these.
           {kTen, 10.1, 32320},
           {kTen, -1, -3200},
           // An axis upside down: 32000 / -10 * (2.5 - 10).
           {{10, 0, 32000}, 2.5, 24000},
       })
    EXPECT_EQ(sillPosition(row.scale, row.value), row.position)
        << row.value << " from " << row.scale.ymin << " to " << row.scale.ymax;
}

TEST(SillPosition, TakesTiesToTheEvenNeighbour) {
  constexpr SillScale kOneToOne{0, 32000, 32000};
  EXPECT_EQ(sillPosition(kOneToOne, 0.5), 0);
  EXPECT_EQ(sillPosition(kOneToOne, 1.5), 2);
  EXPECT_EQ(sillPosition(kOneToOne, 2.5), 2);
  EXPECT_EQ(sillPosition(kOneToOne, 2.75), 3);
  EXPECT_EQ(sillPosition(kOneToOne, -2.5), -2);
}

TEST(SillPosition, FaultsWithoutAnAxis) { EXPECT_THROW(sillPosition({5, 5, 32000}, 5), Fault); }

TEST(SillPosition, FaultsBeyondSixteenBits) {
  // 3200 * 10.24 = 32768 and 3200 * -10.2404 = -32769.28.
  EXPECT_THROW(sillPosition(kTen, 10.24), Fault);
  EXPECT_THROW(sillPosition(kTen, -10.2404), Fault);
  EXPECT_EQ(sillPosition(kTen, -10.24), -32768);
}

TEST(SillPosition, FaultsOnOverflow) {
  EXPECT_THROW(sillPosition({-kHuge, kHuge, 32000}, 0), Fault);
  EXPECT_THROW(sillPosition(kTen, kHuge), Fault);
}

TEST(SillValue, HasThreeDecimalsAtMost) {
  struct Row {
    SillScale scale;
    int position;
    double value;
  };
  for (const Row& row : std::vector<Row>{
           {kTen, 0, 0},
           {kTen, 32000, 10},
           {kTen, 8000, 2.5},
           {kTen, 1, 0},          // 0.0003125
           {kTen, 2, 0.001},      // 0.000625
           {kTen, 10667, 3.333},  // 3.3334375
           {kFromMinus, 0, -2},
           {kFromMinus, 1, -2},  // -1.999875
           {kFromMinus, 16000, 0},
           {kFromMinus, 28004, 1.501},  // 1.5005, a half
       })
    EXPECT_EQ(sillValue(row.scale, row.position), row.value)
        << row.position << " from " << row.scale.ymin << " to " << row.scale.ymax;
}

TEST(SillValue, FaultsWithoutAScale) {
  EXPECT_THROW(sillValue({0, 10, 0}, 5), Fault);
  EXPECT_THROW(sillValue({-kHuge, kHuge, 32000}, 5), Fault);
}

TEST(RangePosition, IsTheTextsShareOfTwentyTimesTheDistance) {
  struct Row {
    const char* text;
    int position;
  };
  for (const Row& row : std::vector<Row>{
           {"0", 0},
           {"1000", 16000},  // 32000000 / 1999.9999 = 16000.0008
           {"2000", 32000},  // 32000.0016
           {"1e-05", 0},
           {"0.1", 2},       // 1.60000008
           {" 12 km", 192},  // 192.0000096
           {"abc", 0},
           {"-1000", 16000},  // the absolute value
           {"0.156249", 2},   // 2.499984125
           {"0.15625", 3},    // 2.500000125: the smaller divisor has lifted the half
       })
    EXPECT_EQ(rangePosition(kHundred, row.text), row.position) << row.text;
}

TEST(RangePosition, TakesTiesToTheEvenNeighbour) {
  // 20 times 0.050005 less 0.0001 is 1 but for the last binary digits; both sides of the halves.
  constexpr RangeScale kOne{0.050005, 1};
  EXPECT_EQ(rangePosition(kOne, "0.4999"), 0);
  EXPECT_EQ(rangePosition(kOne, "0.5001"), 1);
  // An exact tie: 0.0001 is taken from 0, and 0.0001 times 2.5 is divided by it.
  EXPECT_EQ(rangePosition({0, 0.0001}, "2.5"), 2);
  EXPECT_EQ(rangePosition({0, 0.0001}, "3.5"), 4);
}

TEST(RangePosition, OfADirectionWithoutDistancesIsPositive) {
  // |1 * 2 / (0 - 0.0001)| = 20000.
  EXPECT_EQ(rangePosition({0, 1}, "2"), 20000);
}

TEST(RangePosition, Faults) {
  // 2100 * 32000 / 1999.9999 = 33600.
  EXPECT_THROW(rangePosition(kHundred, "2100"), Fault);
  EXPECT_THROW(rangePosition(kHundred, "1e308"), Fault);
  EXPECT_THROW(rangePosition(kHundred, "1e999"), Fault);
  EXPECT_THROW(rangePosition({kHuge, 32000}, "1"), Fault);
  // 20 * 0.000005 - 0.0001 is nothing.
  EXPECT_THROW(rangePosition({5e-06, 1}, "1"), Fault);
  EXPECT_THROW(rangePosition({kHuge, 32000}, "1"), Fault);
}

// Where 20 times the distance is as small as what is taken from it the two maps lie far apart.
TEST(RangeScale, HasMapsThatAreNotInverses) {
  constexpr RangeScale kTiny{0.0001, 1};
  EXPECT_EQ(rangeText(kTiny, 1000), "1.99");      // (0.002 - 0.00001) * 1000
  EXPECT_EQ(rangePosition(kTiny, "1.9"), 1000);   // 1.9 / (0.002 - 0.0001)
  EXPECT_EQ(rangePosition(kTiny, "1.99"), 1047);  // 1.99 / 0.0019 = 1047.37
}

TEST(RangePositionWhole, DropsTheFraction) {
  EXPECT_EQ(rangePositionWhole(kHundred, "0.1"), 1);       // 1.60000008
  EXPECT_EQ(rangePositionWhole(kHundred, "-0.1"), 1);      // of the absolute value
  EXPECT_EQ(rangePositionWhole(kHundred, "1000"), 16000);  // 16000.0008
  EXPECT_EQ(rangePositionWhole(kHundred, "0"), 0);
}

TEST(RangeText, HasThreeDecimalsAtMost) {
  struct Row {
    RangeScale scale;
    int position;
    const char* text;
  };
  for (const Row& row : std::vector<Row>{
           {kHundred, 0, "."},
           {kHundred, 1, ".062"},       // 0.0624999997: below the half
           {kHundred, 16000, "1000."},  // 999.999995
           {kHundred, 32000, "2000."},  // 1999.99999
           {kHundred, 10, ".625"},      // 0.6249999969
           {{0.5, 32000}, 3, ".001"},   // 9.99999 * 3 / 32000 = 0.0009375
           {{1000000, 32000}, 32000, "20000000."},
           {{0, 1}, 1, "."},  // -1e-05 is 0 in three decimals
       })
    EXPECT_EQ(rangeText(row.scale, row.position), row.text)
        << row.position << " of " << row.scale.hmax;
}

TEST(RangeText, Faults) {
  EXPECT_THROW(rangeText({100, 0}, 5), Fault);
  EXPECT_THROW(rangeText({kHuge, 32000}, 5), Fault);
}

TEST(RangeSliderMaximum, IsFullForAllButTinyDistances) {
  struct Row {
    double hmax;
    double maximum;
  };
  for (const Row& row : std::vector<Row>{
           {100, 32000},
           {1, 32000},
           {0.0500010, 32000},  // |1.00002 - 0.00001| * 32000 = 32000.32
           {0.05, 31999},       // 0.99999 * 32000 = 31999.68
           {0.001, 639},        // 0.01999 * 32000 = 639.68
           {0, 1},              // 0.32
           {-1, 32000},         // the absolute value
           {-0.000001, 1},      // |-0.00003| * 32000 = 0.96
       })
    EXPECT_EQ(rangeSliderMaximum(row.hmax), row.maximum) << row.hmax;
}

TEST(RangeSliderMaximum, FaultsOnOverflow) { EXPECT_THROW(rangeSliderMaximum(kHuge), Fault); }

TEST(SliderScales, APositionSettlesAfterOneRoundTrip) {
  for (const SillScale& scale : {kTen, kFromMinus, SillScale{0, 0.37, 32000}})
    for (int position = 0; position <= 32000; position += 7) {
      const double value = sillValue(scale, position);
      const int settled = sillPosition(scale, value);
      EXPECT_EQ(sillValue(scale, settled), value) << position << " up to " << scale.ymax;
    }
}

}  // namespace
}  // namespace zevfit
