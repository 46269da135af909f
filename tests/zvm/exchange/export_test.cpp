// The texts of the targets for an example whose numbers are worked out by hand.

#include "zvm/exchange/export.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/zvm/exchange/exchange_sample.h"

namespace zevfit::exchange {
namespace {

TEST(Targets, AreFoundByTheirNames) {
  for (const TargetRow& row : kTargets) EXPECT_EQ(targetOf(row.name), row.target);
  EXPECT_EQ(targetOf("GSTAT"), std::nullopt);
  EXPECT_EQ(targetOf(""), std::nullopt);
}

TEST(Targets, StandInTheOrderOfTheirEnum) {
  for (std::size_t at = 0; at < kTargets.size(); ++at)
    EXPECT_EQ(static_cast<std::size_t>(kTargets.at(at).target), at);
}

TEST(Gstat, HasParametersAndRatios) {
  EXPECT_EQ(codeOf(exported(exampleFile(), Target::gstat)),
            "library(gstat)\n"
            "m <- vgm(0.5, \"Sph\", 1000, nugget = 0.1, anis = c(45, 0.4))\n"
            "m <- vgm(0.3, \"Exp\", 250.5/3, add.to = m)\n");
}

TEST(Gstat, TurnsAStructureWhoseLargestRangeIsNotMains) {
  Session session = emptyFile({"v"}, {"45;0", "135;0"});
  setStructure(session, {1, 1}, Line::first, "G", 2, 300);
  setStructure(session, {1, 2}, Line::first, "G", 2, 600);
  EXPECT_EQ(codeOf(exported(session, Target::gstat)),
            "library(gstat)\nm <- vgm(2, \"Gau\", 600/sqrt(3), anis = c(135, 0.5))\n");
}

TEST(Gstat, HasANuggetAloneAndAPowerWithoutASill) {
  Session session = emptyFile({"v"}, {"0;0", "90;0"});
  for (const std::int64_t direction : {1, 2}) setNugget(session, {1, direction}, 0.25);
  EXPECT_EQ(codeOf(exported(session, Target::gstat)),
            "library(gstat)\nm <- vgm(0.25, \"Nug\", 0)\n");
  for (const std::int64_t direction : {1, 2})
    setStructure(session, {1, direction}, Line::first, "P", 7, 1.5);
  EXPECT_EQ(codeOf(exported(session, Target::gstat)),
            "library(gstat)\nm <- vgm(1, \"Pow\", 1.5, nugget = 0.25)\n");
}

// Dip 30 downward is 330 upward; ratios 0.4 and 0.1.
TEST(Gstat, HasThreeAnglesInSpace) {
  Session session = emptyFile({"v"}, {"40;30", "130;0", "40;-60"});
  const double ranges[] = {100, 40, 10};
  for (const std::int64_t direction : {1, 2, 3})
    setStructure(session, {1, direction}, Line::first, "S", 1, ranges[direction - 1]);
  Request request = requestFor(Target::gstat);
  request.minor2 = 3;
  EXPECT_EQ(codeOf(exportModel(session, request).text),
            "library(gstat)\nm <- vgm(1, \"Sph\", 100, anis = c(40, 330, 0, 0.4, 0.1))\n");
}

TEST(Gslib, HasTwoLinesAStructure) {
  const std::string angles =
      "-it,cc,ang1,ang2,ang3: azimuth clockwise from north, dip negative downward, rotation\n";
  EXPECT_EQ(exported(exampleFile(), Target::gslib),
            "2 0.1                       -nst, nugget effect: ln zinc\n"
            "1 0.5 45 0 0                " +
                angles +
                "  1000 400 400              -a_hmax,a_hmin,a_vert: spherical\n"
                "2 0.3 45 0 0                " +
                angles + "  250.5 250.5 250.5         -a_hmax,a_hmin,a_vert: exp(-3h/a)\n");
}

// exp(-9 (h/b)^2) is exp(-3 (h/a)^2) for b = a sqrt(3).
TEST(Gslib, WidensTheGaussianWhereAskedFor) {
  Session session = emptyFile({"v"}, {"0;0"});
  setStructure(session, {1, 1}, Line::first, "G", 1, 1);
  Request request = requestFor(Target::gslib);
  request.main = request.minor1 = std::nullopt;
  EXPECT_NE(exportModel(session, request).text.find("  1 1 1  "), std::string::npos);
  request.gslibGaussian9 = true;
  const std::string text = exportModel(session, request).text;
  EXPECT_NE(text.find("  1.7320508075688772 1.7320508075688772 1.7320508075688772  "),
            std::string::npos);
  EXPECT_NE(text.find("exp(-(3h/a)^2)"), std::string::npos);
}

TEST(Gslib, HasAStructureWithoutSillForANuggetAlone) {
  Session session = emptyFile({"v"}, {"0;0", "90;0"});
  for (const std::int64_t direction : {1, 2}) setNugget(session, {1, direction}, 2);
  const std::string text = exported(session, Target::gslib);
  EXPECT_TRUE(text.starts_with("1 2 ")) << text;
  EXPECT_NE(text.find("\n1 0 0 0 0 "), std::string::npos) << text;
}

TEST(Gslib, WarnsOfThePowerConstant) {
  Session session = emptyFile({"v"}, {"0;0", "90;0"});
  for (const std::int64_t direction : {1, 2})
    setStructure(session, {1, direction}, Line::first, "P", 1, 1.5);
  EXPECT_EQ(exportModel(session, requestFor(Target::gslib)).warnings,
            Warnings{"GSLIB kriges with PMX - h^a: its constant PMX must stay above h^a"});
}

TEST(Sgems, IsAnElement) {
  const std::string text = exported(exampleFile(), Target::sgems);
  EXPECT_EQ(text.substr(text.find("<Variogram")),
            "<Variogram nugget=\"0.1\" structures_count=\"2\">\n"
            "<structure_1 contribution=\"0.5\" type=\"Spherical\">\n"
            "  <ranges max=\"1000\" medium=\"400\" min=\"400\"/>\n"
            "  <angles x=\"45\" y=\"0\" z=\"0\"/>\n</structure_1>\n"
            "<structure_2 contribution=\"0.3\" type=\"Exponential\">\n"
            "  <ranges max=\"250.5\" medium=\"250.5\" min=\"250.5\"/>\n"
            "  <angles x=\"45\" y=\"0\" z=\"0\"/>\n</structure_2>\n</Variogram>\n");
}

TEST(Gstools, HasOneAnisotropy) {
  EXPECT_EQ(codeOf(exported(exampleFile(250.5, 100.2), Target::gstools)),
            "import gstools as gs\nimport numpy as np\n"
            "k = dict(dim=2, angles=np.deg2rad(45), anis=0.4)\n"
            "m = gs.Nugget(nugget=0.1, **k) \\\n"
            "  + gs.Spherical(var=0.5, len_scale=1000, **k) \\\n"
            "  + gs.Exponential(var=0.3, len_scale=250.5, rescale=3, **k)\n");
  EXPECT_EQ(refusalOf(exampleFile(), requestFor(Target::gstools)),
            "GSTools has one anisotropy for all structures of a model, and these differ");
}

TEST(Pykrige, HasAFunctionOfItsOwn) {
  EXPECT_EQ(codeOf(exported(exampleFile(250.5, 100.2), Target::pykrige)),
            "import numpy as np\n"
            "from pykrige.ok import OrdinaryKriging\n"
            "def semivariance(p, h):\n"
            "    return (\n"
            "        p[0] + 0 * h\n"
            "        + p[1] * np.where(h < p[2], 1.5 * h / p[2] - 0.5 * (h / p[2])**3, 1)\n"
            "        + p[3] * (1 - np.exp(-3 * h / p[4]))\n"
            "    )\n"
            "def kriging(x, y, z, **options):\n"
            "    return OrdinaryKriging(\n"
            "        x, y, z, variogram_model=\"custom\", variogram_function=semivariance,\n"
            "        variogram_parameters=[0.1, 0.5, 1000, 0.3, 250.5],\n"
            "        anisotropy_angle=45, anisotropy_scaling=2.5, **options)\n");
  EXPECT_EQ(refusalOf(exampleFile(), requestFor(Target::pykrige)),
            "PyKrige has one anisotropy for all structures of a model, and these differ");
}

TEST(Gstlearn, HasParametersOfTheForms) {
  EXPECT_EQ(codeOf(exported(exampleFile(), Target::gstlearn)),
            "import gstlearn as gl\nimport numpy as np\n"
            "m = gl.Model.createFromParam(gl.ECov.NUGGET, sill=0.1, space=gl.SpaceRN.create(2))\n"
            "m.addCovFromParam(gl.ECov.SPHERICAL, sill=0.5, ranges=[1000, 400], angles=[45, 0], "
            "flagRange=False)\n"
            "m.addCovFromParam(gl.ECov.EXPONENTIAL, sill=0.3, ranges=[250.5/3, 250.5/3], "
            "flagRange=False)\n");
}

TEST(Gstlearn, TakesExponentsUpToItsLimit) {
  Session session = emptyFile({"v"}, {"0;0"});
  setStructure(session, {1, 1}, Line::first, "P", 1, 1.99);
  Request request = requestFor(Target::gstlearn);
  request.minor1.reset();
  EXPECT_NE(exportModel(session, request).text.find("range=1, param=1.99,"), std::string::npos);
  session.a1({1, 1}) = 1.995;
  EXPECT_EQ(refusalOf(session, request), "gstlearn takes exponents up to 1.99, not 1.995");
}

TEST(JsonOf, TellsTheModelAndItsConventions) {
  const auto json = nlohmann::json::parse(exported(exampleFile(), Target::json));
  EXPECT_EQ(json["schema"], "zvm.model/1");
  EXPECT_EQ(json["dimensions"], 2);
  EXPECT_EQ(json["conventions"]["azimuth"], "degrees, clockwise from north");
  EXPECT_EQ(json["axes"]["minor1"]["direction"], "135;0");
  EXPECT_EQ(json["axes"]["minor1"]["named"], nlohmann::json({{"azimuth", 135}, {"dip", 0}}));
  const auto& model = json["models"][0];
  EXPECT_EQ(model["variable"], "ln zinc");
  EXPECT_EQ(model["variance"], 1);
  EXPECT_EQ(model["nugget"], 0.1);
  EXPECT_EQ(model["structures"][1], nlohmann::json({{"line", 2},
                                                    {"form", "exponential"},
                                                    {"letter", "E"},
                                                    {"formula", "C (1 - exp(-3 h/a))"},
                                                    {"sill", 0.3},
                                                    {"range",
                                                     {{"convention", "practical, exp(-3h/a)"},
                                                      {"main", 250.5},
                                                      {"minor1", 250.5},
                                                      {"minor2", 250.5}}}}));
}

// At 500 along 45: 0.1 + 0.5 (0.75 - 0.0625) + 0.3 (1 - exp(-1500/250.5)).
TEST(Csv, HasPointsAndModelSideBySide) {
  Session session = exampleFile();
  session.varname(1) = "zinc, \"log\" \xe9";
  session.use0({1, 2}) = session.use1({1, 2}) = session.use2({1, 2}) = 0;
  session.nclass = 2;
  session.hlag.create(2);
  session.gam.create(2);
  session.npairs.create(2);
  session.hlag.set({1, 1}, 1, Cell(500));
  session.gam.set({1, 1}, 1, 0.625);
  session.npairs.set({1, 1}, 1, 12);
  session.gam.set({1, 1}, 2, 0);
  session.hlag.set({1, 2}, 1, Cell(0));
  Request request = requestFor(Target::csv);
  request.main = request.minor1 = std::nullopt;
  EXPECT_EQ(exportModel(session, request).text,
            "variable,direction,azimuth,dip,class,pairs,distance,semivariance,model\n"
            "\"zinc, \"\"log\"\" \xc3\xa9\",45;0,45,0,1,12,500,0.625,0.7429974151095101\n"
            "\"zinc, \"\"log\"\" \xc3\xa9\",45;0,45,0,2,0,0,0,0\n"
            "\"zinc, \"\"log\"\" \xc3\xa9\",135;0,135,0,1,0,0,0,\n");
}

}  // namespace
}  // namespace zevfit::exchange
