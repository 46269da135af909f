// Files on the disk in all states that a user can bring about. The first two lines say what stands
// in the places of the user's file and of the temporary file, the third what runs: 0 a save, 1 a
// rescue, 2 the end of the program, 3 nothing but a look. What the others are is told where they
// are taken; the rest is the file.
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "files/family_file.h"
#include "files/output_file.h"
#include "files/parameter_file.h"
#include "files/rescue.h"
#include "files/saveini.h"
#include "files/unsaved.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "fuzz/fields.h"
#include "fuzz/require.h"
#include "session/numbers.h"
#include "session/policy.h"
#include "tests/support/same_tables.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"

namespace zevfit {
namespace {

namespace fs = std::filesystem;

/// A folder of the program and one of the user.
struct Desk {
  test::ScratchFolder scratch;
  fs::path program = scratch / "program", data = scratch / "data";
  fs::path file = data / "a.zvm";

  Desk() {
    fs::create_directory(program);
    fs::create_directory(data);
  }
};

/// What stands in a place: nothing, a file, one behind a link, a link that leads nowhere, a folder,
/// a pipe, a link to itself, a file that its user may not write.
void put(const fs::path& place, int kind, const std::string& bytes) {
  const fs::path other = place.string() + ".other";
  if (kind == 1 || kind == 7) test::putFile(place, bytes);
  if (kind == 2) test::putFile(other, bytes);
  if (kind == 2 || kind == 3) fs::create_symlink(other, place);
  if (kind == 4) fs::create_directory(place);
  if (kind == 5) ::mkfifo(place.c_str(), 0600);
  if (kind == 6) fs::create_symlink(place, place);
  if (kind == 7) fs::permissions(place, fs::perms::owner_read);
}
constexpr int kKinds = 8;

/// Where the temporary file of a kriging or rescue file would go.
void putSiblings(const fs::path& place, int count) {
  for (int i = 1; i <= count; ++i)
    test::putFile(place.string() + ".zevfit-new" + std::to_string(i), "other");
}

std::string bytesOf(const fs::path& path) {
  std::string bytes;
  endSilently([&] { bytes = readWhole(path); });
  return bytes;
}

bool says(const test::ScriptedDialogs& dialogs, std::string_view text) {
  return !dialogs.shown.empty() && dialogs.shown.back().starts_with(text);
}

/// What the save is to write; nothing where it has to fail.
std::optional<std::string> expectedSave(Session& session, std::int16_t listed,
                                        const std::string& old) {
  const std::int64_t variables = session.nvar;
  const std::string tag = session.filetag;
  MemorySink out;
  bool whole = false;
  endSilently([&] { whole = composeVariogramFile(session, listed, old, out); });
  session.nvar = variables;
  session.filetag = tag;
  return whole ? std::optional(out.bytes) : std::nullopt;
}

fs::path keptName(const Desk& desk) { return desk.file.string() + kKeptSuffix; }

/// True where the file was saved.
bool saveOnce(ModelSaver& saver, Session& session, std::int16_t listed, const Desk& desk,
              bool isFirst) {
  const std::string old = bytesOf(desk.file), keptBefore = bytesOf(keptName(desk));
  const auto expected = expectedSave(session, listed, old);
  test::ScriptedDialogs dialogs;
  const auto note = saver.gravando(session, listed, dialogs);
  const bool saved = says(dialogs, "plain: Models saved to file:");
  require(saved || !note, "a save that fails tells of that alone");
  require(listed > 0 || !saved, "without variables there is no file");
  const std::string kept = bytesOf(keptName(desk));
  if (saved && isFirst) require(note || kept == old, "the first save keeps the file, or says not");
  require(saved || kept == keptBefore, "a save that fails leaves what was kept before");
  if (!isFirst) require(!note && kept == keptBefore, "a later one leaves that alone");
  require(!saved || expected, "what was saved can be written");
  require(bytesOf(desk.file) == (saved ? *expected : old), "a file is the old one or the new one");
  require(saved || says(dialogs, "plain: Cannot save  models to file:") ||
              says(dialogs, "warning: Invalid Input Data File Format") ||
              says(dialogs, "plain: Please select input data file"),
          "and what it is was told");
  std::error_code missing;
  require(!saved || !fs::exists(desk.program / kTemporaryName, missing), "nothing else is left");
  return saved;
}

/// Three saves, before the second of which the file may be cut. A line is the number of variables
/// in the list, one whether the session has another file, one how much is cut off, one what stands
/// in the place of the file that the first save keeps.
void checkSave(Fields& in, const Desk& desk, Session& session) {
  const auto listed = static_cast<std::int16_t>(in.pick(kVariableSlots));
  const int path = in.pick(4);
  if (path == 1) session.inputfile = (desk.program / kTemporaryName).string();
  if (path == 2) session.inputfile.clear();
  ModelSaver saver(desk.program);
  if (path == 0 || path == 3) {
    const auto cut = static_cast<std::uintmax_t>(in.pick(100));
    put(keptName(desk), in.pick(kKinds), "kept before");
    bool isFirst = true;
    for (int save = 1; save <= 3; ++save) {
      isFirst = !saveOnce(saver, session, listed, desk, isFirst) && isFirst;
      if (save > 1 || path == 0) continue;
      std::error_code failed;
      const bool isFile = fs::is_regular_file(desk.file, failed);
      const auto size = isFile ? fs::file_size(desk.file, failed) : 0;
      if (cut < size) fs::resize_file(desk.file, size - cut, failed);
    }
    return;
  }
  test::ScriptedDialogs dialogs;
  saver.gravando(session, listed, dialogs);
  require(!says(dialogs, "plain: Models saved to file:"), "neither of these is saved to");
}

/// A text comes back from a rescue but for what no quoted token holds.
bool isKept(std::string_view text) { return text.find('"') == std::string_view::npos; }

bool areNamesKept(const Session& session) {
  for (std::int64_t v = 1; v <= session.nvar; ++v)
    if (!isKept(session.varname(v))) return false;
  for (std::int64_t d = 1; d <= session.ndir; ++d)
    if (!isKept(session.dirname(d))) return false;
  return true;
}

void checkRescue(Fields& in, const Desk& desk, const Session& session, const std::string& bytes) {
  Unsaved(desk.program).keep(session, session.nvar);
  const auto unsaved = takeRescueNote(desk.program);
  require(!unsaved || bytesOf(desk.file) != bytes, "what stands in the file is not kept");
  putSiblings(desk.program / kRescueName, in.pick(3));
  put(desk.program / kRescueNoteName, in.pick(kKinds), "an old note");
  const bool empty = session.inputfile.empty();
  const auto rescue = writeRescue(session, session.nvar, desk.program);
  require(!rescue || !empty, "without a file there is nothing to rescue");
  const auto note = takeRescueNote(desk.program);
  require(!note || note->find(kRescueName) != std::string::npos, "the note names the rescue");
  Session again;
  if (!rescue) return;
  require(readVariogramFile(*rescue, again), "a rescue is a good file");
  const auto held = [](std::int64_t count) { return std::max<std::int64_t>(count, 0); };
  require(again.nvar == held(session.nvar) && again.ndir == held(session.ndir), "with all it had");
  if (!areNamesKept(session)) return;
  Session twice;
  again.inputfile = "a.zvm";
  const auto second = writeRescue(again, again.nvar, desk.program);
  require(second && readVariogramFile(*second, twice), "it can be rescued again");
  require(test::dataText(twice) == test::dataText(again), "and has the same data");
  require(test::modelTexts(twice) == test::modelTexts(again), "and the same models");
}

/// A line is the user's answer, one the numbers of the family's file, one the path that is kept,
/// and the places of the family's file and of the parameters.
void checkEnd(Fields& in, const Desk& desk) {
  test::ScriptedDialogs dialogs;
  constexpr std::array kAnswers{Answer::yes, Answer::no, Answer::cancel};
  const Answer answer = kAnswers.at(static_cast<std::size_t>(in.pick(kAnswers.size())));
  dialogs.answers.push_back(answer);
  const std::string family = in.next(), kept = in.next();
  put(desk.program / kFamilyFileName, in.pick(kKinds), family);
  const fs::path parameters = desk.program / kParameterFileName;
  put(parameters, in.pick(kKinds), in.rest());
  GraphStyle style;
  loadParameters(desk.program, style);
  const std::string old = bytesOf(parameters);
  std::error_code missing;
  const bool foreign = fs::exists(parameters, missing) && !fs::is_regular_file(parameters, missing);
  const SaveCode code = loadSaveCode(desk.program);
  const bool asks = code.p != 1 || (code.q != 0 && code.q != 1);
  const bool ends = closeRequest(style, kept, desk.program, dialogs);
  require(ends == (!asks || answer != Answer::cancel), "Cancel alone goes on");
  require(asks == (!dialogs.shown.empty() && dialogs.shown.front().starts_with("question")),
          "two pairs of numbers ask nothing");
  const bool wanted = asks ? answer == Answer::yes : code.q == 1;
  const bool failed = says(dialogs, "plain: Cannot save  session parameters");
  require(wanted || !failed, "what is not saved does not fail");
  require(!wanted || failed || !foreign, "a folder and a pipe are not replaced");
  require(bytesOf(parameters) == (wanted && !failed ? composeParameters(style, kept) : old),
          "the parameters are the old ones or the new ones");
}

void checkLook(const std::string& name, const Desk& desk, const std::string& bytes,
               Session& session) {
  require(hasVariogramExtension(name) == lowered(name).ends_with("zvm"), "an ending tells");
  const std::string held = bytesOf(desk.file);
  require(held.empty() || held == bytes, "a file is read whole");
  const bool good = readVariogramFile(desk.file, session);
  Session again;
  require(good == readVariogramBytes(held, again), "what can't be read is empty");
}

void check(Fields& in) {
  const Desk desk;
  const int file = in.pick(kKinds), temporary = in.pick(kKinds), what = in.pick(4);
  if (what == 2) return checkEnd(in, desk);
  const std::string first = in.next(), second = in.next(), third = in.next();
  const std::string bytes = in.rest();
  const std::string lines = first + "\n" + second + "\n" + third;
  Fields more(lines);
  put(desk.file, file, bytes);
  put(desk.program / (what == 1 ? kRescueName : kTemporaryName), temporary, "old");
  Session session;
  if (what == 3) return checkLook(first, desk, bytes, session);
  // From memory: also what can't be read may be saved over.
  if (!readVariogramBytes(bytes, session)) return;
  if (session.nvar >= kVariableSlots || session.ndir >= kDirectionSlots) return;
  acceptLoad(session, desk.file);
  if (what == 0) return checkSave(more, desk, session);
  checkRescue(more, desk, session, bytes);
}

}  // namespace
}  // namespace zevfit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zevfit::Fields in(data, size);
  zevfit::check(in);
  return 0;
}
