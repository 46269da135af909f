#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

#include "zvm/experimental/job.h"
#include "zvm/experimental/summing.h"
#include "zvm/experimental/threads.h"
#include "zvm/experimental/walk.h"
#include "zvm/points/data_error.h"

namespace zevfit::zvm {

namespace {

/// Points after which a thread looks whether it is to end.
constexpr std::size_t kStride = 64;
constexpr std::chrono::milliseconds kTold{100};

/// The tasks of one run, and the threads that take them one after the other.
class Workers {
 public:
  Workers(const Job& job, const RunOptions& options) : job_(job), progress_(options.progress) {
    for (std::uint64_t task = options.part - 1; task < job.tasks.size(); task += options.parts) {
      mine_.push_back(task);
      candidates_ += job.tasks[task].candidates;
    }
    const std::size_t threads = std::clamp<std::size_t>(options.threads, 1, mine_.size() + 1);
    threads_ = startThreads(threads, [this] { work(); });
  }
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;
  ~Workers() {
    isEnding_ = true;
    threads_.clear();
  }

  void handOver(const std::function<void(std::uint64_t, const SumTable&)>& take) {
    for (std::size_t position = 0; position < mine_.size(); ++position)
      take(mine_[position], await(position));
  }

 private:
  void work() {
    try {
      Summing summing(job_.points, job_.plan, job_.rule);
      Walk walk(job_.points, job_.rule.reach());
      for (std::size_t position = next_++; position < mine_.size(); position = next_++) {
        SumTable table = sum(job_.tasks[mine_[position]], walk, summing);
        if (isEnding_) return;
        const std::lock_guard lock(mutex_);
        finished_.emplace(position, std::move(table));
        changed_.notify_one();
      }
    } catch (...) {
      const std::lock_guard lock(mutex_);
      failure_ = std::current_exception();
      changed_.notify_one();
    }
  }

  SumTable sum(const Task& task, Walk& walk, Summing& summing) {
    const auto take = [&summing](std::size_t i, std::size_t first, std::size_t last) {
      summing.take(i, first, last);
    };
    const std::size_t size = task.end - task.begin;
    for (std::size_t begin = task.begin; begin < task.end && !isEnding_; begin += kStride) {
      const std::size_t end = std::min(begin + kStride, task.end);
      walk.run(begin, end, take);
      // The same share of the candidates as of the points, about.
      done_ +=
          static_cast<std::uint64_t>(static_cast<double>(task.candidates) *
                                     static_cast<double>(end - begin) / static_cast<double>(size));
    }
    return summing.finish();
  }

  SumTable await(std::size_t position) {
    std::unique_lock lock(mutex_);
    for (;;) {
      if (failure_) std::rethrow_exception(failure_);
      if (const auto found = finished_.find(position); found != finished_.end()) {
        SumTable table = std::move(found->second);
        finished_.erase(found);
        return table;
      }
      changed_.wait_for(lock, kTold);
      if (!isTime()) continue;
      lock.unlock();
      tell();
      lock.lock();
    }
  }

  bool isTime() {
    const auto now = std::chrono::steady_clock::now();
    if (now - told_ < kTold) return false;
    told_ = now;
    return true;
  }

  void tell() {
    const double whole = static_cast<double>(std::max<std::uint64_t>(candidates_, 1));
    if (progress_ && !progress_(std::min(1.0, static_cast<double>(done_.load()) / whole)))
      throw Cancelled();
  }

  const Job& job_;
  const std::function<bool(double)>& progress_;
  std::vector<std::uint64_t> mine_;
  std::uint64_t candidates_ = 0;
  std::chrono::steady_clock::time_point told_ = std::chrono::steady_clock::now();

  std::atomic<std::size_t> next_ = 0;
  std::atomic<std::uint64_t> done_ = 0;
  std::atomic<bool> isEnding_ = false;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::map<std::size_t, SumTable> finished_;
  std::exception_ptr failure_;
  std::vector<std::jthread> threads_;
};

}  // namespace

void runTasks(const Job& job, const RunOptions& options,
              const std::function<void(std::uint64_t, const SumTable&)>& take) {
  Workers(job, options).handOver(take);
}

SumTable runWhole(const Job& job, const RunOptions& options) {
  SumTable whole = emptyTable(job.frame);
  runTasks(job, options, [&whole](std::uint64_t, const SumTable& table) { whole.add(table); });
  return whole;
}

}  // namespace zevfit::zvm
