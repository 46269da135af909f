#include "windows/control_tips.h"

#include <QWidget>
#include <algorithm>
#include <array>
#include <string_view>

#include "windows/program_keys.h"

namespace zevfit {

namespace {

constexpr const char* kSill = "Sill of the selected line; Enter draws the model";
constexpr const char* kRange =
    "Range of the selected structure, the exponent of a power model; Enter draws the model";
constexpr const char* kTotal = "Sum of the sills of all ticked lines; red above the variance";
constexpr const char* kVariance =
    "Click, or Alt+V, to use the variance as the sill of the selected line";

constexpr const char* kEntries = "arrows go from entry to entry";
constexpr const char* kPress = "blank key";

// Those of the lists, the letters and the buttons are the ones that users know, without a key.
constexpr std::array kTips{
    ControlTip{"Label8", "Select the Variable", kEntries},
    ControlTip{"Combo2", "Select the Variable", kEntries},
    ControlTip{"Label9", "Select the Direction", kEntries},
    ControlTip{"Combodirvar", "Select the Direction", kEntries},
    ControlTip{"Frame1", "The line that fields and sliders show and change"},
    ControlTip{"est1", "Fit the nugget effect (blank key; arrows go from line to line)"},
    ControlTip{"est2", "Fit structure 1 (blank key; arrows go from line to line)"},
    ControlTip{"est3", "Fit structure 2 (blank key; arrows go from line to line)"},
    ControlTip{"est4", "Fit structure 3 (blank key; arrows go from line to line)"},
    ControlTip{"est2tipo", "Model for Structure 1"},
    ControlTip{"est3tipo", "Model for Structure 2"},
    ControlTip{"est4tipo", "Model for Structure 3"},
    ControlTip{"Frame2", "The lines that are part of the model, from the next drawing on"},
    ControlTip{"plot1", "Nugget Effect is part of the model (blank key)"},
    ControlTip{"plot2", "Structure 1 is part of the model (blank key)"},
    ControlTip{"plot3", "Structure 2 is part of the model (blank key)"},
    ControlTip{"plot4", "Structure 3 is part of the model (blank key)"},
    ControlTip{"Frame3", "The model of the selected structure, from the next drawing on"},
    ControlTip{"tipo1", "C (1 - exp(-3 h/a)) for the selected structure (blank key)"},
    ControlTip{"tipo2",
               "C (1.5 h/a - 0.5 (h/a)^3) up to a, then C, for the selected structure (blank key)"},
    ControlTip{"tipo3", "C (1 - exp(-3 (h/a)^2)) for the selected structure (blank key)"},
    ControlTip{"tipo4",
               "h^a without a sill, a from 0 to 2, for the selected structure (blank key)"},
    ControlTip{"label10", "The formula of the selected line, and its values"},
    ControlTip{"Label18", kSill},
    ControlTip{"Textc0", kSill},
    ControlTip{"HScrollc0", "Sill of the selected line (arrows; Page Up and Page Down)"},
    ControlTip{"Label21", kRange},
    ControlTip{"Texta", kRange},
    ControlTip{"HScrolla", "Range of the selected structure (arrows; Page Up and Page Down)"},
    ControlTip{"Label23", kTotal},
    ControlTip{"Labelc", kTotal},
    ControlTip{"labelvari", kVariance},
    ControlTip{"Labelvariance", kVariance},
    ControlTip{"psill", "Draw the variance as a line, from the next drawing on (blank key)"},
    ControlTip{"Command1", "Change X-Y scales", kPress},
    ControlTip{"Command2", "Test - Cross Semivariogram", kPress},
    ControlTip{"Command3", "Grid ON/OFF", kPress},
    ControlTip{"Command4", "Legend h[units]", kPress},
    ControlTip{"Command5", "Plot Theoretical Model"},
    ControlTip{"estru_0", "Nugget: drag for the sill"},
    ControlTip{"estru_1", "Structure 1: left button for the range, right button for the sill"},
    ControlTip{"estru_2", "Structure 2: left button for the range, right button for the sill"},
    ControlTip{"estru_3", "Structure 3: left button for the range, right button for the sill"},
    ControlTip{"Label1", "Number of pairs; a click takes it away"},
};

}  // namespace

std::span<const ControlTip> controlTips() { return kTips; }

const char* controlTip(const char* control) {
  const auto* found = std::find_if(kTips.begin(), kTips.end(), [control](const ControlTip& tip) {
    return std::string_view(tip.control) == control;
  });
  return found == kTips.end() ? "" : found->text;
}

QString withKey(const char* control, const QString& text, const QString& otherwise) {
  const QList<QKeySequence> keys = keysOf(control);
  const QString key = keys.isEmpty() ? otherwise : keys.first().toString(QKeySequence::NativeText);
  return key.isEmpty() ? text : text + " (" + key + ")";
}

void giveTips(QWidget& widget) {
  for (const ControlTip& tip : kTips) {
    auto* control = widget.findChild<QWidget*>(tip.control);
    if (!control) continue;
    control->setToolTip(tip.text);
    control->setAccessibleDescription(withKey(tip.control, tip.text, tip.key));
  }
}

void tellTipsAtFoot(QWidget& widget) {
  for (const ControlTip& tip : kTips)
    if (auto* control = widget.findChild<QWidget*>(tip.control))
      control->setStatusTip(control->accessibleDescription());
}

}  // namespace zevfit
