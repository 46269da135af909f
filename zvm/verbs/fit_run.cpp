#include "zvm/verbs/fit_run.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>

#include "coreg/crosstest.h"
#include "zvm/experimental/threads.h"

namespace zevfit::verbs {
namespace {

constexpr std::chrono::milliseconds kBetween{100};
/// How much longer variables take together than each by itself.
constexpr double kTogether = 8;

/// Does jobs 0 to count - 1, each once, in as many threads, and is told by them how far they are.
/// The first exception is thrown again behind all of them.
class Jobs {
 public:
  using Job = std::function<void(std::size_t job, const fitting::Tell& tell)>;

  /// `firstWeight`: what the first job counts in all work, the others 1.
  Jobs(std::size_t count, double firstWeight, Job job)
      : firstWeight_(firstWeight), job_(std::move(job)), shares_(count) {}

  void run(unsigned threads, const std::function<void(double)>& progress) {
    const std::size_t most = std::min<std::size_t>(std::max(1U, threads), shares_.size());
    const auto workers = zvm::startThreads(most, [this] { work(); });
    std::unique_lock lock(mutex_);
    while (done_ < shares_.size()) {
      ended_.wait_for(lock, kBetween);
      progress(share());
    }
    if (failed_) std::rethrow_exception(failed_);
  }

 private:
  void work() {
    for (std::size_t i = next_++; i < shares_.size(); i = next_++) {
      std::exception_ptr failed;
      try {
        job_(i, [this, i](double share) { shares_[i] = share; });
      } catch (...) {
        failed = std::current_exception();
      }
      shares_[i] = 1;
      const std::scoped_lock lock(mutex_);
      if (failed && !failed_) failed_ = failed;
      ++done_;
      ended_.notify_one();
    }
  }

  double share() const {
    double done = 0, all = 0;
    for (std::size_t i = 0; i < shares_.size(); ++i) {
      const double weight = i == 0 ? firstWeight_ : 1;
      done += weight * shares_[i];
      all += weight;
    }
    return done / all;
  }

  double firstWeight_;
  Job job_;
  std::vector<std::atomic<double>> shares_;
  std::atomic<std::size_t> next_{0};
  std::mutex mutex_;
  std::condition_variable ended_;
  std::size_t done_ = 0;
  std::exception_ptr failed_;
};

/// Of the first job.
double weightOf(const FitPlan& plan) {
  if (!plan.coregion) return 1;
  return kTogether *
         static_cast<double>(plan.coregion->variables.size() + plan.coregion->crosses.size());
}

bool hasFailed(const TestNode& node) {
  return node.image == NodeImage::failed || node.image == NodeImage::faultyDirection;
}

}  // namespace

Fits fitAll(const FileTables& data, const FitPlan& plan, unsigned threads,
            const std::function<void(double)>& progress) {
  Fits fits;
  fits.variables.resize(plan.tasks.size());
  // That of several variables takes longest: it is begun first.
  const std::size_t first = plan.coregion ? 1 : 0;
  const auto job = [&](std::size_t i, const fitting::Tell& tell) {
    if (i < first) {
      fits.coregion = fitting::fitCoregion(data, *plan.coregion, plan.options, tell);
      return;
    }
    const auto& [variable, isCross] = plan.tasks[i - first];
    fitting::Options options = plan.options;
    options.cross = isCross;
    fits.variables[i - first] = fitting::fitVariable(data, variable, options, tell);
  };
  Jobs(first + plan.tasks.size(), weightOf(plan), job).run(threads, progress);
  return fits;
}

bool passesTest(const Session& session, const Coregion& coregion) {
  const auto position = [](std::int64_t subscript) { return static_cast<int>(subscript - 1); };
  std::vector<std::int64_t> directions;
  for (std::int64_t d = 1; d <= session.ndir; ++d) {
    directions.push_back(d);
    for (const auto& [cross, first, second] : coregion.crosses) {
      const int main = position(d);
      const CrossChoice choice{
          position(cross), position(first), position(second), main, main, main};
      if (std::ranges::any_of(crosstest(session, choice), hasFailed)) return false;
    }
  }
  return std::ranges::all_of(matrixTest(session, coregion, directions), &MatrixVerdict::passed);
}

}  // namespace zevfit::verbs
