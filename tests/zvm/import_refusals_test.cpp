// What the verb import refuses, each with its message and exit code.
#include <gtest/gtest.h>

#include <string>

#include "tests/zvm/import_sample.h"

namespace zevfit::test {
namespace {

using ImportRefusals = ImportVerb;

struct Refusal {
  std::string bytes;
  Arguments more;
  int code;
  std::string message;
};

void expectRefused(const Ran& run, const Refusal& refusal) {
  EXPECT_EQ(run.err, "zvm: error: " + refusal.message + '\n');
  EXPECT_EQ(run.code, refusal.code) << refusal.message;
  EXPECT_EQ(run.out, "") << refusal.message;
}

TEST_F(ImportRefusals, RefusesListingsWithPlaceAndReason) {
  const std::string good = listing(kSemivariogram, "zinc", "zinc", 1, 2, 40, 60);
  const std::string head = title(kSemivariogram, "zinc", "zinc", 1);
  const Arguments all{"--atol", "90"};
  const std::string kNoTitle =
      "no title of a listing of gamv: it has `tail:`, `head:` and `direction`";
  const Refusal refusals[] = {
      {"", all, 3, "stdin: the file is empty"},
      {"a table\n", all, 3, "stdin:1:1: " + kNoTitle},
      {"tail:a head:a\n", all, 3, "stdin:1:1: " + kNoTitle},
      {good + "Semivariogram tail:a\n", all, 3, "stdin:6:1: " + kNoTitle},
      {title("Covariance", "a", "a", 1), all, 3,
       "stdin:1:1: `covariance` is no semivariogram; only those can be imported"},
      {title("Correlogram", "a", "a", 1), all, 3,
       "stdin:1:1: `correlogram` is no semivariogram; only those can be imported"},
      {title("General Relative Variogram", "a", "a", 1), all, 3,
       "stdin:1:1: `general relative variogram` is no semivariogram; only those can be imported"},
      {title("Semimadogram", "a", "a", 1), all, 3,
       "stdin:1:1: `semimadogram` is no semivariogram; only those can be imported"},
      {title(kSemivariogram, "a", "b", 1), all, 3,
       "stdin:1:1: a pseudo cross-variogram of `a` and `b` can't be imported"},
      {"Semivariogram tail:a head:a direction x\n", all, 3,
       "stdin:1:38: `x` is no number of a direction"},
      {title(kSemivariogram, "a", "a", 0), all, 3, "stdin:1:70: `0` is no number of a direction"},
      {head, all, 3, "stdin:1:1: a listing without lags"},
      {head + line(1, 0, 0, 8) + line(2, 3, 1, 2), all, 3, "stdin:1:1: a listing without lags"},
      {head + line(2, 0, 0, 8), all, 3, "stdin:2:4: `2` where class 1 of the listing is next"},
      {head + "  1 0.0 0.0\n", all, 3,
       "stdin:2:3: the line has 3 fields, that of a listing of gamv eight"},
      {head + "  1 ************ 0.0 8 1 1 1 1\n", all, 3, "stdin:2:5: `************` is no number"},
      {head + "  1 0.0 0,5 8 1 1 1 1\n", all, 3,
       "stdin:2:9: `0,5` has a decimal comma; numbers take a point"},
      {head + "  1 0.0 NaN 8 1 1 1 1\n", all, 3, "stdin:2:9: `NaN` is no number"},
      {head + "  1 0.0 0.5 8.5 1 1 1 1\n", all, 3, "stdin:2:13: `8.5` is no number of pairs"},
      {head + "  1 0.0 0.5 -8 1 1 1 1\n", all, 3, "stdin:2:13: `-8` is no number of pairs"},
      {head + "  1 -1 0.5 8 1 1 1 1\n", all, 3, "stdin:2:5: `-1` is no distance"},
      {good + good, all, 3, "stdin:6:1: a second semivariogram of `zinc` in direction 0;0"},
      {listing(kSemivariogram, "zinc", "zinc", 1, 2, 41, 60), all, 3,
       "stdin:4:38: an odd number of pairs, and gamv counts each pair of all directions twice; "
       "--atol is not that of the listing"},
      {good,
       {"--atol", "90", "--width", "15"},
       3,
       "stdin:5:12: the distance lies outside lag 2; --width and --lag-tolerance are not those of "
       "the listing"},
      {listing(kSemivariogram, "zinc", "zinc", 1, 0, 40, 60), all, 2,
       "--width is missing: only the lag of gamv tells where a class without pairs lies"},
      {good, {"--atol", "90", "--lag-tolerance", "5"}, 2, "--lag-tolerance takes --width"},
      {good,
       {},
       2,
       "--atol is missing: gamv counts each pair twice where it is 90 and more, and the listing "
       "does not tell"},
      {good,
       {"--atol", "22.5"},
       2,
       "--dir is there 0 times, and the listing has 1 direction, of which it tells no angles"},
      {good,
       {"--atol", "90", "--dir", "0;0", "--dir", "9;0"},
       2,
       "--dir is there 2 times, and the listing has 1 direction, of which it tells no angles"},
      {good,
       {"--atol", "90,20", "--dir", "0;0"},
       2,
       "--atol has 2 angles, and the listing 1 direction"},
      {good, {"--atol", "wide"}, 2, "--atol takes a number, not `wide`"},
      {good, {"--atol", "0"}, 2, "--atol takes a number above 0"},
      {good, {"--atol", "90", "--dir", "45"}, 2, "--dir takes \"AZ;DIP\", not `45`"},
      {good, {"--atol", "90", "--width", "0"}, 2, "--width takes a number above 0"},
      {good,
       {"--atol", "90", "--cross-of", "a=b,c"},
       2,
       "--cross-of goes with gstat; the titles of gamv tell its crosses"},
      {good,
       {"--atol", "90", "--name", "zinc=a,b"},
       2,
       "--name zinc=a,b can't stand in a variogram file: it holds a comma"},
      {title(kSemivariogram, "", "", 1) + good.substr(good.find('\n') + 1), all, 3,
       "the name `` can't stand in a variogram file: it is empty; give it another with --name "
       "\"=NAME\""},
      {good, {"--atol", "90", "--name", "zinc"}, 2, "--name takes NAME=NEW, not `zinc`"},
      {good, {"--atol", "90", "--name", "zin=a"}, 3, "no variable `zin` in stdin; there are zinc"},
      {good, {"--atol", "90", "--variance", "1"}, 2, "--variance takes NAME=VALUE, not `1`"},
      {good, {"--atol", "90", "--variance", "zinc=x"}, 2, "--variance takes a number, not `x`"},
      {good, {"--atol", "90", "--variance", "zinc=inf"}, 2, "--variance takes a finite number"},
      {good,
       {"--atol", "90", "--variance", "zin=1"},
       3,
       "no variable `zin` in stdin; there are zinc"},
      {listing(kSemivariogram, "a", "a", 21, 2, 40, 60),
       {"--atol", "90"},
       2,
       "--dir is there 0 times, and the listing has 21 directions, of which it tells no angles"},
  };
  for (const Refusal& refusal : refusals)
    expectRefused(imported("gamv", refusal.bytes, refusal.more), refusal);
}

TEST_F(ImportRefusals, RefusesTablesWithPlaceAndReason) {
  const std::string head = "np,dist,gamma,dir.hor,dir.ver,id\n";
  const std::string two = "8,9,1,0,0,a\n8,9,1,0,0,b\n";
  const Arguments width{"--width", "10"};
  const Refusal refusals[] = {
      {"", width, 3, "stdin: the file is empty"},
      {head, width, 3, "stdin: the table has no rows"},
      {"dx,dy,var1,np.var1\n1,1,1,1\n", width, 3,
       "stdin:1:1: no column `np` in the table; there are dx, dy, var1, np.var1"},
      {"np,dist,gamma,dir.hor,dir.ver,id,left,right\n", width, 3,
       "stdin:1:1: a variogram cloud can't be imported"},
      {head + "8,9,1,0,0,a\n8,9.5,1,0,0,a\n", width, 3,
       "stdin:3:3: a second row of class 1 of `a`; --width is not that of gstat, or it is a "
       "variogram cloud"},
      {head + "8,9,1,0,0\n", width, 3, "stdin:2:1: the row has 5 fields, the table 6 columns"},
      {head + "1,8,9,1,0,0,a\n8,9,1,0,0,a\n", width, 3,
       "stdin:3:1: the row has 6 fields, the table 7 columns"},
      {"np dist gamma dir.hor dir.ver id\n1 8 9 1 0\n", width, 3,
       "stdin:2:1: the row has 5 fields, the table 6 columns"},
      {"np dist gamma dir.hor dir.ver id\n1 8 9,5 1 0 0 \"a\"\n", width, 3,
       "stdin:2:5: `9,5` has a decimal comma; numbers take a point"},
      {"np distance gamma\n1 2 3\n", width, 3,
       "stdin:1:1: no column `dist` in the table; there are np, distance, gamma"},
      {head + "8,9,NA,0,0,a\n", width, 3, "stdin:2:5: `NA` is no number"},
      {head + "8,x,1,0,0,a\n", width, 3, "stdin:2:3: `x` is no number"},
      {"np;dist;gamma;dir.hor;dir.ver;id\n8;9,5;1;0;0;a\n", width, 3,
       "stdin:2:3: `9,5` has a decimal comma; numbers take a point"},
      {head + "8.5,9,1,0,0,a\n", width, 3, "stdin:2:1: `8.5` is no number of pairs"},
      {head + "8,0,1,0,0,a\n", width, 3,
       "stdin:2:3: distance 0, which a covariogram has: it can't be imported"},
      {head + "8,-1,1,0,0,a\n", width, 3, "stdin:2:3: a distance below 0"},
      {head + "8,0,1,0,0,a.b\n" + two, width, 3,
       "stdin:2:3: distance 0, which a pseudo cross variogram has: it can't be imported"},
      {head + "7,9,1,0,0,a.b\n" + two, width, 3,
       "stdin:2:1: an odd number of pairs, and gstat counts each pair of a cross variogram twice; "
       "a pseudo cross variogram, or points on the edge of a direction, can't be imported"},
      {head + "8,9,1,0,0,a.b.c\n" + two + "8,9,1,0,0,b.c\n8,9,1,0,0,a.b\n8,9,1,0,0,c\n", width, 3,
       "stdin:2:11: `a.b.c` may be the cross of a and b.c or of a.b and c; --cross-of "
       "\"a.b.c=A,B\" tells"},
      {head + "8,9,1,0,0,a\n8,19,1,0,0,b\n8,19,1,0,0,a\n", width, 3,
       "stdin:4:12: a second semivariogram of `a` in direction 0;0"},
      {head + "8,9e9,1,0,0,a\n", width, 3,
       "stdin:2:3: the distance lies in class 900000000 of this --width; is it that of gstat?"},
      {head + "\"8,9,1,0,0,a\n", width, 3, "stdin:2:1: a quote that nothing closes"},
      {head + "8,9,1,0,0,\"a,b\"\n", width, 3,
       "the name `a,b` can't stand in a variogram file: it holds a comma; give it another with "
       "--name \"a,b=NAME\""},
      {head + two,
       {"--width", "10", "--name", "a=b"},
       3,
       "two variables are called `b`; --name gives one of them another name"},
      {head + two,
       {"--width", "10", "--cross-of", "c=a,b"},
       3,
       "no id `c` in the table; there are a, b"},
      {head + two,
       {"--width", "10", "--cross-of", "a=b"},
       2,
       "--cross-of takes \"ID=A,B\", not `a=b`"},
      {head + two,
       {},
       2,
       "--width is missing: gstat leaves classes without pairs out, and only their width tells "
       "which"},
      {head + two, {"--width", "-1"}, 2, "--width takes a number above 0"},
      {head + two,
       {"--width", "10", "--atol", "90"},
       2,
       "--atol, --dir and --lag-tolerance go with gamv; a table of gstat tells its directions"},
  };
  for (const Refusal& refusal : refusals)
    expectRefused(imported("gstat", refusal.bytes, refusal.more), refusal);
}

TEST_F(ImportRefusals, RefusesTablesWithoutAnyPairs) {
  EXPECT_EQ(
      imported("gstat", "np,dist,gamma,dir.hor,dir.ver,id\n0,9,1,0,0,a\n", {"--width", "10"}).err,
      "zvm: error: no class has pairs\n");
}

TEST_F(ImportRefusals, RefusesMoreThanAFileHolds) {
  std::string variables = "np,dist,gamma,dir.hor,dir.ver,id\n", directions = variables;
  for (int i = 1; i <= 41; ++i) variables += "8,9,1,0,0,v" + std::to_string(i) + '\n';
  for (int i = 1; i <= 21; ++i) directions += "8,9,1," + std::to_string(i) + ",0,a\n";
  EXPECT_EQ(imported("gstat", variables, {"--width", "10"}).err,
            "zvm: error: 41 variables, and a variogram file holds 40\n");
  EXPECT_EQ(imported("gstat", directions, {"--width", "10"}).err,
            "zvm: error: 21 directions, and a variogram file holds 20\n");
}

TEST_F(ImportRefusals, RefusesWrongUse) {
  const std::string table = write("v.csv", kTable), there = write("there.zvm", "");
  const Refusal refusals[] = {
      {"", {"import", "gamw", table, path("a.zvm")}, 2, "no system `gamw`; there are gamv, gstat"},
      {"",
       {"import", "gstat", table, "--width", "10"},
       2,
       "import takes a system, its files and the file to write"},
      {"",
       {"import", "gstat", table, there, "--width", "10"},
       4,
       there + " exists; --overwrite replaces it"},
      {"",
       {"import", "gstat", table, "-", "--width", "10", "--json"},
       2,
       "--json reports on a file: it takes another OUT than stdout"},
      {"",
       {"import", "gstat", path("none.csv"), path("a.zvm"), "--width", "10"},
       4,
       "cannot read " + path("none.csv") + ": No such file or directory"},
  };
  for (const Refusal& refusal : refusals) expectRefused(ran(refusal.more), refusal);
  expectRefused(ran({"import", "gstat", table, "-", "--width", "10", "--title", "a,b"}),
                {"", {}, 2, "--title can't stand in a variogram file: it holds a comma"});
  EXPECT_EQ(ran({"import", "gstat", table, there, "--width", "10", "-q", "--overwrite"}).code, 0);
}

}  // namespace
}  // namespace zevfit::test
