#include "zvm/points/records.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "zvm/points/data_error.h"

namespace zevfit::zvm {

namespace {

/// The size of the first block, and that up to which they grow.
constexpr std::size_t kFirstBlock = std::size_t{1} << 12U, kLargestBlock = std::size_t{1} << 20U;

std::size_t findFrom(std::string_view text, char c, std::size_t from) {
  const void* found = std::memchr(text.data() + from, c, text.size() - from);
  if (found == nullptr) return std::string_view::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

}  // namespace

Records::Records(std::istream& in, std::string name, std::function<bool(std::uint64_t)> progress)
    : in_(in), name_(std::move(name)), progress_(std::move(progress)) {}

/// Reads a block behind what is left of the last one; false when there is no more.
bool Records::fill() {
  if (ended_) return false;
  if (progress_ && !progress_(bytes_)) throw Cancelled();
  block_.erase(0, at_);
  at_ = 0;
  quoteAt_ = 0;
  const std::size_t kept = block_.size();
  // A record longer than a block has it grow in proportion.
  const std::size_t more = std::max(std::clamp(bytes_, kFirstBlock, kLargestBlock), kept);
  block_.resize(kept + more);
  in_.read(block_.data() + kept, static_cast<std::streamsize>(more));
  const auto got = static_cast<std::size_t>(in_.gcount());
  block_.resize(kept + got);
  bytes_ += got;
  if (in_.bad()) throw ReadError(name_ + " can't be read to its end");
  ended_ = got < more;
  return got > 0;
}

/// Where the record at at_ ends, which is at a line end; false when the block holds none. What it
/// has seen of the record it does not look at again.
bool Records::findEnd(std::size_t& end) {
  for (;;) {
    end = findFrom(block_, '\n', at_ + seen_);
    if (end == std::string::npos) return false;
    if (!quotes_) return true;
    const std::size_t first = at_ + seen_;
    // Most blocks hold no quote, and are searched for one once.
    if (quoteAt_ < first || quoteAt_ == 0) quoteAt_ = findFrom(block_, '"', first);
    const std::string_view text(block_.data() + first, end - first);
    if (quoteAt_ < end) inQuotes_ = inQuotes_ != (std::ranges::count(text, '"') % 2 != 0);
    if (!inQuotes_) return true;
    ++lines_;
    seen_ = end + 1 - at_;
  }
}

/// What is left of the stream is the last record; a quote in it that nothing closes would take all
/// lines behind it for one field.
void Records::refuseOpenQuote() const {
  const std::string_view text = std::string_view(block_).substr(at_);
  if (!quotes_ || std::ranges::count(text, '"') % 2 == 0) return;
  bool isOpen = false;
  std::size_t opening = 0;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] == '"') {
      isOpen = !isOpen;
      if (isOpen) opening = i;
    }
  const std::string_view before = text.substr(0, opening);
  const std::size_t lineEnd = before.rfind('\n');
  const std::size_t column = lineEnd == std::string_view::npos ? opening : opening - lineEnd - 1;
  throw DataError(
      {name_, line_ + static_cast<std::uint64_t>(std::ranges::count(before, '\n')), column + 1},
      "a quote that nothing closes");
}

bool Records::next(Record& record) {
  std::size_t end = 0;
  while (!findEnd(end))
    if (!fill()) {
      if (at_ == block_.size()) return false;
      end = block_.size();
      refuseOpenQuote();
      break;
    }
  std::string_view text(block_.data() + at_, end - at_);
  record.line = line_;
  line_ += lines_ + 1;
  at_ = std::min(end + 1, block_.size());
  seen_ = 0;
  lines_ = 0;
  inQuotes_ = false;
  if (text.ends_with('\r')) text.remove_suffix(1);
  record.text = text;
  return true;
}

std::string_view Records::peek(std::size_t count) {
  std::size_t end = at_;
  for (std::size_t i = 0; i < count; ++i) {
    std::size_t found = findFrom(block_, '\n', end);
    while (found == std::string::npos && fill()) found = findFrom(block_, '\n', end);
    if (found == std::string::npos) return std::string_view(block_).substr(at_);
    end = found + 1;
  }
  return std::string_view(block_).substr(at_, end - at_);
}

}  // namespace zevfit::zvm
