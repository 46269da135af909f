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

/// Does jobs 0 to count - 1, each once, in as many threads. The first exception is thrown again
/// behind all of them.
class Jobs {
 public:
  Jobs(std::size_t count, std::function<void(std::size_t)> job)
      : count_(count), job_(std::move(job)) {}

  void run(unsigned threads, const std::function<void(double)>& progress) {
    const std::size_t most = std::min<std::size_t>(std::max(1U, threads), count_);
    const auto workers = zvm::startThreads(most, [this] { work(); });
    std::unique_lock lock(mutex_);
    while (done_ < count_) {
      ended_.wait_for(lock, kBetween);
      progress(static_cast<double>(done_) / static_cast<double>(count_));
    }
    if (failed_) std::rethrow_exception(failed_);
  }

 private:
  void work() {
    for (std::size_t i = next_++; i < count_; i = next_++) {
      std::exception_ptr failed;
      try {
        job_(i);
      } catch (...) {
        failed = std::current_exception();
      }
      const std::scoped_lock lock(mutex_);
      if (failed && !failed_) failed_ = failed;
      ++done_;
      ended_.notify_one();
    }
  }

  std::size_t count_;
  std::function<void(std::size_t)> job_;
  std::atomic<std::size_t> next_{0};
  std::mutex mutex_;
  std::condition_variable ended_;
  std::size_t done_ = 0;
  std::exception_ptr failed_;
};

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
  Jobs jobs(first + plan.tasks.size(), [&](std::size_t i) {
    if (i < first) {
      fits.coregion = fitting::fitCoregion(data, *plan.coregion, plan.options);
      return;
    }
    fitting::Options options = plan.options;
    options.cross = plan.tasks[i - first].isCross;
    fits.variables[i - first] = fitting::fitVariable(data, plan.tasks[i - first].variable, options);
  });
  jobs.run(threads, progress);
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
