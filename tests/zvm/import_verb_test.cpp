// The verb import: listings of gamv and tables of gstat as variogram files.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tests/zvm/import_sample.h"

namespace zevfit::test {
namespace {

using Json = nlohmann::json;

TEST_F(ImportVerb, HalvesThePairsOfAllDirections) {
  const Ran run = imported("gamv", listing(kSemivariogram, "zinc", "zinc", 1, 2, 40, 60),
                           {"--atol", "90", "--variance", "zinc=0.75"});
  EXPECT_EQ(run.code, 0) << run.err;
  // The class of distance 0 is gone, the near pairs stay.
  EXPECT_EQ(run.out,
            "t\r\nzevlag\r\n 1 \r\nzinc\r\n 1 \r\n 3 \r\n0;0\r\n 0.75 \r\n"
            " 3.5           0.25          1 \r\n"
            " 10.125        0.5           20 \r\n"
            " 19.75         1.5           30 \r\n");
  EXPECT_EQ(ran({"check", "-q", "-"}, run.out).code, 0);
}

TEST_F(ImportVerb, TakesThePairsOfADirectionAsTheyAre) {
  const Ran run = imported("gamv",
                           listing(kSemivariogram, "zinc", "zinc", 1, 2, 40, 61) +
                               listing(kSemivariogram, "zinc", "zinc", 2, 0, 11, 0),
                           {"--atol", "22.5", "--dir", "0;0", "--dir", "45;-30", "--width", "10",
                            "--variance", "zinc=0.75"});
  EXPECT_EQ(run.code, 0) << run.err;
  // Near pairs lie up to half of the lag; lag 2 is at 20.
  EXPECT_EQ(run.out,
            "t\r\nzevlag\r\n 1 \r\nzinc\r\n 2 \r\n 3 \r\n0;0\r\n45;-30\r\n 0.75 \r\n"
            " 3.5           0.25          2 \r\n"
            " 10.125        0.5           40 \r\n"
            " 19.75         1.5           61 \r\n"
            " 2.5           0             0 \r\n"
            " 10.125        0.5           11 \r\n"
            " 20            0             0 \r\n");
}

TEST_F(ImportVerb, TellsDirectionsApartByTheirTolerances) {
  const std::string both = listing(kSemivariogram, "zinc", "zinc", 1, 2, 40, 60) +
                           listing(kSemivariogram, "zinc", "zinc", 2, 2, 21, 1);
  const Ran run = imported(
      "gamv", both, {"--atol", "90,22.5", "--dir", "0;0", "--dir", "90;0", "--variance", "1=1"});
  EXPECT_NE(run.out.find(" 10.125        0.5           20 \r\n"), std::string::npos) << run.err;
  EXPECT_NE(run.out.find(" 10.125        0.5           21 \r\n"), std::string::npos);
}

TEST_F(ImportVerb, TakesCrossesOfGamvUnderBothNames) {
  const std::string all = listing(kCross, "zinc", "lead", 1, 2, 41, 61) +
                          listing(kSemivariogram, "zinc", "zinc", 1, 2, 40, 60) +
                          listing(kSemivariogram, "lead", "lead", 1, 2, 40, 60);
  const Ran run = imported("gamv", all,
                           {"--atol", "90", "--name", "lead=Pb", "--variance", "zinc=1",
                            "--variance", "Pb=2", "--variance", "zinc-Pb=-0.5"});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_TRUE(run.out.starts_with("t\r\nzevlag\r\n 3 \r\nzinc\r\nPb\r\nzinc-Pb\r\n")) << run.out;
  // gamv counts a pair of a cross once, whatever the tolerance.
  EXPECT_NE(run.out.find("\r\n-0.5 \r\n 3.5           0.25          2 \r\n"), std::string::npos);
  EXPECT_NE(run.out.find("           41 \r\n"), std::string::npos);
}

TEST_F(ImportVerb, JoinsFilesAndSaysWhatIsMissing) {
  const std::string first = write("a.out", listing(kSemivariogram, "a", "a", 1, 2, 40, 60) +
                                               listing(kSemivariogram, "a", "a", 2, 2, 40, 60));
  const std::string second = write("b.out", listing(kSemivariogram, "b", "b", 1, 2, 40, 60));
  const Ran run =
      ran({"import", "gamv", first, second, path("ab.zvm"), "--atol", "30", "--dir", "0;0", "--dir",
           "90;0", "--width", "10", "--variance", "a=1", "--variance", "b=2"});
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.err,
            "zvm: warning: no semivariogram of `b` in direction 90;0; its classes are without "
            "pairs\n");
  EXPECT_EQ(run.out,
            "title       Semivariograms of a.out\n"
            "variables   2\n"
            "directions  2\n"
            "classes     3\n"
            "\n"
            "variable  variance\n"
            "a         1\n"
            "b         2\n"
            "\n"
            "direction  variable  classes with fewer than 30 pairs\n"
            "0;0        a         1\n"
            "0;0        b         1\n"
            "90;0       a         1\n"
            "90;0       b         1 2 3\n");
}

TEST_F(ImportVerb, TakesTheMeanSemivarianceForAVariance) {
  const Ran run =
      imported("gamv", listing(kSemivariogram, "zinc", "zinc", 1, 2, 40, 60), {"--atol", "90"});
  // (1 * 0.25 + 20 * 0.5 + 30 * 1.5) / 51.
  EXPECT_NE(run.out.find("0;0\r\n 1.08333333333333 \r\n"), std::string::npos) << run.out;
  EXPECT_NE(
      run.err.find("zvm: warning: the variance of `zinc` is taken as 1.08333333333333, the "
                   "mean of its semivariances by pairs; --variance \"zinc=VALUE\" tells it\n"),
      std::string::npos)
      << run.err;
}

// ---- gstat

TEST_F(ImportVerb, PutsRowsOfGstatIntoTheirClasses) {
  const Ran run = imported("gstat", kTable,
                           {"--width", "10", "-q", "--variance", "zinc-lead=3", "--variance",
                            "zinc=1", "--variance", "lead=2"});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.out,
            "t\r\nzevlag\r\n 3 \r\nlead\r\nzinc\r\nzinc-lead\r\n 1 \r\n 4 \r\n0;0\r\n"
            " 2 \r\n 9.5           1             4 \r\n 15            0             0 \r\n"
            " 25            0             0 \r\n 31            2             6 \r\n"
            " 1 \r\n 9.5           1.5           4 \r\n 15            0             0 \r\n"
            " 25            0             0 \r\n 31            2.5           6 \r\n"
            " 3 \r\n 9.5          -0.25          4 \r\n 15            0             0 \r\n"
            " 25            0             0 \r\n 31            0.5           6 \r\n");
}

TEST_F(ImportVerb, TakesTablesOfRWithOtherSeparators) {
  const std::string wanted =
      "t\r\nzevlag\r\n 1 \r\nlog zinc\r\n 1 \r\n 2 \r\n0;0\r\n 1 \r\n"
      " 9.5           1.5           4 \r\n 19            2             6 \r\n";
  const char* const tables[] = {
      // write.csv without and with names of rows, and write.csv2 of numbers without decimals.
      "np,dist,gamma,dir.hor,dir.ver,id\n4,9.5,1.5,0,0,log zinc\n6,19,2,0,0,log zinc\n",
      "\"\",\"np\",\"dist\",\"gamma\",\"dir.hor\",\"dir.ver\",\"id\"\n"
      "\"1\",4,9.5,1.5,0,0,\"log zinc\"\n\"2\",6,19,2,0,0,\"log zinc\"\n",
      "np;dist;gamma;dir.hor;dir.ver;id\r\n4;9.5;1.5;0;0;log zinc\r\n6;19;2;0;0;log zinc\r\n",
      // write.table: names of rows have no heading, and blanks part fields.
      "\"np\" \"dist\" \"gamma\" \"dir.hor\" \"dir.ver\" \"id\"\n"
      "\"1\" 4 9.5 1.5 0 0 \"log zinc\"\n\"2\" 6 19 2 0 0 \"log zinc\"\n",
      "\"np\" \"dist\" \"gamma\" \"dir.hor\" \"dir.ver\" \"id\"\n"
      "4 9.5 1.5 0 0 \"log zinc\"\n6 19 2 0 0 \"log zinc\"\n",
      "np\tdist\tgamma\tdir.hor\tdir.ver\tid\n1\t4\t9.5\t1.5\t0\t0\tlog zinc\n"
      "2\t6\t19\t2\t0\t0\tlog zinc\n",
      // As it is printed.
      "  np dist gamma dir.hor dir.ver         id\n1  4  9.5   1.5       0       0 \"log zinc\"\n"
      "2  6 19.0   2.0       0       0 \"log zinc\"\n",
  };
  for (const char* table : tables) {
    const Ran run = imported("gstat", table, {"--width", "10", "--variance", "1=1"});
    EXPECT_EQ(run.out, wanted) << table << run.err;
  }
}

TEST_F(ImportVerb, NamesDirectionsOfGstatWithDipsDownward) {
  const std::string head = "np,dist,gamma,dir.hor,dir.ver,id\n";
  const struct {
    const char* angles;
    const char* name;
  } rows[] = {{"22.5,0", "22.5;0"}, {"45,30", "45;-30"},   {"45,330", "45;30"},  {"0,90", "0;-90"},
              {"0,270", "0;90"},    {"30,150", "210;-30"}, {"200,210", "20;30"}, {"360,0", "0;0"}};
  for (const auto& row : rows) {
    const Ran run =
        imported("gstat", head + "40,9,1," + row.angles + ",a\n", {"--width", "10", "-q"});
    EXPECT_EQ(run.out.substr(0, run.out.find("\r\n 1 \r\n 9 ")),
              std::string("t\r\nzevlag\r\n 1 \r\na\r\n 1 \r\n 1 \r\n") + row.name)
        << run.err;
  }
}

TEST_F(ImportVerb, RoundsPairsOfCrossesInDippingDirections) {
  // gstat takes a pair of a cross in both senses, and a dipping direction may take one of them.
  const Ran run = imported("gstat",
                           "np,dist,gamma,dir.hor,dir.ver,id\n41,9,1,0,30,a.b\n"
                           "20,9,1,0,30,a\n20,9,1,0,30,b\n",
                           {"--width", "10", "-q"});
  EXPECT_NE(run.out.find(" 9             1             21 \r\n"), std::string::npos) << run.err;
}

TEST_F(ImportVerb, PutsAClassOnAnEdgeWhereThereIsRoom) {
  // Means of which all pairs lie on an edge: below it, or above where the class below is taken.
  const Ran run = imported("gstat",
                           "np,dist,gamma,dir.hor,dir.ver,id\n8,0.1,1,0,0,a\n8,0.25,2,0,0,a\n"
                           "6,0.3,3,0,0,a\n11,0.4,4,0,0,a\n",
                           {"--width", "0.1", "-q"});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_NE(run.out.find(" 0.1           1             8 \r\n 0.15          0 "), std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find(" 0.3           3             6 \r\n 0.4 "), std::string::npos) << run.out;
}

TEST_F(ImportVerb, DoubtsIdsThatLookLikeCrosses) {
  const std::string alone = "np,dist,gamma,dir.hor,dir.ver,id\n40,9,1,0,0,log.zinc\n";
  const Ran doubted = imported("gstat", alone, {"--width", "10", "--variance", "1=1"});
  EXPECT_NE(doubted.err.find("zvm: warning: `log.zinc` is taken for a variable by itself; "
                             "--cross-of \"log.zinc=A,B\" makes it a cross\n"),
            std::string::npos)
      << doubted.err;
  const Ran told =
      imported("gstat", alone, {"--width", "10", "-q", "--cross-of", "log.zinc=log,zinc"});
  EXPECT_NE(told.out.find("log-zinc\r\n"), std::string::npos);
  EXPECT_NE(told.out.find("             20 \r\n"), std::string::npos);
}

TEST_F(ImportVerb, TellsAllAsJson) {
  const std::string table = write("v.csv", kTable);
  const Ran run = ran({"import", "gstat", table, path("v.zvm"), "--width", "10", "--json", "-q",
                       "--variance", "zinc=0.1"});
  EXPECT_EQ(run.code, 0) << run.err;
  const Json report = Json::parse(run.out);
  EXPECT_EQ(report.at("schema"), "zvm.import/1");
  EXPECT_EQ(report.at("system"), "gstat");
  EXPECT_EQ(report.at("files"), Json({table}));
  EXPECT_EQ(report.at("classes"), 4);
  EXPECT_EQ(report.at("directions"), Json({"0;0"}));
  EXPECT_EQ(report.at("variables").at(1),
            Json({{"name", "zinc"}, {"cross", false}, {"variance", 0.1}, {"varianceTold", true}}));
  EXPECT_EQ(report.at("variables").at(2).at("cross"), true);
  EXPECT_EQ(report.at("semivariograms").at(2).at("classes").at(0),
            Json({{"distance", 9.5}, {"semivariance", -0.25}, {"pairs", 4}}));
  EXPECT_EQ(report.at("warnings").size(), 2U);
  EXPECT_TRUE(contentOf(path("v.zvm")).starts_with("Semivariograms of v.csv\r\n"));
}

}  // namespace
}  // namespace zevfit::test
