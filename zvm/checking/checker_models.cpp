#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "files/tokens.h"
#include "model/slider_scale.h"
#include "session/form.h"
#include "session/numbers.h"
#include "zvm/checking/checker.h"

// The block of models, and what stands behind the last token.

namespace zevfit::checking {
namespace {

/// The bytes that the reader keeps of a letter.
constexpr std::size_t kLongestLetter = 255;
constexpr double kMostOfVariance = 2;
constexpr double kPowerLimit = 2;

bool isFlag(std::string_view token) {
  const auto value = numberOf(token);
  return value && (*value == 0 || *value == 1);
}

bool isLetter(std::string_view token) { return token == kNoLetter || formOf(token).has_value(); }

/// The first lines of a block of models: a nugget and a structure.
bool beginsModels(std::string_view bytes) {
  TokenStream in(bytes);
  const auto nuggetFlag = in.number(), nugget = in.number(), flag = in.number();
  const auto letter = in.text();
  const auto sill = in.number(), range = in.number();
  return range && isFlag(*nuggetFlag) && numberOf(*nugget) && isFlag(*flag) &&
         isLetter(trimmed(*letter)) && numberOf(*sill) && numberOf(*range);
}

}  // namespace

void Checker::models() {
  Pair pair;
  try {
    for (pair.variable = 1; pair.variable <= file_.variables; ++pair.variable)
      for (pair.direction = 1; pair.direction <= file_.directions; ++pair.direction) model(pair);
  } catch (const EndOfModels&) {
    add(Severity::warning, bytes_.size(),
        "the block of models is cut: the model" + words(pair) +
            " and those behind it repeat the last number and letter",
        Topic::reading);
  }
}

void Checker::model(Pair pair) {
  ModelLines lines;
  sillOffset_ = 0;
  for (int structure = 0; structure < static_cast<int>(lines.size()); ++structure)
    lines.at(static_cast<std::size_t>(structure)) = modelLine(pair, structure);
  totalOf(lines, pair);
  file_.models.push_back(lines);
}

Token Checker::modelNumber() {
  const auto token = in_.number();
  if (!token) throw EndOfModels();
  return *token;
}

ModelLine Checker::modelLine(Pair pair, int structure) {
  ModelLine line;
  const bool isNugget = structure == 0;
  const auto item = [&](const char* what) { return Item{what, pair, 0, structure}; };
  const Item flagItem = item(isNugget ? "flag of the nugget" : "flag");
  const Token flag = modelNumber();
  line.flag = valueOf(flag, flagItem);
  if (line.flag != 0 && line.flag != 1)
    error(flag.offset, "the " + words(flagItem) + " is " + generalText(line.flag) +
                           ", not 0 or 1; a save leaves the line out");
  if (!isNugget) letterOf(line, item("letter"));
  const Token sill = modelNumber();
  line.sill = valueOf(sill, item(isNugget ? "nugget" : "sill"));
  if (line.flag == 1) sillOffset_ = sill.offset;
  if (isNugget) return line;
  const Token range = modelNumber();
  line.range = valueOf(range, item("range"));
  if (line.flag == 1 && numberOf(range.text)) rangeOf(line, item("range"), range.offset);
  return line;
}

void Checker::letterOf(ModelLine& line, const Item& item) {
  const auto token = in_.text();
  if (!token) throw EndOfModels();
  lookAt(*token, item);
  line.letter = trimmed(token->text).substr(0, kLongestLetter);
  if (!isLetter(line.letter))
    warning(token->offset,
            "the " + words(item) + " is " + shown(line.letter) + ", not one of S, E, G, P and -");
  else if (line.flag == 1 && line.letter == kNoLetter)
    warning(token->offset, "the " + words(item) + " is -, though it is used");
}

void Checker::rangeOf(const ModelLine& line, const Item& item, std::size_t offset) {
  const std::string value = generalText(line.range);
  if (formOf(line.letter) == Form::power) {
    const std::string exponent =
        "the exponent " + value + words({"", item.pair, 0, item.structure});
    if (line.range <= 0) warning(offset, exponent + " is not above 0");
    if (line.range >= kPowerLimit) warning(offset, exponent + " is not below 2");
    return;
  }
  const double farthest = farthest_.at(indexOf(item.pair));
  if (line.range <= 0)
    warning(offset, "the " + words(item) + " is " + value + ", not above 0");
  else if (line.range > kRangesInScale * farthest)
    warning(offset, "the " + words(item) + " is " + value +
                        ", beyond 20 times the largest distance, " + generalText(farthest));
}

/// The sill of a power structure takes no part in its curve, nor in the total.
void Checker::totalOf(const ModelLines& lines, Pair pair) {
  double total = 0;
  for (const ModelLine& line : lines)
    if (line.flag == 1 && formOf(line.letter) != Form::power) total += line.sill;
  const double variance = file_.variances.at(static_cast<std::size_t>(pair.variable - 1));
  if (!(std::abs(total) > kMostOfVariance * std::abs(variance)) || !std::isfinite(total)) return;
  const bool isSigned = total < 0 || variance < 0;
  warning(sillOffset_, "the total sill" + words(pair) + " is " + generalText(total) +
                           (isSigned ? ", in size" : ",") + " above twice the variance, " +
                           generalText(variance));
}

void Checker::rest() {
  const std::size_t blanks = in_.rest().find_first_not_of(" \t\r\n");
  if (blanks == std::string_view::npos) return;
  const std::size_t offset = in_.offset() + blanks;
  const std::string line = std::to_string(lines_.at(offset).line);
  if (!hasModels_ && beginsModels(in_.rest())) {
    add(Severity::warning, tagOffset_,
        "for the tag " + shown(file_.tag) + " the block of models from line " + line +
            " on is dropped; it takes the tag zevRA1",
        Topic::reading);
    return;
  }
  const std::size_t left = bytes_.size() - offset;
  add(Severity::warning, offset,
      counted(std::to_string(left), "byte") + " behind the end " + (left == 1 ? "is" : "are") +
          " not read",
      Topic::reading);
}

}  // namespace zevfit::checking
