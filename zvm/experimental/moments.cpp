#include "zvm/experimental/moments.h"

#include <cmath>

namespace zevfit::zvm {

namespace {

template <class Take>
void eachKnown(const std::vector<double>& first, const std::vector<double>& second, Take&& take) {
  for (std::size_t i = 0; i < first.size(); ++i)
    if (!std::isnan(first[i]) && !std::isnan(second[i])) take(first[i], second[i]);
}

}  // namespace

Moments momentsOf(const std::vector<double>& first, const std::vector<double>& second) {
  Moments moments;
  double firstSum = 0, secondSum = 0;
  eachKnown(first, second, [&](double a, double b) {
    ++moments.points;
    firstSum += a;
    secondSum += b;
  });
  if (moments.points < 2) return moments;
  const auto count = static_cast<double>(moments.points);
  const double firstMean = firstSum / count, secondMean = secondSum / count;
  double products = 0;
  eachKnown(first, second,
            [&](double a, double b) { products += (a - firstMean) * (b - secondMean); });
  moments.covariance = products / (count - 1);
  return moments;
}

}  // namespace zevfit::zvm
