#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "session/cell.h"
#include "session/style.h"
#include "session/tables.h"

namespace zevfit {

/// All state of a fit session: flat tables that every window reads and writes, owned by the main
/// window. Tables of two subscripts are (variable, direction), lag tables (variable, direction,
/// class), both from 1. Distances, semivariances, sills and ranges are in the units of the file.
struct Session {
  /// Nothing loaded; the axis legends of variables 1 to 100 and directions 1 to 40 are "h( )".
  Session();

  GraphStyle style;
  Colour axiscolor = kBlack;  ///< the dotted grid of the plot
  FormatBackup backup;        ///< of style and grid, from the opening of the format window

  std::string inputfile;      ///< full path of the loaded file; empty: saving refuses
  std::string filetag;        ///< second header token, as last read
  bool loaded = false;        ///< a file was read; stays so after a later file was found bad
  int hasmodel = 0;           ///< the tag says that a model block follows
  int modelshown = 0;         ///< the first drawing after a load with models has taken place
  std::int64_t nvar = 0;      ///< variables, derived ones included
  std::int64_t nvarfile = 0;  ///< variables that the file held; these can't be removed
  std::int64_t ndir = 0;
  std::int64_t nclass = 0;  ///< lag classes of every direction of every variable

  Table<std::string, kVariableSlots> varname;
  Table<std::string, kDirectionSlots> dirname;  ///< carries azimuth and dip as its outer words
  Table<Cell, kVariableSlots> variance;
  Table<int, kVariableSlots> addflag;  ///< ticked for addition

  std::int64_t curvar = 0, curdir = 0;    ///< pair under work; below 1: no plot is current
  std::int64_t selvar = 0, seldir = 0;    ///< last choice in the lists of the main window
  std::int64_t plotvar = 0, plotdir = 0;  ///< pair of the last drawing
  std::int64_t datavar = 0;               ///< variable shown in the data structure window

  std::array<int, 4> sel{};            ///< sel0 to sel3: the line that sliders and fields address
  int plot3state = 0, plot4state = 0;  ///< flip at each click of the boxes of structures 2 and 3
  double c0scale = 0, ascale = 0;      ///< maxima of the two sliders
  double c0step = 0, astep = 0;        ///< large changes of the two sliders
  std::array<int, 5> dragsel{};        ///< handles 0 to 3 that are held
  int dragging = 0;                    ///< some handle is held

  PairTable<std::string, 102, 42> xlegend;  ///< legend of the distance axis
  std::string xformat, yformat;             ///< number patterns of the axes, set at each drawing

  /// The model curve as last sampled, slots 1 to 100; slot 0 is never written.
  Table<double, 101> curveh, curvegam;
  /// Scratch of the model curve: nugget and structures 1 to 3; keeps its content between samplings.
  std::array<Table<double, 101>, 4> curverow;

  LagTable<Cell> hlag;
  LagTable<double> gam;
  LagTable<float> npairs;

  PairTable<Cell> use0, use1, use2;  ///< the line is part of the model
  PairTable<std::int16_t> use3;      ///< narrower than its three siblings, as files show
  PairTable<Cell> c0, c1, c2, c3;    ///< nugget and sill contributions
  PairTable<Cell> a1, a2, a3;        ///< ranges
  PairTable<std::string> model0;     ///< reset at each load and never read
  PairTable<std::string> model1, model2, model3;  ///< "S", "E", "G", "P", or "-" for none
  PairTable<double> ctotal;                       ///< total sill of the ticked lines

  PairTable<double> hmax, gmax, gmin;  ///< extremes of the data
  PairTable<double> ymax, ymin;        ///< semivariance axis
  PairTable<double> ymax0, ymin0;      ///< the same after load
  PairTable<double> xmax;              ///< right end of the distance axis; 0: not set yet
  PairTable<std::int16_t> showsill;    ///< the sample variance is drawn as a line
  PairTable<int> atyped, c0typed;      ///< the field, not the slider, drives the value

  /// The direction block of the results window that a click on a row fills: 0 none, 1 main,
  /// 2 minor 1, 3 minor 2.
  int targetdir = 0;

  /// List positions last chosen in the coregionalization test.
  int testprimary = 0, testsecondary = 0, testcross = 0;
  int testmain = 0, testminor1 = 0, testminor2 = 0;
};

/// The lines of a model: the nugget and structures 1 to 3.
inline constexpr int kLines = 4;

/// The named tables of each line, for routines that treat the lines alike; line 0 has no range and
/// no letter, structure 3 has its flag in the narrower table.
inline constexpr std::array<PairTable<Cell> Session::*, 3> kFlagTable{
    &Session::use0, &Session::use1, &Session::use2};
inline constexpr std::array<PairTable<Cell> Session::*, 4> kSillTable{&Session::c0, &Session::c1,
                                                                      &Session::c2, &Session::c3};
inline constexpr std::array<PairTable<Cell> Session::*, 4> kRangeTable{nullptr, &Session::a1,
                                                                       &Session::a2, &Session::a3};
inline constexpr std::array<PairTable<std::string> Session::*, 4> kLetterTable{
    &Session::model0, &Session::model1, &Session::model2, &Session::model3};

/// The flag of line 0 to 3 as a number. Throws Fault where the cell holds a text.
double flag(const Session& session, int line, std::int64_t variable, std::int64_t direction);
/// Stores a flag; throws Fault where the cell can't hold it (structure 3: 16 bits).
void setFlag(Session& session, int line, std::int64_t variable, std::int64_t direction,
             const Cell& value);

/// Sum of the ticked sills, whatever their letters: flag times sill over the four lines.
double totalSill(const Session& session, std::int64_t variable, std::int64_t direction);
/// Some line is part of the model: the four flags do not add up to 0.
bool hasModel(const Session& session, std::int64_t variable, std::int64_t direction);

/// The start values of all fit cells of variables 1 to 40 and directions 1 to 20.
void resetFitState(Session& session);

}  // namespace zevfit
