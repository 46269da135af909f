#pragma once

#include <cstddef>
#include <functional>
#include <thread>
#include <vector>

namespace zevfit::zvm {

/// Starts threads that all do the same: `count`, or fewer where the system has no room for more, as
/// under the limits of a batch system. Where it has none at all the work is done before it returns.
std::vector<std::jthread> startThreads(std::size_t count, const std::function<void()>& work);

}  // namespace zevfit::zvm
