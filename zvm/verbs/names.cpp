#include "zvm/verbs/names.h"

#include <filesystem>

#include "zvm/points/field.h"
#include "zvm/points/names.h"
#include "zvm/verbs/context.h"

namespace zevfit::verbs {

void requireName(const std::string& option, const std::string& name) {
  if (const auto refusal = zvm::nameRefusal(name))
    throw Failure(Exit::usage, option + " can't stand in a variogram file: " + *refusal);
}

std::string titleAsTold(const std::string& title) {
  requireName("--title", title);
  return *zvm::latin1Of(zvm::withoutBlanks(title));
}

std::string titleOfFile(const std::string& file) {
  return titleOfSource(std::filesystem::path(file).filename().string());
}

std::string titleOfSource(const std::string& name) {
  const bool isName = name != kStandardStream && !zvm::nameRefusal(name);
  return isName ? "Semivariograms of " + *zvm::latin1Of(name) : "Semivariograms";
}

std::string nameForFile(const std::string& from, const std::string& name, bool again) {
  if (const auto refusal = zvm::nameRefusal(name))
    throw Failure(Exit::data, "the name `" + name + "` can't stand in a variogram file: " +
                                  *refusal + "; give it another with --name \"" + from + "=NAME\"" +
                                  (again ? " as well" : ""));
  return *zvm::latin1Of(zvm::withoutBlanks(name));
}

}  // namespace zevfit::verbs
