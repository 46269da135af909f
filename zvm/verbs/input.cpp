#include "zvm/verbs/input.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include "files/variogram_reader.h"
#include "zvm/checking/check_file.h"
#include "zvm/verbs/connection.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

constexpr std::size_t kChunk = std::size_t{1} << 16;

[[noreturn]] void fail(const std::string& path, int error) {
  throw Failure(Exit::file,
                "cannot read " + shownSource(path) + ": " + std::generic_category().message(error));
}

/// An open file that is closed whatever happens.
class InputFile {
 public:
  explicit InputFile(const std::string& path)
      : path_(path), descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor_ < 0) fail(path_, errno);
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() { ::close(descriptor_); }

  std::string readAll() const {
    std::string bytes;
    for (;;) {
      const std::size_t filled = bytes.size();
      bytes.resize(filled + kChunk);
      const ssize_t got = ::read(descriptor_, bytes.data() + filled, kChunk);
      bytes.resize(filled + static_cast<std::size_t>(got > 0 ? got : 0));
      if (got == 0) return bytes;
      if (got < 0 && errno != EINTR) fail(path_, errno);
    }
  }

 private:
  const std::string& path_;
  int descriptor_;
};

std::string placed(const std::string& path, const checking::Finding& finding) {
  return path + ':' + std::to_string(finding.place.line) + ':' +
         std::to_string(finding.place.column) + ": " + utf8Of(finding.text);
}

void reportReading(Context& context, const std::string& path, const checking::CheckResult& check) {
  for (const checking::Finding& finding : check.findings) {
    if (finding.severity == checking::Severity::error)
      throw Failure(Exit::data, placed(path, finding));
    if (finding.topic == checking::Topic::reading) context.warning(placed(path, finding));
  }
}

}  // namespace

std::string readInput(Context& context, const std::string& path) {
  if (path != kStandardStream) return InputFile(path).readAll();
  // The buffer of a stream that can't be read throws, whatever the stream's own state says.
  try {
    return std::string(std::istreambuf_iterator<char>(context.in()), {});
  } catch (const std::ios_base::failure&) {
    fail("stdin", EIO);
  }
}

std::ifstream openInput(const std::string& path) {
  std::error_code unknown;
  if (std::filesystem::is_directory(path, unknown)) fail(path, EISDIR);
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) fail(path, errno);
  return file;
}

std::unique_ptr<Loaded> loadInput(Context& context, const std::string& path) {
  std::string bytes = readInput(context, path);
  const checking::CheckResult check = checking::checkFile(bytes);
  reportReading(context, path, check);
  auto loaded = std::make_unique<Loaded>();
  loaded->path = path;
  loaded->title = check.content.title;
  if (!readVariogramBytes(bytes, loaded->session))
    throw Failure(Exit::data, path + " is no variogram file");
  acceptLoad(loaded->session, path);
  loaded->bytes = std::move(bytes);
  return loaded;
}

}  // namespace zevfit::verbs
