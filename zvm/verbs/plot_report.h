#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "zvm/plotting/request.h"
#include "zvm/verbs/report.h"

namespace zevfit::verbs {

/// What the points of maps were, in a table or spatial source.
struct MapPoints {
  double lag = 0;
  std::int64_t lags = 0;
  std::uint64_t read = 0, skipped = 0;
};

/// A picture in a report; names in UTF-8.
struct PictureRow {
  std::string variable;
  std::vector<std::string> directions;  ///< in the order of the file, as a legend has them
  std::uint64_t points = 0;             ///< of a map: those with a value
};

/// What is drawn, and what there is to tell of it, page by page.
struct Pictures {
  plotting::Request request;
  std::vector<PictureRow> rows;
  std::optional<MapPoints> points;
};

/// `files`: of each page.
Json jsonReport(const std::string& source, const Pictures& pictures,
                const std::vector<std::string>& files);
/// Of several pictures which is which.
std::string textReport(const Pictures& pictures, const std::vector<std::string>& files);

}  // namespace zevfit::verbs
