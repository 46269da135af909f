#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace zevfit {

/// What a file token left in a place for a number: a number, or the text that stood there.
/// Sixteen bytes, since the distance table has one for each lag class. Copies of a text share it,
/// however long it is: one text of a file may go to thousands of places.
class Cell {
 public:
  Cell() = default;
  Cell(double number)
      : number_(number) {}  // NOLINT(google-explicit-constructor): a number is a cell
  static Cell ofText(std::string_view text);

  Cell(const Cell& other);
  Cell& operator=(const Cell& other);
  Cell(Cell&&) noexcept = default;
  Cell& operator=(Cell&&) noexcept = default;
  ~Cell() = default;

  bool isText() const { return text_ != nullptr; }

  /// The text, shared by all copies of this cell; null when it holds a number.
  const std::string* text() const { return text_ ? text_->get() : nullptr; }

  /// The number; throws Fault when the cell holds a text.
  double number() const {
    if (text_) throwTypeMismatch();
    return number_;
  }

  /// The number in general text form, or the text as it stood in the file.
  std::string toText() const;

 private:
  using SharedText = std::shared_ptr<const std::string>;

  [[noreturn]] static void throwTypeMismatch();

  double number_ = 0;
  /// A pointer to a shared pointer, since that one alone takes the room of two.
  std::unique_ptr<const SharedText> text_;
};

}  // namespace zevfit
