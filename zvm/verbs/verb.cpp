#include "zvm/verbs/verb.h"

#include <array>

#include "zvm/verbs/help.h"
#include "zvm/verbs/option_values.h"

namespace zevfit::verbs {
namespace {

constexpr std::array kVerbs{
    Verb{"info", "what a variogram file holds", declareInfo},
    Verb{"check", "what is wrong with variogram files, by line and column", declareCheck},
    Verb{"compute", "experimental semivariograms of points", declareCompute},
    Verb{"merge", "the parts of a computation joined", declareMerge},
    Verb{"import", "experimental semivariograms of other systems", declareImport},
    Verb{"fit", "start models by weighted least squares, for fitting by eye", declareFit},
    Verb{"test", "whether models form a linear model of coregionalization", declareTest},
    Verb{"export", "a model in the words of another system", declareExport},
    Verb{"plot", "pictures of semivariograms and models", declarePlot},
    Verb{"completion", "the completion of a shell, for it to read", declareCompletion},
};

int threadsOf(const std::string& text) {
  constexpr const char* kOption = "--threads";
  constexpr const char* kKind = "a whole number from 1";
  const int number = numberOf<int>(text, kOption, kKind);
  if (number < 1) refuseValue(kOption, kKind, text);
  return number;
}

void declareCommon(CLI::App& app, Common& common) {
  app.set_help_flag("--help", "Print this and end");
  app.set_version_flag("--version", "zvm " ZEVFIT_VERSION, "Print the version and end");
  app.add_flag("--json", common.json, "Report as one JSON object");
  app.add_flag("-q,--quiet", common.quiet, "No warnings and no progress");
  app.add_flag("--overwrite", common.overwrite, "Replace an output that exists");
  const auto threads = [&common](const std::string& text) { common.threads = threadsOf(text); };
  app.add_option_function<std::string>("--threads", threads, "As many threads; default: all cores")
      ->type_name("N");
}

}  // namespace

std::span<const Verb> allVerbs() { return kVerbs; }

VerbApp appOf(const Verb& verb, Common& common) {
  const std::string name = "zvm " + std::string(verb.name);
  auto app =
      std::make_unique<CLI::App>("zvm " + std::string(verb.name) + ": " + verb.summary, name);
  app->allow_extras();
  Run run = verb.declare(*app);
  declareCommon(*app, common);
  // One that may be given again and again takes one value each time: the next word is an argument.
  for (CLI::Option* option : app->get_options())
    if (!option->get_positional()) option->allow_extra_args(false);
  app->formatter(std::make_shared<Help>());
  return {std::move(app), std::move(run)};
}

}  // namespace zevfit::verbs
