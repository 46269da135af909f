// The sampling of a full model beside its exponentials and powers alone, on the same arguments.
// Both run for each choice of three letters; the sampling is to take at most half as long again.
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/rounds.h"
#include "model/model_curve.h"
#include "model/nested_model.h"
#include "session/line.h"
#include "tests/support/fit_fixture.h"
#include "tests/support/model_lines.h"

namespace zevfit {
namespace {

constexpr double kEnd = 2000, kNugget = 0.2, kSill = 0.3;
constexpr int kSamples = 100;
constexpr int kAtOnce = 100;
constexpr long kRound = 200, kRounds = 20;

/// Letters for structures 1 to 3.
constexpr std::string_view kChoices[] = {"ESG", "ESP", "EGP", "SGP"};

double range(char letter) { return letter == 'P' ? 1.5 : 700; }

/// A nugget and the three structures of a choice.
class FullModel : public FitFixture {
 public:
  explicit FullModel(std::string_view letters) {
    setNugget(session, kPair, kNugget);
    for (const Line structure : kStructures) {
      const std::string_view letter = letters.substr(indexOf(structure) - 1, 1);
      setStructure(session, kPair, structure, letter, kSill, range(letter.front()));
    }
  }
  void sample() { modelcurve(fit, kPair, kEnd); }
};

/// What the exponentials and powers of one structure are taken of.
std::vector<double> arguments(char letter) {
  std::vector<double> all;
  for (int i = 1; i <= kSamples; ++i) {
    const double h = kEnd / kSamples * i;
    const double t = h / range(letter);
    if (letter == 'E') all.push_back(-3 * t);
    if (letter == 'G' || (letter == 'S' && t <= 1)) all.push_back(t);
    if (letter == 'P') all.push_back(h);
  }
  return all;
}

struct Transcendentals {
  char letter;
  std::vector<double> of;

  /// Their sum, so that none of them is left out.
  double sum() const {
    double total = 0;
    if (letter == 'E')
      for (const double x : of) total += std::exp(x);
    if (letter == 'G')
      for (const double x : of) total += std::exp(-3 * std::pow(x, 2));
    if (letter == 'S')
      for (const double x : of) total += std::pow(x, 3);
    if (letter == 'P')
      for (const double x : of) total += std::pow(x, range(letter));
    return total;
  }
};

/// Both in turn and by the hundred, so that what else the machine does is the same for them.
void sampled(benchmark::State& state) {
  const std::string_view letters = kChoices[state.range(0)];
  state.SetLabel(std::string(letters));
  FullModel model(letters);
  std::vector<Transcendentals> all;
  for (const char letter : letters) all.push_back({letter, arguments(letter)});
  bench::Rounds whole(kRound), alone(kRound);
  for (auto _ : state) {
    whole.time([&] {
      for (int i = 0; i < kAtOnce; ++i) {
        model.sample();
        benchmark::DoNotOptimize(model.session.curvegam);
        benchmark::ClobberMemory();
      }
    });
    alone.time([&] {
      for (int i = 0; i < kAtOnce; ++i)
        for (const Transcendentals& one : all) {
          benchmark::DoNotOptimize(one.of.data());
          benchmark::DoNotOptimize(one.sum());
        }
    });
  }
  state.counters["median_us"] = whole.quantile(0.5) / kAtOnce;
  state.counters["alone_us"] = alone.quantile(0.5) / kAtOnce;
}
BENCHMARK(sampled)->Unit(benchmark::kMicrosecond)->Iterations(kRounds* kRound)->DenseRange(0, 3);

/// The same values of the pure model, without tables and panel.
void evaluated(benchmark::State& state) {
  const std::string_view letters = kChoices[state.range(0)];
  state.SetLabel(std::string(letters));
  FullModel full(letters);
  const NestedModel model = modelOf(full.session, FitFixture::kPair);
  for (auto _ : state)
    for (int i = 1; i <= kSamples; ++i)
      benchmark::DoNotOptimize(semivariance(model, kEnd / kSamples * i));
}
BENCHMARK(evaluated)->DenseRange(0, 3);

}  // namespace
}  // namespace zevfit
