#include "zvm/experimental/threads.h"

#include <system_error>

namespace zevfit::zvm {

std::vector<std::jthread> startThreads(std::size_t count, const std::function<void()>& work) {
  std::vector<std::jthread> threads;
  threads.reserve(count);
  try {
    while (threads.size() < count) threads.emplace_back(work);
  } catch (const std::system_error&) {
    if (threads.empty()) work();
  }
  return threads;
}

}  // namespace zevfit::zvm
