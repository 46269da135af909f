#pragma once

#include <filesystem>

namespace zevfit {

/// Where the program keeps its own files: the folder of the executable or, where the user may not
/// write there, the user's own data folder for zevFIT, made if need be.
std::filesystem::path programFolder();

}  // namespace zevfit
