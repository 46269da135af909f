#include "zvm/verbs/file_report.h"

#include "zvm/verbs/output.h"

namespace zevfit::verbs {

void requireOutput(const Context& context, const std::string& output) {
  if (context.common.json && isStandardOutput(output))
    throw Failure(Exit::usage, "--json reports on a file: it takes another OUT than stdout");
  if (output != kStandardStream) requireFree(output, context.common.overwrite);
}

void reportOn(Context& context, const std::string& output, const Json& object,
              const std::string& text) {
  if (context.common.json) return context.print(textOf(object));
  if (isStandardOutput(output)) return context.printBeside(text);
  context.print(text);
}

}  // namespace zevfit::verbs
