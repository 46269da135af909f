#pragma once

#include <string>

#include "zvm/verbs/context.h"
#include "zvm/verbs/report.h"

namespace zevfit::verbs {

/// Throws Failure where a verb can't write this file: it exists, or it is stdout, which --json
/// wants for itself.
void requireOutput(const Context& context, const std::string& output);

/// Prints the report of a verb that writes a file: the object with --json, otherwise the text, on
/// stderr where the file goes to stdout.
void reportOn(Context& context, const std::string& output, const Json& object,
              const std::string& text);

}  // namespace zevfit::verbs
