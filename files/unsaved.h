#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "session/session.h"

namespace zevfit {

/// Keeps what no save has brought into the loaded file, before it is lost.
class Unsaved {
 public:
  /// Gives a file that was read the values that showing it has brought into the tables.
  using Settle = std::function<void(const Session& shown, Session& file)>;

  /// `folder`: the program's own, for the rescue file.
  explicit Unsaved(
      std::filesystem::path folder, Settle settle = [](const Session&, Session&) {})
      : folder_(std::move(folder)), settle_(std::move(settle)) {}

  /// Writes the first `variables` variables with their models into the rescue file where their data
  /// or models differ from those of the loaded file, lines that are not used and what showing it
  /// has changed apart; not twice in a row, as long as the file is the same and the rescue is
  /// there. Returns what is to be told where they can't be written; without a file nothing happens.
  std::optional<std::string> keep(const Session& session, std::int64_t variables);
  /// What stands in the tables is not worth keeping as long as nobody changes it.
  void disregard(const Session& session, std::int64_t variables);

 private:
  /// What was kept or disregarded last.
  struct Settled {
    std::string file, content;
    bool isKept = false;
  };
  bool isInFile(const Session& session, const std::string& content) const;
  bool isSettled(const std::string& file, const std::string& content) const;

  std::filesystem::path folder_;
  Settle settle_;
  Settled settled_;
};

}  // namespace zevfit
