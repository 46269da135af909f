// The command zvm: takes its arguments, stdin, stdout and stderr, and hands them to its verbs.
#include <iostream>
#include <string>
#include <vector>

#include "zvm/verbs/command_line.h"
#include "zvm/verbs/output.h"

int main(int argc, char** argv) {
  zevfit::verbs::exitOnSignals();
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return zevfit::verbs::runCommand(arguments, std::cin, std::cout, std::cerr);
}
