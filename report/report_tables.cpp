#include "report/report_tables.h"

namespace zevfit {

void resetReports(ReportTables& tables) {
  tables.reportcolumns.fill(1);
  tables.rowsforcolumns(0) = 2;
  tables.rowsforcolumns(1) = 4;
  tables.rowsforcolumns(2) = 7;
  tables.cellused.fill(false);
}

}  // namespace zevfit
