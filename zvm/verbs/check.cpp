#include <algorithm>

#include "zvm/checking/check_file.h"
#include "zvm/checking/letters.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/report.h"
#include "zvm/verbs/terminal.h"
#include "zvm/verbs/text.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

using checking::Finding;
using checking::Severity;

/// The bytes of a line that are shown; of a longer one those around the place.
constexpr std::size_t kShownBytes = 160;

const char* wordOf(Severity severity) { return severity == Severity::error ? "error" : "warning"; }

/// A line of the file with the caret below the place.
std::string excerpt(std::string_view line, std::size_t column) {
  const std::size_t at = column - 1;
  const std::size_t first =
      line.size() <= kShownBytes || at < kShownBytes / 2 ? 0 : at - kShownBytes / 2;
  const std::string shown = checking::withoutControls(line.substr(first, kShownBytes));
  std::string blanks = shown.substr(0, at - first);
  std::ranges::replace_if(
      blanks, [](char c) { return c != '\t'; }, ' ');
  blanks.resize(at - first, ' ');
  return utf8Of(shown) + '\n' + blanks + "^\n";
}

std::string textReport(const std::string& path, const checking::LineMap& lines,
                       const std::vector<Finding>& findings) {
  std::string text;
  for (const auto& [severity, place, words, topic] : findings)
    text += terminalText(path) + ':' + std::to_string(place.line) + ':' +
            std::to_string(place.column) + ": " + wordOf(severity) + ": " +
            terminalText(utf8Of(words)) + '\n' + excerpt(lines.line(place.line), place.column);
  return text;
}

Json jsonReport(const std::string& path, const std::vector<Finding>& findings) {
  Json rows = Json::array();
  for (const auto& [severity, place, words, topic] : findings)
    rows.push_back({{"line", place.line},
                    {"column", place.column},
                    {"severity", wordOf(severity)},
                    {"text", utf8Of(words)}});
  return {{"file", path},
          {"errors", std::ranges::count(findings, Severity::error, &Finding::severity)},
          {"warnings", std::ranges::count(findings, Severity::warning, &Finding::severity)},
          {"findings", rows}};
}

/// What JSON tells of a file that can't be read.
Json failureReport(const std::string& path, const Failure& failure) {
  Json report = jsonReport(path, {});
  report["failure"] = failure.what();
  return report;
}

/// The worst of all files; one that can't be read does not keep the others from being checked.
Exit checkAll(const std::vector<std::string>& paths, Context& context) {
  if (std::ranges::count(paths, kStandardStream) > 1) throw Failure(Exit::usage, kStdinTwice);
  Exit worst = Exit::done;
  Json files = Json::array();
  for (const std::string& path : paths) {
    try {
      const std::string bytes = readInput(context, path);
      const checking::CheckResult result = checking::checkFile(bytes);
      if (context.common.json)
        files.push_back(jsonReport(path, result.findings));
      else
        context.print(textReport(path, checking::LineMap(bytes), result.findings));
      if (result.hasErrors()) worst = std::max(worst, Exit::bad);
    } catch (const Failure& failure) {
      context.error(failure.what());
      if (context.common.json) files.push_back(failureReport(path, failure));
      worst = std::max(worst, failure.code());
    }
  }
  if (context.common.json) context.print(textOf({{"schema", "zvm.check/1"}, {"files", files}}));
  return worst;
}

}  // namespace

Run declareCheck(CLI::App& app) {
  const auto files = std::make_shared<std::vector<std::string>>();
  app.add_option("FILE...", *files, "Variogram files, - for stdin")->required()->type_name("");
  return [files](Context& context) { return checkAll(*files, context); };
}

}  // namespace zevfit::verbs
