#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/pair.h"
#include "zvm/checking/check_file.h"
#include "zvm/checking/cursor.h"

namespace zevfit::checking {

/// What a token is of a file: told in words only where something is wrong with it.
struct Item {
  const char* what = "";
  Pair pair{};           ///< subscripts of 0 are left out
  std::int64_t lag = 0;  ///< the class, from 1
  int structure = 0;     ///< 1 to 3
};

/// One walk over a file, in the order of the reader.
class Checker {
 public:
  explicit Checker(std::string_view bytes) : bytes_(bytes), lines_(bytes), in_(bytes) {}

  CheckResult run();

 private:
  /// Nothing behind can be told; the finding that says why is there.
  struct Stop {};
  /// The file ends within the block of models.
  struct EndOfModels {};

  void header();
  Token name(const char* what, std::vector<std::string>& names);
  void title();
  void tag();
  std::int64_t count(const char* what, std::int64_t most);
  void variableNames();
  void directionNames();

  void data();
  void direction(Pair pair);
  ClassValues oneClass(Pair pair, std::int64_t lag);
  void pairsOf(float pairs, const Item& item, std::size_t offset);
  void growth(double distance, const Item& item, std::size_t offset);

  void models();
  void model(Pair pair);
  ModelLine modelLine(Pair pair, int structure);
  Token modelNumber();
  void letterOf(ModelLine& line, const Item& item);
  void rangeOf(const ModelLine& line, const Item& item, std::size_t offset);
  void totalOf(const ModelLines& lines, Pair pair);
  std::size_t indexOf(Pair pair) const {
    return static_cast<std::size_t>((pair.variable - 1) * file_.directions + pair.direction - 1);
  }

  void rest();

  Token text(const Item& item);
  Token number(const Item& item);
  double value(const Item& item);
  double valueOf(const Token& token, const Item& item);
  [[noreturn]] void endsEarly(const Item& item);
  void lookAt(const Token& token, const Item& item);
  void quotes(const Token& token, const Item& item);
  void letters(const Token& token, const Item& item);

  void add(Severity severity, std::size_t offset, std::string text, Topic topic = Topic::content);
  void warning(std::size_t offset, std::string text) {
    add(Severity::warning, offset, std::move(text));
  }
  void error(std::size_t offset, std::string text) {
    add(Severity::error, offset, std::move(text), Topic::reading);
  }
  std::string words(const Item& item) const;
  std::string words(Pair pair) const;

  std::string_view bytes_;
  LineMap lines_;
  Cursor in_;
  CheckResult result_;
  FileContent& file_ = result_.content;
  std::size_t tagOffset_ = 0;
  bool hasModels_ = false;  ///< by the tag
  std::string afterTitle_;  ///< of a comma in the title, for the count that is then none
  std::vector<bool> isCross_;
  std::vector<double> farthest_;  ///< the largest distance of each pair, 0 at least
  /// Of the direction that is read: the distance of the last class with pairs.
  bool hasPairsBefore_ = false;
  double distanceBefore_ = 0;
  std::size_t sillOffset_ = 0;  ///< the last sill in use of the model that is read
};

/// A text of a file in a message: cut where it is long.
std::string shown(std::string_view text);
/// "1 pair", "2 pairs"; the word as it is for one.
std::string counted(const std::string& number, const std::string& word);

}  // namespace zevfit::checking
