// The program itself: wrong use, files that can't be read or written, streams that end.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/zvm/command.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

/// A folder in which the shell runs `zvm`; files are named relative to it.
class Program : public testing::Test {
 protected:
  void SetUp() override {
    putFile(folder_ / "good.zvm", kModel.bytes());
    putFile(folder_ / "bad.zvm", kData.with(3, "x").bytes());
  }

  /// Runs a line of the shell, in which $zvm is the program.
  Ran shell(const std::string& line) const {
    const std::string command = "cd '" + folder_.path().string() +
                                "' && zvm='" ZEVFIT_ZVM "' && { " + line + "\n} >out 2>err";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(folder_ / "out"),
            contentOf(folder_ / "err")};
  }
  const ScratchFolder& folder() const { return folder_; }

 private:
  ScratchFolder folder_;
};

struct Row {
  const char* line;
  int code;
  const char* err;
};

TEST_F(Program, TellsWhatIsWrong) {
  const Row rows[] = {
      {"$zvm", 2,
       "zvm: error: no verb; there are info, check, compute, merge, import, fit, test, export, "
       "plot, completion; "
       "zvm --help tells more\n"},
      {"$zvm chek good.zvm", 2,
       "zvm: error: no verb `chek`; there are check, info, fit, test, plot, merge, compute, "
       "import, export, completion; zvm --help tells more\n"},
      {"$zvm --jsno", 2,
       "zvm: error: no option `--jsno` in front of a verb; there are --help, --version\n"},
      {"$zvm --json info good.zvm", 2,
       "zvm: error: no option `--json` in front of a verb; there are --help, --version\n"},
      {"$zvm info", 2, "zvm: error: FILE is required; zvm info --help tells more\n"},
      {"$zvm info good.zvm more", 2,
       "zvm: error: `more` is one argument too many; zvm info --help tells more\n"},
      {"$zvm info --jsno good.zvm", 2,
       "zvm: error: no option `--jsno` of zvm info; there are --json, --help, --version, --quiet, "
       "--threads, --overwrite\n"},
      {"$zvm info --threads 0 good.zvm", 2,
       "zvm: error: --threads takes a whole number from 1, not `0`\n"},
      {"$zvm export good.zvm --to gstat -o good.zvm/in", 4,
       "zvm: error: cannot write good.zvm/in: Not a directory\n"},
      {"$zvm completion fish", 2, "zvm: error: no shell `fish`; there are bash, zsh\n"},
      {"$zvm info none.zvm", 4, "zvm: error: cannot read none.zvm: No such file or directory\n"},
      {"$zvm info .", 4, "zvm: error: cannot read .: Is a directory\n"},
      {"$zvm info good.zvm/in", 4, "zvm: error: cannot read good.zvm/in: Not a directory\n"},
      {"$zvm info bad.zvm", 3, "zvm: error: bad.zvm:3:1: `x` is no number of variables\n"},
      {"$zvm info - </", 4, "zvm: error: cannot read stdin: Input/output error\n"},
      {"$zvm check - <&-", 4, "zvm: error: cannot read stdin: Input/output error\n"},
      {"$zvm info - </dev/null", 3, "zvm: error: -:1:1: the file ends before the title\n"},
      {"$zvm check none.zvm", 4, "zvm: error: cannot read none.zvm: No such file or directory\n"},
      {"$zvm compute none.csv made.zvm --x x --y y --var v --lag 1 --lags 2", 4,
       "zvm: error: cannot read none.csv: No such file or directory\n"},
      {"$zvm compute . made.zvm --format csv --x x --y y --var v --lag 1 --lags 2", 4,
       "zvm: error: cannot read .: Is a directory\n"},
      {"$zvm merge none1 none2 made.zvm", 4,
       "zvm: error: cannot read none1: No such file or directory\n"
       "zvm: error: cannot read none2: No such file or directory\n"},
      {"$zvm merge good.zvm/in none2 made.zvm", 4,
       "zvm: error: cannot read good.zvm/in: Not a directory\n"
       "zvm: error: cannot read none2: No such file or directory\n"},
      {"$zvm test good.zvm --primary zink --secondary zinc", 3,
       "zvm: error: no variable `zink` in good.zvm; there are zinc\n"},
  };
  for (const Row& row : rows) {
    const Ran run = shell(row.line);
    EXPECT_EQ(run.err, row.err) << row.line;
    EXPECT_EQ(run.code, row.code) << row.line;
    EXPECT_EQ(run.out, "") << row.line;
  }
}

// A batch system may leave no room for threads: the work is done without them.
TEST_F(Program, WorksWithoutRoomForThreads) {
  // A stack that no address space holds.
  const std::string limit = "ulimit -s 200000000000 || exit 77; ";
  const std::string points = "printf 'x,y,v\\n0,0,1\\n0,1,2\\n1,1,4\\n' | ";
  for (const std::string& line :
       {points + "$zvm compute - - --x x --y y --var v --lag 1 --lags 2 2>report",
        std::string("$zvm fit good.zvm -")}) {
    const Ran with = shell(line), without = shell(limit + line);
    ASSERT_NE(without.code, 77) << "the size of stacks is limited";
    EXPECT_EQ(without.code, with.code) << without.err;
    EXPECT_EQ(without.out, with.out);
    EXPECT_NE(with.out, "");
  }
}

TEST_F(Program, TakesPipesAndStreams) {
  const std::string expected = ran({"info", "-"}, kModel.bytes()).out;
  for (const char* line :
       {"$zvm info good.zvm", "$zvm info - <good.zvm", "cat good.zvm | $zvm info -",
        "$zvm info /dev/stdin <good.zvm", "cat good.zvm | $zvm info /dev/stdin",
        "mkfifo pipe; cat good.zvm >pipe & $zvm info pipe; rm pipe",
        "LC_ALL=de_DE.UTF-8 $zvm info good.zvm", "ln -s good.zvm link; $zvm info link; rm link"}) {
    const Ran run = shell(line);
    EXPECT_EQ(run.out, expected) << line;
    EXPECT_EQ(run.err, "") << line;
    EXPECT_EQ(run.code, 0) << line;
  }
}

TEST_F(Program, ComputesFromPipesWithoutTheirNames) {
  const std::string points = "printf 'x,y,v\\n0,0,1\\n0,1,2\\n' ";
  const std::string rest = " - --x x --y y --var v --lag 1 --lags 2 2>report";
  const Ran piped = shell(points + "| $zvm compute -" + rest);
  EXPECT_EQ(piped.out.substr(0, piped.out.find('\r')), "Semivariograms");
  EXPECT_EQ(shell("mkfifo 63; " + points + ">63 & $zvm compute 63" + rest).out, piped.out);
}

TEST_F(Program, HelpsOnStdout) {
  for (const char* line : {"$zvm --help", "$zvm --version", "$zvm info --help", "$zvm test --help",
                           "$zvm check --version", "$zvm completion bash", "$zvm completion zsh"}) {
    const Ran run = shell(line);
    EXPECT_EQ(run.code, 0) << line;
    EXPECT_EQ(run.err, "") << line;
    EXPECT_NE(run.out.find("zvm"), std::string::npos) << line;
  }
}

TEST_F(Program, EndsWhereStdoutDoes) {
  const Ran full = shell("$zvm info good.zvm >/dev/full");
  EXPECT_EQ(full.code, 4);
  EXPECT_EQ(full.err, "zvm: error: cannot write stdout: No space left on device\n");
  // A pipe that nobody reads: the signal ends it or, where that is ignored, the failed write.
  const Ran closed = shell(
      "mkfifo pipe; sleep 5 <pipe & exec 3>pipe; kill $!; wait $! 2>/dev/null; "
      "(exec $zvm info good.zvm >&3); code=$?; exec 3>&-; (exit $code)");
  EXPECT_EQ(closed.code, 141);
  const Ran ignored = shell(
      "trap '' PIPE; rm pipe; mkfifo pipe; sleep 5 <pipe & exec 3>pipe; kill $!; "
      "wait $! 2>/dev/null; $zvm info good.zvm >&3");
  EXPECT_EQ(ignored.code, 4);
  EXPECT_EQ(ignored.err, "");
}

TEST_F(Program, ReadsStdinOnce) {
  shell(
      "printf 'np,dist,gamma,dir.hor,dir.ver,id\\n52,77,0.13,0,0,zinc\\n' >table\n"
      "printf 'x,y,v\\n0,0,1\\n1,0,2\\n' >points\n"
      "$zvm compute points part --x x --y y --var v --lag 1 --lags 2 --part 1/2");
  for (const char* line :
       {"$zvm check - - <good.zvm", "$zvm import gstat - - made.zvm --width 100 <table",
        "$zvm merge - - made.zvm <part"}) {
    const Ran run = shell(line);
    EXPECT_EQ(run.code, 2) << line;
    EXPECT_EQ(run.err, "zvm: error: stdin is there twice: it can be read once\n") << line;
    EXPECT_EQ(run.out, "") << line;
  }
}

TEST_F(Program, EndsWhenItIsInterrupted) {
  for (const char* signal : {"INT", "TERM", "HUP"}) {
    // The pipe opens once the program waits for its input. Jobs of a shell ignore interrupts.
    const Ran run =
        shell(std::string("mkfifo wait; env --default-signal=INT $zvm info wait & program=$!; "
                          "exec 3>wait; kill -") +
              signal + " $program; wait $program; code=$?; exec 3>&-; rm wait; (exit $code)");
    EXPECT_EQ(run.code, 130) << signal;
    EXPECT_EQ(run.out, "") << signal;
  }
}

TEST_F(Program, WritesOutputsOfEveryKind) {
  const std::string text = ran({"export", "-", "--to", "gstat"}, kModel.bytes()).out;
  const char* const lines[] = {
      "$zvm export good.zvm --to gstat",
      "$zvm export good.zvm --to gstat -o -",
      "$zvm export good.zvm --to gstat -o /dev/stdout",
      "$zvm export good.zvm --to gstat -o /dev/stdout | cat",
      "$zvm export good.zvm --to gstat -o /dev/fd/3 3>&1",
      "$zvm export good.zvm --to gstat -o /proc/self/fd/1",
      "$zvm export good.zvm --to gstat -o /proc/self/fd/1 | cat",
      "$zvm export good.zvm --to gstat -o /proc/thread-self/fd/1",
      "sh -c \"exec $zvm export good.zvm --to gstat -o /proc/\\$\\$/fd/1\"",
      "ln -s /dev/stdout link; $zvm export good.zvm --to gstat -o link; rm link",
      "ln -s /proc/self/fd link; $zvm export good.zvm --to gstat -o link/1; rm link",
      "mkfifo pipe; cat pipe & $zvm export good.zvm --to gstat -o pipe; wait; rm pipe",
      "$zvm export good.zvm --to gstat -o made; cat made",
      "echo old >old; $zvm export good.zvm --to gstat -o old --overwrite; cat old",
  };
  for (const char* line : lines) {
    const Ran run = shell(line);
    EXPECT_EQ(run.out, text) << line;
    EXPECT_EQ(run.err, "") << line;
    EXPECT_EQ(run.code, 0) << line;
  }
  // The file that stdout leads to is continued, not written from its beginning.
  for (const char* name : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"})
    EXPECT_EQ(shell(std::string("echo before; $zvm export good.zvm --to gstat -o ") + name).out,
              "before\n" + text)
        << name;
}

TEST_F(Program, LeavesNothingOfAFileBeyondTheLimit) {
  // A build that counts what is reached would cut its counts at the limit, too: it is to leave them
  // out, and says so.
  const Ran run = shell(
      "(export GCOV_PREFIX=/dev/null; ulimit -f 1; $zvm export good.zvm --to json -o big; "
      "echo $? >code) 2>&1 | grep -v '^profiling:' >&2; code=$(cat code); rm code; exit $code");
  EXPECT_EQ(run.code, 4);
  EXPECT_EQ(run.err, "zvm: error: cannot write big: File too large\n");
  EXPECT_EQ(shell("ls").out, "bad.zvm\nerr\ngood.zvm\nout\n");
}

TEST_F(Program, GoesOnWhereASignalIsIgnored) {
  const Ran run = shell(
      "mkfifo wait; trap '' HUP; $zvm info wait & program=$!; exec 3>wait; "
      "kill -HUP $program; cat good.zvm >&3; exec 3>&-; wait $program");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.out, ran({"info", "-"}, kModel.bytes()).out);
}

TEST_F(Program, CompletesInBash) {
  const std::string complete =
      "$zvm completion bash >completion && bash -c '. ./completion; COMP_WORDS=(zvm %); "
      "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _zvm; echo \"${COMPREPLY[@]}\"'";
  const auto completed = [&](const std::string& words) {
    std::string line = complete;
    return shell(line.replace(line.find('%'), 1, words)).out;
  };
  EXPECT_EQ(completed("in"), "info\n");
  EXPECT_EQ(completed("check --ov"), "--overwrite\n");
  EXPECT_EQ(completed("info goo"), "good.zvm\n");
  EXPECT_EQ(completed("info --json goo"), "good.zvm\n");
  EXPECT_EQ(completed("completion z"), "zsh\n");
  EXPECT_EQ(completed("export --to gsl"), "gslib\n");
  EXPECT_EQ(completed("export --main goo"), "\n");
  EXPECT_EQ(completed("export -o goo"), "good.zvm\n");
  EXPECT_EQ(completed("test good.zvm --minor"), "--minor1 --minor2\n");
}

}  // namespace
}  // namespace zevfit::test
