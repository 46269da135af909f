#pragma once

namespace zevfit {

/// Empties the upper halves of the vector registers, where there are any. While a library has left
/// something in them, some processors take many times as long for each mathematical function: a
/// hundred exponentials 25 microseconds behind a painted window, 1 without.
void emptyWideRegisters();

}  // namespace zevfit
