#include "zvm/verbs/module.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <optional>
#include <sstream>
#include <streambuf>
#include <system_error>
#include <utility>

namespace zevfit::verbs {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolderSetting = "ZVM_MODULES";
/// Where Debian's packages have programs that users do not start.
constexpr const char* kInstalled = "../libexec/zevfit";

std::string reason(int error) { return std::generic_category().message(error); }

std::vector<fs::path> folders() {
  if (const char* named = std::getenv(kFolderSetting)) return {named};
  std::error_code unknown;
  const fs::path own = fs::read_symlink("/proc/self/exe", unknown).parent_path();
  return {own, own / kInstalled};
}

std::string pathOf(const Module& module) {
  for (const fs::path& folder : folders()) {
    const fs::path path = folder / module.name;
    if (::access(path.c_str(), X_OK) == 0) return path.string();
  }
  const std::string name = module.name;
  throw Failure(Exit::file, std::string(module.needs) + " takes the program " + name +
                                ", which is not there: install the package " + name +
                                ", or put the program beside zvm");
}

/// A descriptor that is closed whatever happens.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {
    if (number_ < 0) throw Failure(Exit::file, "no program can be started: " + reason(errno));
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  int number() const { return number_; }
  int release() { return std::exchange(number_, -1); }
  void close() {
    if (number_ >= 0) ::close(release());
  }

 private:
  int number_;
};

/// A file in the memory, open at its beginning.
Descriptor fileOf(const std::string& bytes) {
  Descriptor file(::memfd_create("zvm", MFD_CLOEXEC));
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written = ::write(file.number(), bytes.data() + done, bytes.size() - done);
    if (written < 0 && errno != EINTR)
      throw Failure(Exit::file, "no program can be started: " + reason(errno));
    done += static_cast<std::size_t>(written > 0 ? written : 0);
  }
  ::lseek(file.number(), 0, SEEK_SET);
  return Descriptor(file.release());
}

std::string contentOf(int file) {
  std::string text;
  std::array<char, 4096> chunk{};
  ::lseek(file, 0, SEEK_SET);
  for (ssize_t got = 0; (got = ::read(file, chunk.data(), chunk.size())) > 0;)
    text.append(chunk.data(), static_cast<std::size_t>(got));
  return text;
}

/// Reads from a descriptor, which it closes.
class PipeBuffer : public std::streambuf {
 public:
  explicit PipeBuffer(int pipe) : pipe_(pipe) {}
  PipeBuffer(const PipeBuffer&) = delete;
  PipeBuffer& operator=(const PipeBuffer&) = delete;
  ~PipeBuffer() override { ::close(pipe_); }

 protected:
  int_type underflow() override {
    ssize_t got = 0;
    do got = ::read(pipe_, chunk_.data(), chunk_.size());
    while (got < 0 && errno == EINTR);
    if (got <= 0) return traits_type::eof();
    setg(chunk_.data(), chunk_.data(), chunk_.data() + got);
    return traits_type::to_int_type(chunk_.front());
  }

 private:
  int pipe_;
  std::array<char, 65536> chunk_{};
};

/// What a new process has as its stdin, stdout and stderr.
class Streams {
 public:
  Streams(int in, int out, int err) {
    ::posix_spawn_file_actions_init(&actions_);
    const std::array numbers{in, out, err};
    for (int i = 0; i < 3; ++i)
      ::posix_spawn_file_actions_adddup2(&actions_, numbers.at(static_cast<std::size_t>(i)), i);
  }
  Streams(const Streams&) = delete;
  Streams& operator=(const Streams&) = delete;
  ~Streams() { ::posix_spawn_file_actions_destroy(&actions_); }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

/// The text of a line that begins with a word; nothing for another line.
std::optional<std::string> after(const std::string& word, const std::string& line) {
  if (!line.starts_with(word)) return std::nullopt;
  return line.substr(word.size());
}

}  // namespace

ModuleRun::ModuleRun(const Module& module, const std::vector<std::string>& arguments,
                     const std::string& input)
    : module_(module) {
  std::string path = pathOf(module);
  std::vector<std::string> words{path};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  const Descriptor in(fileOf(input));
  Descriptor messages(::memfd_create("zvm", MFD_CLOEXEC));
  std::array<int, 2> ends{-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) Descriptor failed(-1);
  Descriptor reading(ends[0]), writing(ends[1]);
  const Streams streams(in.number(), writing.number(), messages.number());
  const int error =
      ::posix_spawn(&process_, path.c_str(), streams.get(), nullptr, argv.data(), environ);
  if (error != 0) {
    process_ = -1;
    throw Failure(Exit::file, path + " can't be started: " + reason(error));
  }
  messages_ = messages.release();
  buffer_ = std::make_unique<PipeBuffer>(reading.release());
  out_ = std::make_unique<std::istream>(buffer_.get());
}

ModuleRun::~ModuleRun() {
  if (process_ > 0) {
    ::kill(process_, SIGKILL);
    wait();
  }
  if (messages_ >= 0) ::close(messages_);
}

int ModuleRun::wait() {
  int status = 0;
  while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) continue;
  process_ = -1;
  return status;
}

void ModuleRun::finish(Context& context) {
  const int status = wait();
  std::istringstream lines(contentOf(messages_));
  std::string error, last;
  for (std::string line; std::getline(lines, line);) {
    if (const auto warning = after("warning: ", line)) context.warning(*warning);
    if (const auto text = after("error: ", line)) error = *text;
    if (!line.empty()) last = line;
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return;
  if (error.empty()) error = std::string(module_.name) + " has failed: " + last;
  const bool isTold = WIFEXITED(status) && WEXITSTATUS(status) <= static_cast<int>(Exit::file);
  throw Failure(isTold ? static_cast<Exit>(WEXITSTATUS(status)) : Exit::file, error);
}

std::string outputOf(const Module& module, const std::string& input, Context& context) {
  ModuleRun run(module, {}, input);
  std::string bytes(std::istreambuf_iterator<char>(run.out()), {});
  run.finish(context);
  return bytes;
}

}  // namespace zevfit::verbs
