#include "zvm/points/data_error.h"

#include <utility>

namespace zevfit::zvm {

std::string placeText(const Place& place) {
  std::string text = place.file;
  if (place.line > 0) text += ':' + std::to_string(place.line);
  if (place.column > 0) text += ':' + std::to_string(place.column);
  return text;
}

DataError::DataError(Place place, const std::string& text)
    : std::runtime_error(place.file.empty() ? text : placeText(place) + ": " + text),
      place_(std::move(place)) {}

}  // namespace zevfit::zvm
