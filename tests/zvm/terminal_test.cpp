// Control characters of names and arguments do not reach a terminal.
#include "zvm/verbs/terminal.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tests/zvm/command.h"

namespace zevfit::test {
namespace {

using Json = nlohmann::json;

TEST(Terminal, HasTextsOnOneLine) {
  struct Row {
    const char* text;
    const char* shown;
  };
  const Row rows[] = {
      {"", ""},
      {"zinc caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x99\x82",
       "zinc caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x99\x82"},
      {"a\tb\r\nc", "a b  c"},
      {"\x1B[0m\x7F\x01", "\\x1B[0m\\x7F\\x01"},
      // U+0085 and U+009F are control characters, U+00A0 and U+0105 are none.
      {"\xC2\x85\xC2\x9F\xC2\xA0\xC4\x85", "\\x85\\x9F\xC2\xA0\xC4\x85"},
      // No UTF-8: a letter of Latin-1, a rest, a beginning, and what begins no character.
      {"caf\xE9 ", "caf\\xE9 "},
      {"\x9B\x31", "\\x9B\x31"},
      {"\xE2\x82", "\\xE2\\x82"},
      {"\xC0\x9B\xFF", "\\xC0\\x9B\\xFF"},
  };
  for (const auto& [text, shown] : rows) EXPECT_EQ(verbs::terminalText(text), shown);
}

const char* const kOdd = "z\x1B[2J\x9Bq\x7F";

TEST(Terminal, IsSteeredByNoName) {
  const std::string bytes =
      kModel.with(1, "\"a\tb\nc\x07\"").with(4, kOdd).with(7, "0;0\x85").bytes();
  const std::string info = ran({"info", "-"}, bytes).out;
  EXPECT_EQ(info.substr(0, info.find('\n')), "title       a b c\\x07");
  EXPECT_NE(info.find("z\\x1B[2J\\x9Bq\\x7F  1 "), std::string::npos) << info;
  EXPECT_NE(info.find("0;0\\x85  "), std::string::npos) << info;
  // In what check shows of the file each stands for one column.
  EXPECT_EQ(ran({"check", "-"}, kModel.with(4, kOdd).bytes()).out,
            "-:4:2: warning: a control character, 0x1B, in the name of variable 1\n"
            "z [2J q \n ^\n");
  EXPECT_EQ(ran({"info", "no\x1Bne\xC2\x9B\xE9\n"}).err,
            "zvm: error: cannot read no\\x1Bne\\x9B\\xE9 : No such file or directory\n");
  const Json report = Json::parse(ran({"info", "-", "--json"}, bytes).out);
  EXPECT_EQ(report.at("variables").at(0).at("name"), "z\x1B[2J\xC2\x9Bq\x7F");
  for (const char* verb : {"info", "check"})
    EXPECT_EQ(ran({verb, "-", "--json"}, bytes).out.find_first_of("\x1B\x9B\x7F\x85"),
              std::string::npos)
        << verb;
}

}  // namespace
}  // namespace zevfit::test
