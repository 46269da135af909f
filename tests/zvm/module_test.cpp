// Programs beside zvm that it starts: what they tell, and how they fail. Here they are scripts.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/zvm/command.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPlaces = "ZVM_MODULES";

/// A folder of programs, of which one reads a spatial source.
class Modules : public testing::Test {
 protected:
  void SetUp() override {
    ::setenv(kPlaces, folder_.path().c_str(), 1);
    putFile(source_, "{}");
  }
  void TearDown() override { ::unsetenv(kPlaces); }

  /// Makes a program of some bytes, and computes from it.
  Ran ranWith(const std::string& program) const {
    putFile(folder_ / "zvm-ogr", program);
    fs::permissions(folder_ / "zvm-ogr", fs::perms::owner_all);
    return ran({"compute", source_, (folder_ / "out.zvm").string(), "--x", "x", "--y", "y", "--var",
                "v", "--lag", "1", "--lags", "2"});
  }

  ScratchFolder folder_;
  const std::string source_ = (folder_ / "a.geojson").string();
};

TEST_F(Modules, TellWarningsAndGiveATable) {
  const Ran run = ranWith(
      "#!/bin/sh\necho 'warning: one is left out' >&2\necho beside >&2\n"
      "printf 'x,y,v\\n0,0,1\\n0,1,3\\n'\n");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.err.substr(0, run.err.find('\n')), "zvm: warning: one is left out") << run.err;
  EXPECT_EQ(run.err.find("beside"), std::string::npos) << run.err;
  // One pair at distance 1, half of whose squared difference is 2.
  EXPECT_NE(contentOf(folder_ / "out.zvm").find("\r\n 1             2             1 \r\n"),
            std::string::npos)
      << contentOf(folder_ / "out.zvm");
}

TEST_F(Modules, SayWhyTheyFail) {
  struct Row {
    const char* script;
    int code;
    const char* said;
  };
  const Row rows[] = {
      {"echo 'error: no such layer' >&2; exit 3", 3, "no such layer"},
      {"echo 'error: no server' >&2; exit 4", 4, "no server"},
      // What they say without a word in front is told by its last line.
      {"echo first >&2; echo second >&2; echo >&2; exit 2", 2, "zvm-ogr has failed: second"},
      // An end that zvm itself doesn't know, and one by a signal, behind a table.
      {"exit 77", 4, "zvm-ogr has failed: "},
      {"printf 'x,y,v\\n0,0,1\\n'; echo gone >&2; kill -9 $$", 4, "zvm-ogr has failed: gone"},
  };
  for (const auto& [script, code, said] : rows) {
    const Ran run = ranWith(std::string("#!/bin/sh\n") + script + '\n');
    EXPECT_EQ(run.code, code) << script;
    EXPECT_EQ(run.err, "zvm: error: " + source_ + ": " + said + '\n') << script;
    EXPECT_FALSE(fs::exists(folder_ / "out.zvm")) << script;
  }
}

TEST_F(Modules, TellTheFeatureOfAValueThatIsNoNumber) {
  const Ran run = ranWith("#!/bin/sh\nprintf 'x,y,v\\n0,0,1\\n0,1,q\\n'\n");
  EXPECT_EQ(run.code, 3);
  const std::string begin = "zvm: error: " + source_ + ": feature 2: `q` ";
  EXPECT_EQ(run.err.substr(0, begin.size()), begin);
}

TEST_F(Modules, ThatAreNoProgramsAreNotStarted) {
  const Ran run = ranWith(std::string("\0\1\2", 3));
  EXPECT_EQ(run.code, 4);
  EXPECT_EQ(run.err, "zvm: error: " + (folder_ / "zvm-ogr").string() +
                         " can't be started: Exec format error\n");
}

}  // namespace
}  // namespace zevfit::test
