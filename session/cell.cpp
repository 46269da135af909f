#include "session/cell.h"

#include "session/fault.h"
#include "session/numbers.h"

namespace zevfit {

Cell Cell::ofText(std::string_view text) {
  Cell cell;
  cell.text_ = std::make_unique<const SharedText>(std::make_shared<const std::string>(text));
  return cell;
}

Cell::Cell(const Cell& other) : number_(other.number_) {
  if (other.text_) text_ = std::make_unique<const SharedText>(*other.text_);
}

Cell& Cell::operator=(const Cell& other) { return *this = Cell(other); }

std::string Cell::toText() const { return text_ ? **text_ : generalText(number_); }

void Cell::throwTypeMismatch() { throw Fault("Type mismatch"); }

}  // namespace zevfit
