// Captions, legends, fonts, patterns and field texts as users type them. The first line says what
// the others are: 0 the key of a plot window, 1 the distance legend, 2 fonts and patterns, 3 the
// fields of the fit, 4 the scales of the axes, 5 a plot with all of them.
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "files/parameter_file.h"
#include "fuzz/fields.h"
#include "fuzz/require.h"
#include "model/axis_dialogs.h"
#include "model/expressions.h"
#include "model/fields.h"
#include "model/graph_format.h"
#include "model/model_curve.h"
#include "model/nested_model.h"
#include "plot/drawing/preview.h"
#include "plot/drawing/window_key.h"
#include "session/form.h"
#include "session/line.h"
#include "session/number_pattern.h"
#include "session/numbers.h"
#include "session/policy.h"
#include "session/session.h"
#include "tests/support/fit_fixture.h"
#include "tests/support/memory_plot_window.h"

namespace zevfit {
namespace {

constexpr std::int64_t kLargestKey = 99;

/// Wants places that can be drawn.
class FiniteSurface : public Surface {
 public:
  void clear(Colour) override {}
  void text(double x, double y, std::string_view, const Font& font, Colour) override {
    require(std::isfinite(x) && std::isfinite(y), "a text has a place");
    require(font.size > 0, "and a size");
  }
  void line(double x1, double y1, double x2, double y2, const Stroke& stroke) override {
    require(std::isfinite(x1) && std::isfinite(y1), "a line starts in a place");
    require(std::isfinite(x2) && std::isfinite(y2), "and ends in one");
    require(stroke.width > 0, "and has a width");
  }
  void disc(double x, double y, double radius, const Stroke&, Colour) override {
    require(std::isfinite(x) && std::isfinite(y) && radius > 0, "a disc has a place and a size");
  }
  void box(double left, double top, double width, double height, Colour) override {
    require(std::isfinite(left + top + width + height), "a box has a place and a size");
  }
  double textWidth(std::string_view text, const Font& font) override {
    return static_cast<double>(font.size) * static_cast<double>(text.size());
  }
};

class FinitePicture : public PreviewPicture {
 public:
  double pictureWidth() const override { return width_; }
  double pictureHeight() const override { return height_; }
  Surface& picture() override { return surface_; }
  PenState& pen() override { return pen_; }
  void setPictureSize(double width, double height) override {
    width_ = width;
    height_ = height;
  }
  bool bold() const override { return false; }

 private:
  double width_ = kPreviewWidth, height_ = kPreviewHeight;
  FiniteSurface surface_;
  PenState pen_;
};

bool isLine(std::string_view text) { return text.find_first_of("\r\n") == std::string_view::npos; }

void checkKey(Fields& in) {
  const Pair any = windowKey(in.next());
  require(std::abs(any.variable) <= kLargestKey && std::abs(any.direction) <= kLargestKey,
          "a key has two digits");
  const Pair pair{in.pick(kVariableSlots), in.pick(kDirectionSlots)};
  Session session;
  session.varname(pair.variable) = in.next();
  session.dirname(pair.direction) = in.next();
  require(windowKey(windowCaption(session, pair)) == pair, "a caption names its pair");
}

void checkLegend(Fields& in) {
  FitFixture with;
  const std::string text = in.next();
  const bool fits = trimmedLeft(text).size() <= 6;
  require(legenda_Command2_Click(with.fit.session, with.fit.messages, text) == fits,
          "six characters make a legend");
  const std::string& legend = with.cell(&Session::xlegend);
  require(legend == "h (" + std::string(fits ? trimmedLeft(text) : "") + ")", "it is kept");
  require(with.dialogs.shown.empty() == fits, "a longer one is told of");
}

void checkPattern(const std::string& pattern, double value) {
  const std::string shown = formatNumber(value, pattern);
  const auto isKept = [](char symbol) { return symbol == '.' || symbol == ' '; };
  require(std::count_if(shown.begin(), shown.end(), isKept) ==
              std::count_if(pattern.begin(), pattern.end(), isKept),
          "a legal pattern keeps point and blanks");
}

void takePatterns(Fields& in, GraphStyle& style) {
  const std::array<std::string, 2> patterns{in.next(), in.next()};
  const auto legal = [](const std::string& text) {
    return text.find_first_not_of("#0. ") == std::string::npos && text.find('.') == text.rfind('.');
  };
  const bool bothLegal = legal(patterns[0]) && legal(patterns[1]);
  require(!patternFault(patterns) == bothLegal, "a pattern has places, blanks and one point");
  if (!bothLegal) return;
  const double value = in.number();
  for (const std::string& pattern : patterns) checkPattern(pattern, value);
  style.Formfont.formato = patterns;
}

/// Two fonts are offered, the second one after a refusal.
void takeFont(Fields& in, FitFixture& with) {
  const auto row = static_cast<std::size_t>(in.pick(3));
  constexpr std::array<float, 3> kLimits{16, 10, 9};
  for (int i = 0; i < 2; ++i) {
    const std::string name = in.next();
    const double size = std::abs(in.number());
    if (size > 0.01 && size < 1e6) with.dialogs.fonts.push_back({name, static_cast<float>(size)});
  }
  const FontSample old = with.session.style.Formfont.Label2.at(row);
  const bool chosen = chooseFont(with.fit.session.style.Formfont, row, with.dialogs, with.dialogs);
  const FontSample& sample = with.session.style.Formfont.Label2.at(row);
  if (!chosen) return require(sample.fontname == old.fontname, "Cancel keeps the font");
  require(!sample.fontname.empty() && sample.caption == sample.fontname, "a font has a name");
  require(sample.fontsize > 0 && sample.fontsize <= kLimits.at(row), "and a legal size");
}

bool isKept(const GraphStyle& style) {
  for (const FontSample& sample : style.Formfont.Label2)
    if (!isLine(sample.caption) || !isLine(sample.fontname)) return false;
  return true;
}

void checkFormat(Fields& in) {
  FitFixture with;
  GraphStyle& style = with.session.style;
  keepFormat(with.session);
  const std::string before = composeParameters(style, "");
  takeFont(in, with);
  takePatterns(in, style);
  Colour held = style.cores.Label1;
  with.dialogs.colours.push_back(static_cast<Colour>(in.pick(256)));
  chooseColour(style.cores, static_cast<std::size_t>(in.pick(5)) + 1, with.dialogs, held);
  const std::string written = composeParameters(style, "");
  GraphStyle again;
  if (isKept(style)) {
    require(readParameters(written, again).has_value(), "a style reads back");
    require(composeParameters(again, "") == written, "as it was");
  }
  restoreFormat(with.session);
  require(composeParameters(style, "") == before, "Cancel puts the format back");
  setDefaultFormat(with.session);
  require(!patternFault(style.Formfont.formato), "the default patterns are legal");
}

bool isFinite(const Cell& cell) { return cell.isText() || std::isfinite(cell.number()); }

void checkModel(const FitFixture& with) {
  const Session& session = with.session;
  const Pair pair = session.current();
  for (const Line which : kLines)
    require(isFinite(line(session, pair, which).sill()), "a sill is a finite number");
  for (const Line structure : kStructures)
    require(isFinite(line(session, pair, structure).range()), "a range is a finite number");
  require(std::isfinite(session.ctotal(pair)), "so is the total");
}

void selectModel(Fields& in, FitFixture& with) {
  const Line which = kLines.at(static_cast<std::size_t>(in.pick(kLines.size())));
  with.session.sel = which;
  const LineRef at = line(with.session, with.session.current(), which);
  at.use(1);
  at.sill() = in.number();
  if (which == Line::nugget) return;
  at.range() = in.number();
  const std::string letter = in.next();
  at.letter() = letter;
  if (modelExpression(which, letter, ExpressionBy::tipo))
    require(modelExpression(which, letter, ExpressionBy::est).has_value(), "est knows all of tipo");
}

/// The sampled curve is the pure model, where every line that is on has a form and none refuses.
void checkCurve(FitFixture& with) {
  const Session& session = with.session;
  const Pair pair = session.current();
  const auto isRefused = [&](Line structure) {
    const ConstLineRef at = line(session, pair, structure);
    const std::optional<Form> form = formOf(at.letter());
    return at.isOn() && (!form || (form == Form::power && at.range().number() > 2));
  };
  endSilently([&] {
    if (std::ranges::any_of(kStructures, isRefused)) return;
    modelcurve(with.fit, pair, 100);
    const NestedModel model = modelOf(session, pair);
    for (int i = 1; i <= kCurvePoints; ++i)
      require(session.curvegam(i) == semivariance(model, session.curveh(i)), "one model");
  });
}

void typeFields(Fields& in, FitFixture& with) {
  with.panel.setText(Field::c0, in.next());
  checkModel(with);
  with.panel.setText(Field::a, in.next());
  checkModel(with);
}

void checkFields(Fields& in) {
  FitFixture with;
  with.drawForReal();
  with.session.variance(with.session.curvar) = in.number();
  selectModel(in, with);
  typeFields(in, with);
  Labelvariance_Click(with.fit);
  checkModel(with);
  checkCurve(with);
}

void checkScales(Fields& in) {
  FitFixture with;
  Session& session = with.session;
  with.cell(&Session::xmax) = in.pick(2) == 0 ? 0 : 100;
  with.cell(&Session::hmax) = in.number();
  with.cell(&Session::ymin) = with.cell(&Session::ymin0) = in.number();
  with.cell(&Session::ymax) = with.cell(&Session::ymax0) = in.number();
  with.panel.setListPosition(List::Combo2, in.pick(3));
  with.panel.setListPosition(List::Combodirvar, in.pick(4));
  ScaleTexts texts;
  require(Command1_Click(with.fit, texts), "with a file the window opens");
  cutgraph_Activate(session, texts);
  if (in.pick(2) == 1) texts.novoxmax = in.next();
  texts.novoymax = in.next();
  endSilently([&] { cutgraph_Command2_Click(with.fit.session, with.fit.messages, texts); });
  require(std::isfinite(with.cell(&Session::xmax)), "an axis ends");
  require(std::isfinite(with.cell(&Session::ymax)), "at a finite number");
}

void checkPlot(Fields& in) {
  FitFixture with;
  Session& session = with.session;
  session.varname(session.curvar) = in.next();
  session.dirname(session.curdir) = in.next();
  with.cell(&Session::xlegend) = in.next();
  takePatterns(in, session.style);
  with.cell(&Session::xmax) = in.number();
  with.cell(&Session::ymin) = in.number();
  with.cell(&Session::ymax) = in.number();
  session.variance(session.curvar) = in.number();
  selectModel(in, with);
  session.nclass = 1;
  session.hlag.create(1);
  session.gam.create(1);
  session.hlag.set(session.current(), 1, in.number());
  session.gam.set(session.current(), 1, in.number());
  MemoryPlotWindows windows;
  FinitePicture picture;
  bool running = false;
  preview(with.fit, windows, picture, running);
  typeFields(in, with);
  preview(with.fit, windows, picture, running);
}

}  // namespace
}  // namespace zevfit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::array kChecks{zevfit::checkKey,    zevfit::checkLegend, zevfit::checkFormat,
                               zevfit::checkFields, zevfit::checkScales, zevfit::checkPlot};
  zevfit::Fields in(data, size);
  kChecks.at(static_cast<std::size_t>(in.pick(static_cast<int>(kChecks.size()))))(in);
  return 0;
}
