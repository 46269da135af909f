// Fonts, patterns and colours of the graphs, without their windows.
#include "model/graph_format.h"

#include <gtest/gtest.h>

#include "session/numbers.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

using Boxes = std::vector<std::string>;

class GraphFormat : public testing::Test, protected FitFixture {
 protected:
  FormatSamples& samples() { return session.style.Formfont; }
  std::string fontText(std::size_t row) {
    const FontSample& font = samples().Label2.at(row);
    return font.caption + "|" + font.fontname + "|" + generalText(font.fontsize) + "|" +
           samples().Label3.at(row).caption;
  }
};

struct FontRow {
  std::size_t row;
  float legal, illegal;
  const char* message;
};

const FontRow kFonts[] = {
    {0, 16, 16.5F, "plain: Illegal value for Fontsize: max. value = 16!"},
    {1, 10, 10.5F, "plain: Illegal value for Fontsize: max. value = 10!"},
    {2, 9, 9.5F, "plain: Illegal value for Fontsize: max. value = 9!"},
};

TEST_F(GraphFormat, AFontBeyondTheLimitOpensTheDialogAgain) {
  for (const FontRow& row : kFonts) {
    dialogs.shown.clear();
    const std::string start =
        "font: Times New Roman " + generalText(samples().Label2[row.row].fontsize);
    dialogs.fonts = {{"Arial", row.illegal}, {"Courier", row.legal}};
    EXPECT_TRUE(chooseFont(fit.session.style.Formfont, row.row, dialogs, dialogs));
    EXPECT_EQ(dialogs.shown,
              (Boxes{start, row.message, "font: Arial " + generalText(row.illegal)}));
    EXPECT_EQ(fontText(row.row),
              "Courier|Courier|" + generalText(row.legal) + "|" + generalText(row.legal));
  }
  EXPECT_EQ(samples().Label3[0].fontsize, 10) << "its own type is not touched";
}

TEST_F(GraphFormat, AFontWithoutANameOpensTheDialogAgain) {
  dialogs.fonts = {{"", 8}};
  EXPECT_FALSE(chooseFont(fit.session.style.Formfont, 0, dialogs, dialogs)) << "then cancelled";
  EXPECT_EQ(dialogs.shown,
            (Boxes{"font: Times New Roman 10", "plain: Please select the Font!", "font:  8"}));
  EXPECT_EQ(fontText(0), "Times New Roman|Times New Roman|10|10");
}

TEST_F(GraphFormat, CancelOfTheFontDialogChangesNothing) {
  EXPECT_FALSE(chooseFont(fit.session.style.Formfont, 1, dialogs, dialogs));
  EXPECT_EQ(fontText(1), "Times New Roman|Times New Roman|7.8|7.8");
}

struct PatternRow {
  const char* first;
  const char* second;
  const char* fault;
};

const PatternRow kPatterns[] = {
    {"###0.#0 ", "###.#0", ""},
    {"", "", ""},
    {"# 0 . 0", "   ", ""},
    {"###.#.#", "#", "Illegal format string: Two . detected!"},
    {"..", "#", "Illegal format string: Two . detected!"},
    {"##a", "#", "Illegal format symbol - a"},
    {"#", "0,0", "Illegal format symbol - ,"},
    {"#.a.", "#", "Illegal format symbol - a"},
    {"#..a", "#", "Illegal format string: Two . detected!"},
    {"#x", "#..", "Illegal format symbol - x"},
    {"#.#", "#.#", ""},
    {"\xe9", "#", "Illegal format symbol - \xe9"},
    {"-#", "#", "Illegal format symbol - -"},
};

TEST_F(GraphFormat, TheFirstFaultOfTheFirstPatternIsTold) {
  for (const PatternRow& row : kPatterns)
    EXPECT_EQ(patternFault({row.first, row.second}).value_or(""), row.fault)
        << row.first << " and " << row.second;
}

TEST_F(GraphFormat, DefaultsHavePatternsOfTheirOwn) {
  samples().formato = {"#0.#0 ", "####.#0"};
  for (std::size_t row = 0; row < 3; ++row) {
    samples().Label2[row] = {"A", "B", 3};
    samples().Label3[row] = {"3", "C", 3};
  }
  session.style.cores = {1, 2, 3, 4, 5};
  session.axiscolor = 6;
  setDefaultFormat(session);
  EXPECT_EQ(fontText(0), "Times New Roman|Times New Roman|10|10");
  EXPECT_EQ(fontText(1), "Times New Roman|Times New Roman|7.8|7.8");
  EXPECT_EQ(fontText(2), "Times New Roman|Times New Roman|7.8|7.8");
  EXPECT_EQ(samples().Label3[0].fontsize, 10.0F);
  EXPECT_EQ(samples().Label3[1].fontsize, 7.8F);
  EXPECT_EQ(samples().Label3[2].fontsize, 7.8F);
  EXPECT_EQ(samples().formato[0], "###0.#0 ");
  EXPECT_EQ(samples().formato[1], "###.#0");
  const int defaults[] = {0, 32768, 16711680, 255, 16777215};
  for (std::size_t option = 1; option <= 5; ++option)
    EXPECT_EQ(swatch(session.style.cores, option), defaults[option - 1]) << option;
  EXPECT_EQ(session.axiscolor, 0);
}

TEST_F(GraphFormat, WhatIsKeptComesBack) {
  samples().Label2[0] = {"Arial", "Arial", 12};
  samples().Label3[0] = {"12", "Times New Roman", 12};
  samples().formato = {"#.#", "0.0 "};
  session.style.cores = {1, 2, 3, 4, 5};
  session.axiscolor = 6;
  keepFormat(session);
  setDefaultFormat(session);
  restoreFormat(session);
  EXPECT_EQ(fontText(0), "Arial|Arial|12|12");
  EXPECT_EQ(fontText(1), "Times New Roman|Times New Roman|7.8|7.8");
  EXPECT_EQ(samples().formato[0], "#.#");
  EXPECT_EQ(samples().formato[1], "0.0 ");
  for (std::size_t option = 1; option <= 5; ++option)
    EXPECT_EQ(swatch(session.style.cores, option), static_cast<Colour>(option));
  EXPECT_EQ(session.axiscolor, 6);
}

TEST_F(GraphFormat, ACancelledColourIsTheOneThatTheDialogHeld) {
  Colour held = kBlack;
  chooseColour(fit.session.style.cores, 4, dialogs, held);
  EXPECT_EQ(session.style.cores.Label4, kBlack) << "black the first time";
  dialogs.colours = {0x102030};
  chooseColour(fit.session.style.cores, 2, dialogs, held);
  EXPECT_EQ(session.style.cores.Label2, 0x102030);
  chooseColour(fit.session.style.cores, 4, dialogs, held);
  EXPECT_EQ(session.style.cores.Label4, 0x102030);
  EXPECT_EQ(dialogs.shown, (Boxes{"colour: 0", "colour: 0", "colour: 1056816"}))
      << "not primed with the swatch";
}

}  // namespace
}  // namespace zevfit
