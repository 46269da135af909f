#include "zvm/points/names.h"

#include <algorithm>
#include <numeric>

#include "zvm/points/field.h"

namespace zevfit::zvm {

namespace {

constexpr std::size_t kListed = 20;

unsigned byteOf(char c) { return static_cast<unsigned char>(c); }

bool isControl(char c) { return byteOf(c) < 0x20 || (byteOf(c) >= 0x7F && byteOf(c) < 0xA0); }

/// Letters that have to be changed, added or dropped to make one text of the other.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::optional<std::string> latin1Of(std::string_view utf8) {
  std::string latin1;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const unsigned first = byteOf(utf8[i]);
    if (first < 0x80) {
      latin1 += utf8[i];
      continue;
    }
    // Latin-1 takes two bytes, the first of which has the two bits that are left.
    const bool isTwo = (first == 0xC2 || first == 0xC3) && i + 1 < utf8.size() &&
                       (byteOf(utf8[i + 1]) & 0xC0U) == 0x80;
    if (!isTwo) return std::nullopt;
    latin1 += static_cast<char>(((first & 3U) << 6U) | (byteOf(utf8[++i]) & 0x3FU));
  }
  return latin1;
}

std::string nearestLatin1(std::string_view utf8) {
  std::string latin1;
  while (!utf8.empty()) {
    std::size_t size = 1;
    while (size < utf8.size() && (byteOf(utf8[size]) & 0xC0U) == 0x80) ++size;
    latin1 += latin1Of(utf8.substr(0, size)).value_or("?");
    utf8.remove_prefix(size);
  }
  return latin1;
}

std::string utf8Of(std::string_view latin1) {
  std::string utf8;
  for (const char c : latin1) {
    if (byteOf(c) < 0x80) {
      utf8 += c;
      continue;
    }
    utf8 += static_cast<char>(0xC0U | (byteOf(c) >> 6U));
    utf8 += static_cast<char>(0x80U | (byteOf(c) & 0x3FU));
  }
  return utf8;
}

std::optional<std::string> nameRefusal(std::string_view utf8) {
  if (utf8.find_first_not_of(" \t") == std::string_view::npos) return "it is empty";
  if (utf8.find(',') != std::string_view::npos) return "it holds a comma";
  if (utf8.find('"') != std::string_view::npos) return "it holds a quote";
  const auto latin1 = latin1Of(utf8);
  if (!latin1) return "it is not in Latin-1";
  if (std::ranges::any_of(*latin1, isControl)) return "it holds a control character";
  return std::nullopt;
}

std::vector<std::string> nearestFirst(std::string_view to, std::vector<std::string> names) {
  // Texts of any length come from files; of a name the beginning is enough.
  constexpr std::size_t kCompared = 64;
  const auto compared = [](std::string_view name) { return lowerCase(name.substr(0, kCompared)); };
  std::vector<std::pair<std::size_t, std::size_t>> order;
  for (std::size_t i = 0; i < names.size(); ++i)
    order.emplace_back(distance(compared(to), compared(names[i])), i);
  std::ranges::sort(order);
  std::vector<std::string> sorted;
  sorted.reserve(names.size());
  for (const auto& [far, i] : order) sorted.push_back(std::move(names[i]));
  return sorted;
}

std::string noSuchName(std::string_view kind, std::string_view name, std::string_view where,
                       const std::vector<std::string>& names) {
  std::string text = "no " + std::string(kind) + " `" + std::string(name) + "` in " +
                     std::string(where) + "; there are ";
  const std::vector<std::string> sorted = nearestFirst(name, names);
  for (std::size_t i = 0; i < std::min(sorted.size(), kListed); ++i)
    text += (i > 0 ? ", " : "") + sorted[i];
  if (sorted.size() > kListed) text += " and " + std::to_string(sorted.size() - kListed) + " more";
  return text;
}

}  // namespace zevfit::zvm
