// Whatever the reader has read is exported or refused; nothing else is thrown.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "files/variogram_reader.h"
#include "tests/support/scratch_folder.h"
#include "tests/zvm/exchange/exchange_sample.h"

namespace zevfit::exchange {
namespace {

constexpr int kFiles = 150;

/// Some bytes of the text replaced by those of numbers, letters and line ends, some cut off.
std::string damaged(std::string text, std::mt19937& chance) {
  constexpr std::string_view kBytes = "0123456789-;.EeSGP \r\n\"abc\xff";
  const auto below = [&chance](std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(chance);
  };
  for (std::size_t count = below(200); count > 0; --count)
    text.at(below(text.size())) = kBytes.at(below(kBytes.size()));
  if (below(4) == 0) text.resize(below(text.size()));
  return text;
}

TEST(Hostile, FilesAreExportedOrRefused) {
  const std::string whole = test::contentOf(ZEVFIT_SOURCE_DIR "/examples/meuse-fitted.zvm");
  std::mt19937 chance(7);
  int texts = 0, refusals = 0;
  for (int file = 0; file < kFiles; ++file) {
    Session session;
    readVariogramBytes(damaged(whole, chance), session);
    for (const TargetRow& target : kTargets) {
      Request request = requestFor(target.target);
      request.main = 2;
      request.minor1 = 4;
      if (target.takesSeveral) request.variables = {1, 2};
      request.crosses = {{5, 1, 2}};
      refusalOf(session, request) == "(text)" ? ++texts : ++refusals;
    }
  }
  EXPECT_GT(texts, 50);
  EXPECT_GT(refusals, 50);
}

TEST(Hostile, ClaimsAreNotCountedOut) {
  Session session = emptyFile({"v"}, {"0;0"});
  session.nclass = session.ndir = session.nvar = 1'000'000'000'000;
  for (const TargetRow& target : kTargets) {
    Request request = requestFor(target.target);
    request.main = request.minor1 = std::nullopt;
    EXPECT_NE(refusalOf(session, request), "(text)") << target.name;
  }
}

}  // namespace
}  // namespace zevfit::exchange
