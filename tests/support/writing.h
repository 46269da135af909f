#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "files/output_file.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {

inline Session sessionOf(const std::string& bytes) {
  Session session;
  EXPECT_TRUE(readVariogramBytes(bytes, session));
  return session;
}

/// One variable, one direction and one class.
inline Session oneClass() {
  return sessionOf(lines({"t", "zevra", "1", "zinc", "1", "1", "0;0", "2.5", "10 3 9"}));
}

/// An old file up to its count of variables, and a line so that it has not ended there.
inline std::string oldHeader() { return lines({"Flood plain", "zevra", " 2 ", "zinc"}); }

/// The bytes of a save over an old file.
inline std::string written(Session& session, std::int64_t variables,
                           const std::string& old = oldHeader()) {
  MemorySink sink;
  EXPECT_TRUE(composeVariogramFile(session, variables, old, sink));
  return sink.bytes;
}

}  // namespace zevfit::test
