// Preloaded into a program that saves: lets the nth of its calls on files below a folder fail, or
// ends the process in front of it. Counts from the moment at which the program calls
// zevfit_arm_faults. Set by the environment:
//
//     ZEVFIT_FAULT          "N MODE"; MODE is the number of an error, "kill", or "torn", which ends
//                           the process too, but writes half of what a write was to write
//     ZEVFIT_FAULT_FOLDER   the folder
//     ZEVFIT_FAULT_VOLUMES  set: a rename from one folder to another fails as between two volumes
//
// Says "fault reached" on the standard error when the nth call has come.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

enum class Mode { fail, kill, torn };

struct Plan {
  Plan() {
    const char* fault = std::getenv("ZEVFIT_FAULT");
    const char* below = std::getenv("ZEVFIT_FAULT_FOLDER");
    if (fault == nullptr || below == nullptr) return;
    folder = below;
    volumes = std::getenv("ZEVFIT_FAULT_VOLUMES") != nullptr;
    char* mode = nullptr;
    at = std::strtol(fault, &mode, 10);
    const std::string_view name(mode + 1);
    if (name == "kill") how = Mode::kill;
    if (name == "torn") how = Mode::torn;
    if (how == Mode::fail) error = std::atoi(mode);
  }

  bool watches(const char* path) const {
    return armed && path != nullptr && std::string_view(path).substr(0, folder.size()) == folder;
  }
  bool watches(int descriptor) const {
    return armed && descriptor >= 0 && static_cast<std::size_t>(descriptor) < watched.size() &&
           watched.at(static_cast<std::size_t>(descriptor));
  }
  void watch(int descriptor, bool on) {
    if (descriptor >= 0 && static_cast<std::size_t>(descriptor) < watched.size())
      watched.at(static_cast<std::size_t>(descriptor)) = on;
  }

  std::string folder;
  bool volumes = false;
  bool armed = false;
  long at = 0;
  long calls = 0;
  Mode how = Mode::fail;
  int error = 0;
  std::array<bool, 256> watched{};
};

Plan& plan() {
  static Plan only;
  return only;
}

template <class Function>
Function real(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

void say(std::string_view text) {
  real<ssize_t (*)(int, const void*, size_t)>("write")(2, text.data(), text.size());
}

/// Counts a call that is watched; true when it is to fail, with the error set.
bool fails(bool watched) {
  Plan& p = plan();
  if (!watched || ++p.calls != p.at) return false;
  say("fault reached\n");
  if (p.how != Mode::fail) {
    ::kill(::getpid(), SIGKILL);
    for (;;) ::pause();
  }
  errno = p.error;
  return true;
}

int opened(const char* name, const char* path, int flags, mode_t mode) {
  const bool watched = plan().watches(path);
  if (fails(watched)) return -1;
  const int made = real<int (*)(const char*, int, ...)>(name)(path, flags, mode);
  plan().watch(made, watched);
  return made;
}

std::string_view folderOf(std::string_view path) { return path.substr(0, path.rfind('/')); }

}  // namespace

extern "C" {

void zevfit_arm_faults() { plan().armed = true; }

int open(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
  va_end(more);
  return opened("open", path, flags, mode);
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
  const auto forReal = real<ssize_t (*)(int, const void*, size_t)>("write");
  Plan& p = plan();
  const bool watched = p.watches(descriptor);
  if (watched && p.how == Mode::torn && p.calls + 1 == p.at) forReal(descriptor, bytes, size / 2);
  if (fails(watched)) return -1;
  return forReal(descriptor, bytes, size);
}

int fsync(int descriptor) {
  if (fails(plan().watches(descriptor))) return -1;
  return real<int (*)(int)>("fsync")(descriptor);
}

int close(int descriptor) {
  const bool watched = plan().watches(descriptor);
  plan().watch(descriptor, false);
  const bool failing = fails(watched);
  const int result = real<int (*)(int)>("close")(descriptor);
  if (!failing) return result;
  errno = plan().error;
  return -1;
}

int rename(const char* from, const char* to) {
  const bool watched = plan().watches(from);
  if (fails(watched)) return -1;
  if (watched && plan().volumes && folderOf(from) != folderOf(to)) {
    errno = EXDEV;
    return -1;
  }
  return real<int (*)(const char*, const char*)>("rename")(from, to);
}

int unlink(const char* path) {
  if (fails(plan().watches(path))) return -1;
  return real<int (*)(const char*)>("unlink")(path);
}

int chmod(const char* path, mode_t mode) {
  if (fails(plan().watches(path))) return -1;
  return real<int (*)(const char*, mode_t)>("chmod")(path, mode);
}

int chown(const char* path, uid_t user, gid_t group) {
  if (fails(plan().watches(path))) return -1;
  return real<int (*)(const char*, uid_t, gid_t)>("chown")(path, user, group);
}

}  // extern "C"
