#include "session/cell.h"

#include "session/fault.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

std::unique_ptr<const std::string> copyOf(const std::unique_ptr<const std::string>& text) {
  return text ? std::make_unique<const std::string>(*text) : nullptr;
}

}  // namespace

Cell Cell::ofText(std::string_view text) {
  Cell cell;
  cell.text_ = std::make_unique<const std::string>(text);
  return cell;
}

Cell::Cell(const Cell& other) : number_(other.number_), text_(copyOf(other.text_)) {}

Cell& Cell::operator=(const Cell& other) {
  if (this == &other) return *this;
  text_ = copyOf(other.text_);
  number_ = other.number_;
  return *this;
}

std::string Cell::toText() const { return text_ ? *text_ : generalText(number_); }

void Cell::throwTypeMismatch() { throw Fault("Type mismatch"); }

}  // namespace zevfit
