#include "files/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "session/fault.h"

namespace zevfit {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 20;
constexpr std::size_t kPiece = std::size_t{1} << 20, kLeastPiece = std::size_t{1} << 12;
constexpr mode_t kNewFileMode = 0666;
constexpr const char* kSiblingSuffix = ".zevfit-new";
constexpr int kMostSiblings = 1000;
/// Bytes of a file's name, without room for the suffix and its number.
constexpr std::size_t kLongestStem = 255 - 16;

/// What the rights of a file or of its folder do not allow.
class Refused : public Fault {
 public:
  using Fault::Fault;
};

[[noreturn]] void fail(const std::string& what, const fs::path& path) {
  const int error = errno;
  const std::string text =
      what + " " + path.string() + ": " + std::generic_category().message(error);
  if (error == EACCES || error == EPERM || error == EROFS) throw Refused(text);
  throw Fault(text);
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

/// Flushes to the disk; a file system that can't is no failure.
bool flushed(int descriptor) {
  if (uninterrupted([&] { return ::fsync(descriptor); }) == 0) return true;
  return errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

/// Gives the new file the permission bits and the owner of the old one, as far as the user may and
/// the file system knows of them.
void takeOver(const fs::path& from, const struct stat& old) {
  const bool owned = ::chown(from.c_str(), old.st_uid, old.st_gid) == 0;
  // A file that stays somebody else's gets no bits that let it run with its owner's rights.
  const mode_t bits = old.st_mode & (owned ? 07777 : 0777);
  ::chmod(from.c_str(), bits);
}

void writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written =
        uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (written < 0) fail("Cannot write", "");
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// Writes into a file that is there, which keeps all but its bytes.
void overwrite(const fs::path& path, std::string_view bytes) {
  const Descriptor file(path, O_WRONLY | O_NONBLOCK);
  struct stat old {};
  if (::fstat(file.number(), &old) != 0) fail("Cannot read", path);
  const auto size = static_cast<off_t>(bytes.size());
  // Room first, so that a full disk leaves the old bytes; a file system that can't promise any, or
  // no bytes at all, are left to the write.
  const int room = ::posix_fallocate(file.number(), 0, size);
  if (room != 0 && room != EOPNOTSUPP && room != EINVAL) {
    if (::ftruncate(file.number(), old.st_size) != 0) fail("Cannot write", path);
    throw Fault("No room for " + path.string());
  }
  writeAll(file.number(), bytes);
  if (::ftruncate(file.number(), size) != 0 || !flushed(file.number())) fail("Cannot write", path);
}

/// Where a symbolic link leads, or the path itself.
fs::path realPath(const fs::path& path) {
  std::error_code unknown;
  const fs::path real = fs::weakly_canonical(path, unknown);
  return unknown ? path : real;
}

int flagsFor(OutputFile::Old old) {
  return O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK |
         (old == OutputFile::Old::refused ? O_EXCL : O_TRUNC);
}

/// Removes a symbolic link so that its target is not overwritten.
void removeLink(const fs::path& path) {
  struct stat about {};
  if (::lstat(path.c_str(), &about) == 0 && S_ISLNK(about.st_mode)) ::unlink(path.c_str());
}

/// Reads behind the first ones until the bytes are full or the file ends, and cuts them there.
void fill(int descriptor, const fs::path& path, std::string& bytes, std::size_t filled = 0) {
  while (filled < bytes.size()) {
    const ssize_t got = uninterrupted(
        [&] { return ::read(descriptor, bytes.data() + filled, bytes.size() - filled); });
    if (got < 0) fail("Cannot read", path);
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  bytes.resize(filled);
}

std::deque<std::string> piecesToEnd(int descriptor, const fs::path& path, off_t claimed) {
  std::deque<std::string> pieces;
  auto left = static_cast<std::size_t>(std::max<off_t>(claimed, 0)) + 1;
  // A file beyond the memory fails here, before any of it is read.
  pieces.emplace_back().reserve(left);
  pieces.clear();
  for (;;) {
    const std::size_t room = std::clamp(left, kLeastPiece, kPiece);
    std::string piece(room, '\0');
    fill(descriptor, path, piece);
    const bool isLast = piece.size() < room;
    if (!piece.empty()) pieces.push_back(std::move(piece));
    if (isLast) return pieces;
    left -= std::min(left, room);
  }
}

/// Room for one byte more than the file claims, so that its end is met without growing.
std::string readToEnd(int descriptor, const fs::path& path, off_t claimed) {
  std::string bytes(static_cast<std::size_t>(std::max<off_t>(claimed, 0)) + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    const std::size_t room = bytes.size();
    fill(descriptor, path, bytes, filled);
    if (bytes.size() < room) return bytes;
    filled = room;
    bytes.resize(2 * room);
  }
}

}  // namespace

OutputFile::OutputFile(const fs::path& path, Old old) {
  buffer_.reserve(kBufferSize);
  if (old == Old::dropped) removeLink(path);
  descriptor_ = uninterrupted([&] { return ::open(path.c_str(), flagsFor(old), kNewFileMode); });
  if (descriptor_ < 0) fail("Cannot open", path);
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
  // What failed once is not tried again when the file is closed.
  std::string bytes = std::exchange(buffer_, {});
  writeAll(descriptor_, bytes);
  bytes.clear();
  buffer_ = std::move(bytes);  // with its room
}

void OutputFile::close() {
  flush();
  if (!flushed(descriptor_)) fail("Cannot write", "");
  const int closing = std::exchange(descriptor_, -1);
  if (::close(closing) != 0 && errno != EINTR) fail("Cannot close", "");
}

fs::path freeSibling(const fs::path& target) {
  const std::string stem = target.filename().string().substr(0, kLongestStem);
  for (int i = 1; i <= kMostSiblings; ++i) {
    fs::path sibling = target.parent_path() / (stem + kSiblingSuffix + std::to_string(i));
    struct stat taken {};
    if (::lstat(sibling.c_str(), &taken) != 0 && errno == ENOENT) return sibling;
  }
  throw Fault("No free name beside " + target.string());
}

SiblingFile::SiblingFile(const fs::path& target, std::string_view bytes)
    : target_(target), path_(freeSibling(target)) {
  OutputFile out(path_, OutputFile::Old::refused);
  try {
    out.write(bytes);
    out.close();
  } catch (...) {
    ::unlink(path_.c_str());
    throw;
  }
}

SiblingFile::SiblingFile(const fs::path& target, const Copy& of)
    : SiblingFile(target, readWhole(of.file)) {
  struct stat mode {};
  if (::stat(of.file.c_str(), &mode) == 0) takeOver(path_, mode);
}

SiblingFile::~SiblingFile() {
  if (!path_.empty()) ::unlink(path_.c_str());
}

void SiblingFile::takeName() {
  if (::rename(path_.c_str(), target_.c_str()) != 0) fail("Cannot replace", target_);
  path_.clear();
  flushFolder(target_.parent_path());
}

void replaceFile(const fs::path& from, const fs::path& target) {
  const fs::path to = realPath(target);
  struct stat old {};
  if (::stat(to.c_str(), &old) == 0) {
    if (!S_ISREG(old.st_mode)) throw Fault("Not a file: " + to.string());
    if (::access(to.c_str(), W_OK) != 0) fail("Cannot replace", to);
    takeOver(from, old);
  }
  if (::rename(from.c_str(), to.c_str()) != 0) {
    if (errno != EXDEV) fail("Cannot replace", to);
    // On another volume a copy beside the target takes its place.
    SiblingFile(to, SiblingFile::Copy{from}).takeName();
    ::unlink(from.c_str());
  }
  flushFolder(to.parent_path());
}

void writeWhole(const fs::path& target, std::string_view bytes, const fs::path& temporary) {
  OutputFile out(temporary);
  try {
    out.write(bytes);
    out.close();
    replaceFile(temporary, target);
  } catch (...) {
    ::unlink(temporary.c_str());
    throw;
  }
}

void saveWhole(const fs::path& target, std::string_view bytes) {
  try {
    writeWhole(target, bytes, freeSibling(target));
  } catch (const Refused&) {
    // Such as a folder that is shut, or a file of somebody else's in one that all may write.
    const fs::path real = realPath(target);
    struct stat old {};
    if (::stat(real.c_str(), &old) != 0 || !S_ISREG(old.st_mode)) throw;
    overwrite(real, bytes);
  }
}

namespace {

/// What `read` makes of an open plain file, its path and its size.
template <class Read>
auto readBy(Read&& read, const fs::path& path) {
  const Descriptor file(path, O_RDONLY | O_NONBLOCK);
  struct stat about {};
  if (::fstat(file.number(), &about) != 0) fail("Cannot read", path);
  if (!S_ISREG(about.st_mode)) throw Fault("Not a file: " + path.string());
  try {
    return read(file.number(), path, about.st_size);
  } catch (const std::bad_alloc&) {
    throw Fault("Too large: " + path.string());
  } catch (const std::length_error&) {
    throw Fault("Too large: " + path.string());
  }
}

}  // namespace

std::string readWhole(const fs::path& path) { return readBy(readToEnd, path); }
std::deque<std::string> readPieces(const fs::path& path) { return readBy(piecesToEnd, path); }

}  // namespace zevfit
