#include "zvm/spatial/statement.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace zevfit::spatial {
namespace {

constexpr std::array<std::string_view, 2> kQueries{"SELECT", "WITH"};
constexpr std::string_view kBlanks = " \t\r\n\f\v";
/// Functions by which GDAL and SQLite open other files to write into them.
constexpr std::array<std::string_view, 3> kWriters{"ogr_geocode", "ogr_datasource_load_layers",
                                                   "load_extension"};

/// Part of a name, as every byte of a letter beyond ASCII is.
bool isOfName(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return std::isalnum(byte) != 0 || c == '_' || byte >= 0x80;
}

/// Of a text without letters beyond ASCII that have two cases.
std::string inSmallLetters(std::string_view text) {
  std::string small(text);
  std::ranges::transform(small, small.begin(), [](char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  });
  return small;
}

/// Goes over a statement and keeps what stands outside quotes and comments, blanks and quotes in
/// the place of these, so that a position is the same in both.
class Plain {
 public:
  explicit Plain(std::string_view text) : text_(text), plain_(text.size(), ' ') {
    while (at_ < text_.size() && !isOpen_) step();
  }

  const std::string& text() const { return plain_; }
  /// A quote or comment has no end.
  bool isOpen() const { return isOpen_; }
  /// A comment up to the end of the line has a carriage return within.
  bool hasReturn() const { return hasReturn_; }

 private:
  bool follows(std::string_view word) const { return text_.substr(at_).starts_with(word); }

  void step() {
    if (follows("--")) return skipLine();
    if (follows("/*")) return skipComment();
    if (follows("'")) return skipText();
    if (follows("\"")) return skipName();
    if (follows("$") && !isBehindName() && skipDollars()) return;
    plain_[at_] = text_[at_];
    if (kBlanks.find(text_[at_]) == kBlanks.npos) isEscaped_ = false;
    ++at_;
  }

  /// A dollar is part of the name in front, but not of a number.
  bool isBehindName() const {
    std::size_t first = at_;
    while (first > 0 && (isOfName(plain_[first - 1]) || plain_[first - 1] == '$')) --first;
    return first < at_ && std::isdigit(static_cast<unsigned char>(plain_[first])) == 0;
  }

  /// Behind the next such word, which ends what is between quotes.
  void skipTo(std::string_view word) {
    const std::size_t found = text_.find(word, at_);
    isOpen_ = found == text_.npos;
    at_ = isOpen_ ? text_.size() : found + word.size();
    plain_[at_ - 1] = '"';
    isEscaped_ = false;
  }

  /// Some databases end it with a carriage return and some do not, so that there can be none.
  void skipLine() {
    const std::size_t end = std::min(text_.find('\n', at_), text_.size());
    const std::string_view line = text_.substr(at_, end - at_);
    hasReturn_ = hasReturn_ || line.find('\r') < line.size() - 1;
    at_ = end;
  }

  /// They stand in each other.
  void skipComment() {
    int depth = 0;
    do {
      const bool begins = follows("/*"), ends = follows("*/");
      depth += begins ? 1 : ends ? -1 : 0;
      at_ += begins || ends ? std::size_t{2} : std::size_t{1};
    } while (depth > 0 && at_ < text_.size());
    isOpen_ = depth > 0;
  }

  /// A text that stands only blanks behind another one goes on with it, backslashes included.
  void skipText() {
    const bool isMarked =
        at_ > 0 && std::toupper(plain_[at_ - 1]) == 'E' && (at_ == 1 || !isOfName(plain_[at_ - 2]));
    isEscaped_ = isEscaped_ || isMarked;
    for (++at_; at_ < text_.size() && text_[at_] != '\''; ++at_)
      if (isEscaped_ && text_[at_] == '\\') ++at_;
    isOpen_ = at_ >= text_.size();
    if (!isOpen_) plain_[at_++] = '"';
  }

  void skipName() {
    ++at_;
    skipTo("\"");
  }

  /// "$$" or "$word$" up to the same again; false where a dollar begins neither.
  bool skipDollars() {
    std::size_t end = at_ + 1;
    while (end < text_.size() && isOfName(text_[end])) ++end;
    const bool isWord =
        end == at_ + 1 || std::isdigit(static_cast<unsigned char>(text_[at_ + 1])) == 0;
    if (end >= text_.size() || text_[end] != '$' || !isWord) return false;
    const std::string_view mark = text_.substr(at_, end + 1 - at_);
    at_ = end + 1;
    skipTo(mark);
    return true;
  }

  std::string_view text_;
  std::string plain_;
  std::size_t at_ = 0;
  bool isOpen_ = false;
  bool hasReturn_ = false;
  bool isEscaped_ = false;  ///< in the text in front a backslash was no letter
};

/// Without the semicolon at the end.
std::string_view withoutEnd(std::string_view plain) {
  const std::size_t last = plain.find_last_not_of(kBlanks);
  if (last == plain.npos) return {};
  return plain.substr(0, plain[last] == ';' ? last : last + 1);
}

/// Why no bracket opens and closes the text but its own.
std::optional<std::string> bracketRefusal(std::string_view plain) {
  int depth = 0;
  for (const char c : plain) {
    depth += c == '(' ? 1 : c == ')' ? -1 : 0;
    if (depth < 0) break;
  }
  if (depth == 0) return std::nullopt;
  return "its brackets do not match";
}

/// A name between quotes is one of a function, too.
std::optional<std::string> functionRefusal(std::string_view text) {
  const std::string small = inSmallLetters(text);
  for (const std::string_view writer : kWriters)
    if (small.find(writer) != small.npos)
      return "it names " + std::string(writer) + ", which could write";
  return std::nullopt;
}

std::optional<std::string> partRefusal(const Plain& plain, std::string_view body,
                                       std::string_view text) {
  if (plain.isOpen()) return "a quote or comment has no end";
  if (plain.hasReturn()) return "a comment has a carriage return";
  if (auto refusal = functionRefusal(text)) return refusal;
  if (body.find(';') != body.npos) return "it is more than one statement";
  return bracketRefusal(body);
}

std::string firstWord(std::string_view plain) {
  const std::size_t first = std::min(plain.find_first_not_of(kBlanks), plain.size());
  std::string word;
  for (std::size_t i = first; i < plain.size() && isOfName(plain[i]); ++i)
    word += static_cast<char>(std::toupper(static_cast<unsigned char>(plain[i])));
  return word;
}

}  // namespace

std::optional<std::string> queryRefusal(std::string_view sql) {
  const Plain plain(sql);
  if (std::ranges::count(kQueries, firstWord(plain.text())) == 0)
    return "it does not begin with SELECT or WITH";
  return partRefusal(plain, withoutEnd(plain.text()), sql);
}

std::optional<std::string> conditionRefusal(std::string_view condition) {
  const Plain plain(condition);
  return partRefusal(plain, plain.text(), condition);
}

std::string bracketed(std::string_view query) {
  const Plain plain(query);
  const std::size_t size = withoutEnd(plain.text()).size();
  // A comment at the end ends with the line.
  return '(' + std::string(query.substr(0, size)) + "\n)";
}

}  // namespace zevfit::spatial
