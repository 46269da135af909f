#pragma once

#include <string>

namespace zevfit::verbs {

/// A title that the user tells, in Latin-1. Throws Failure for one that a file can't hold.
std::string titleAsTold(const std::string& title);
/// The title of semivariograms that stem from a file or another source of that name, in Latin-1.
std::string titleOfFile(const std::string& file);
std::string titleOfSource(const std::string& name);

/// Throws Failure where a name that an option gives can't stand in a file.
void requireName(const std::string& option, const std::string& name);
/// A name that is to stand in a file, in Latin-1; `from` is how --name finds it. Throws Failure
/// where a file can't hold it, with --name as the way out; `again`: there is one already.
std::string nameForFile(const std::string& from, const std::string& name, bool again);

}  // namespace zevfit::verbs
