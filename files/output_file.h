#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zevfit {

/// Where the bytes of a new file go, in order.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  virtual void write(std::string_view bytes) = 0;
};

/// A file opened for writing, any old content dropped. Every failure throws Fault with what failed.
class OutputFile : public ByteSink {
 public:
  explicit OutputFile(const std::filesystem::path& path);
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
/// volumes. Follows a symbolic link to its target and keeps the permission bits of the old file.
/// Afterwards `from` is gone. Throws Fault on failure; the target is then as it was.
void replaceFile(const std::filesystem::path& from, const std::filesystem::path& target);

/// The bytes of a file; throws Fault when it can't be opened or read.
std::string readWhole(const std::filesystem::path& path);

}  // namespace zevfit
