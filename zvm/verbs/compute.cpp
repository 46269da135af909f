#include <chrono>
#include <cstdint>
#include <memory>
#include <thread>

#include "zvm/experimental/job.h"
#include "zvm/experimental/part_file.h"
#include "zvm/verbs/compute_options.h"
#include "zvm/verbs/compute_report.h"
#include "zvm/verbs/output.h"
#include "zvm/verbs/points_input.h"
#include "zvm/verbs/progress.h"
#include "zvm/verbs/text.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

/// What a pair takes, about, and from when on its sum is worth a word.
constexpr double kSecondsAPair = 4e-9, kLong = 60;

void warnOfPlan(const zvm::Plan& plan, Context& context) {
  if (plan.lags.tolerance && *plan.lags.tolerance > plan.lags.width / 2)
    context.warning("--lag-tolerance is above half of --lag: a pair counts in several classes");
  if (plan.compat == zvm::Compat::gamv)
    context.warning("gamv counts each point with itself as well, at distance 0: left out here");
}

void warnOfPoints(const zvm::Job& job, Context& context) {
  for (std::size_t p = 0; p < job.plan.pairings.size(); ++p) {
    const zvm::Pairing& pairing = job.plan.pairings[p];
    const auto& variables = job.frame.variables;
    const std::uint64_t common = variables[p].points, first = variables[pairing.first].points,
                        second = variables[pairing.second].points;
    if (pairing.isCross() && (common < first || common < second))
      context.warning('`' + utf8Of(pairing.name) + "` is computed at the " +
                      std::to_string(common) + " points that both have, of " +
                      std::to_string(first) + " and " + std::to_string(second));
  }
}

void warnOfTime(double seconds, const ComputeOptions& options, Context& context) {
  if (seconds < kLong) return;
  context.warning("this takes about " + durationText(seconds) +
                  (!options.sample.empty() ? "" : "; --sample N draws some of the points"));
}

zvm::Job jobOf(const ComputeOptions& options, Context& context) {
  const zvm::ReadOptions read = readOptionsOf(options);
  zvm::Plan plan = planOf(options);
  const auto sample = sampleOf(options);
  plan.title = titleOf(options);
  zvm::PointSet points = pointsOf(options, read, context);
  plan.pairings = pairingsOf(options, points.names);
  zvm::Job job = zvm::prepare(std::move(points), std::move(plan), sample);
  if (const auto refusal = zvm::pointsRefusal(job.frame))
    throw Failure(Exit::data, pointsName(options) + ": " + *refusal);
  warnOfPlan(job.plan, context);
  warnOfPoints(job, context);
  return job;
}

std::string partBytes(const zvm::Job& job, const zvm::RunOptions& run) {
  MemorySink sink;
  zvm::writePartHeader(job.frame, run.part, run.parts, sink);
  zvm::runTasks(job, run, [&sink](std::uint64_t task, const zvm::SumTable& sums) {
    zvm::writePartTask(task, sums, sink);
  });
  zvm::writePartEnd(sink);
  return std::move(sink.bytes);
}

using Clock = std::chrono::steady_clock;

Pace paceSince(Clock::time_point start, double candidates) {
  const std::chrono::duration<double> passed = Clock::now() - start;
  return {passed.count(), candidates / std::max(passed.count(), 1e-9)};
}

/// Beside the file, where that goes to stdout.
template <class What>
void report(const ComputeOptions& options, const std::string& output, const What& what,
            const Pace& pace, Context& context) {
  if (context.common.json) {
    Json whole{{"schema", "zvm.compute/1"}, {"file", shownPoints(options)}, {"output", output}};
    whole.update(jsonOf(what, pace));
    context.print(textOf(whole));
  } else if (isStandardOutput(output)) {
    context.printBeside(textOf(what, pace));
  } else {
    context.print(textOf(what, pace));
  }
}

zvm::RunOptions runOptionsOf(const std::optional<Part>& part, unsigned threads,
                             Progress& progress) {
  zvm::RunOptions run;
  run.threads = threads;
  run.part = part.value_or(Part()).number;
  run.parts = part.value_or(Part()).count;
  run.progress = [&progress](double share) {
    progress.tell(share);
    return true;
  };
  return run;
}

Exit runCompute(const ComputeOptions& options, Context& context) {
  const std::string output = outputOf(options);
  const auto part = partOf(options);
  if (context.common.json && isStandardOutput(output))
    throw Failure(Exit::usage, "--json reports on a file: it takes another OUT than stdout");
  if (output != kStandardStream) requireFree(output, context.common.overwrite);
  const zvm::Job job = jobOf(options, context);

  const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
  const unsigned threads =
      context.common.threads > 0 ? static_cast<unsigned>(context.common.threads) : cores;
  Progress progress(context, "computing");
  const zvm::RunOptions run = runOptionsOf(part, threads, progress);
  const auto candidates = static_cast<double>(job.candidates(run.part, run.parts));
  warnOfTime(candidates * kSecondsAPair * static_cast<double>(job.plan.pairings.size()) /
                 std::min(threads, cores),
             options, context);
  const auto start = Clock::now();
  if (part) {
    context.save(output, partBytes(job, run));
    report(options, output, Share{job.frame, *part}, paceSince(start, candidates), context);
    return Exit::done;
  }
  const auto experimental = zvm::experimentalOf(job.frame, zvm::runWhole(job, run));
  const Pace pace = paceSince(start, candidates);
  MemorySink sink;
  zvm::composeExperimental(experimental, sink);
  context.save(output, std::move(sink.bytes));
  report(options, output, experimental, pace, context);
  return Exit::done;
}

}  // namespace

Run declareCompute(CLI::App& app) {
  const auto options = std::make_shared<ComputeOptions>();
  declareOptions(app, *options);
  return [options](Context& context) {
    return guarded([&] { return runCompute(*options, context); });
  };
}

}  // namespace zevfit::verbs
