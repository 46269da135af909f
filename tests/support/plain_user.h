#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace zevfit::test {

inline constexpr uid_t kPlainUser = 65534;

/// Whether `check` holds in a process of a user whom permissions bind, as they don't bind root.
inline bool holdsForAPlainUser(const std::function<bool()>& check, uid_t user = kPlainUser) {
  const pid_t child = ::fork();
  if (child == 0) {
    const bool plain = ::geteuid() != 0 || (::setgid(user) == 0 && ::setuid(user) == 0);
    ::_exit(plain && check() ? 0 : 1);
  }
  int code = 0;
  return child > 0 && ::waitpid(child, &code, 0) == child && WIFEXITED(code) &&
         WEXITSTATUS(code) == 0;
}

}  // namespace zevfit::test
