// How `zvm plot` refuses, and what it leaves then.
#include <sys/wait.h>

#include "tests/zvm/plot/picture.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

TEST_F(Plot, TellsWhatIsWrong) {
  putFile(path("bad.ini"), "x");
  putFile(path("there.svg"), "old");
  const std::string file = path("a.zvm"), out = path("o.svg"), points = path("points.csv");
  struct Row {
    std::vector<std::string> arguments;
    int code;
    std::string message;
  };
  const std::vector<Row> rows{
      {{file}, 2, "the file to write is missing"},
      {{file, out, "-o", out}, 2, "two files to write: " + out + " and -o " + out},
      {{file, path("o")},
       2,
       "the name " + path("o") +
           " tells no format: it ends with .svg, .pdf or .png, or --format tells it"},
      {{file, out, "--format", "gif"}, 2, "no --format `gif`; there are pdf, svg, png"},
      {{file, out, "--var", "zink"}, 3, "no variable `zink` in " + file + "; there are zinc, lead"},
      {{file, out, "--dir", "45;0"}, 3, "no direction `45;0` in " + file + "; there are 0;0, 90;0"},
      {{file, out, "--var", ""}, 2, "--var is empty; it takes NAME"},
      {{file, out, "--dir", ""}, 2, "--dir is empty; it takes DIRECTION"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z", "--log", "y", "--lag", "1",
        "--lags", "2"},
       2,
       "no variable `y` in --var; there are z"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z,", "--lag", "1", "--lags", "2"},
       2,
       "--var takes a list without gaps, not `z,`"},
      {{file, path(".svg"), "--var", "1"},
       2,
       "the name " + path(".svg") +
           " tells no format: it ends with .svg, .pdf or .png, or --format tells it"},
      {{file, path("o.png"), "--size", "2540x100", "--dpi", "400"},
       2,
       "a PNG file of this --size has 40000 dots a side at --dpi 400, and at most 32000: --dpi 320 "
       "and less do"},
      {{file, path("o.png"), "--size", "100x1000", "--dpi", "2400"},
       2,
       "a PNG file of this --size has 94488 dots a side at --dpi 2400, and at most 32000: --dpi "
       "812 "
       "and less do"},
      {{file, out, "--var", "1", "--var", "zinc"}, 2, "--var zinc is there twice"},
      {{file, out, "--dir", "1", "--dir", "0;0"}, 2, "--dir 0;0 is there twice"},
      {{file, "-", "--format", "svg"},
       2,
       "these are 4 pictures: - takes one, or those of a PDF file"},
      {{file, "-", "--format", "pdf", "--json"},
       2,
       "--json reports on a file: it takes another OUT than stdout"},
      {{file, out, "--size", "10"},
       2,
       "--size takes WIDTHxHEIGHT in millimetres, or with mm, cm, in, pt or px behind it, as in "
       "160x100 or 800x500px, not `10`"},
      {{file, out, "--size", "10x10"},
       2,
       "--size 10x10: a side is from 1 to 100 inches (25.4 to 2540 mm)"},
      {{file, out, "--size", "2540.1x100"},
       2,
       "--size 2540.1x100: a side is from 1 to 100 inches (25.4 to 2540 mm)"},
      {{file, out, "--size", "25.3x100"},
       2,
       "--size 25.3x100: a side is from 1 to 100 inches (25.4 to 2540 mm)"},
      {{file, out, "--size", "1e300x100"},
       2,
       "--size 1e300x100: a side is from 1 to 100 inches (25.4 to 2540 mm)"},
      {{file, out, "--font", ",12"}, 2, "--font takes NAME or NAME,POINTS, not `,12`"},
      {{file, out, "--font", "Serif,big"},
       2,
       "--font takes NAME,POINTS with 1 to 200 points, not `Serif,big`"},
      {{file, out, "--style", path("bad.ini")},
       3,
       path("bad.ini") + " is no parameter file of zevFIT"},
      {{file, out, "--style", path("no.ini")},
       4,
       "cannot read " + path("no.ini") + ": No such file or directory"},
      {{file, out, "--dpi", "9"}, 2, "--dpi takes 24 to 2400"},
      {{file, out, "--x", "x"},
       2,
       "--x, --y, --log, --missing, --trim, --lag, --lags and the options of spatial sources take "
       "--map"},
      {{points, out, "--map", "--overlay"}, 2, "--overlay and --map are two kinds of pictures"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z"},
       2,
       "--map is of points: it takes --x, --y, --var, --lag and --lags"},
      {{points, out, "--map", "--dir", "1"}, 2, "--map takes no --dir"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z", "--lag", "-1", "--lags", "2"},
       2,
       "--lag takes a width above 0"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z", "--lag", "1", "--lags", "101"},
       2,
       "--lags of a map takes 1 to 100"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "a", "--lag", "1", "--lags", "2"},
       3,
       "no column `a` in " + points + "; there are x, y, z"},
      {{points, out, "--map", "--x", "x", "--y", "y", "--var", "z", "--lag", "0.1", "--lags", "2"},
       3,
       points +
           ": no two points of `z` are within reach of the map (4 read, 0 without coordinates, "
           "0 without a value)"},
      {{path("none.zvm"), out},
       4,
       "cannot read " + path("none.zvm") + ": No such file or directory"},
      {{file, path("there.svg"), "--var", "1", "--dir", "1"},
       4,
       path("there.svg") + " exists; --overwrite replaces it"},
      {{file, path("no/o.svg"), "--var", "1", "--dir", "1"},
       4,
       "cannot write " + path("no/o.svg") + ": No such file or directory"},
  };
  for (const Row& row : rows) {
    std::vector<std::string> arguments{"plot"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Ran run = ran(arguments);
    EXPECT_EQ(run.err, "zvm: error: " + row.message + "\n");
    EXPECT_EQ(run.code, row.code) << row.message;
    EXPECT_EQ(run.out, "") << row.message;
    EXPECT_FALSE(isThere("o.svg")) << row.message;
  }
  EXPECT_EQ(content("there.svg"), "old");
}

TEST_F(Plot, SaysWhatToInstallWhereTheProgramIsMissing) {
  ::setenv("ZVM_MODULES", path("").c_str(), 1);
  const std::vector<std::string> arguments{"plot", path("a.zvm"), path("p.pdf")};
  const Ran missing = ran(arguments);
  EXPECT_EQ(missing.code, 4);
  EXPECT_EQ(missing.err,
            "zvm: error: zvm plot takes the program zvm-plot, which is not there: install the "
            "package zvm-plot, or put the program beside zvm\n");
  // One that fails is told of by its last line, and one that is killed as well.
  const auto with = [&](const std::string& script) {
    putFile(path("zvm-plot"), "#!/bin/sh\n" + script);
    fs::permissions(path("zvm-plot"), fs::perms::owner_all);
    return ran(arguments);
  };
  EXPECT_EQ(with("echo one >&2; echo two >&2; exit 134").err,
            "zvm: error: zvm-plot has failed: two\n");
  EXPECT_EQ(with("kill -9 $$").code, 4);
  const Ran refusing = with("echo 'warning: w' >&2; echo 'error: no room' >&2; exit 3");
  EXPECT_EQ(refusing.err, "zvm: warning: w\nzvm: error: no room\n");
  EXPECT_EQ(refusing.code, 3);
  EXPECT_EQ(with("true").err,
            "zvm: error: zvm-plot has drawn other pictures than it was asked for\n");
  EXPECT_FALSE(isThere("p.pdf"));
}

TEST_F(Plot, LeavesNothingWhenItIsInterrupted) {
  const std::string command =
      "cd '" + path("") +
      "' && mkdir modules && printf '#!/bin/sh\\nkill -INT $PPID\\nsleep 5\\n' "
      ">modules/zvm-plot && chmod +x modules/zvm-plot && ZVM_MODULES=modules "
      "env --default-signal=INT '" ZEVFIT_ZVM "' plot a.zvm p.pdf >out 2>&1";
  const int status = std::system(command.c_str());
  EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, 130);
  EXPECT_FALSE(isThere("p.pdf"));
  EXPECT_EQ(content("out"), "");
}

}  // namespace
}  // namespace zevfit::test
