// The family's kriging file, by the rules of the results window for a session in which the plots of
// all directions have been opened.
#include <array>
#include <filesystem>

#include "files/kriging_file.h"
#include "model/axis_fields.h"
#include "model/nested_model.h"
#include "model/results.h"
#include "session/line.h"
#include "zvm/exchange/targets.h"

namespace zevfit::exchange {
namespace {

constexpr const char* kNoMinor =
    " Without --minor1 that is Main; a kriging file takes two at right angles.";

/// The fields of the axes as the window has them when it comes up for the first time.
class Fields : public AxisFields {
 public:
  std::string text(Axis axis, std::size_t entry) const override {
    return texts_.at(static_cast<std::size_t>(axis)).at(entry);
  }
  void setText(Axis axis, std::size_t entry, std::string_view text) override {
    texts_.at(static_cast<std::size_t>(axis)).at(entry) = text;
  }
  const AxisTexts& all(Axis axis) const { return texts_.at(static_cast<std::size_t>(axis)); }

 private:
  std::array<AxisTexts, kAxes.size()> texts_;
};

/// What drawing a plot does to the cells, and its window when it becomes the active one.
void open(FitTables& tables, Pair pair) {
  for (const Line which : kStructures) {
    Cell& range = line(tables, pair, which).range();
    if (range.number() <= 0) range = kSmallestRange;
  }
  tables.ctotal(pair) = totalSill(tables, pair);
}

void refuse(const std::optional<std::string>& reason) {
  if (reason) throw Refusal(*reason);
}

KrigingModel krigingModel(Session& session, std::int64_t variable, const Picked& picked) {
  for (std::int64_t direction = 1; direction <= session.ndir; ++direction)
    open(session, {variable, direction});
  std::vector<ResultRow> rows = emptyResults(session);
  refuse(fillResults(session, variable, rows));
  Fields fields;
  RowCells rowcells;
  const std::array<std::int64_t, kAxes.size()> directions{
      picked.main, picked.minor1.value_or(picked.main),
      picked.minor2.value_or(picked.minor1.value_or(picked.main))};
  for (const Axis axis : kAxes) {
    const std::int64_t direction = directions.at(static_cast<std::size_t>(axis));
    refuse(rowRefusal(session, direction));
    session.targetdir = axis;
    transferRow(session, rows.at(static_cast<std::size_t>(direction - 1)), direction, fields,
                rowcells);
  }
  return {session.filetag,          session.varname(variable), fields.all(Axis::main),
          fields.all(Axis::minor1), fields.all(Axis::minor2),  rowcells};
}

bool hasGap(const SpatialModel& model) {
  std::size_t expected = 1;
  for (const SpatialStructure& structure : model.structures)
    if (indexOf(structure.line) != expected++) return true;
  return false;
}

}  // namespace

std::string krigingFileText(const Session& session, const Request& request, Warnings& warnings) {
  const Picked picked = pickedOf(session, request);
  const std::int64_t variable = request.variables.front();
  const SpatialModel model =
      modelAlong(session, variable, triadOf(session, picked, warnings), warnings);
  Session opened = session;
  const KrigingModel file = krigingModel(opened, variable, picked);
  refuse(illegalAngle(file));
  if (const auto reason = angleRefusal(file, AngleTest()))
    throw Refusal(*reason + (picked.minor1 ? "" : kNoMinor));
  refuse(structureRefusal(file, std::filesystem::path(session.inputfile).filename().string()));
  if (hasGap(model))
    warnings.push_back(model.variable +
                       ": an unused structure stands before a used one; a kriging file with such a "
                       "gap has no structures");
  return composeKrigingFile(file);
}

}  // namespace zevfit::exchange
