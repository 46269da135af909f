#include "session/line.h"

#include "session/fault.h"

namespace zevfit {

double totalSill(const FitTables& tables, Pair pair) {
  double total = 0;
  for (const Line which : kLines) {
    const ConstLineRef at = line(tables, pair, which);
    const double sill = at.sill().number();
    total += at.used() * sill;
  }
  return finite(total);
}

bool hasModel(const FitTables& tables, Pair pair) {
  double flags = 0;
  for (const Line which : kLines) flags += line(tables, pair, which).used();
  return flags != 0;
}

}  // namespace zevfit
