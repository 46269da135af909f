#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <sstream>

#include "zvm/exchange/import.h"
#include "zvm/exchange/import_fields.h"
#include "zvm/exchange/import_join.h"
#include "zvm/points/field.h"
#include "zvm/points/records.h"

// A listing: for each semivariogram a title with `tail:` and `head:` before names of twelve bytes
// and `direction` before a number, then a line for distance 0, one for pairs nearer than the lag
// tolerance, and one for each lag: number, mean distance, value, number of pairs, and means and
// variances of heads and tails (Deutsch and Journel, "GSLIB", II.1).

namespace zevfit::exchange {
namespace {

constexpr std::string_view kTail = "tail:", kHead = "head:", kDirection = "direction";
constexpr std::size_t kNameBytes = 12;
constexpr std::size_t kLeastFields = 4, kMostFields = 8;
/// From this half angle on gamv takes all directions together, and each pair from both its ends.
constexpr double kAllAngles = 90;
/// Distances have three decimals.
constexpr double kRounding = 0.0005;
/// Lines for distance 0 and for near pairs, before lag 1.
constexpr std::size_t kFirstLag = 2;

std::string lowered(std::string_view text) {
  std::string low(text);
  std::ranges::transform(low, low.begin(), [](unsigned char c) { return std::tolower(c); });
  return low;
}

std::vector<ListedField> blankParted(std::string_view line, const std::string& file,
                                     std::uint64_t number) {
  std::vector<ListedField> fields;
  for (std::size_t at = line.find_first_not_of(" \t"); at != line.npos;
       at = line.find_first_not_of(" \t", at)) {
    const std::size_t end = std::min(line.find_first_of(" \t", at), line.size());
    fields.push_back({line.substr(at, end - at), {file, number, at + 1}});
    at = end;
  }
  return fields;
}

/// Throws for what gamv computes beside semivariograms.
void refuseKind(const std::string& kind, const zvm::Place& place) {
  const bool isRelative = kind.find("relative") != kind.npos;
  if (kind.find("variogram") == kind.npos || isRelative)
    throw zvm::DataError(place, "`" + std::string(zvm::withoutBlanks(kind)) +
                                    "` is no semivariogram; only those can be imported");
}

GamvListing listingOf(std::string_view title, const zvm::Place& place) {
  const std::size_t tail = title.find(kTail);
  const std::size_t head = tail == title.npos ? tail : title.find(kHead, tail);
  const std::size_t direction = head == title.npos ? head : title.find(kDirection, head);
  if (direction == title.npos)
    throw zvm::DataError(place,
                         "no title of a listing of gamv: it has `tail:`, `head:` and `direction`");
  const std::string kind = lowered(title.substr(0, tail));
  refuseKind(kind, place);
  const auto name = [&](std::size_t from, std::size_t next) {
    return std::string(zvm::withoutBlanks(title.substr(from, std::min(kNameBytes, next - from))));
  };
  GamvListing listing;
  listing.tail = name(tail + kTail.size(), head);
  listing.head = name(head + kHead.size(), direction);
  listing.isCross = kind.find("cross") != kind.npos;
  listing.place = place;
  if (!listing.isCross && listing.tail != listing.head)
    throw zvm::DataError(place, "a pseudo cross-variogram of `" + listing.tail + "` and `" +
                                    listing.head + "` can't be imported");
  const std::size_t at = direction + kDirection.size();
  const std::string_view number = zvm::withoutBlanks(title.substr(at));
  const auto read =
      std::from_chars(number.data(), number.data() + number.size(), listing.direction);
  if (read.ec != std::errc() || read.ptr != number.data() + number.size() || listing.direction < 1)
    throw zvm::DataError({place.file, place.line, at + 1},
                         "`" + std::string(number) + "` is no number of a direction");
  return listing;
}

ListedClass classOf(const std::vector<ListedField>& fields, std::size_t expected) {
  const ListedField& first = fields.front();
  if (fields.size() < kLeastFields || fields.size() > kMostFields)
    throw zvm::DataError(first.place, "the line has " + std::to_string(fields.size()) +
                                          " fields, that of a listing of gamv eight");
  if (numberIn(first) != static_cast<double>(expected))
    throw zvm::DataError(first.place, "`" + std::string(first.text) + "` where class " +
                                          std::to_string(expected) + " of the listing is next");
  ListedClass lag{numberIn(fields[1]), numberIn(fields[2]), pairsIn(fields[3]), fields[1].place,
                  fields[3].place};
  if (lag.distance < 0)
    throw zvm::DataError(lag.distancePlace, "`" + std::string(fields[1].text) + "` is no distance");
  return lag;
}

// ---- From listings to classes.

std::size_t directionCount(const std::vector<GamvListing>& listings) {
  std::int64_t last = 1;
  for (const GamvListing& listing : listings) last = std::max(last, listing.direction);
  return static_cast<std::size_t>(last);
}

/// Exactly as many as the listings tell of, so that none is taken for another.
std::vector<std::string> directionsOf(const std::vector<GamvListing>& listings,
                                      const GamvOptions& options) {
  const std::size_t count = directionCount(listings);
  const bool isAll = options.tolerances.size() == 1 && options.tolerances[0] >= kAllAngles;
  if (options.directions.empty() && count == 1 && isAll) return {"0;0"};
  if (options.directions.size() != count)
    throw WrongOption("--dir is there " + std::to_string(options.directions.size()) +
                      " times, and the listing has " + std::to_string(count) +
                      (count == 1 ? " direction" : " directions") +
                      ", of which it tells no angles");
  if (options.tolerances.size() != 1 && options.tolerances.size() != count)
    throw WrongOption("--atol has " + std::to_string(options.tolerances.size()) +
                      " angles, and the listing " + std::to_string(count) +
                      (count == 1 ? " direction" : " directions"));
  return options.directions;
}

/// Distances from and to which pairs belong to the class at a position behind that of distance 0.
struct Bounds {
  double from = 0, to = 0;
};

class Lags {
 public:
  explicit Lags(const GamvOptions& options) : width_(options.width) {
    if (!width_ && options.lagTolerance) throw WrongOption("--lag-tolerance takes --width");
    if (width_) tolerance_ = options.lagTolerance.value_or(*width_ / 2);
  }

  double centre(std::size_t k) const {
    if (!width_)
      throw WrongOption(
          "--width is missing: only the lag of gamv tells where a class without pairs lies");
    return k == 0 ? tolerance_ / 2 : static_cast<double>(k) * *width_;
  }

  /// A mean distance outside its class shows that the lag is not that of the listing.
  void require(const ListedClass& lag, std::size_t k) const {
    if (!width_ || lag.pairs == 0) return;
    const double middle = static_cast<double>(k) * *width_;
    const double slack = kRounding + 1e-9 * middle;
    if (std::abs(lag.distance - middle) > tolerance_ + slack)
      throw zvm::DataError(lag.distancePlace,
                           "the distance lies outside lag " + std::to_string(k) +
                               "; --width and --lag-tolerance are not those of the listing");
  }

 private:
  std::optional<double> width_;
  double tolerance_ = 0;
};

/// gamv counts a pair from both of its points where all directions count together, but for crosses.
std::uint64_t pairsOf(const ListedClass& lag, bool isTwice) {
  if (!isTwice) return lag.pairs;
  if (lag.pairs % 2 != 0)
    throw zvm::DataError(lag.pairsPlace,
                         "an odd number of pairs, and gamv counts each pair of all directions "
                         "twice; --atol is not that of the listing");
  return lag.pairs / 2;
}

ImportedBlock blockOf(const GamvListing& listing, const GamvOptions& options, const Lags& lags) {
  const auto direction = static_cast<std::size_t>(listing.direction - 1);
  const double tolerance =
      options.tolerances.size() == 1 ? options.tolerances[0] : options.tolerances.at(direction);
  const bool isTwice = !listing.isCross && tolerance >= kAllAngles;
  ImportedBlock block{listing.tail, listing.head, direction, {}, listing.place};
  for (std::size_t i = 1; i < listing.classes.size(); ++i) {
    const ListedClass& lag = listing.classes[i];
    lags.require(lag, i - 1);
    block.classes.push_back({lag.distance, lag.semivariance, pairsOf(lag, isTwice)});
  }
  return block;
}

}  // namespace

std::vector<GamvListing> readGamv(std::string_view bytes, const std::string& file) {
  std::istringstream in{std::string(bytes)};
  zvm::Records records(in, file, {});
  std::vector<GamvListing> listings;
  const auto requireLags = [&] {
    if (!listings.empty() && listings.back().classes.size() <= kFirstLag)
      throw zvm::DataError(listings.back().place, "a listing without lags");
  };
  for (zvm::Record record; records.next(record);) {
    const auto fields = blankParted(record.text, file, record.line);
    if (fields.empty()) continue;
    const bool isTitle = record.text.find(kTail) != record.text.npos;
    if (isTitle || listings.empty()) {
      requireLags();
      listings.push_back(listingOf(record.text, {file, record.line, 1}));
    } else {
      listings.back().classes.push_back(classOf(fields, listings.back().classes.size() + 1));
    }
  }
  requireLags();
  if (listings.empty()) throw zvm::DataError({file}, "the file is empty");
  return listings;
}

Imported importGamv(const std::vector<GamvListing>& listings, const GamvOptions& options) {
  std::vector<std::string> directions = directionsOf(listings, options);
  const Lags lags(options);
  std::vector<ImportedBlock> blocks;
  blocks.reserve(listings.size());
  for (const GamvListing& listing : listings) blocks.push_back(blockOf(listing, options, lags));
  return joinBlocks(blocks, std::move(directions), [&](std::size_t k) { return lags.centre(k); });
}

}  // namespace zevfit::exchange
