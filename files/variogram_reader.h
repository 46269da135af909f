#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

#include "session/session.h"

namespace zevfit {

/// The last three characters of the file's name are "zvm" in any case; no point is asked for.
bool hasVariogramExtension(std::string_view fileName);

/// Reads a variogram file into the session tables and derives extremes and axis limits. False when
/// the stream ends at one of the tests before the model block: what was read stays, reset cells
/// stay reset. Statements that fail are dropped, so counts beyond the tables and texts in place of
/// numbers pass without a word; time and memory are in proportion to the bytes, whatever they
/// claim.
bool readVariogramBytes(std::string_view bytes, Session& session);

/// The same from a file; one that can't be opened or read counts as empty.
bool readVariogramFile(const std::filesystem::path& path, Session& session);

/// What a good read settles in the session: names for unnamed variables, the loaded mark, nvarfile,
/// cleared ticks, datavar and inputfile.
void acceptLoad(Session& session, const std::filesystem::path& path);

/// What a load has made of the tables: they hold the file, they are as they were, or they hold the
/// beginning of the file and behind it what was there before.
enum class Load { good, refused, halfWay };

/// Reads a file and, where that was good, accepts it. Calls `beforeStoring`, if it is given, right
/// before the first change of the tables.
Load loadVariogramFile(const std::filesystem::path& path, Session& session,
                       const std::function<void()>& beforeStoring = {});

}  // namespace zevfit
