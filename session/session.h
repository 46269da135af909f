#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "session/axis.h"
#include "session/cell.h"
#include "session/style.h"
#include "session/tables.h"

namespace zevfit {

/// Distances at which a model curve is sampled, from 1 on.
inline constexpr int kCurvePoints = 100;

/// The lines of a model: the nugget and structures 1 to 3.
enum class Line { nugget, first, second, third };

/// What a load has read, and the variables derived from it.
struct FileTables {
  std::string inputfile;      ///< full path of the loaded file; empty: saving refuses
  std::string filetag;        ///< second header token, as last read
  bool loaded = false;        ///< a file was read; stays so after a later file was found bad
  bool hasmodel = false;      ///< the tag says that a model block follows
  std::int64_t nvar = 0;      ///< variables, derived ones included
  std::int64_t nvarfile = 0;  ///< variables that the file held; these can't be removed
  std::int64_t ndir = 0;
  std::int64_t nclass = 0;  ///< lag classes of every direction of every variable

  Table<std::string, kVariableSlots> varname{"varname"};
  /// Carries azimuth and dip as its outer words.
  Table<std::string, kDirectionSlots> dirname{"dirname"};
  Table<Cell, kVariableSlots> variance{"variance"};
  Table<bool, kVariableSlots> addflag{"addflag"};  ///< ticked for addition

  LagTable<Cell> hlag{"hlag"};       ///< mean distance of a class
  LagTable<double> gam{"gam"};       ///< its experimental semivariance
  LagTable<float> npairs{"npairs"};  ///< its number of pairs
};

/// The models of all pairs, one row of cells each, and the state of the controls that edit them.
struct FitTables {
  PairTable<Cell> use0{"use0"}, use1{"use1"}, use2{"use2"};  ///< the line is part of the model
  PairTable<std::int16_t> use3{"use3"};  ///< narrower than its three siblings, as files show
  PairTable<Cell> c0{"c0"}, c1{"c1"}, c2{"c2"}, c3{"c3"};  ///< nugget and sill contributions
  PairTable<Cell> a1{"a1"}, a2{"a2"}, a3{"a3"};            ///< ranges
  PairTable<std::string> model0{"model0"};                 ///< reset at each load and never read
  /// "S", "E", "G", "P", or "-" for none.
  PairTable<std::string> model1{"model1"}, model2{"model2"}, model3{"model3"};
  PairTable<double> ctotal{"ctotal"};  ///< total sill of the ticked lines

  bool modelshown = false;  ///< the first drawing after a load with models has taken place
  std::optional<Line> sel;  ///< the line that sliders and fields address
  bool plot3state = false,
       plot4state = false;         ///< flip at each click of the boxes of structures 2, 3
  double c0scale = 0, ascale = 0;  ///< maxima of the two sliders
  double c0step = 0, astep = 0;    ///< large changes of the two sliders
  /// The field, not the slider, drives the value.
  PairTable<bool> atyped{"atyped"}, c0typed{"c0typed"};

  /// The model curve as last sampled, slots 1 to 100; slot 0 is never written.
  Table<double, kCurvePoints + 1> curveh{"curveh"}, curvegam{"curvegam"};
  /// Scratch of the model curve: nugget and structures 1 to 3; keeps its content between samplings.
  std::array<Table<double, kCurvePoints + 1>, 4> curverow{
      Table<double, kCurvePoints + 1>{"curverow of the nugget"},
      Table<double, kCurvePoints + 1>{"curverow of structure 1"},
      Table<double, kCurvePoints + 1>{"curverow of structure 2"},
      Table<double, kCurvePoints + 1>{"curverow of structure 3"}};
};

/// The extremes of the data and the axes of the plots.
struct AxisTables {
  PairTable<double> hmax{"hmax"}, gmax{"gmax"}, gmin{"gmin"};  ///< extremes of the data
  PairTable<double> ymax{"ymax"}, ymin{"ymin"};                ///< semivariance axis
  PairTable<double> ymax0{"ymax0"}, ymin0{"ymin0"};            ///< the same after load
  PairTable<double> xmax{"xmax"};        ///< right end of the distance axis; 0: not set yet
  PairTable<bool> showsill{"showsill"};  ///< the sample variance is drawn as a line
  PairTable<std::string, 102, 42> xlegend{"xlegend"};  ///< legend of the distance axis
  std::string xformat, yformat;  ///< number patterns of the axes, set at each drawing
};

/// The handles of the plot windows, by their lines.
struct DragTables {
  std::array<bool, 4> dragsel{};  ///< the handles that are held
  bool dragging = false;          ///< some handle is held
};

/// What lists and windows have chosen.
struct ListTables {
  std::int64_t curvar = 0, curdir = 0;    ///< pair under work; below 1: no plot is current
  std::int64_t selvar = 0, seldir = 0;    ///< last choice in the lists of the main window
  std::int64_t plotvar = 0, plotdir = 0;  ///< pair of the last drawing
  std::int64_t datavar = 0;               ///< variable shown in the data structure window

  Pair current() const { return {curvar, curdir}; }
  void setCurrent(Pair pair) {
    curvar = pair.variable;
    curdir = pair.direction;
  }
  Pair plotted() const { return {plotvar, plotdir}; }
  void setPlotted(Pair pair) {
    plotvar = pair.variable;
    plotdir = pair.direction;
  }

  /// The direction block of the results window that a click on a row fills; none at first.
  std::optional<Axis> targetdir;

  /// List positions last chosen in the coregionalization test.
  int testprimary = 0, testsecondary = 0, testcross = 0;
  int testmain = 0, testminor1 = 0, testminor2 = 0;
};

/// All state of a fit session: flat tables that every window reads and writes, owned by the main
/// window. Tables of two subscripts are by pair, lag tables by pair and class, all from 1.
/// Distances, semivariances, sills and ranges are in the units of the file.
struct Session : FileTables, FitTables, AxisTables, DragTables, ListTables {
  /// Nothing loaded; the axis legends of variables 1 to 100 and directions 1 to 40 are "h( )".
  Session();

  GraphStyle style;
  Colour axiscolor = kBlack;  ///< the dotted grid of the plot
  FormatBackup backup;        ///< of style and grid, from the opening of the format window
};

/// The start values of all fit cells of variables 1 to 40 and directions 1 to 20.
void resetFitState(Session& session);

}  // namespace zevfit
