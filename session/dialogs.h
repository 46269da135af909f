#pragma once

#include <string_view>

#include "session/file_chooser.h"
#include "session/messages.h"
#include "session/style_chooser.h"

namespace zevfit {

/// All boxes of a desktop, as the program is handed them; its routines take the part that they
/// need.
class Dialogs : public Messages, public FileChooser, public StyleChooser {
 public:
  /// A fault that ends the program.
  virtual void fatal(std::string_view text) = 0;
};

}  // namespace zevfit
