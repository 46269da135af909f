#pragma once

#include <array>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/fit_panel.h"
#include "session/fault.h"

namespace zevfit {

/// Who is told of the events of a panel in memory. What is empty is not told.
struct PanelEvents {
  std::function<void(Field)> textChanged;
  std::function<void(Slider)> positionChanged;
  std::function<void(Box)> boxClicked;
  std::function<void(Line)> lineClicked;
  std::function<void(List)> listClicked;
  std::function<void()> plotButtonFocused;
};

/// The fit controls without a window, by the event rules of FitPanel. Keeps every call of a setter
/// in `calls`, in order, as its control and what it was given.
class MemoryPanel : public FitPanel {
 public:
  struct Bounds {
    int minimum = 0, maximum = 32767;
    int smallChange = 1, largeChange = 1;
  };

  PanelEvents events;
  std::vector<std::string> calls;
  Colour sillBackground = -1;
  std::string lineTip, modelTip;

  /// The calls that set these, in order.
  std::vector<std::string> callsOf(std::initializer_list<std::string_view> controls) const {
    std::vector<std::string> found;
    for (const std::string& call : calls)
      for (const std::string_view control : controls)
        if (std::string_view(call).substr(0, call.find(" = ")) == control) found.push_back(call);
    return found;
  }
  const Bounds& bounds(Slider slider) const { return bounds_[at(slider)]; }
  bool enabled(Control control) const { return enabled_[at(control)]; }
  /// The line whose option is on.
  std::optional<Line> line() const { return line_; }
  /// Gives a list that many entries, none of them chosen; no event.
  void fillList(List list, int entries) {
    entries_[at(list)] = entries;
    chosen_[at(list)] = -1;
  }

  std::string text(Field field) const override { return texts_[at(field)]; }
  void setText(Field field, std::string_view text) override {
    note(field == Field::c0 ? "Textc0" : "Texta", text);
    change(texts_[at(field)], std::string(text), events.textChanged, field);
  }

  int position(Slider slider) const override { return positions_[at(slider)]; }
  void setPosition(Slider slider, int position) override {
    note(name(slider), std::to_string(position));
    const Bounds& bounds = bounds_[at(slider)];
    if (position < bounds.minimum || position > bounds.maximum) throw Fault("position");
    change(positions_[at(slider)], position, events.positionChanged, slider);
  }
  void setMinimum(Slider slider, int minimum) override {
    note(name(slider) + " minimum", std::to_string(minimum));
    bounds_[at(slider)].minimum = minimum;
    if (position(slider) < minimum)
      change(positions_[at(slider)], minimum, events.positionChanged, slider);
  }
  void setMaximum(Slider slider, int maximum) override {
    note(name(slider) + " maximum", std::to_string(maximum));
    bounds_[at(slider)].maximum = maximum;
    if (position(slider) > maximum)
      change(positions_[at(slider)], maximum, events.positionChanged, slider);
  }
  void setSmallChange(Slider slider, int step) override {
    note(name(slider) + " small", std::to_string(step));
    bounds_[at(slider)].smallChange = step;
  }
  void setLargeChange(Slider slider, int step) override {
    note(name(slider) + " large", std::to_string(step));
    bounds_[at(slider)].largeChange = step;
  }

  std::string caption(Caption which) const override { return captions_[at(which)]; }
  void setCaption(Caption which, std::string_view text) override {
    constexpr std::array<const char*, 5> kNames{"label10", "Label18", "Label21", "Labelc",
                                                "Labelvariance"};
    note(kNames[at(which)], text);
    captions_[at(which)] = text;
  }
  void setSillBackground(Colour colour) override {
    note("sill background", std::to_string(colour));
    sillBackground = colour;
  }
  std::string letter(Line structure) const override { return letters_.at(at(structure) - 1); }
  void setLetter(Line structure, std::string_view letter) override {
    note("letter " + std::to_string(at(structure)), letter);
    letters_.at(at(structure) - 1) = letter;
  }

  bool ticked(Box box) const override { return ticked_[at(box)]; }
  void setTicked(Box box, bool ticked) override {
    constexpr std::array<const char*, 5> kNames{"plot1", "plot2", "plot3", "plot4", "psill"};
    note(kNames[at(box)], ticked ? "1" : "0");
    change(ticked_[at(box)], ticked, events.boxClicked, box);
  }
  void selectLine(Line line) override {
    note("est" + std::to_string(at(line) + 1), "1");
    if (std::exchange(line_, line) != line && events.lineClicked) events.lineClicked(line);
  }

  void setEnabled(Control control, bool enabled) override {
    constexpr std::array<const char*, 5> kNames{"Textc0", "Texta", "HScrollc0", "HScrolla",
                                                "tipos"};
    note(kNames[at(control)], enabled ? "enabled" : "disabled");
    enabled_[at(control)] = enabled;
  }

  int listPosition(List list) const override { return chosen_[at(list)]; }
  void setListPosition(List list, int position) override {
    note(list == List::Combo2 ? "Combo2" : "Combodirvar", std::to_string(position));
    if (position < -1 || position >= entries_[at(list)]) throw Fault("entry");
    int& chosen = chosen_[at(list)];
    if (position >= 0) return change(chosen, position, events.listClicked, list);
    chosen = position;
  }

  void setLineTip(std::string_view text) override { lineTip = text; }
  void setModelTip(std::string_view text) override { modelTip = text; }
  void focusPlotButton() override {
    note("Command5", "focus");
    if (events.plotButtonFocused) events.plotButtonFocused();
  }

 private:
  template <class Enum>
  static constexpr std::size_t at(Enum which) {
    return static_cast<std::size_t>(which);
  }
  static std::string name(Slider slider) { return slider == Slider::c0 ? "HScrollc0" : "HScrolla"; }
  void note(std::string_view control, std::string_view given) {
    calls.push_back(std::string(control) + " = " + std::string(given));
  }

  template <class Value, class Which>
  static void change(Value& place, const Value& value, const std::function<void(Which)>& event,
                     Which which) {
    if (place == value) return;
    place = value;
    if (event) event(which);
  }

  std::array<std::string, 2> texts_;
  std::array<int, 2> positions_{};
  std::array<Bounds, 2> bounds_;
  std::array<std::string, 5> captions_{"Model Expression", "C0", "a:", "", ""};
  std::array<std::string, 3> letters_{"-", "-", "-"};
  std::array<bool, 5> ticked_{};
  std::array<bool, 5> enabled_{true, true, true, true, true};
  std::optional<Line> line_;
  std::array<int, 2> entries_{};
  std::array<int, 2> chosen_{-1, -1};
};

}  // namespace zevfit
