#include "files/unsaved.h"

#include <system_error>

#include "files/output_file.h"
#include "files/rescue.h"
#include "files/variogram_format.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "session/fault.h"
#include "session/line.h"
#include "session/policy.h"

namespace zevfit {

namespace {

bool isOff(const Cell& flag) { return !flag.isText() && flag.number() == 0; }

/// Gives the lines that are not used the values that a save writes for them.
void dropUnused(Session& session, Pair pair) {
  for (const Line which : kLines) {
    const LineRef at = line(session, pair, which);
    if (!isOff(at.flag())) continue;
    at.sill() = 0;
    if (which == Line::nugget) continue;
    at.letter() = kUnusedLetter;
    at.range() = 0;
  }
}

/// Data and models as a text that two sessions of the same content have in common.
std::string contentOf(Session session, std::int64_t variables) {
  for (std::int64_t v = 1; v < kVariableSlots; ++v)
    for (std::int64_t d = 1; d < kDirectionSlots; ++d) dropUnused(session, {v, d});
  MemorySink content;
  composeWhole(session, variables, "", content);
  return std::move(content.bytes);
}

/// A save would write the very bytes that the file has; so also where its tag hides the models.
bool isAsSaved(Session session, std::int64_t variables) {
  return attempt(
      [&] {
        const std::string file = readWhole(session.inputfile);
        MemorySink saved;
        return composeVariogramFile(session, variables, file, saved) && saved.bytes == file;
      },
      [] { return false; });
}

}  // namespace

std::optional<std::string> Unsaved::keep(const Session& session, std::int64_t variables) {
  if (session.inputfile.empty()) return std::nullopt;
  const bool isSafe = attempt(
      [&] {
        std::string content = contentOf(session, variables);
        if (isSettled(session.inputfile, content) || isInFile(session, content) ||
            isAsSaved(session, variables))
          return true;
        if (!writeRescue(session, variables, folder_, RescueReason::unsaved)) return false;
        settled_ = {session.inputfile, std::move(content), true};
        return true;
      },
      [] { return false; });
  if (isSafe) return std::nullopt;
  return "The models of " + session.inputfile + " that were not saved could not be kept in " +
         (folder_ / kRescueName).string();
}

void Unsaved::disregard(const Session& session, std::int64_t variables) {
  endSilently([&] { settled_ = {session.inputfile, contentOf(session, variables), false}; });
}

bool Unsaved::isInFile(const Session& session, const std::string& content) const {
  Session file;
  if (loadVariogramFile(session.inputfile, file) != Load::good) return false;
  settle_(session, file);
  return contentOf(file, file.nvar) == content;
}

bool Unsaved::isSettled(const std::string& file, const std::string& content) const {
  std::error_code missing;
  return settled_.file == file && settled_.content == content &&
         (!settled_.isKept || std::filesystem::exists(folder_ / kRescueName, missing));
}

}  // namespace zevfit
