#include "files/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "session/fault.h"

namespace zevfit {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 20;
constexpr mode_t kNewFileMode = 0666;
constexpr const char* kSiblingSuffix = ".zevfit-new";

[[noreturn]] void fail(const std::string& what, const fs::path& path) {
  throw Fault(what + " " + path.string() + ": " + std::generic_category().message(errno));
}

/// Repeats a call that a signal has interrupted.
template <class Call>
auto uninterrupted(Call&& call) {
  decltype(call()) result;
  do {
    result = call();
  } while (result == -1 && errno == EINTR);
  return result;
}

/// An open file that is closed whatever happens.
class Descriptor {
 public:
  Descriptor(const fs::path& path, int flags)
      : number_(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC); })) {
    if (number_ < 0) fail("Cannot open", path);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { ::close(number_); }
  int number() const { return number_; }

 private:
  int number_;
};

/// Makes a rename last. Where the folder can't be opened the file is in its place all the same.
void flushFolder(const fs::path& folder) {
  const char* path = folder.empty() ? "." : folder.c_str();
  const int open = uninterrupted([&] { return ::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
  if (open < 0) return;
  ::fsync(open);
  ::close(open);
}

/// Gives the new file the permission bits and, where the user may, the owner of the old one.
void takeOver(const fs::path& from, const struct stat& old) {
  if (::chown(from.c_str(), old.st_uid, old.st_gid) != 0 && errno != EPERM)
    fail("Cannot prepare", from);
  if (::chmod(from.c_str(), old.st_mode & 07777) != 0) fail("Cannot prepare", from);
}

void copyWhole(const fs::path& from, const fs::path& to) {
  OutputFile copy(to);
  copy.write(readWhole(from));
  copy.close();
}

/// Renames across volumes: a copy beside the target takes its place.
void moveAcross(const fs::path& from, const fs::path& target) {
  fs::path sibling = target;
  sibling += kSiblingSuffix;
  struct stat mode {};
  if (::stat(from.c_str(), &mode) != 0) fail("Cannot read", from);
  try {
    copyWhole(from, sibling);
    takeOver(sibling, mode);
    if (::rename(sibling.c_str(), target.c_str()) != 0) fail("Cannot replace", target);
  } catch (...) {
    ::unlink(sibling.c_str());
    throw;
  }
  ::unlink(from.c_str());
}

}  // namespace

OutputFile::OutputFile(const fs::path& path)
    : descriptor_(uninterrupted([&] {
        return ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kNewFileMode);
      })) {
  if (descriptor_ < 0) fail("Cannot open", path);
  buffer_.reserve(kBufferSize);
}

OutputFile::~OutputFile() {
  if (descriptor_ < 0) return;
  try {
    flush();
  } catch (const Fault&) {
    buffer_.clear();
  }
  ::close(descriptor_);
}

void OutputFile::write(std::string_view bytes) {
  buffer_.append(bytes);
  if (buffer_.size() >= kBufferSize) flush();
}

void OutputFile::flush() {
  std::string_view left = buffer_;
  while (!left.empty()) {
    const ssize_t written =
        uninterrupted([&] { return ::write(descriptor_, left.data(), left.size()); });
    if (written < 0) fail("Cannot write", "");
    left.remove_prefix(static_cast<std::size_t>(written));
  }
  buffer_.clear();
}

void OutputFile::close() {
  flush();
  if (uninterrupted([&] { return ::fsync(descriptor_); }) != 0) fail("Cannot write", "");
  const int closing = std::exchange(descriptor_, -1);
  if (::close(closing) != 0 && errno != EINTR) fail("Cannot close", "");
}

void replaceFile(const fs::path& from, const fs::path& target) {
  std::error_code unknown;
  const fs::path real = fs::weakly_canonical(target, unknown);
  const fs::path& to = unknown ? target : real;
  struct stat old {};
  if (::stat(to.c_str(), &old) == 0) {
    if (!S_ISREG(old.st_mode)) throw Fault("Not a file: " + to.string());
    if (::access(to.c_str(), W_OK) != 0) fail("Cannot replace", to);
    takeOver(from, old);
  }
  if (::rename(from.c_str(), to.c_str()) != 0) {
    if (errno != EXDEV) fail("Cannot replace", to);
    moveAcross(from, to);
  }
  flushFolder(to.parent_path());
}

std::string readWhole(const fs::path& path) {
  const Descriptor file(path, O_RDONLY);
  struct stat about {};
  if (::fstat(file.number(), &about) != 0) fail("Cannot read", path);
  // Room for one byte more than the file claims, so that its end is met without growing.
  std::string bytes(static_cast<std::size_t>(std::max<off_t>(about.st_size, 0)) + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    if (filled == bytes.size()) bytes.resize(2 * bytes.size());
    const ssize_t got = uninterrupted(
        [&] { return ::read(file.number(), bytes.data() + filled, bytes.size() - filled); });
    if (got < 0) fail("Cannot read", path);
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace zevfit
