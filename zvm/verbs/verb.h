#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "zvm/verbs/context.h"

namespace zevfit::verbs {

/// What a verb does once its options are read.
using Run = std::function<Exit(Context&)>;

/// A verb: its name, what `--help` says of it, and what declares its options on an app of its own.
/// An option of a few values has them as its type, as in "bash|zsh".
struct Verb {
  const char* name;
  const char* summary;
  Run (*declare)(CLI::App& app);
};
std::span<const Verb> allVerbs();

/// A verb with its options, ready to read arguments; `common` is where those of all verbs go.
struct VerbApp {
  std::unique_ptr<CLI::App> app;
  Run run;
};
VerbApp appOf(const Verb& verb, Common& common);

// One file a verb.
Run declareInfo(CLI::App& app);
Run declareCheck(CLI::App& app);
Run declareCompute(CLI::App& app);
Run declareMerge(CLI::App& app);
Run declareImport(CLI::App& app);
Run declareFit(CLI::App& app);
Run declareTest(CLI::App& app);
Run declareExport(CLI::App& app);
Run declarePlot(CLI::App& app);
Run declareCompletion(CLI::App& app);

}  // namespace zevfit::verbs
