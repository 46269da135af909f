#include "files/rescue.h"

#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "files/output_file.h"
#include "files/tokens.h"
#include "files/variogram_writer.h"
#include "session/fault.h"
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

fs::path rescueName(const fs::path& folder, int age) {
  if (age == 0) return folder / kRescueName;
  const std::string before = kRescueBeforeStem;
  return folder / (before + (age == 1 ? "" : "-" + std::to_string(age)) + ".zvm");
}

/// Moves the rescues on, each to the name of the one before it, up to the first name that is free;
/// back again unless they are to stay there.
class Rotation {
 public:
  Rotation() = default;
  Rotation(const Rotation&) = delete;
  Rotation& operator=(const Rotation&) = delete;
  ~Rotation();

  /// Throws Fault where one can't be moved.
  void moveOn(const fs::path& folder);
  void stay();

 private:
  std::vector<std::pair<fs::path, fs::path>> moved_;
  fs::path surplus_;  ///< the oldest, for which there is no name left
};

Rotation::~Rotation() {
  std::error_code none;
  for (auto move = moved_.rbegin(); move != moved_.rend(); ++move)
    fs::rename(move->second, move->first, none);
}

void Rotation::moveOn(const fs::path& folder) {
  std::error_code unknown;
  std::vector<fs::path> names;
  bool isFull = true;
  for (int age = 0; age < kMostRescues && isFull; ++age) {
    const fs::path name = rescueName(folder, age);
    const fs::file_type there = fs::symlink_status(name, unknown).type();
    if (there == fs::file_type::directory) continue;
    isFull = there != fs::file_type::not_found;
    names.push_back(name);
  }
  if (names.empty()) return;
  if (isFull) names.push_back(surplus_ = freeSibling(names.back()));
  for (std::size_t to = names.size() - 1; to > 0; --to) {
    fs::rename(names[to - 1], names[to], unknown);
    if (unknown) throw Fault("Cannot move " + names[to - 1].string());
    moved_.emplace_back(names[to - 1], names[to]);
  }
}

void Rotation::stay() {
  moved_.clear();
  std::error_code none;
  if (!surplus_.empty()) fs::remove(surplus_, none);
}

/// Every rescue has a name at every moment, and the new one is whole before the others move.
void writeNewest(const fs::path& folder, std::string_view bytes) {
  const fs::path rescue = folder / kRescueName;
  std::string newest;
  endSilently([&] { newest = readWhole(rescue); });
  if (newest == bytes) return;
  SiblingFile made(rescue, bytes);
  Rotation rotation;
  rotation.moveOn(folder);
  made.takeName();
  rotation.stay();
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
        writeNewest(folder, file.bytes);
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
