#include "tests/support/fit_panel_contract.h"

namespace zevfit {
namespace {

struct MemoryHarness {
  MemoryPanel memory;

  FitPanel& panel() { return memory; }
  void connectTo(Fit& fit) { connectPanel(memory, fit); }
  void fillList(List list, int entries) { memory.fillList(list, entries); }
};

INSTANTIATE_TYPED_TEST_SUITE_P(InMemory, FitPanelContract, MemoryHarness);

}  // namespace
}  // namespace zevfit
