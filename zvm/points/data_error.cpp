#include "zvm/points/data_error.h"

#include <utility>

namespace zevfit::zvm {

std::string withoutNul(const std::string& text) {
  std::string shown;
  for (const char c : text) c == '\0' ? shown += "\\x00" : shown += c;
  return shown;
}

std::string placeText(const Place& place) {
  std::string text = place.file;
  if (place.line > 0) text += ':' + std::to_string(place.line);
  if (place.column > 0) text += ':' + std::to_string(place.column);
  return text;
}

DataError::DataError(Place place, const std::string& text)
    : std::runtime_error(withoutNul(place.file.empty() ? text : placeText(place) + ": " + text)),
      place_(std::move(place)) {}

}  // namespace zevfit::zvm
