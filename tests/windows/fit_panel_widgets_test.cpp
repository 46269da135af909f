#include "windows/fit_panel_widgets.h"

#include <QStringList>

#include "tests/support/fit_panel_contract.h"

namespace zevfit {
namespace {

/// The panel of the main window in a window of its own, on the screen so that it can take the
/// focus.
struct WidgetHarness {
  FaultReport faults = [](std::string_view fault) { ADD_FAILURE() << fault; };
  FitPanelWidgets widgets;

  WidgetHarness() { widgets.show(); }
  FitPanel& panel() { return widgets; }
  void connectTo(Fit& fit) { widgets.connectTo(fit, faults); }
  void fillList(List list, int entries) {
    QStringList names;
    for (int i = 0; i < entries; ++i) names << QString("entry %1").arg(i);
    widgets.fillList(list, names);
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Widgets, FitPanelContract, WidgetHarness);

}  // namespace
}  // namespace zevfit
