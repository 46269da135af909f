#include "zvm/checking/checker.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "files/tokens.h"
#include "files/variogram_format.h"
#include "model/axis_fields.h"
#include "session/numbers.h"
#include "session/policy.h"
#include "session/tables.h"
#include "zvm/checking/cross_names.h"
#include "zvm/checking/letters.h"

namespace zevfit::checking {
namespace {

constexpr std::size_t kLongestShown = 40;
/// A count beyond has digits that a double does not tell apart.
constexpr double kLargestCount = 9007199254740992;

bool hasAngles(std::string_view name) {
  return attempt(
      [&] {
        directionAngles(name);
        return true;
      },
      [] { return false; });
}

/// What a field without quotes ends at.
struct Quoted {
  const char* letters;
  const char* what;
};
constexpr std::array kQuoted{Quoted{",", "a comma"}, Quoted{"\r\n", "a line end"}};

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == text.npos; }

/// Written on a line of its own it is read back as it is.
bool isOneToken(std::string_view text) {
  return !text.empty() && text.find_first_of(",\r\n") == text.npos &&
         text.find_first_of(" \t\"") != 0;
}

}  // namespace

std::string shown(std::string_view text) {
  const std::string cut(text.substr(0, kLongestShown));
  return '`' + cut + (text.size() > kLongestShown ? "...`" : "`");
}

std::string counted(const std::string& number, const std::string& word) {
  return number + ' ' + word + (number == "1" ? "" : "s");
}

std::string Checker::words(Pair pair) const {
  const auto& [variable, direction] = pair;
  std::string text;
  if (variable > 0)
    text += " of " + shown(trimmed(file_.variableNames.at(static_cast<std::size_t>(variable - 1))));
  if (direction > 0)
    text +=
        " in " + shown(trimmed(file_.directionNames.at(static_cast<std::size_t>(direction - 1))));
  return text;
}

std::string Checker::words(const Item& item) const {
  std::string text = item.what;
  if (item.lag > 0) text += " of class " + std::to_string(item.lag);
  if (item.structure > 0) text += " of structure " + std::to_string(item.structure);
  return text + words(item.pair);
}

void Checker::add(Severity severity, std::size_t offset, std::string text, Topic topic) {
  result_.findings.push_back({severity, lines_.at(offset), std::move(text), topic});
}

void Checker::endsEarly(const Item& item) {
  error(bytes_.size(), "the file ends before the " + words(item));
  throw Stop();
}

Token Checker::text(const Item& item) {
  const auto token = in_.text();
  if (!token) endsEarly(item);
  lookAt(*token, item);
  return *token;
}

Token Checker::number(const Item& item) {
  const auto token = in_.number();
  if (!token) endsEarly(item);
  return *token;
}

double Checker::valueOf(const Token& token, const Item& item) {
  const auto number = numberOf(token.text);
  if (!number) error(token.offset, shown(token.text) + " in place of the " + words(item));
  if (token.text.empty())
    warning(token.offset, "nothing in place of the " + words(item) + ", which counts as 0");
  return number.value_or(0);
}

double Checker::value(const Item& item) { return valueOf(number(item), item); }

void Checker::lookAt(const Token& token, const Item& item) {
  if (token.isQuoted) quotes(token, item);
  letters(token, item);
}

/// What nothing but the quotes holds together. zevFIT itself writes them where they are needed.
void Checker::quotes(const Token& token, const Item& item) {
  for (const auto& [letters, what] : kQuoted)
    if (token.text.find_first_of(letters) != token.text.npos)
      warning(token.offset, std::string(what) + " in quotes in the " + words(item) +
                                ": a program that writes it without quotes breaks the file");
  if (!isBlank(token.text) && isBlank(token.text.substr(0, 1)))
    warning(token.offset, "a blank in front in the quotes of the " + words(item) +
                              ": a program that writes it without quotes drops it");
  if (token.isCut)
    warning(token.offset,
            "a save does not bring back what stands behind the quotes of the " + words(item));
}

/// Files are in Latin-1, of which control characters are no letters.
void Checker::letters(const Token& token, const Item& item) {
  const std::size_t first = token.offset + (token.isQuoted ? 1 : 0);
  const std::size_t foreign = beyondAscii(token.text);
  if (foreign != token.text.npos)
    return warning(first + foreign, "the " + words(item) +
                                        " looks like UTF-8; it is read as Latin-1, each byte as a "
                                        "letter of its own");
  const auto isOdd = [](char c) { return isControl(c) && !isBlank({&c, 1}); };
  const auto found = std::ranges::find_if(token.text, isOdd);
  if (found == token.text.end()) return;
  warning(first + static_cast<std::size_t>(found - token.text.begin()),
          "a control character, 0x" + hexText(*found) + ", in the " + words(item));
}

void Checker::title() {
  const Token token = text({"title"});
  file_.title = token.text;
  if (isBlank(token.text))
    warning(token.offset, "no title: a program that writes it without quotes breaks the file");
  const Place behind = lines_.at(in_.offset());
  const std::string_view line = lines_.line(behind.line);
  if (!isBlank(line.substr(std::min(behind.column - 1, line.size()))) && behind.column > 1)
    afterTitle_ = " (the comma in the title ends it; it takes double quotes)";
}

void Checker::tag() {
  const Token token = text({"tag"});
  file_.tag = token.text;
  tagOffset_ = token.offset;
  hasModels_ = lowered(trimmed(file_.tag)) == kModelTag;
  if (!isOneToken(token.text))
    warning(token.offset, "the tag " + shown(token.text) + " is none that a save brings back");
}

std::int64_t Checker::count(const char* what, std::int64_t most) {
  const Item item{what};
  const Token token = number(item);
  const auto number = numberOf(token.text);
  if (!number || *number < 1 || *number > kLargestCount || std::floor(*number) != *number) {
    error(token.offset, shown(token.text) + " is no " + words(item) + afterTitle_);
    throw Stop();
  }
  const auto count = static_cast<std::int64_t>(*number);
  if (most > 0 && count > most) {
    error(token.offset, std::string(what) + " " + std::to_string(count) +
                            " is more than zevFIT holds, which is " + std::to_string(most));
    throw Stop();
  }
  return count;
}

Token Checker::name(const char* what, std::vector<std::string>& names) {
  const std::string item = "name of " + std::string(what) + ' ' + std::to_string(names.size() + 1);
  const Token token = text({item.c_str()});
  const auto same = [&](const std::string& name) { return trimmed(name) == trimmed(token.text); };
  if (!isBlank(token.text) && std::ranges::any_of(names, same))
    warning(token.offset,
            "two names of " + std::string(what) + "s are " + shown(trimmed(token.text)));
  names.emplace_back(token.text);
  return token;
}

void Checker::variableNames() {
  for (std::int64_t v = 1; v <= file_.variables; ++v) {
    const Token token = name("variable", file_.variableNames);
    if (isBlank(token.text))
      warning(token.offset, "variable " + std::to_string(v) + " has no name; a save gives it one");
  }
  for (const std::string& name : file_.variableNames)
    isCross_.push_back(crossOf(name, file_.variableNames).isCross());
}

void Checker::directionNames() {
  for (std::int64_t d = 1; d <= file_.directions; ++d) {
    const Token token = name("direction", file_.directionNames);
    if (!hasAngles(token.text))
      warning(token.offset,
              "the direction " + shown(trimmed(token.text)) + " has no azimuth and dip, as in 0;0");
  }
}

void Checker::header() {
  title();
  tag();
  file_.variables = count("number of variables", kResetVariables);
  variableNames();
  file_.directions = count("number of directions", kResetDirections);
  file_.classes = count("number of classes", 0);
  directionNames();
}

CheckResult Checker::run() {
  try {
    header();
    data();
    if (hasModels_) models();
    rest();
  } catch (const Stop&) {
  }
  const auto before = [](const Finding& a, const Finding& b) { return a.place < b.place; };
  std::stable_sort(result_.findings.begin(), result_.findings.end(), before);
  return std::move(result_);
}

}  // namespace zevfit::checking
