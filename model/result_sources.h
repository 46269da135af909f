#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/axis_fields.h"
#include "session/session.h"

namespace zevfit {

/// The variable that texts of the results window come from; variable 0 stands for none.
struct ResultSource {
  std::string file;  ///< path of the variogram file
  std::int64_t variable = 0;
  std::string name;
  bool operator==(const ResultSource&) const = default;
};

/// A variable of the file that is loaded.
ResultSource sourceOf(const Session& session, std::int64_t variable);

/// What has filled the fields of the axes, and the row that was taken for Main.
struct ResultSources {
  std::array<std::array<ResultSource, kAxisEntries>, kAxes.size()> fields;
  ResultSource row;
};

/// A text comes from another variable or file than the one on show; false where either is none.
bool isOther(const ResultSource& source, const ResultSource& shown);

/// A source other than the variable on show, and what comes from it, such as "Minor 1".
struct OtherSource {
  ResultSource source;
  std::vector<std::string> parts;
};

/// Each other source once, in the order of the axes, the row of Main last.
std::vector<OtherSource> otherSources(const ResultSources& sources, const ResultSource& shown);

}  // namespace zevfit
