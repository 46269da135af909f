#pragma once

#include "report/collection.h"

namespace zevfit {

/// Prints the selected report. Says where it went; any fault ends in "cannot print!".
void printar_Click(Collection& reports);

}  // namespace zevfit
