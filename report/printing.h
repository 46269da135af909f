#pragma once

#include "report/collection.h"

namespace zevfit {

/// Prints the selected report. Any fault ends in "cannot print!".
void printar_Click(Collection& reports);

}  // namespace zevfit
