#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zvm/experimental/part_file.h"
#include "zvm/points/data_error.h"
#include "zvm/verbs/compute_report.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/output.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

zvm::Experimental joined(const std::vector<std::string>& files, Context& context) {
  std::vector<std::unique_ptr<std::ifstream>> streams;
  std::vector<zvm::PartReader> parts;
  for (const std::string& file : files) {
    if (file == kStandardStream) {
      parts.emplace_back(context.in(), "stdin");
      continue;
    }
    streams.push_back(std::make_unique<std::ifstream>(openInput(file)));
    parts.emplace_back(*streams.back(), file);
    // No more files are open than there are tasks, however many the parts.
    if (!parts.back().hasTasks()) streams.back()->close();
  }
  return zvm::mergeParts(parts);
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
  return [files](Context& context) {
    try {
      return runMerge(*files, context);
    } catch (const zvm::DataError& error) {
      throw Failure(Exit::data, error.what());
    } catch (const zvm::ReadError& error) {
      throw Failure(Exit::file, error.what());
    }
  };
}

}  // namespace zevfit::verbs
