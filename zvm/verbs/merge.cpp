#include <algorithm>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zvm/experimental/part_file.h"
#include "zvm/verbs/compute_report.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/output.h"
#include "zvm/verbs/points_input.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

bool lessBad(const Failure& one, const Failure& other) { return one.code() < other.code(); }

/// The parts, and the files that they are read from.
class Parts {
 public:
  explicit Parts(Context& context) : context_(context) {}

  void open(const std::string& file) {
    if (file == kStandardStream) {
      parts_.emplace_back(context_.in(), "stdin");
      return;
    }
    streams_.push_back(std::make_unique<std::ifstream>(openInput(file)));
    parts_.emplace_back(*streams_.back(), file);
    // No more files are open than there are tasks, however many the parts.
    if (!parts_.back().hasTasks()) streams_.back()->close();
  }

  zvm::Experimental joined() { return zvm::mergeParts(parts_); }

 private:
  Context& context_;
  std::vector<std::unique_ptr<std::ifstream>> streams_;
  std::vector<zvm::PartReader> parts_;
};

/// Every file that is no part is told; the worst of them ends the run.
zvm::Experimental joined(const std::vector<std::string>& files, Context& context) {
  Parts parts(context);
  std::optional<Failure> worst;
  for (const std::string& file : files) try {
      guarded([&] { parts.open(file); });
    } catch (const Failure& failure) {
      const Failure before = worst.value_or(failure);
      const auto& [less, more] = std::minmax(before, failure, lessBad);
      if (worst) context.error(less.what());
      worst = more;
    }
  if (worst) throw Failure(*worst);
  return parts.joined();
}

Exit runMerge(std::vector<std::string> files, Context& context) {
  if (files.size() < 2) throw Failure(Exit::usage, "merge takes parts and the file to write");
  const std::string output = files.back();
  files.pop_back();
  const bool toStdout = isStandardOutput(output);
  if (context.common.json && toStdout)
    throw Failure(Exit::usage, "--json reports on a file: it takes another OUT than stdout");
  if (output != kStandardStream) requireFree(output, context.common.overwrite);
  const zvm::Experimental experimental = joined(files, context);
  MemorySink sink;
  zvm::composeExperimental(experimental, sink);
  context.save(output, std::move(sink.bytes));
  if (context.common.json) {
    Json report{{"schema", "zvm.merge/1"}, {"parts", files}, {"output", output}};
    report.update(jsonOf(experimental, std::nullopt));
    context.print(textOf(report));
  } else if (toStdout) {
    context.printBeside(textOf(experimental, std::nullopt));
  } else {
    context.print(textOf(experimental, std::nullopt));
  }
  return Exit::done;
}

}  // namespace

Run declareMerge(CLI::App& app) {
  const auto files = std::make_shared<std::vector<std::string>>();
  app.add_option("PART... OUT", *files, "The parts, and the variogram file to write")
      ->required()
      ->type_name("");
  return [files](Context& context) { return guarded([&] { return runMerge(*files, context); }); };
}

}  // namespace zevfit::verbs
