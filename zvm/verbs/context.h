#pragma once

#include <functional>
#include <istream>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zevfit::verbs {

/// How a run ends; of several verdicts the greatest counts.
enum class Exit { done = 0, bad = 1, usage = 2, data = 3, file = 4, interrupted = 130 };

/// What ends a run: the message, without the "zvm: error: " in front, and the exit code.
class Failure : public std::runtime_error {
 public:
  Failure(Exit code, const std::string& message);
  Exit code() const { return code_; }

 private:
  Exit code_;
};

/// The options that every verb has.
struct Common {
  bool json = false;
  bool quiet = false;
  bool overwrite = false;
  int threads = 0;  ///< 0: as many as there are cores
};

/// Throws Failure for the bytes of a file that may not take its place.
using AcceptBytes = std::function<void(const std::string&)>;

/// A file to be written when all else has gone well.
struct PendingFile {
  std::string path;
  std::string bytes;
  AcceptBytes accept;  ///< may be empty
};

/// What a verb has around it: its options, stdin, and where its words go.
class Context {
 public:
  Context(std::istream& in, std::ostream& err) : in_(in), err_(err) {}

  Common common;

  /// Stdin, which can be read once: throws Failure for a second time.
  std::istream& in();

  /// More for stdout, which is written at the end of the run, all or nothing.
  void print(std::string_view text) { printed_ += text; }
  const std::string& printed() const { return printed_; }

  /// A report for stderr, since the file itself goes to stdout.
  void printBeside(std::string_view text) { err_ << text << std::flush; }

  /// One line on stderr each, as terminalText has it.
  void error(std::string_view message);
  void warning(std::string_view message);

  /// Writes to a file at the end of the run, or with "-" to stdout. Throws Failure at once where
  /// there is a file of that name and it may not be overwritten.
  /// `accept` is asked of what is on the disk before it takes the place of the file.
  void save(const std::string& path, std::string bytes, AcceptBytes accept = {});
  const std::vector<PendingFile>& pending() const { return pending_; }

 private:
  void message(std::string_view kind, std::string_view text);

  std::istream& in_;
  bool isInTaken_ = false;
  std::ostream& err_;
  std::string printed_;
  std::vector<PendingFile> pending_;
};

/// The name that stands for stdin and stdout.
inline constexpr std::string_view kStandardStream = "-";
inline constexpr const char* kStdinTwice = "stdin is there twice: it can be read once";

}  // namespace zevfit::verbs
