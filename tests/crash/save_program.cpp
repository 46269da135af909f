// Saves what the program saves, once, for the tests that let its calls fail:
//
//     save_program models FOLDER FILE       the models, into the variogram file
//     save_program parameters FOLDER        the parameters, into the program's folder
//     save_program kriging FOLDER FILE      a model, into the kriging file
//     save_program rescue FOLDER FILE       the models, as a program does that must end
//
// Prints each box that the user sees on a line, a line feed within it as "|".
#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>

#include "files/kriging_file.h"
#include "files/rescue.h"
#include "files/saveini.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "tests/support/scripted_dialogs.h"

// The preloaded library's, or nothing.
extern "C" void zevfit_arm_faults() __attribute__((weak));

namespace {

void arm() {
  if (zevfit_arm_faults != nullptr) zevfit_arm_faults();
}

/// The session of a file, with a nugget.
zevfit::Session fitted(const std::string& file) {
  zevfit::Session session;
  if (!zevfit::readVariogramFile(file, session)) return session;
  zevfit::acceptLoad(session, file);
  session.use0({1, 1}) = 1;
  session.c0({1, 1}) = 0.25;
  return session;
}

void rescue(const std::string& folder, const std::string& file, zevfit::Dialogs& dialogs) {
  const zevfit::Session session = fitted(file);
  arm();
  dialogs.plain(zevfit::writeRescue(session, session.nvar, folder) ? "rescued" : "lost");
}

void saveModels(const std::string& folder, const std::string& file, zevfit::Dialogs& dialogs) {
  zevfit::Session session = fitted(file);
  zevfit::ModelSaver saver(folder);
  arm();
  const auto note = saver.gravando(session, static_cast<std::int16_t>(session.nvar), dialogs);
  if (note) std::cout << "foot: " << *note << '\n';
}

void saveParameters(const std::string& folder, zevfit::Dialogs& dialogs) {
  zevfit::GraphStyle style;
  style.Formfont.formato[0] = "#0.000";
  arm();
  zevfit::saveini(style, "a.zvm", folder, 1, 1, dialogs);
}

/// Takes any three directions for orthogonal.
class AnyDirections : public zevfit::Orthogonality {
 public:
  std::int16_t Normal_verif(float, float, float, float, float, float) const override { return 1; }
};

void saveKriging(const std::string& file, zevfit::test::ScriptedDialogs& dialogs) {
  zevfit::KrigingModel model;
  model.variable = "ln zinc";
  for (zevfit::AxisTexts* axis : {&model.main, &model.minor1, &model.minor2}) (*axis)[2] = "100";
  model.rowcells[3] = "0.5";
  dialogs.saved = {file};
  arm();
  zevfit::saveKrigingFile(model, AnyDirections(), dialogs, dialogs);
}

}  // namespace

int main(int count, char** values) {
  zevfit::test::ScriptedDialogs dialogs;
  const std::string_view what = count > 1 ? values[1] : "";
  if (what == "models" && count == 4)
    saveModels(values[2], values[3], dialogs);
  else if (what == "parameters" && count == 3)
    saveParameters(values[2], dialogs);
  else if (what == "rescue" && count == 4)
    rescue(values[2], values[3], dialogs);
  else if (what == "kriging" && count == 4)
    saveKriging(values[3], dialogs);
  else
    return 2;
  for (std::string text : dialogs.shown) {
    std::replace(text.begin(), text.end(), '\n', '|');
    std::cout << text << '\n';
  }
  return 0;
}
