#pragma once

#include <deque>
#include <filesystem>
#include <string>
#include <string_view>

namespace zevfit {

/// How the program ends its lines.
inline constexpr std::string_view kLineEnd = "\r\n";

/// Where the bytes of a new file go, in order.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  virtual void write(std::string_view bytes) = 0;
};

/// A sink that keeps the bytes.
class MemorySink : public ByteSink {
 public:
  std::string bytes;
  void write(std::string_view more) override { bytes += more; }
};

/// A file opened for writing. A symbolic link is never followed: it gives way to the new file.
/// Every failure throws Fault with what failed; what could not be written is not tried again.
class OutputFile : public ByteSink {
 public:
  /// What becomes of a file of that name; where it is refused, so is a link.
  enum class Old { dropped, refused };

  explicit OutputFile(const std::filesystem::path& path, Old old = Old::dropped);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() override;

  void write(std::string_view bytes) override;
  /// Writes out what is buffered, flushes it to the disk and closes.
  void close();

 private:
  void flush();

  int descriptor_ = -1;
  std::string buffer_;
};

/// Puts a finished file in the place of another in one step of the file system: at every moment the
/// target is either the old file whole or the new one whole, also when the two lie on different
/// volumes. Follows a symbolic link to its target and keeps the permission bits and the owner of
/// the old file as far as it may. Afterwards `from` is gone. Throws Fault on failure; the target is
/// then as it was.
void replaceFile(const std::filesystem::path& from, const std::filesystem::path& target);

/// A whole file, flushed to the disk, under a free name beside a target: it takes the target's name
/// or goes.
class SiblingFile {
 public:
  /// What a copy is made of.
  struct Copy {
    std::filesystem::path file;
  };

  /// Throws Fault on failure; then nothing is left of it.
  SiblingFile(const std::filesystem::path& target, std::string_view bytes);
  /// With the bytes of another file, and with its permission bits and its owner as far as it may.
  SiblingFile(const std::filesystem::path& target, const Copy& of);
  SiblingFile(const SiblingFile&) = delete;
  SiblingFile& operator=(const SiblingFile&) = delete;
  ~SiblingFile();

  /// Takes the name of the target in one step; a file or a link of that name gives way. Throws
  /// Fault on failure; what had that name is then as it was.
  void takeName();

 private:
  std::filesystem::path target_;
  std::filesystem::path path_;  ///< empty once the name is taken
};

/// Writes a file whole, as `temporary`, and puts it in the place of the target as replaceFile does.
/// Throws Fault on failure; the target is then as it was, and nothing of the new file is left.
void writeWhole(const std::filesystem::path& target, std::string_view bytes,
                const std::filesystem::path& temporary);
/// Writes a file whole beside the target and puts it in its place. Where the rights do not allow
/// that, as in a folder that may not be written, the bytes go into the target itself, which is then
/// no single step. Throws Fault on failure.
void saveWhole(const std::filesystem::path& target, std::string_view bytes);
/// A name beside the target that no file has; throws Fault when there is none.
std::filesystem::path freeSibling(const std::filesystem::path& target);

/// The bytes of a file; throws Fault when it can't be opened or read, is no plain file (never waits
/// for a pipe or a device) or is too large for the memory.
std::string readWhole(const std::filesystem::path& path);
/// The same in pieces, for who lets go of each on his way.
std::deque<std::string> readPieces(const std::filesystem::path& path);

}  // namespace zevfit
