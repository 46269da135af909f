#pragma once

#include <cstddef>
#include <system_error>
#include <vector>

namespace zevfit::zvm {

/// Starts threads that do the same work, `count` of them or as many as the system gives. Throws
/// std::system_error where that is none.
template <class Thread, class Work>
void startThreads(std::size_t count, const Work& work, std::vector<Thread>& threads) {
  while (threads.size() < count) {
    try {
      threads.emplace_back(work);
    } catch (const std::system_error&) {
      if (threads.empty()) throw;
      return;
    }
  }
}

}  // namespace zevfit::zvm
