#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace zevfit::verbs {

/// Runs the command with its arguments, those behind the program's name. What was asked for goes to
/// `out` at the end of the run, all of it or nothing; messages go to `err`. The exit code.
int runCommand(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
               std::ostream& err);

}  // namespace zevfit::verbs
