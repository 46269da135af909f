#include "files/saveini.h"

#include <exception>
#include <string>

#include "files/family_file.h"
#include "files/parameter_file.h"
#include "session/policy.h"

namespace zevfit {

namespace {

namespace fs = std::filesystem;

Answer decide(std::int32_t p, std::int32_t q, Messages& messages) {
  if (p == 1 && q == 0) return Answer::no;
  if (p == 1 && q == 1) return Answer::yes;
  return messages.question(kSaveQuestion);
}

/// The message names the file in capitals and behind a backslash, whatever its real name.
void save(const GraphStyle& style, std::string_view inputPath, const fs::path& folder,
          Messages& messages) {
  attempt(
      [&] { writeParameters(folder, style, inputPath); },
      [&] {
        messages.plain("Cannot save  session parameters to " + folder.string() + "\\zevFIT.INI");
      });
}

}  // namespace

bool saveini(const GraphStyle& style, std::string_view inputPath, const fs::path& folder,
             std::int32_t p, std::int32_t q, Messages& messages) {
  const Answer answer = decide(p, q, messages);
  if (answer == Answer::yes) save(style, inputPath, folder, messages);
  return answer != Answer::cancel;
}

bool closeRequest(const GraphStyle& style, std::string_view inputPath, const fs::path& folder,
                  Messages& messages) {
  const SaveCode code = loadSaveCode(folder);
  return saveini(style, inputPath, folder, code.p, code.q, messages);
}

}  // namespace zevfit
