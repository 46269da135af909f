#pragma once

#include <sys/types.h>

#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "zvm/verbs/context.h"

namespace zevfit::verbs {

/// A program of its own that has a library which zvm does without. It lies beside zvm, or where a
/// package puts it, or in the folder that ZVM_MODULES names. It tells on stderr in lines "warning:
/// TEXT" and "error: TEXT" and ends with an exit code of zvm.
struct Module {
  const char* name;   ///< of the program and of its package
  const char* needs;  ///< what takes it, as in "zvm plot"
};

/// A module under way, which is ended with this.
class ModuleRun {
 public:
  /// Throws Failure where the module is not installed or can't be started. `input`, where there is
  /// one, is its stdin.
  ModuleRun(const Module& module, const std::vector<std::string>& arguments,
            const std::string& input);
  ModuleRun(const ModuleRun&) = delete;
  ModuleRun& operator=(const ModuleRun&) = delete;
  ~ModuleRun();

  /// What it writes to stdout, as it comes.
  std::istream& out() { return *out_; }
  /// Waits for its end and hands on its warnings. Throws Failure with its exit code where it
  /// failed.
  void finish(Context& context);

 private:
  int wait();

  const Module& module_;
  pid_t process_ = -1;
  int messages_ = -1;
  std::unique_ptr<std::streambuf> buffer_;
  std::unique_ptr<std::istream> out_;
};

/// All that a module writes to stdout. Throws Failure where it fails.
std::string outputOf(const Module& module, const std::string& input, Context& context);

}  // namespace zevfit::verbs
