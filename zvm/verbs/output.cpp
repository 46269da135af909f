#include "zvm/verbs/output.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "files/output_file.h"
#include "session/fault.h"

namespace zevfit::verbs {
namespace {

namespace fs = std::filesystem;

constexpr std::array kEnds{SIGINT, SIGTERM, SIGHUP};
/// As many links in a row as the system follows.
constexpr int kMostLinks = 40;

sigset_t endSignals() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : kEnds) sigaddset(&set, signal);
  return set;
}

/// Holds back the signals that ask for the end.
class HeldSignals {
 public:
  HeldSignals() {
    const sigset_t set = endSignals();
    ::pthread_sigmask(SIG_BLOCK, &set, &before_);
  }
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;
  ~HeldSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  static bool anyWaits() {
    sigset_t waiting;
    sigemptyset(&waiting);
    ::sigpending(&waiting);
    for (const int signal : kEnds)
      if (sigismember(&waiting, signal) == 1) return true;
    return false;
  }

 private:
  sigset_t before_{};
};

extern "C" void exitInterrupted(int) { ::_exit(static_cast<int>(Exit::interrupted)); }

[[noreturn]] void fail(const std::string& path, const std::string& why) {
  throw Failure(Exit::file, "cannot write " + path + ": " + why);
}

/// Of a pipe that nobody reads any more nobody is to be told.
[[noreturn]] void fail(const std::string& path, int error) {
  if (error == EPIPE) throw Failure(Exit::file, "");
  fail(path, std::generic_category().message(error));
}

/// A folder in which the open descriptors of this program stand as files, by their numbers.
bool holdsDescriptors(const fs::path& folder) {
  std::error_code failed;
  const std::string name = fs::canonical(folder, failed).string();
  const std::string number = std::to_string(::getpid()), process = "/proc/" + number;
  return !failed && (name == process + "/fd" || name == process + "/task/" + number + "/fd");
}

std::optional<int> numberOf(const std::string& text) {
  int number = 0;
  const char* const last = text.data() + text.size();
  const auto read = std::from_chars(text.data(), last, number);
  return read.ec == std::errc() && read.ptr == last ? std::optional(number) : std::nullopt;
}

/// The open descriptor that a path stands for, by itself or by a link as /dev/stdout is one,
/// whatever the descriptor leads to.
std::optional<int> descriptorOf(fs::path path) {
  std::error_code failed;
  for (int i = 0; i < kMostLinks; ++i) {
    if (holdsDescriptors(path.parent_path())) return numberOf(path.filename().string());
    if (!fs::is_symlink(path, failed)) return std::nullopt;
    path = path.parent_path() / fs::read_symlink(path, failed);
  }
  return std::nullopt;
}

/// Errors are those of the system; 0 when all is written.
int writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written >= 0)
      bytes.remove_prefix(static_cast<std::size_t>(written));
    else if (errno != EINTR)
      return errno;
  }
  return 0;
}

/// Where a link leads, also where there is nothing yet. Throws Failure for links in a circle.
fs::path targetOf(const fs::path& link) {
  std::error_code failed;
  fs::path path = link;
  for (int i = 0; i < kMostLinks; ++i) {
    if (!fs::is_symlink(path, failed)) return path;
    path = path.parent_path() / fs::read_symlink(path, failed);
  }
  fail(link.string(), ELOOP);
}

/// A device or a pipe, which has no old content to keep.
void writeInto(const std::string& path, std::string_view bytes) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) fail(path, errno);
  int error = writeAll(descriptor, bytes);
  if (::close(descriptor) != 0 && error == 0) error = errno;
  if (error != 0) fail(path, error);
}

/// A file beside the target, whole and on the disk; it is removed unless it takes its place.
class NewFile {
 public:
  NewFile(const fs::path& target, std::string_view bytes) : path_(freeSibling(target)) {
    OutputFile out(path_, OutputFile::Old::refused);
    isMade_ = true;
    try {
      out.write(bytes);
      out.close();
    } catch (const Fault&) {
      ::unlink(path_.c_str());
      throw;
    }
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (isMade_) ::unlink(path_.c_str());
  }

  /// What is on the disk.
  std::string content() const {
    std::ifstream in(path_, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }

  void takePlaceOf(const fs::path& target) {
    replaceFile(path_, target);
    isMade_ = false;
  }

 private:
  fs::path path_;
  bool isMade_ = false;
};

/// What a fault of the file system says behind the name that it tells first.
std::string reasonOf(const Fault& fault) {
  const std::string what = fault.what();
  const std::size_t colon = what.rfind(": ");
  return colon == what.npos ? what : what.substr(colon + 2);
}

}  // namespace

bool isStandardOutput(const std::string& path) {
  return path == kStandardStream || descriptorOf(path) == STDOUT_FILENO;
}

bool isSpecial(const std::string& path) {
  std::error_code unknown;
  const fs::file_status status = fs::status(path, unknown);
  return fs::exists(status) && !fs::is_regular_file(status);
}

void requireFree(const std::string& path, bool overwrite) {
  if (descriptorOf(path)) return;
  std::error_code unknown;
  const fs::file_status status = fs::status(path, unknown);
  if (fs::is_directory(status)) fail(path, EISDIR);
  if (fs::is_regular_file(status) && !overwrite)
    throw Failure(Exit::file, path + " exists; --overwrite replaces it");
  if (isSpecial(path)) return;
  const fs::path folder = targetOf(path).parent_path();
  if (fs::is_regular_file(folder, unknown)) fail(path, ENOTDIR);
  if (::access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) != 0) fail(path, errno);
}

void writeOutput(const PendingFile& file, bool overwrite) {
  const auto& [path, bytes, accept] = file;
  if (const auto descriptor = descriptorOf(path)) {
    if (const int error = writeAll(*descriptor, bytes); error != 0) fail(path, error);
    return;
  }
  if (isSpecial(path)) return writeInto(path, bytes);
  const fs::path target = targetOf(path);
  const HeldSignals held;
  try {
    NewFile made(target, bytes);
    if (accept) accept(made.content());
    if (HeldSignals::anyWaits()) return;
    requireFree(path, overwrite);
    made.takePlaceOf(target);
  } catch (const Fault& fault) {
    fail(path, reasonOf(fault));
  }
}

void writeOutputs(std::span<const PendingFile> files, bool overwrite) {
  if (files.size() == 1) return writeOutput(files[0], overwrite);
  const HeldSignals held;
  std::vector<std::unique_ptr<NewFile>> made;
  made.reserve(files.size());
  for (const PendingFile& file : files) {
    try {
      made.push_back(std::make_unique<NewFile>(targetOf(file.path), file.bytes));
      if (file.accept) file.accept(made.back()->content());
      requireFree(file.path, overwrite);
    } catch (const Fault& fault) {
      fail(file.path, reasonOf(fault));
    }
  }
  if (HeldSignals::anyWaits()) return;
  for (std::size_t i = 0; i < files.size(); ++i) try {
      made[i]->takePlaceOf(targetOf(files[i].path));
    } catch (const Fault& fault) {
      fail(files[i].path, reasonOf(fault));
    }
}

void exitOnSignals() {
  struct sigaction action {};
  action.sa_handler = exitInterrupted;
  action.sa_mask = endSignals();
  for (const int signal : kEnds) {
    struct sigaction before {};
    // One that is ignored stays so, as nohup asks for it.
    if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
      ::sigaction(signal, &action, nullptr);
  }
  // A file beyond the limit of the user is told as any write that fails, and leaves nothing.
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace zevfit::verbs
