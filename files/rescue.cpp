#include "files/rescue.h"

#include <string_view>
#include <system_error>

#include "files/output_file.h"
#include "files/tokens.h"
#include "files/variogram_writer.h"
#include "session/policy.h"

namespace zevfit {

namespace fs = std::filesystem;

namespace {

struct Note {
  RescueReason reason;
  const char* name;
  const char* before;  ///< the path
  const char* behind;
};
constexpr Note kNotes[] = {{RescueReason::earlyEnd, kRescueNoteName,
                            "The program had to end early. The models of ", " are kept in "},
                           {RescueReason::unsaved, kUnsavedNoteName, "The models of ",
                            " that were not saved are kept in "}};

/// The title of the loaded file, which the session does not keep; its name where it can't be read.
std::string titleOf(const std::string& file) {
  std::string title = fs::path(file).filename().string();
  endSilently([&] {
    const std::string bytes = readWhole(file);
    TokenStream in(bytes);
    if (const auto first = in.text()) title = *first;
  });
  return title;
}

void keepBefore(const fs::path& folder) {
  std::error_code none;
  if (!fs::exists(folder / kRescueName, none)) return;
  fs::remove(folder / kRescueBeforeName, none);
  fs::create_hard_link(folder / kRescueName, folder / kRescueBeforeName, none);
}

void writeInPlace(const fs::path& target, std::string_view bytes) {
  writeWhole(target, bytes, freeSibling(target));
}

/// Leaves one note, that of the last rescue.
void writeNote(const fs::path& folder, RescueReason reason, const std::string& file) {
  for (const Note& note : kNotes) {
    std::error_code missing;
    if (note.reason != reason)
      fs::remove(folder / note.name, missing);
    else
      endSilently([&] { writeInPlace(folder / note.name, file); });
  }
}

}  // namespace

std::optional<fs::path> writeRescue(const Session& session, std::int64_t variables,
                                    const fs::path& folder, RescueReason reason) {
  if (session.inputfile.empty()) return std::nullopt;
  fs::path rescue = folder / kRescueName;
  const bool written = attempt(
      [&] {
        MemorySink file;
        composeWhole(session, variables, titleOf(session.inputfile), file);
        keepBefore(folder);
        writeInPlace(rescue, file.bytes);
        return true;
      },
      [] { return false; });
  if (!written) return std::nullopt;
  writeNote(folder, reason, session.inputfile);
  return rescue;
}

std::optional<std::string> takeRescueNote(const fs::path& folder) {
  std::optional<std::string> told;
  for (const Note& note : kNotes) {
    endSilently([&] {
      const std::string file = readWhole(folder / note.name);
      told = note.before + file + note.behind + (folder / kRescueName).string();
    });
    std::error_code missing;
    fs::remove(folder / note.name, missing);
  }
  return told;
}

}  // namespace zevfit
