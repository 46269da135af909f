// Names of directions and cells of models, all as texts of a file: the table of results, the axes
// that clicks on it fill, the test of right angles, the kriging file, and the test of
// coregionalization. Three lines are the names, ten lines each their models; what the others are is
// told where they are taken.
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "coreg/crosstest.h"
#include "files/kriging_file.h"
#include "files/orthogonality.h"
#include "files/tokens.h"
#include "fuzz/fields.h"
#include "fuzz/require.h"
#include "model/results.h"
#include "session/line.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "session/policy.h"
#include "session/structure_view.h"
#include "tests/support/memory_axis_fields.h"
#include "tests/support/scratch_folder.h"

namespace zevfit {
namespace {

constexpr int kDirections = 3;
constexpr int kVariables = 3;

bool isLine(std::string_view text) { return text.find_first_of("\r\n") == std::string_view::npos; }

Cell cellOf(const std::string& text) {
  const auto number = wholeNumber(text);
  return number ? Cell(*number) : Cell::ofText(text);
}

void takeModel(Fields& in, Session& session, Pair pair) {
  std::string flags = in.next();
  flags.resize(kLines.size(), '0');
  session.c0(pair) = cellOf(in.next());
  for (const Line which : kLines) {
    const LineRef at = line(session, pair, which);
    endSilently([&] { at.use(cellOf(flags.substr(indexOf(which), 1))); });
    if (which == Line::nugget) continue;
    at.letter() = in.next();
    at.sill() = cellOf(in.next());
    at.range() = cellOf(in.next());
  }
  endSilently([&] { session.ctotal(pair) = totalSill(session, pair); });
}

void copyModel(Session& session, Pair from, Pair to) {
  for (const Line which : kLines) {
    const LineRef source = line(session, from, which), copy = line(session, to, which);
    endSilently([&] { copy.use(source.used()); });
    copy.sill() = source.sill();
    if (which == Line::nugget) continue;
    copy.range() = source.range();
    copy.letter() = source.letter();
  }
}

/// All three variables have the models of the first one.
void takeSession(Fields& in, Session& session) {
  session.nvar = kVariables;
  session.ndir = kDirections;
  for (std::int64_t d = 1; d <= kDirections; ++d) session.dirname(d) = in.next();
  for (std::int64_t d = 1; d <= kDirections; ++d) {
    takeModel(in, session, {1, d});
    for (std::int64_t v = 2; v <= kVariables; ++v) copyModel(session, {1, d}, {v, d});
  }
}

void checkName(const Session& session, std::int64_t direction) {
  const std::string_view name = trimmed(session.dirname(direction));
  require(directionEntry(session, direction) ==
              "Direction  " + std::to_string(direction) + "  " + session.dirname(direction),
          "the entry of a direction has its number and its name");
  try {
    const DirectionAngles angles = directionAngles(name);
    require(angles.azimuth + name.at(angles.azimuth.size()) + angles.dip == name,
            "a name is azimuth, separator, dip");
    require(!angles.azimuth.empty(), "an azimuth has a first character");
    require(angles.azimuth.find_first_of("-;", 1) == std::string::npos, "the first one separates");
  } catch (const Fault&) {
    require(name.find('-', 1) == std::string_view::npos, "a minus sign separates");
    require(name.find(';', 1) == std::string_view::npos, "so does a semicolon");
  }
}

/// The sine of the angle that is missing to a right one.
double offRight(const std::array<float, 4>& angles) {
  constexpr double kRadians = std::numbers::pi / 180;
  const double dip1 = angles[1] * kRadians, dip2 = angles[3] * kRadians;
  const double turn = angles[0] * kRadians - angles[2] * kRadians;
  return std::abs(std::cos(dip1) * std::cos(dip2) * std::cos(turn) +
                  std::sin(dip1) * std::sin(dip2));
}

/// The test of the program, which is asked again in other ways.
class CheckedAngles : public Orthogonality {
 public:
  std::int16_t Normal_verif(float mainAzimuth, float mainDip, float minor1Azimuth, float minor1Dip,
                            float minor2Azimuth, float minor2Dip) const override {
    const auto verdict = angles_.Normal_verif(mainAzimuth, mainDip, minor1Azimuth, minor1Dip,
                                              minor2Azimuth, minor2Dip);
    require(verdict == 0 || verdict == 1, "three directions are at right angles or not");
    const bool plane = minor1Azimuth == minor2Azimuth && minor1Dip == minor2Dip;
    double off = offRight({mainAzimuth, mainDip, minor1Azimuth, minor1Dip});
    if (!plane) {
      off = std::max(off, offRight({mainAzimuth, mainDip, minor2Azimuth, minor2Dip}));
      off = std::max(off, offRight({minor1Azimuth, minor1Dip, minor2Azimuth, minor2Dip}));
    }
    // Turns of many rounds lose their digits.
    const bool exact = std::abs(mainAzimuth) < 1e6F && std::abs(minor1Azimuth) < 1e6F &&
                       std::abs(minor2Azimuth) < 1e6F;
    const double limit = std::sin(kRightAngleTolerance * std::numbers::pi / 180);
    if (exact && std::abs(off - limit) > 1e-6) require((off < limit) == (verdict == 1), "as told");
    require(plane || verdict == angles_.Normal_verif(mainAzimuth, mainDip, minor2Azimuth, minor2Dip,
                                                     minor1Azimuth, minor1Dip),
            "the minor directions are alike");
    return verdict;
  }

 private:
  AngleTest angles_;
};

/// Behind each click its axis has the angles of the direction, and no range is negative.
void click(Session& session, const std::vector<ResultRow>& rows, Axis axis, std::int64_t direction,
           test::MemoryAxisFields& fields, RowCells& rowcells) {
  session.targetdir = axis;
  try {
    transferRow(session, rows.at(static_cast<std::size_t>(direction - 1)), direction, fields,
                rowcells);
    const std::string& name = session.dirname(direction);
    const bool blank = trimmed(fields.text(axis, kAzimuth)).empty();
    require(blank || isAxis(fields, axis, name), "an axis is the direction that was clicked");
    require(!rowRefusal(session, direction), "a row that is taken is not refused");
  } catch (const Fault&) {
    require(rowRefusal(session, direction).has_value(), "a row that fails is refused");
    require(session.dirname(direction).find('-', 1) == std::string::npos ||
                trimmed(session.dirname(direction)).find('-', 1) == std::string_view::npos,
            "a name without a separator alone fails");
  }
  for (const Axis each : kAxes)
    for (std::size_t entry = kFirstRange; entry < kAxisEntries; ++entry)
      require(fieldNumber(fields.text(each, entry)) >= 0, "no range is negative");
}

AxisTexts textsOf(const test::MemoryAxisFields& fields, Axis axis) {
  AxisTexts texts;
  for (std::size_t entry = 0; entry < kAxisEntries; ++entry)
    texts.at(entry) = fields.text(axis, entry);
  return texts;
}

bool isOneLineEach(const KrigingModel& model) {
  if (!isLine(model.filetag) || !isLine(model.variable)) return false;
  return std::all_of(model.rowcells.begin(), model.rowcells.end(),
                     [](const std::string& cell) { return isLine(cell); });
}

double lineNumber(TokenStream& in) {
  const auto line = in.line();
  require(line.has_value(), "the file has all its lines");
  const auto number = wholeNumber(trimmed(*line));
  require(number.has_value(), "a line of a number holds nothing else");
  return *number;
}

void checkAngle(TokenStream& in, const std::string& text) {
  const double angle = leadingNumber(text);
  require(std::abs(lineNumber(in) - angle) <= 1e-6 * std::abs(angle), "an angle reads back");
}

void checkRatio(std::string_view token, double main, double minor) {
  // The pattern shows 0 as the point alone.
  const auto ratio = token == "." ? 0 : wholeNumber(token);
  require(ratio.has_value(), "a ratio is a number");
  const double exact = main / minor;
  if (main == 0 || minor == 0 || !std::isfinite(exact)) return;
  require(std::abs(*ratio - exact) <= 0.000051 + 1e-14 * exact, "a ratio is that of the ranges");
}

/// Codes and sills may hold commas and blanks, which a line of five tokens can't.
bool isToken(std::string_view text) {
  return !text.empty() && text.find_first_of(" \t,\r\n") == std::string_view::npos;
}

void checkStructure(TokenStream& in, const KrigingModel& model, std::size_t structure) {
  const auto line = in.line();
  require(line.has_value(), "each structure has a line");
  const std::string& code = model.rowcells.at(3 * structure + 2);
  const std::string& sill = model.rowcells.at(3 * structure + 3);
  if (!isToken(code) || !isToken(sill)) return;
  TokenStream fields(*line);
  require(fields.number() == code, "it begins with its code");
  require(fields.number() == sill, "behind it is its sill");
  const auto rangeAlong = [&](const AxisTexts& axis) {
    return leadingNumber(axis.at(kFirstRange + structure));
  };
  const auto range = fields.number();
  require(range && wholeNumber(*range).has_value(), "its range is a number");
  for (const AxisTexts* minor : {&model.minor1, &model.minor2}) {
    const auto ratio = fields.number();
    require(ratio.has_value(), "it has two ratios");
    checkRatio(*ratio, rangeAlong(model.main), rangeAlong(*minor));
  }
  require(fields.atEnd(), "and nothing else");
}

void checkKrigingFile(const KrigingModel& model, const std::string& bytes) {
  TokenStream in(bytes);
  require(in.line() == "ZGRD", "the file tells what it is");
  require(in.line() == model.filetag && in.line() == model.variable, "and of which variable");
  checkAngle(in, model.main[kAzimuth]);
  checkAngle(in, model.main[kDip]);
  const double count = lineNumber(in);
  // None at all for ranges with a gap.
  require(count == 0 || count == 2 || count == 3 || count == 4, "a count has its structures");
  lineNumber(in);
  require(in.line() == model.rowcells.at(11), "the total sill is that of the table");
  for (std::size_t i = 0; i + 1 < static_cast<std::size_t>(count); ++i)
    checkStructure(in, model, i);
  for (const AxisTexts* minor : {&model.minor1, &model.minor2}) {
    checkAngle(in, minor->at(kAzimuth));
    checkAngle(in, minor->at(kDip));
  }
  require(in.atEnd(), "the dip of Minor 2 is the last line");
}

void saveAndRead(const KrigingModel& model) {
  static const test::ScratchFolder folder;
  const std::filesystem::path path = folder / "out.ZVP";
  test::ScriptedDialogs dialogs;
  dialogs.saved.push_back(path.string());
  saveKrigingFile(model, CheckedAngles(), dialogs, dialogs);
  const bool told = !dialogs.shown.empty() && dialogs.shown.back().starts_with("plain: File  ' ");
  std::error_code missing;
  require(std::filesystem::exists(path, missing) == told, "a file that is there was told of");
  if (!told) return;
  if (isOneLineEach(model)) checkKrigingFile(model, test::contentOf(path));
  std::filesystem::remove(path, missing);
}

/// Three picks are the directions of the axes; then any lines, each an axis, a field of it and what
/// the user types there.
void checkResults(Fields& in, Session& session) {
  std::vector<ResultRow> rows = emptyResults(session);
  const auto illegal = fillResults(session, 1, rows);
  require(!illegal || illegal->starts_with("Illegal value for "), "a text is named");
  for (std::int64_t d = 1; d <= kDirections; ++d)
    hasOtherTotal(session, {1, d}, rows.at(static_cast<std::size_t>(d - 1)));
  test::MemoryAxisFields fields;
  RowCells rowcells;
  for (const Axis axis : kAxes)
    click(session, rows, axis, in.pick(kDirections) + 1, fields, rowcells);
  for (int edits = in.pick(10); edits > 0; --edits) {
    const Axis axis = kAxes.at(static_cast<std::size_t>(in.pick(kDirections)));
    fields.setText(axis, static_cast<std::size_t>(in.pick(kAxisEntries)), in.next());
  }
  saveAndRead({in.next(), in.next(), textsOf(fields, Axis::main), textsOf(fields, Axis::minor1),
               textsOf(fields, Axis::minor2), rowcells});
}

void checkTree(const std::vector<TestNode>& tree) {
  require(!tree.empty() && tree.front().parent.empty(), "the root comes first");
  std::set<std::string> keys;
  for (const TestNode& node : tree) {
    require(keys.empty() || keys.contains(node.parent), "a parent stands in front of its nodes");
    require(keys.insert(node.key).second, "keys are unique");
  }
}

/// To be asked of models that have passed.
void checkSills(const Session& session, const CrossChoice& choice) {
  for (const int position : {choice.main, choice.minor1, choice.minor2}) {
    for (const Line which : kLines) {
      const auto lineOf = [&](int variable) {
        return line(session, {variable + 1, position + 1}, which);
      };
      if (!lineOf(choice.cross).isOn()) continue;
      const auto sill = [&](int variable) -> long double {
        return lineOf(variable).sill().number();
      };
      const long double product = sill(choice.primary) * sill(choice.secondary);
      const long double square = sill(choice.cross) * sill(choice.cross);
      require(square <= product * (1 + 1e-12L) || square < 1e-300L, "no cross sill is too large");
    }
  }
}

/// One cell of one model is another than in the two other variables; then the six choices.
void checkCoregionalization(Fields& in, Session& session) {
  const Pair pair{in.pick(kVariables) + 1, in.pick(kDirections) + 1};
  const Line which = kLines.at(static_cast<std::size_t>(in.pick(kLines.size())));
  const LineRef at = line(session, pair, which);
  const bool isRange = in.pick(2) == 1 && which != Line::nugget;
  (isRange ? at.range() : at.sill()) = cellOf(in.next());
  CrossChoice choice;
  for (int* variable : {&choice.cross, &choice.primary, &choice.secondary})
    *variable = in.pick(kVariables);
  for (int* direction : {&choice.main, &choice.minor1, &choice.minor2})
    *direction = in.pick(kDirections);
  endSilently([&] {
    const std::vector<TestNode> tree = crosstest(session, choice);
    checkTree(tree);
    if (tree.at(1).image == NodeImage::passed) checkSills(session, choice);
  });
}

}  // namespace
}  // namespace zevfit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zevfit::Fields in(data, size);
  zevfit::Session session;
  zevfit::takeSession(in, session);
  for (int d = 1; d <= zevfit::kDirections; ++d) zevfit::checkName(session, d);
  zevfit::checkResults(in, session);
  zevfit::checkCoregionalization(in, session);
  return 0;
}
