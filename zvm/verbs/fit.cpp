#include <algorithm>
#include <memory>
#include <thread>

#include "files/output_file.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "fitting/write.h"
#include "zvm/verbs/coregions.h"
#include "zvm/verbs/file_report.h"
#include "zvm/verbs/fit_options.h"
#include "zvm/verbs/fit_report.h"
#include "zvm/verbs/fit_run.h"
#include "zvm/verbs/names.h"
#include "zvm/verbs/option_values.h"
#include "zvm/verbs/output.h"
#include "zvm/verbs/progress.h"
#include "zvm/verbs/text.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

std::string nameOf(const Loaded& loaded, std::int64_t variable) {
  return variableNames(loaded.session).at(static_cast<std::size_t>(variable - 1));
}

/// The variables of --lmc with the cross variables of all their pairs.
Coregion coregionFor(const Loaded& loaded, const std::vector<std::string>& asked,
                     const Coregion& known) {
  Coregion coregion;
  for (const std::string& name : asked) {
    const std::int64_t variable = variableOf(loaded.session, loaded.path, name);
    if (std::ranges::count(coregion.variables, variable) > 0)
      throw Failure(Exit::usage, "--lmc has `" + name + "` twice");
    if (std::ranges::count(known.crosses, variable, &CrossVariable::cross) > 0)
      throw Failure(Exit::usage, "`" + nameOf(loaded, variable) +
                                     "` is a cross variable; --lmc takes the variables that "
                                     "crosses are of");
    coregion.variables.push_back(variable);
  }
  if (coregion.variables.size() < 2) throw Failure(Exit::usage, "--lmc takes 2 variables and more");
  std::string missing;
  for (auto a = coregion.variables.begin(); a != coregion.variables.end(); ++a)
    for (auto b = std::next(a); b != coregion.variables.end(); ++b) {
      const auto found = std::ranges::find_if(
          known.crosses, [&](const CrossVariable& cross) { return isOf(cross, *a, *b); });
      if (found != known.crosses.end())
        coregion.crosses.push_back(*found);
      else
        missing +=
            (missing.empty() ? "" : ", ") + nameOf(loaded, *a) + " and " + nameOf(loaded, *b);
    }
  if (!missing.empty())
    throw Failure(Exit::data, "no cross variable of " + missing + " in " + loaded.path +
                                  ": it is named A-B for two variables A and B, or told by "
                                  "--cross-of \"NAME=A,B\"");
  return coregion;
}

bool isEntry(const std::optional<Coregion>& coregion, std::int64_t variable) {
  return coregion && (std::ranges::count(coregion->variables, variable) > 0 ||
                      std::ranges::count(coregion->crosses, variable, &CrossVariable::cross) > 0);
}

FitPlan planOf(const Loaded& loaded, const FitOptions& options, const fitting::Options& fit,
               Context& context) {
  const Session& session = loaded.session;
  const Coregion known = coregionOf(loaded, options.crossOf, context);
  const std::vector<CrossVariable> named = crossesByName(session);
  const auto isCross = [&](std::int64_t v) {
    return std::ranges::count(known.crosses, v, &CrossVariable::cross) > 0 ||
           std::ranges::count(named, v, &CrossVariable::cross) > 0;
  };
  FitPlan plan{fit, {}, std::nullopt};
  if (!options.lmc.empty())
    plan.coregion = coregionFor(loaded, splitAll(options.lmc, "--lmc"), known);
  std::vector<std::int64_t> wanted;
  wanted.reserve(options.variables.size());
  for (const std::string& name : options.variables)
    wanted.push_back(variableOf(session, loaded.path, name));
  for (std::int64_t v = 1; v <= session.nvar; ++v)
    if (!isEntry(plan.coregion, v) && (wanted.empty() || std::ranges::count(wanted, v) > 0))
      plan.tasks.push_back({v, isCross(v)});
  return plan;
}

/// Fits all, and puts it into the session's cells.
Fits fitInto(Session& session, const FitPlan& plan, Context& context) {
  const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
  const int asked = context.common.threads;
  Progress progress(context, "fitting");
  Fits fits = fitAll(session, plan, asked > 0 ? static_cast<unsigned>(asked) : cores,
                     [&](double share) { progress.tell(share); });
  for (std::size_t task = 0; task < plan.tasks.size(); ++task)
    fitting::writeFit(session, plan.tasks[task].variable, fits.variables[task]);
  if (!plan.coregion) return fits;
  // What there was of these variables is no model of them together.
  for (std::int64_t v = 1; v <= session.nvar; ++v)
    for (std::int64_t d = 1; isEntry(plan.coregion, v) && d <= session.ndir; ++d)
      fitting::writeModel(session, {v, d}, {});
  if (fits.coregion->isOffered()) fitting::writeCoregion(session, *plan.coregion, *fits.coregion);
  return fits;
}

/// As a save of the desktop program writes it, whose tag and title are those of an old file.
std::string bytesOf(Session& session, const std::string& title) {
  MemorySink data, whole;
  composeData(session, session.nvar, title, data);
  composeVariogramFile(session, session.nvar, data.bytes, whole);
  return std::move(whole.bytes);
}

/// Throws Failure where the models of a file do not pass the test as they stand in it.
void requireCoregion(const std::string& bytes, const Coregion& coregion) {
  const auto session = std::make_unique<Session>();
  if (!readVariogramBytes(bytes, *session) || !passesTest(*session, coregion))
    throw Failure(Exit::bad, "the models of --lmc do not pass the test with the digits of a file");
}

Exit runFit(const FitOptions& options, Context& context) {
  const fitting::Options fit = fittingOptionsOf(options);
  requireOutput(context, options.output);
  const auto loaded = loadInput(context, options.file);
  const FitPlan plan = planOf(*loaded, options, fit, context);
  const Fits fits = fitInto(loaded->session, plan, context);
  const FitReport report{*loaded, plan, fits,
                         options.title.empty() ? loaded->title : titleAsTold(options.title)};
  const std::vector<NotFitted> missing = notFitted(report);
  for (const NotFitted& one : missing) context.warning(textOf(one));
  std::string bytes = bytesOf(loaded->session, report.title);
  AcceptBytes accept;
  if (fits.coregion && fits.coregion->isOffered()) {
    accept = [coregion = *plan.coregion](const std::string& written) {
      requireCoregion(written, coregion);
    };
    // A pipe is not read back.
    accept(bytes);
  }
  context.save(options.output, std::move(bytes), std::move(accept));
  Json object{{"schema", "zvm.fit/1"}, {"file", options.file}, {"output", options.output}};
  object.update(jsonOf(report));
  reportOn(context, options.output, object, textOf(report));
  return missing.empty() ? Exit::done : Exit::bad;
}

}  // namespace

Run declareFit(CLI::App& app) {
  const auto options = std::make_shared<FitOptions>();
  declareOptions(app, *options);
  return [options](Context& context) { return runFit(*options, context); };
}

}  // namespace zevfit::verbs
