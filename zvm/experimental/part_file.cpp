#include "zvm/experimental/part_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "session/tables.h"
#include "zvm/points/data_error.h"

namespace zevfit::zvm {

namespace {

constexpr std::string_view kFirstLine = "zvm part 1";
constexpr std::int64_t kMostClasses = 100'000;

/// A line of words.
class Line {
 public:
  Line& add(std::string_view word) {
    if (!text_.empty()) text_ += ' ';
    text_ += word;
    return *this;
  }
  Line& add(const char* word) { return add(std::string_view(word)); }
  Line& add(std::uint64_t count) { return add(std::to_string(count)); }
  Line& add(double value) {
    std::array<char, 40> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::hex);
    return add(std::string_view(digits.data(), end.ptr));
  }
  void write(ByteSink& out) const { out.write(text_ + '\n'); }

 private:
  std::string text_;
};

}  // namespace

void writePartHeader(const Frame& frame, std::uint64_t part, std::uint64_t parts, ByteSink& out) {
  Line().add(kFirstLine).write(out);
  Line().add("title").add(frame.title).write(out);
  Line lags;
  lags.add("lags").add(frame.lags.width).add(static_cast<std::uint64_t>(frame.lags.count));
  if (frame.lags.tolerance) lags.add(*frame.lags.tolerance);
  lags.write(out);
  Line()
      .add("rule")
      .add(static_cast<std::uint64_t>(frame.zero))
      .add(static_cast<std::uint64_t>(frame.compat))
      .write(out);
  const PointCounts& counts = frame.counts;
  Line()
      .add("points")
      .add(counts.read)
      .add(counts.skipped)
      .add(counts.unknown)
      .add(counts.used)
      .add(counts.duplicates)
      .write(out);
  Line().add("tasks").add(frame.tasks).add(frame.digest).write(out);
  Line().add("variables").add(std::uint64_t{frame.variables.size()}).write(out);
  for (const Frame::Variable& variable : frame.variables)
    Line()
        .add("variable")
        .add(std::uint64_t{variable.isCross})
        .add(variable.variance)
        .add(variable.points)
        .add(variable.name)
        .write(out);
  Line().add("directions").add(std::uint64_t{frame.directions.size()}).write(out);
  for (const Frame::Toward& direction : frame.directions)
    Line()
        .add("direction")
        .add(std::uint64_t{direction.isOmnidirectional})
        .add(direction.name)
        .write(out);
  Line().add("part").add(part).add(parts).write(out);
}

void writePartTask(std::uint64_t task, const SumTable& sums, ByteSink& out) {
  Line().add("task").add(task).write(out);
  for (std::size_t slot = 0; slot < sums.all().size(); ++slot) {
    const Sum& sum = sums.all()[slot];
    if (sum.pairs == 0) continue;
    Line().add(std::uint64_t{slot}).add(sum.pairs).add(sum.distance).add(sum.product).write(out);
  }
}

void writePartEnd(ByteSink& out) { Line().add("end").write(out); }

PartReader::PartReader(std::istream& in, std::string name) : in_(in), name_(std::move(name)) {
  if (line() != kFirstLine) refuse("this is no part of a computation");
  readFrame();
  if (!hasTasks()) end();
}

void PartReader::refuse(const std::string& text) const { throw DataError({name_, at_, 0}, text); }

std::string PartReader::line() {
  std::string text;
  ++at_;
  if (!std::getline(in_, text)) {
    if (in_.bad()) throw ReadError(name_ + " can't be read to its end");
    refuse("the part ends early");
  }
  return text;
}

std::string_view PartReader::word(std::string_view& rest) const {
  const std::size_t blank = rest.find(' ');
  const std::string_view word = rest.substr(0, blank);
  rest.remove_prefix(blank == std::string_view::npos ? rest.size() : blank + 1);
  return word;
}

template <class Number>
Number PartReader::number(std::string_view& rest, int base) const {
  const std::string_view text = word(rest);
  Number value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value, base);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size())
    refuse("`" + std::string(text) + "` is no count");
  return value;
}

double PartReader::real(std::string_view& rest) const {
  const std::string_view text = word(rest);
  double value = 0;
  const auto read =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::hex);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size())
    refuse("`" + std::string(text) + "` is no number");
  return value;
}

/// What stands in the next line behind its key.
std::string PartReader::value(const char* key) {
  std::string text = line();
  std::string_view rest = text;
  if (word(rest) != key) refuse("`" + std::string(key) + "` is looked for here");
  return std::string(rest);
}

void PartReader::readFrame() {
  const auto keep = [this](std::string text) {
    header_ += text + '\n';
    return text;
  };
  frame_.title = keep(value("title"));
  const std::string lags = keep(value("lags"));
  std::string_view rest = lags;
  frame_.lags.width = real(rest);
  frame_.lags.count = number<std::int64_t>(rest);
  if (frame_.lags.count < 1 || frame_.lags.count > kMostClasses) refuse("a bad number of classes");
  if (!rest.empty()) frame_.lags.tolerance = real(rest);
  const std::string rule = keep(value("rule"));
  rest = rule;
  frame_.zero = number<unsigned>(rest) == 0 ? ZeroDistances::skip : ZeroDistances::first;
  const auto compat = number<unsigned>(rest);
  if (compat > static_cast<unsigned>(Compat::gamv)) refuse("a bad rule");
  frame_.compat = static_cast<Compat>(compat);
  const std::string points = keep(value("points"));
  rest = points;
  PointCounts& counts = frame_.counts;
  for (std::uint64_t* count :
       {&counts.read, &counts.skipped, &counts.unknown, &counts.used, &counts.duplicates})
    *count = number<std::uint64_t>(rest);
  const std::string tasks = keep(value("tasks"));
  rest = tasks;
  frame_.tasks = number<std::uint64_t>(rest);
  frame_.digest = number<std::uint64_t>(rest);
  const std::string variables = keep(value("variables"));
  rest = variables;
  const auto variableCount = number<std::uint64_t>(rest);
  if (variableCount < 1 || variableCount > std::uint64_t{kResetVariables})
    refuse("a bad number of variables");
  for (std::uint64_t v = 0; v < variableCount; ++v) {
    const std::string text = keep(value("variable"));
    rest = text;
    Frame::Variable variable;
    variable.isCross = number<unsigned>(rest) != 0;
    variable.variance = real(rest);
    variable.points = number<std::uint64_t>(rest);
    variable.name = rest;
    frame_.variables.push_back(variable);
  }
  const std::string directions = keep(value("directions"));
  rest = directions;
  const auto directionCount = number<std::uint64_t>(rest);
  if (directionCount < 1 || directionCount > std::uint64_t{kResetDirections})
    refuse("a bad number of directions");
  for (std::uint64_t d = 0; d < directionCount; ++d) {
    const std::string text = keep(value("direction"));
    rest = text;
    const bool isOmnidirectional = number<unsigned>(rest) != 0;
    frame_.directions.push_back({std::string(rest), isOmnidirectional});
  }
  const std::string part = value("part");
  rest = part;
  part_ = number<std::uint64_t>(rest);
  parts_ = number<std::uint64_t>(rest);
  if (part_ < 1 || part_ > parts_) refuse("a bad number of the part");
}

SumTable PartReader::task(std::uint64_t number) {
  const std::string text = value("task");
  std::string_view rest = text;
  if (this->number<std::uint64_t>(rest) != number)
    refuse("task " + std::to_string(number) + " is looked for here");
  SumTable table = emptyTable(frame_);
  // A line of sums begins with a digit, the one behind them with a letter.
  while (in_.peek() >= '0' && in_.peek() <= '9') {
    const std::string sums = line();
    rest = sums;
    const auto slot = this->number<std::uint64_t>(rest);
    if (slot >= table.all().size()) refuse("a sum of no class");
    Sum& sum = table.all()[slot];
    sum.pairs = this->number<std::uint64_t>(rest);
    sum.distance = real(rest);
    sum.product = real(rest);
  }
  return table;
}

void PartReader::end() {
  if (line() != "end") refuse("the end of the part is looked for here");
}

namespace {

/// The readers by the numbers of their parts.
std::vector<PartReader*> inOrder(std::vector<PartReader>& parts) {
  if (parts.empty()) throw DataError({}, "no part");
  const std::uint64_t count = parts[0].parts();
  std::vector<PartReader*> ordered(parts.size(), nullptr);
  for (PartReader& part : parts) {
    if (part.header() != parts[0].header() || part.parts() != count)
      throw DataError({part.name(), 0, 0}, "a part of another computation than " + parts[0].name());
    if (part.part() > ordered.size()) continue;
    PartReader*& place = ordered[part.part() - 1];
    if (place != nullptr)
      throw DataError({part.name(), 0, 0}, "part " + std::to_string(part.part()) +
                                               " a second time, as in " + place->name());
    place = &part;
  }
  for (std::uint64_t number = 1; number <= count; ++number)
    if (number > ordered.size() || ordered[number - 1] == nullptr)
      throw DataError(
          {}, "part " + std::to_string(number) + " of " + std::to_string(count) + " is missing");
  return ordered;
}

}  // namespace

Experimental mergeParts(std::vector<PartReader>& parts) {
  const std::vector<PartReader*> ordered = inOrder(parts);
  const Frame& frame = parts[0].frame();
  SumTable whole = emptyTable(frame);
  for (std::uint64_t task = 0; task < frame.tasks; ++task)
    whole.add(ordered[task % ordered.size()]->task(task));
  for (PartReader* part : ordered)
    if (part->hasTasks()) part->end();
  return experimentalOf(frame, whole);
}

}  // namespace zevfit::zvm
