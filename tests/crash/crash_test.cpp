// A save whose nth call on the file system fails, or never returns: the user's file is the old one
// whole or the new one whole, and the program says which.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

/// No save makes nearly as many calls.
constexpr int kMostCalls = 100;

struct Outcome {
  std::string output;  ///< boxes and what the preloaded library says
  bool killed = false;
  bool reached() const { return output.find("fault reached\n") != std::string::npos; }
  bool says(const std::string& box) const { return output.find(box) != std::string::npos; }
};

struct ClosePipe {
  void operator()(std::FILE* pipe) const { ::pclose(pipe); }
};

/// Runs a command, which ends with a line of its exit code: 137 for a program that was killed.
Outcome shell(const std::string& command) {
  Outcome outcome;
  const std::unique_ptr<std::FILE, ClosePipe> pipe(::popen(command.c_str(), "r"));
  if (!pipe) return outcome;
  char part[4096];
  while (const std::size_t got = std::fread(part, 1, sizeof part, pipe.get()))
    outcome.output.append(part, got);
  outcome.killed = outcome.output.find("code 137\n") != std::string::npos;
  return outcome;
}

/// With the title that a rescue falls back on where it can't read the file.
std::string loadedFile() {
  return "meuse.zvm" + sampleFile("zevra").substr(std::strlen("Flood plain"));
}

struct Kind {
  const char* name;
  const char* arguments;  ///< of the program, behind the folder
  std::string target;     ///< the user's file, below the folder
  std::string old;
  std::string saved, failed;  ///< how the last box begins
};

const std::vector<Kind> kKinds{
    {"models", "data/meuse.zvm", "data/meuse.zvm", loadedFile(),
     "plain: Models saved to file:", "plain: Cannot save  models to file:|-"},
    {"parameters", "", "program/zevfit.ini", "an old file\r\n", "",
     "plain: Cannot save  session parameters to "},
    {"kriging", "data/out.ZVP", "data/out.ZVP", "an old file\r\n",
     "plain: File  ' out.ZVP '  is saved", ""},
    {"rescue", "data/meuse.zvm", "program/rescue.zvm", "an old file\r\n", "plain: rescued",
     "plain: lost"},
};

struct Way {
  const char* name;
  std::string mode;
  bool volumes;  ///< as if program and data lay on different volumes
};

std::vector<Way> ways() {
  std::vector<Way> all;
  for (const bool volumes : {false, true}) {
    for (const int error : {ENOSPC, EIO, EACCES})
      all.push_back({"error", std::to_string(error), volumes});
    all.push_back({"kill", "kill", volumes});
    all.push_back({"torn", "torn", volumes});
  }
  return all;
}

/// What an earlier session has kept of the user's file.
constexpr const char* kOlder = "an older file\r\n";

/// A program folder and a data folder with the old file.
class Desk {
 public:
  explicit Desk(const Kind& kind) : kind_(kind) {
    fs::create_directory(folder_ / "program");
    fs::create_directory(folder_ / "data");
    putFile(folder_ / "data/meuse.zvm", loadedFile());
    putFile(target(), kind.old);
    putFile(kept(), kOlder);
  }

  fs::path target() const { return folder_ / kind_.target; }
  /// The file as it was before a save of models.
  fs::path kept() const { return folder_ / "data/meuse.zvm~"; }

  /// One save; with `fault` 0 without any.
  Outcome save(const Way& way, int fault) const {
    std::string command = "env ";
    if (fault > 0) {
      command += "LD_PRELOAD=" ZEVFIT_FAILING_CALLS " ZEVFIT_FAULT='" + std::to_string(fault) +
                 " " + way.mode + "' ZEVFIT_FAULT_FOLDER='" + folder_.path().string() + "' ";
      if (way.volumes) command += "ZEVFIT_FAULT_VOLUMES=1 ";
    }
    command += ZEVFIT_SAVE_PROGRAM " " + std::string(kind_.name) + " '" +
               (folder_ / "program").string() + "'";
    if (*kind_.arguments != '\0') command += " '" + (folder_ / kind_.arguments).string() + "'";
    return shell("{ " + command + "; echo code $?; } 2>&1");
  }

  /// Files that the save has made and not taken away; a rescue has its note.
  std::vector<std::string> filesBeside() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(target().parent_path()))
      if (entry.path() != target() && entry.path().filename() != "rescue.txt" &&
          entry.path().filename() != "rescue-before.zvm" &&
          entry.path().filename() != "meuse.zvm" && entry.path().filename() != "meuse.zvm~")
        names.push_back(entry.path().filename().string());
    return names;
  }

 private:
  Kind kind_;
  ScratchFolder folder_;
};

class Crash : public testing::TestWithParam<std::size_t> {
 protected:
  const Kind& kind() const { return kKinds.at(GetParam()); }
};

/// The box that ends a save says what has become of the file; some kinds end without one.
void checkTold(const Kind& kind, const Outcome& outcome, bool isNew) {
  EXPECT_TRUE(outcome.says("code 0\n")) << outcome.output;
  EXPECT_EQ(!kind.failed.empty() && outcome.says(kind.failed), !kind.failed.empty() && !isNew)
      << outcome.output;
  EXPECT_EQ(!kind.saved.empty() && outcome.says(kind.saved), !kind.saved.empty() && isNew)
      << outcome.output;
}

std::string savedBytes(const Kind& kind) {
  const Desk desk(kind);
  const Outcome outcome = desk.save({}, 0);
  EXPECT_TRUE(outcome.says(kind.saved)) << outcome.output;
  checkTold(kind, outcome, true);
  return contentOf(desk.target());
}

/// What an earlier session has kept stays until the file has been replaced; then the old file has
/// its name, or waits beside it under one of its own where the program was killed. A save that goes
/// on without it says so.
void checkKept(const Desk& desk, const Outcome& outcome, bool isNew) {
  const bool isTold = outcome.says("foot: The file as it was before this save could not be kept");
  const std::string kept = contentOf(desk.kept());
  if (!isNew || isTold || (outcome.killed && kept == kOlder)) {
    EXPECT_EQ(kept, kOlder);
  } else {
    EXPECT_EQ(kept, loadedFile());
  }
  if (isNew && outcome.killed && kept == kOlder) {
    EXPECT_EQ(contentOf(desk.kept().string() + ".zevfit-new1"), loadedFile());
  }
  if (isTold) {
    EXPECT_TRUE(isNew);
  }
}

/// The rescue from before is there under its name, or as the one before the new one, which then has
/// its name or is whole beside it where the program was killed.
void checkRescues(const Desk& desk, const Kind& kind, const std::string& whole) {
  const std::string left = contentOf(desk.target());
  const std::string before = contentOf(desk.target().parent_path() / "rescue-before.zvm");
  if (left == kind.old) return;
  EXPECT_EQ(before, kind.old);
  if (left == whole) return;
  EXPECT_FALSE(std::filesystem::exists(desk.target()));
  EXPECT_EQ(contentOf(desk.target().string() + ".zevfit-new1"), whole);
}

/// One save with a fault at a call; false when the save makes fewer calls.
bool checkFault(const Kind& kind, const Way& way, int fault, const std::string& whole) {
  SCOPED_TRACE(std::string(kind.name) + ", call " + std::to_string(fault) + ": " + way.mode +
               (way.volumes ? ", on two volumes" : ""));
  const Desk desk(kind);
  const Outcome outcome = desk.save(way, fault);
  const std::string left = contentOf(desk.target());
  const bool isNew = left == whole;
  const bool isRescue = kind.name == std::string("rescue");
  EXPECT_TRUE(isNew || left == kind.old || (isRescue && outcome.killed))
      << "the file is neither: " << left;
  if (isRescue) checkRescues(desk, kind, whole);
  EXPECT_EQ(outcome.killed, outcome.reached() && *way.name != 'e') << outcome.output;
  if (!outcome.killed) checkTold(kind, outcome, isNew);
  if (kind.name == std::string("models")) checkKept(desk, outcome, isNew);

  // And whatever was left behind, the next save does its work.
  checkTold(kind, desk.save(way, 0), true);
  EXPECT_EQ(contentOf(desk.target()), whole);
  return outcome.reached();
}

TEST_P(Crash, LeavesTheOldFileWholeOrTheNewOneWhole) {
  const std::string whole = savedBytes(kind());
  ASSERT_NE(whole, kind().old);
  for (const Way& way : ways()) {
    int fault = 1;
    while (fault < kMostCalls && checkFault(kind(), way, fault, whole) && !HasFailure()) ++fault;
    // Opening, writing, flushing, closing, taking over the old file's rights twice, renaming, and
    // opening, flushing and closing the folder are ten.
    EXPECT_GT(fault, 10) << "all calls come by";
    EXPECT_LT(fault, kMostCalls);
  }
}

TEST_P(Crash, LeavesNothingBesideTheFileWhenItLives) {
  for (const bool volumes : {false, true}) {
    for (int fault = 1; fault < kMostCalls; ++fault) {
      const Desk desk(kind());
      if (!desk.save({"error", std::to_string(ENOSPC), volumes}, fault).reached()) break;
      EXPECT_EQ(desk.filesBeside(), std::vector<std::string>{}) << fault;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Crash, testing::Range<std::size_t>(0, kKinds.size()),
                         [](const auto& at) { return std::string(kKinds.at(at.param).name); });

}  // namespace
}  // namespace zevfit::test
