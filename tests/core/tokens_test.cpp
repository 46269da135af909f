#include "files/tokens.h"

#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "session/numbers.h"

namespace zevfit {
namespace {

using Tokens = std::vector<std::string>;

struct Case {
  const char* name;
  std::string bytes;
  Tokens tokens;
};

template <class Take>
Tokens all(TokenStream in, Take take) {
  Tokens tokens;
  while (const auto token = (in.*take)()) tokens.emplace_back(*token);
  EXPECT_TRUE(in.atEnd());
  return tokens;
}

std::deque<std::string> cut(const std::string& bytes, std::size_t length) {
  std::deque<std::string> pieces;
  for (std::size_t at = 0; at < bytes.size(); at += length)
    pieces.push_back(bytes.substr(at, length));
  return pieces;
}

/// Of the bytes as a whole and of pieces of any length.
template <std::size_t N, class Take>
void expectTokens(const Case (&cases)[N], Take take) {
  for (const Case& c : cases) {
    EXPECT_EQ(all(TokenStream(c.bytes), take), c.tokens) << c.name;
    for (std::size_t length = 1; length <= c.bytes.size(); ++length) {
      Pieces pieces(cut(c.bytes, length));
      EXPECT_EQ(all(TokenStream(pieces), take), c.tokens) << c.name << " in pieces of " << length;
    }
  }
}

TEST(TextToken, RunsToACommaOrALineEnd) {
  const Case cases[] = {
      {"nothing", "", {}},
      {"one to the end of the stream", "zinc", {"zinc"}},
      {"blanks inside and behind stay",
       "  meuse  flood plain  \r\nzevra",
       {"meuse  flood plain  ", "zevra"}},
      {"tabs inside and behind stay", "\ta\tb\t\nc", {"a\tb\t", "c"}},
      {"carriage return and line feed", "a\r\nb\r\n", {"a", "b"}},
      {"line feed", "a\nb\n", {"a", "b"}},
      {"carriage return", "a\rb\r", {"a", "b"}},
      {"line feed and carriage return are two line ends", "a\n\rb", {"a", "b"}},
      {"empty lines in front are skipped", "\r\n \r\n\t\n\ra", {"a"}},
      {"a comma ends it", "title, with comma\nzevra", {"title", "with comma", "zevra"}},
      {"a blank before the comma stays", "a ,b", {"a ", "b"}},
      {"nothing before a comma", ",b", {"", "b"}},
      {"nothing between two commas", "a,,b", {"a", "", "b"}},
      {"nothing behind a comma before the line end", "a,\nb", {"a", "b"}},
      {"nothing behind a comma at the end", "a,", {"a"}},
      {"a blank alone", " ", {}},
      {"line ends alone", "\r\n\n\r", {}},
      {"a line end behind a blank is one more token's front", "a\n \nb", {"a", "b"}},
      {"bytes above 127 and zero", std::string("\xE9\0\xFF", 3), {std::string("\xE9\0\xFF", 3)}},
      {"a number is a text too", " 1.5 2\n", {"1.5 2"}},
  };
  expectTokens(cases, &TokenStream::text);
}

TEST(TextToken, InQuotesRunsToTheNextQuote) {
  const Case cases[] = {
      {"quotes are taken off", "\"zinc\"\nlead", {"zinc", "lead"}},
      {"a comma inside", "\"a, b\",c", {"a, b", "c"}},
      {"line ends inside", "\"a\r\nb\"\nc", {"a\r\nb", "c"}},
      {"blanks inside stay", "\"  a  \"\nc", {"  a  ", "c"}},
      {"empty", "\"\"\nc", {"", "c"}},
      {"the rest of the field is dropped", "\"a\"bc d,e", {"a", "e"}},
      {"the rest of the line is dropped", "\"a\" b \"c\"\nd", {"a", "d"}},
      {"the rest ends at a carriage return", "\"a\"b\rd", {"a", "d"}},
      {"blanks before the comma are dropped", "\"a\"  ,b", {"a", "b"}},
      {"never closed", "\"a,b\nc", {"a,b\nc"}},
      {"never closed and empty", "\"", {""}},
      {"closed at the end", "\"a\"", {"a"}},
      {"behind blanks", "  \"a\"", {"a"}},
      {"a quote inside a field is a letter", "a\"b,c\"", {"a\"b", "c\""}},
  };
  expectTokens(cases, &TokenStream::text);
}

TEST(NumberToken, EndsAtABlankCommaOrLineEnd) {
  const Case cases[] = {
      {"nothing", "", {}},
      {"as written", " 1.5  -2 \r\n", {"1.5", "-2"}},
      {"blank", "1 2", {"1", "2"}},
      {"blanks and tabs", "1 \t 2", {"1", "2"}},
      {"tab", "1\t2", {"1", "2"}},
      {"comma", "1,2", {"1", "2"}},
      {"comma behind a blank", "1 ,2", {"1", "2"}},
      {"comma before a blank", "1, 2", {"1", "2"}},
      {"line feed", "1\n2", {"1", "2"}},
      {"carriage return", "1\r2", {"1", "2"}},
      {"carriage return and line feed", "1\r\n2", {"1", "2"}},
      {"empty lines", "\n\r\n 1 \n\n2", {"1", "2"}},
      {"nothing before a comma", ",2", {"", "2"}},
      {"nothing between commas", "1,,2", {"1", "", "2"}},
      {"a comma behind a line end is a field of its own", "1\n,2", {"1", "", "2"}},
      {"nothing behind a comma at the end", "1,", {"1"}},
      {"a quote is no delimiter", "\"1 2\"", {"\"1", "2\""}},
      {"a text", "abc def", {"abc", "def"}},
      {"blanks alone", " \t \r\n", {}},
  };
  expectTokens(cases, &TokenStream::number);
}

TEST(TokenStream, EndsOnlyBehindTheLastByte) {
  struct EndCase {
    const char* name;
    const char* bytes;
    bool end;  ///< behind the first token
  };
  const EndCase cases[] = {
      {"no delimiter", "1", true},
      {"one line end", "1\n", true},
      {"carriage return and line feed are one", "1\r\n", true},
      {"line feed and carriage return are two", "1\n\r", false},
      {"two line ends", "1\n\n", false},
      {"blanks and a line end", "1  \t\r\n", true},
      {"blanks", "1  ", true},
      {"a blank behind the line end", "1\n ", false},
      {"one comma", "1,", true},
      {"a comma and a line end", "1,\n", false},
      {"two commas", "1,,", false},
      {"another token", "1 2", false},
  };
  for (const EndCase& c : cases) {
    TokenStream number(c.bytes);
    EXPECT_EQ(number.number(), "1") << c.name;
    EXPECT_EQ(number.atEnd(), c.end) << c.name;
    TokenStream plain(c.bytes);
    EXPECT_EQ(plain.plainNumber<double>(), 1.0) << c.name;
    EXPECT_EQ(plain.atEnd(), c.end) << c.name;
    EXPECT_EQ(plain.bytesLeft(), number.bytesLeft()) << c.name;
  }
  EXPECT_TRUE(TokenStream("").atEnd());
  EXPECT_FALSE(TokenStream(" ").atEnd());
}

TEST(TokenStream, ReadThatFindsNoTokenTakesTheRest) {
  for (const char* bytes : {" ", "\n", "\t\r\n "}) {
    TokenStream text(bytes), number(bytes);
    EXPECT_EQ(text.text(), std::nullopt);
    EXPECT_TRUE(text.atEnd());
    EXPECT_EQ(number.number(), std::nullopt);
    EXPECT_TRUE(number.atEnd());
  }
}

TEST(PlainNumber, TakesTheUsualFormsAlone) {
  struct PlainCase {
    const char* bytes;
    std::optional<double> value;
    const char* next;  ///< the number token behind it, or the token itself where it is left
  };
  const PlainCase cases[] = {
      {"1.5 2", 1.5, "2"},
      {" -2.5,3", -2.5, "3"},
      {"\r\n.5\r\n3", 0.5, "3"},
      {"5.\n3", 5, "3"},
      {"1e-05 3", 1e-05, "3"},
      {"1E+15\t3", 1e15, "3"},
      {"+1 3", std::nullopt, "+1"},
      {"12abc 3", std::nullopt, "12abc"},
      {"1e 3", std::nullopt, "1e"},
      {"abc 3", std::nullopt, "abc"},
      {"inf 3", std::nullopt, "inf"},
      {"-infinity 3", std::nullopt, "-infinity"},
      {"nan 3", std::nullopt, "nan"},
      {"1e999 3", std::nullopt, "1e999"},
      {"1e-999 3", std::nullopt, "1e-999"},
      {"0x10 3", std::nullopt, "0x10"},
      {",3", std::nullopt, ""},
      {"\"1\" 3", std::nullopt, "\"1\""},
  };
  for (const PlainCase& c : cases) {
    TokenStream in(c.bytes);
    EXPECT_EQ(in.plainNumber<double>(), c.value) << c.bytes;
    EXPECT_EQ(in.number(), c.next) << c.bytes;
  }
}

TEST(PlainNumber, OfAFloatIsRoundedOnce) {
  // 16777217.0000001 lies just above the middle of the floats 16777216 and 16777218; through a
  // double of 16777217 it would go down, to the even one.
  TokenStream in("16777217.0000000001 1e39");
  EXPECT_EQ(in.plainNumber<float>(), 16777218.0F);
  EXPECT_EQ(in.plainNumber<float>(), std::nullopt);
  EXPECT_EQ(in.number(), "1e39");
}

Tokens allLines(const std::string& bytes) {
  TokenStream in(bytes);
  Tokens taken;
  while (const auto line = in.line()) taken.emplace_back(*line);
  EXPECT_TRUE(in.atEnd());
  return taken;
}

TEST(WholeLine, RunsToTheLineEnd) {
  const Case cases[] = {
      {"nothing", "", {}},
      {"to the end of the stream", "a, \"b\" ", {"a, \"b\" "}},
      {"blanks in front and behind stay", "  a\t\r\n b \r\n", {"  a\t", " b "}},
      {"empty lines count", "\r\n\n\ra", {"", "", "", "a"}},
      {"the last line end ends a line alone", "a\r\n", {"a"}},
      {"carriage return at the end", "a\r", {"a"}},
  };
  for (const Case& c : cases) EXPECT_EQ(allLines(c.bytes), c.tokens) << c.name;
}

TEST(WholeLine, BehindANumberBeginsBehindItsDelimiter) {
  const std::pair<const char*, const char*> cases[] = {
      {"7 \r\n a", " a"}, {"7\n\na", ""}, {"7 \t, a", " a"}, {"7  a", "a"}, {"7,\ra", ""},
  };
  for (const auto& [bytes, line] : cases) {
    TokenStream in(bytes);
    EXPECT_EQ(in.number(), "7") << bytes;
    EXPECT_EQ(in.line(), line) << bytes;
  }
}

TEST(IntegerToken, IsTheNearestOfItsRange) {
  const std::pair<const char*, std::optional<std::int32_t>> cases[] = {
      {" 7 ", 7},
      {"-2.5", -2},
      {"3.5", 4},
      {"2147483647.4", 2147483647},
      {"2147483647.5", std::nullopt},
      {"-2147483648.5", -2147483647 - 1},
      {"-2147483649", std::nullopt},
      {"1E400", std::nullopt},
      {"7x", std::nullopt},
      {"nan", std::nullopt},
      {",", 0},
      {" ", std::nullopt},
  };
  for (const auto& [bytes, value] : cases) {
    TokenStream in(bytes);
    EXPECT_EQ(integerToken(in), value) << bytes;
  }
}

std::optional<double> valueOf(std::string_view token, double) { return numberOf(token); }
std::optional<float> valueOf(std::string_view token, float) { return floatOf(token); }

/// The numbers of a stream with how many bytes were left behind each, and the texts between. Where
/// an exponent is cut off, the plain form is none, and the closer look finds the same number.
template <class Number>
Tokens numbersAndTexts(TokenStream in) {
  Tokens tokens;
  while (!in.atEnd()) {
    auto number = in.plainNumber<Number>();
    std::string text;
    if (!number) {
      text = in.number().value_or("");
      number = valueOf(text, Number());
    }
    tokens.push_back(number ? generalText(*number) : "'" + text + "'");
    tokens.push_back(std::to_string(in.bytesLeft()));
  }
  return tokens;
}

TEST(PlainNumber, IsTheSameOfPieces) {
  const std::string bytes = " 12.5  , -3\r\n1E3 1e+2 .5 5. nan 1.5x,,7\r\r\n123456789.25 \t0\r\n";
  const Tokens expected{"12.5", "51", "-3", "46", "1000",         "42", "100",    "37",
                        "0.5",  "34", "5",  "31", "'nan'",        "27", "'1.5x'", "22",
                        "0",    "21", "7",  "19", "123456789.25", "3",  "0",      "0"};
  EXPECT_EQ(numbersAndTexts<double>(TokenStream(bytes)), expected);
  for (std::size_t length = 1; length <= bytes.size(); ++length) {
    Pieces pieces(cut(bytes, length));
    EXPECT_EQ(numbersAndTexts<double>(TokenStream(pieces)), expected) << length;
    Pieces again(cut(bytes, length));
    EXPECT_EQ(numbersAndTexts<float>(TokenStream(again)),
              numbersAndTexts<float>(TokenStream(bytes)))
        << length;
  }
}

TEST(Pieces, OfALongTokenAreLookedAtAFewTimes) {
  std::deque<std::string> zeros(20'000, std::string(100, '\0'));
  Pieces pieces(std::move(zeros));
  TokenStream in(pieces);
  EXPECT_EQ(in.bytesLeft(), 2'000'000U);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(in.text()->size(), 2'000'000U);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  EXPECT_TRUE(in.atEnd());
}

}  // namespace
}  // namespace zevfit
