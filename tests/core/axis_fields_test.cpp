// The fields of the axes of anisotropy: ranges that are checked, names that are split.
#include "model/axis_fields.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "session/fault.h"
#include "tests/support/memory_axis_fields.h"

namespace zevfit {
namespace {

using test::MemoryAxisFields;
using Texts = std::vector<std::string>;

struct WarningRow {
  Axis axis;
  std::size_t entry;
  const char* warning;
};

const WarningRow kWarnings[] = {
    {Axis::main, 2, "warning: Illegal value for range 'a1' of Main Direction!"},
    {Axis::main, 3, "warning: Illegal value for range 'a2' of Main Direction!"},
    {Axis::main, 4, "warning: Illegal value for range 'a3' of Main Direction!"},
    {Axis::minor1, 2, "warning: Illegal value for range 'a1' of minor1 Direction!"},
    {Axis::minor1, 3, "warning: Illegal value for range 'a2' of minor1 Direction!"},
    {Axis::minor1, 4, "warning: Illegal value for range 'a3' of minor1 Direction!"},
    {Axis::minor2, 2, "warning: Illegal value for range 'a1' of minor2 Direction!"},
    {Axis::minor2, 3, "warning: Illegal value for range 'a2' of minor2 Direction!"},
    {Axis::minor2, 4, "warning: Illegal value for range 'a3' of minor2 Direction!"},
};

TEST(AxisFields, ANegativeRangeIsWarnedOfAndBecomesNought) {
  for (const WarningRow& row : kWarnings) {
    MemoryAxisFields fields;
    fields.setText(row.axis, row.entry, "-5");
    EXPECT_EQ(fields.dialogs.shown, Texts{row.warning});
    EXPECT_EQ(fields.text(row.axis, row.entry), "0") << row.warning;
  }
}

TEST(AxisFields, TheFirstNegativeRangeAloneIsTold) {
  // Fields that come by no event of their own.
  class Quiet : public MemoryAxisFields {
   public:
    std::array<std::string, kAxisEntries> texts{"-1", "-2", "3", "-4", "-5"};
    std::string text(Axis, std::size_t entry) const override { return texts.at(entry); }
    void setText(Axis, std::size_t entry, std::string_view text) override {
      texts.at(entry) = text;
    }
  } fields;
  checkRanges(fields, Axis::minor1, fields.dialogs);
  EXPECT_EQ(fields.dialogs.shown, Texts{kWarnings[4].warning});
  EXPECT_EQ(fields.texts, (std::array<std::string, 5>{"-1", "-2", "3", "0", "-5"}));
}

TEST(AxisFields, TextsThatPassTheCheck) {
  for (const char* text : {"", "-", "abc", "0", "-0", "12abc", " 7", "x-5", "1e999"}) {
    MemoryAxisFields fields;
    fields.setText(Axis::main, 2, text);
    EXPECT_EQ(fields.dialogs.shown, Texts{}) << text;
    EXPECT_EQ(fields.text(Axis::main, 2), text);
  }
}

TEST(AxisFields, TextsThatAreNegative) {
  for (const char* text : {"-1", "  -2.5x", "-1e-300", "-1e999", "  -1e999"}) {
    MemoryAxisFields fields;
    fields.setText(Axis::main, 2, text);
    EXPECT_EQ(fields.dialogs.shown, Texts{kWarnings[0].warning}) << text;
    EXPECT_EQ(fields.text(Axis::main, 2), "0") << text;
  }
}

// A field is checked at each letter: "-" is 0, "-7" is negative, and the 5 comes behind the "0".
TEST(AxisFields, TheCheckRunsAtEachKey) {
  MemoryAxisFields fields;
  for (const char* key : {"-", "7", "5"})
    fields.setText(Axis::minor2, 3, fields.text(Axis::minor2, 3) + key);
  EXPECT_EQ(fields.dialogs.shown, Texts{kWarnings[7].warning});
  EXPECT_EQ(fields.text(Axis::minor2, 3), "05");
}

TEST(AxisFields, AnglesMayBeNegative) {
  MemoryAxisFields fields;
  fields.put(Axis::main, {"-45", "-30"});
  EXPECT_EQ(fields.dialogs.shown, Texts{});
}

TEST(AxisFields, ANumberInAField) {
  constexpr double beyond = std::numeric_limits<double>::infinity();
  EXPECT_EQ(fieldNumber("12abc"), 12);
  EXPECT_EQ(fieldNumber("abc"), 0);
  EXPECT_EQ(fieldNumber(" 7"), 7);
  EXPECT_EQ(fieldNumber("1e999"), beyond);
  EXPECT_EQ(fieldNumber(" -1e999"), -beyond);
  EXPECT_EQ(fieldNumber("1e999-"), beyond);
}

struct NameRow {
  const char* name;
  const char* azimuth;
  const char* dip;
};

const NameRow kNames[] = {
    {"45;-30", "45", "-30"},
    {"-45;30", "-45", "30"},
    {"45-30", "45", "30"},
    {"-45-30", "-45", "30"},
    {"-45--30", "-45", "-30"},
    {"45--30", "45", "-30"},
    {"  45;0  ", "45", "0"},      // outer blanks are dropped
    {" -45;30", "-45", "30"},     // and don't count as the first character
    {"45 ; -30", "45 ", " -30"},  // inner ones stay
    {"4 5;3 0", "4 5", "3 0"},
    {"45;30;10", "45", "30;10"},  // the first of two
    {"45-30;10", "45", "30;10"},
    {"45;", "45", ""},
    {";45;30", ";45", "30"},  // the first character is never the separator
    {"--30", "-", "30"},
    {"a-b", "a", "b"},
    {"5-", "5", ""},
};

TEST(AxisFields, NamesAreSplitBehindTheirFirstCharacter) {
  for (const NameRow& row : kNames) {
    const DirectionAngles angles = directionAngles(row.name);
    EXPECT_EQ(angles.azimuth, row.azimuth) << row.name;
    EXPECT_EQ(angles.dip, row.dip) << row.name;
  }
}

TEST(AxisFields, ANameWithoutASeparatorIsAFault) {
  for (const char* name : {"", " ", "-", ";", "-45", ";30", " -45 ", "Omni", "45,30"})
    EXPECT_THROW(directionAngles(name), Fault) << name;
}

struct AxisRow {
  const char* what;
  const char* azimuth;
  const char* dip;
  const char* name;
  bool same;
};

const AxisRow kAxisRows[] = {
    {"the same texts", "45", "-30", "45;-30", true},
    {"the same numbers", "45.0", " -30", "45 ; -30", true},
    {"another azimuth", "46", "-30", "45;-30", false},
    {"another dip", "45", "30", "45;-30", false},
    {"nothing filled", "", "", "0;0", false},
    {"blanks alone", "  ", "", "0;0", false},
    {"noughts", "0", "0", "0;0", true},
    {"a name without angles", "0", "0", "Omni", false},
};

TEST(AxisFields, AnAxisIsTheDirectionWithItsAngles) {
  for (const AxisRow& row : kAxisRows) {
    MemoryAxisFields fields;
    fields.put(Axis::minor1, {row.azimuth, row.dip});
    EXPECT_EQ(isAxis(fields, Axis::minor1, row.name), row.same) << row.what;
    EXPECT_FALSE(isAxis(fields, Axis::main, row.name)) << row.what;
  }
}

}  // namespace
}  // namespace zevfit
