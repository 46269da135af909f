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

}  // namespace

std::optional<fs::path> writeRescue(const Session& session, std::int64_t variables,
                                    const fs::path& folder) {
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
  endSilently([&] { writeInPlace(folder / kRescueNoteName, session.inputfile); });
  return rescue;
}

std::optional<std::string> takeRescueNote(const fs::path& folder) {
  std::optional<std::string> note;
  const fs::path told = folder / kRescueNoteName;
  endSilently([&] {
    const std::string file = readWhole(told);
    note = "The program had to end early. The models of " + file + " are kept in " +
           (folder / kRescueName).string();
  });
  std::error_code missing;
  fs::remove(told, missing);
  return note;
}

}  // namespace zevfit
