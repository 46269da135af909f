#pragma once

#include <fstream>
#include <memory>
#include <string>

#include "session/session.h"
#include "zvm/verbs/context.h"

namespace zevfit::verbs {

/// The bytes of a file, of "-" those of stdin; pipes and devices are read to their end. Throws
/// Failure where it can't be read.
std::string readInput(Context& context, const std::string& path);

/// A file to be read piece by piece. Throws Failure with the system's reason where it can't be
/// opened, and for a folder.
std::ifstream openInput(const std::string& path);

/// A variogram file in the tables of the program.
struct Loaded {
  std::string path;
  std::string title;  ///< in the bytes of the file, as all names
  std::string bytes;  ///< the whole file
  Session session;
};

/// Reads a variogram file. Throws Failure where check finds an error in it, with the first one;
/// warns of what the reader leaves out.
std::unique_ptr<Loaded> loadInput(Context& context, const std::string& path);

}  // namespace zevfit::verbs
