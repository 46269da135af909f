#pragma once

#include <memory>

#include "zvm/plotting/request.h"

namespace zevfit::plotting {

/// The tables of a request: style and, where there is a file, its data. Throws Fault for a file
/// that is none.
std::unique_ptr<Session> sessionOf(const Request& request);

/// Draws a picture of that size in twips. Throws Fault for a variable or direction that no table
/// has.
void drawPage(const Session& session, const Page& page, Surface& surface, double width,
              double height);

}  // namespace zevfit::plotting
