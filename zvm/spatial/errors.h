#pragma once

#include <cpl_error.h>

#include <functional>
#include <string>

namespace zevfit::spatial {

/// Takes what OGR says while this lives: of what fails the first message is kept, since those
/// behind it follow from it.
class Errors {
 public:
  /// `warn` is told each warning.
  explicit Errors(std::function<void(const std::string&)> warn);
  Errors(const Errors&) = delete;
  Errors& operator=(const Errors&) = delete;
  ~Errors();

  /// Before a call whose failure counts.
  void forget() { first_.clear(); }
  bool isAny() const { return !first_.empty(); }
  /// Why the calls since then failed, in one line.
  std::string reason() const;
  /// For what OGR has not noticed.
  void warn(const std::string& text) const { warn_(text); }

 private:
  static void CPL_STDCALL take(CPLErr kind, CPLErrorNum number, const char* text);

  std::function<void(const std::string&)> warn_;
  std::string first_;
};

/// A message without passwords: with `shown` in the place of the source, and where these differ
/// without what looks like a password.
std::string withoutPasswords(std::string text, const std::string& source, const std::string& shown);

}  // namespace zevfit::spatial
