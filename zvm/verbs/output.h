#pragma once

#include <span>
#include <string>
#include <string_view>

#include "zvm/verbs/context.h"

namespace zevfit::verbs {

/// The file is stdout, under any of its names.
bool isStandardOutput(const std::string& path);

/// What is there and no regular file, such as a device or a pipe.
bool isSpecial(const std::string& path);

/// Throws Failure where a file of that name is there and may not be overwritten. What is no regular
/// file, such as a device or a pipe, is written to as it is, and so is an open descriptor, such as
/// /dev/stdout or /proc/self/fd/3, also one of a regular file, which it continues. A folder can't
/// be written.
void requireFree(const std::string& path, bool overwrite);

/// Writes a file in one step, of a symbolic link its target: at every moment there is no file, the
/// old one whole or the new one whole. A signal that asks for the end (interrupt, terminate, hang
/// up) is looked at before the last step; where there is one nothing is left and it takes its
/// course. Throws Failure where the file can't be written, and what `accept` of the file throws for
/// the bytes that are read back from the disk; nothing is left then.
void writeOutput(const PendingFile& file, bool overwrite);

/// Writes several files so: where one can't be made none of them is there.
void writeOutputs(std::span<const PendingFile> files, bool overwrite);

/// From here on the signals that ask for the end exit with the code of an interruption, and a file
/// beyond the limit of the user fails as any write does.
void exitOnSignals();

}  // namespace zevfit::verbs
