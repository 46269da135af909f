#pragma once

#include <filesystem>

class QString;

namespace zevfit {

/// Where the program keeps its own files: the folder of the executable or, where the user may not
/// write there, the user's own data folder for zevFIT, made if need be.
std::filesystem::path programFolder();

/// The same for an executable in `folder`. A package's /usr/bin is never the program's folder: root
/// may write there, but what the program leaves would outlive the package.
std::filesystem::path programFolderFor(const QString& folder);

}  // namespace zevfit
