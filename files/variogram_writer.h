#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "files/output_file.h"
#include "session/messages.h"
#include "session/session.h"

namespace zevfit {

/// Writes the session as a variogram file with its models; `variables` is the count written. Takes
/// title and tag from the old file, and its count of variables into `nvar`. False when the old file
/// ends at one of the tests: what stands in front of it is written. Throws Fault for anything that
/// can't be written.
bool composeVariogramFile(Session& session, std::int64_t variables, std::string_view oldFile,
                          ByteSink& out);

/// Writes the session as a variogram file with all fit cells as they stand, so that reading it
/// brings the same session back: also the lines of a model that are not used, and flags that a save
/// leaves out. Counts that the tables have no room for, as a bad file leaves them behind, are cut
/// to what there is.
void composeWhole(const Session& session, std::int64_t variables, std::string_view title,
                  ByteSink& out);

/// Writes the session's data as a variogram file without a model block.
void composeData(const Session& session, std::int64_t variables, std::string_view title,
                 ByteSink& out);

/// Saves the models into the loaded file: builds the whole file in the temporary file of the
/// program's folder and puts it in the place of the old one in one step. The first save after a
/// load keeps the old one.
class ModelSaver {
 public:
  /// `folder`: the program's own, where the temporary file is made.
  explicit ModelSaver(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// Asks, saves and reports, all through `messages`. `listedVariables` is the number of entries in
  /// the main window's list of variables, which is the count written. Changes `nvar` and `filetag`
  /// of the session to what the old file has. When the old file ends too early the temporary file
  /// stays behind open, so that exactly the next save fails. With no variable listed there is no
  /// file to save. Returns what is to be told of a file that was saved without being kept.
  std::optional<std::string> gravando(Session& session, std::int16_t listedVariables,
                                      Messages& messages);

  /// The last call of gravando has saved the models.
  bool hasSaved() const { return hasSaved_; }

  /// A file was loaded: the next save that succeeds keeps it as it is then, beside it under its
  /// name and a tilde or, where that folder can't be written, in the program's folder. Until the
  /// save has succeeded the copy has a name of its own, and an older one keeps its place.
  void startFile() { isKept_ = false; }

  /// Closes the temporary file that a save has left open.
  void closeFiles() { leftOpen_.reset(); }

 private:
  std::optional<std::string> save(Session& session, std::int16_t listedVariables,
                                  Messages& messages);
  std::filesystem::path keptName(const std::filesystem::path& file) const;
  /// Puts the new file in the place of the old one and keeps that; where it can't keep it, what is
  /// to be told of that. Throws Fault where the file can't be replaced.
  std::optional<std::string> replaceAndKeep(const std::filesystem::path& temporary,
                                            const std::filesystem::path& file) const;

  std::filesystem::path folder_;
  bool isKept_ = false;
  bool hasSaved_ = false;
  std::unique_ptr<OutputFile> leftOpen_;
};

/// The name of the temporary file in the program's folder.
inline constexpr const char* kTemporaryName = "temporario.zvm";
/// Behind the name of a file: the file as it was before the first save.
inline constexpr const char* kKeptSuffix = "~";

}  // namespace zevfit
