#pragma once

#include <string>
#include <string_view>

#include "session/session.h"
#include "session/style.h"

namespace zevfit {

enum class Field { c0, a };   ///< Textc0, Texta
enum class Slider { c0, a };  ///< HScrollc0, HScrolla
/// The captions that the fit handlers write.
enum class Caption { label10, Label18, Label21, Labelc, Labelvariance };
/// plot1 to plot4, one for each line, and psill.
enum class Box { plot1, plot2, plot3, plot4, psill };
/// Controls that the handlers enable and disable; tipos stands for tipo1 to tipo4 together.
enum class Control { Textc0, Texta, HScrollc0, HScrolla, tipos };
enum class List { Combo2, Combodirvar };

/// The fit controls of the main window as routines of the core see them.
///
/// Event rules, the same for every implementation: a text, a position, a box or an option that
/// really changes runs its handler before the setter returns, whoever sets it; one set to what it
/// is runs nothing. A list runs its handler when another entry is chosen, not when none is. New
/// bounds that shut out the position move it to the nearer bound, which is such a change. Positions
/// start at 0 within bounds 0 to 32767, texts empty, boxes and options off, lists without an entry,
/// letters "-".
class FitPanel {
 public:
  virtual ~FitPanel() = default;

  virtual std::string text(Field field) const = 0;
  virtual void setText(Field field, std::string_view text) = 0;

  virtual int position(Slider slider) const = 0;
  /// Throws Fault for a position outside the bounds of the slider.
  virtual void setPosition(Slider slider, int position) = 0;
  virtual void setMinimum(Slider slider, int minimum) = 0;
  virtual void setMaximum(Slider slider, int maximum) = 0;
  virtual void setSmallChange(Slider slider, int step) = 0;
  virtual void setLargeChange(Slider slider, int step) = 0;

  virtual std::string caption(Caption which) const = 0;
  virtual void setCaption(Caption which, std::string_view text) = 0;
  /// Background of Labelc and labelvari.
  virtual void setSillBackground(Colour colour) = 0;
  /// The letter beside a structure: est2tipo, est3tipo, est4tipo. The nugget has none.
  virtual std::string letter(Line structure) const = 0;
  virtual void setLetter(Line structure, std::string_view letter) = 0;

  virtual bool ticked(Box box) const = 0;
  virtual void setTicked(Box box, bool ticked) = 0;
  /// Switches on est1 to est4.
  virtual void selectLine(Line line) = 0;

  virtual void setEnabled(Control control, bool enabled) = 0;

  /// Position of the chosen entry, -1 for none.
  virtual int listPosition(List list) const = 0;
  /// Throws Fault for an entry that the list does not have; -1 chooses none.
  virtual void setListPosition(List list, int position) = 0;

  /// The tool tip of est1 and of tipo1.
  virtual void setLineTip(std::string_view text) = 0;
  virtual void setModelTip(std::string_view text) = 0;
  /// Gives the focus to Command5, whose handler of that event runs before this returns.
  virtual void focusPlotButton() = 0;
};

/// The drawing routine as the fit handlers call it: draws the current pair, all of it.
class Plotter {
 public:
  virtual ~Plotter() = default;
  /// Throws Fault only for what its frame steps leave unguarded.
  virtual void plotvariogram() = 0;
};

}  // namespace zevfit
