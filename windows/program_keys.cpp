#include "windows/program_keys.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zevfit {

namespace {

constexpr const char* kMain = "mdimod";
constexpr const char* kFile = "File and models";
constexpr const char* kPlots = "Plots";
constexpr const char* kPanel = "Panel";
constexpr const char* kHelp = "Help";
constexpr const char* kData = "Data structure";
constexpr const char* kResults = "Results";
constexpr const char* kTest = "Test of coregionalization";
constexpr const char* kAxes = "Axes and legend";
constexpr const char* kFormat = "Format and colours";
constexpr const char* kReports = "Reports";
constexpr const char* kAll = "All directions";
constexpr const char* kEverywhere = "Everywhere";

constexpr auto kKeys = std::to_array<ProgramKey>({
    {kFile, kMain, "k1", "Ctrl+O", "Open a file"},
    {kFile, kMain, "k2", "Ctrl+D", "Look through the data of the file"},
    {kFile, kMain, "k11", "Ctrl+S", "Save the models"},
    {kFile, kMain, "k3", "Ctrl+R", "Results and the kriging file"},
    {kFile, kMain, "kp", "Ctrl+P", "Report sheets"},
    {kPlots, kMain, "k8", "Ctrl+C", "Copy the current plot; in a field, the text"},
    {kPlots, kMain, "mnupicture", "Ctrl+E", "Save the current plot as a picture"},
    {kPlots, kMain, "mnudirections", "Ctrl+L", "All directions of the current variable"},
    {kPlots, kMain, "k10", "Ctrl+F", "Format of the plots"},
    {kPlots, kMain, "kmais", "Ctrl++; Ctrl+=", "Enlarge the current plot"},
    {kPlots, kMain, "kmenos", "Ctrl+-", "Reduce the current plot"},
    {kPlots, kMain, "nextplot", "Ctrl+F6", "Next plot"},
    {kPlots, kMain, "formerplot", "Ctrl+Shift+F6", "Previous plot"},
    {kPlots, kMain, "closeplot", "Ctrl+F4; Ctrl+W", "Close the current plot"},
    {kPanel, kMain, "Command5", "Alt+P", "PLOT"},
    {kPanel, kMain, "mnustart", "Ctrl+Shift+S", "Start model; again: take it back"},
    {kPanel, kMain, "takevariance", "Alt+V", "Take the variance as the sill"},
    {kPanel, "", "", "Enter", "A typed number counts"},
    {kPanel, "", "", "Arrows, Page Up, Page Down", "Move a slider; choose an option or an entry"},
    {kHelp, kMain, "mnumanual", "F1", "The manual, at the section of the window"},
    {kHelp, kMain, "mnukeys", "Ctrl+F1", "This list"},
    {kData, "frmzevfit", "adicionar", "Alt+A", "Add the ticked variables"},
    {kData, "frmzevfit", "remove", "Alt+R", "Remove a sum"},
    {kData, "frmzevfit", "Command2", "Ctrl+Return", "Continue with the file"},
    {kData, "frmzevfit", "Command1", "Alt+Left", "Leave without that"},
    {kResults, "modfinal", "Command2", "Alt+S", "Save the kriging file"},
    {kResults, "modfinal", "Command1", "Alt+Left", "Back to the fit"},
    {kTest, "testcruz", "Command1", "Alt+T", "Test the models"},
    {kAxes, "cutgraph", "Command2", "Alt+S", "Save the ends of the axes"},
    {kAxes, "cutgraph", "Command1", "Alt+C", "Leave the ends as they are"},
    {kAxes, "legenda", "Command2", "Alt+S", "Save the legend"},
    {kAxes, "legenda", "Command1", "Alt+C", "Leave the legend as it is"},
    {kFormat, "Formfont", "Command1", "Alt+D", "Default format"},
    {kFormat, "Formfont", "Command2", "Ctrl+Return", "Save the format"},
    {kFormat, "Formfont", "Command4", "Alt+H", "Help on number patterns"},
    {kFormat, "Formfont", "Command5", "Alt+C", "Colours"},
    {kReports, "printcolection", "printar", "Ctrl+P", "Print the report"},
    {kAll, "alldirections", "showall", "Alt+A", "Show all directions"},
    {kAll, "alldirections", "shownone", "Alt+N", "Show none"},
    {kEverywhere, "", "", "Tab, Shift+Tab", "From control to control; the toolbar too"},
    {kEverywhere, "", "", "Blank", "Press, tick, or click the cell that the arrows have led to"},
    {kEverywhere, "", "", "Alt", "The menus"},
    {kEverywhere, "", "", "Esc", "Leave a window or a box; not the colours, which would be lost"},
});

}  // namespace

std::span<const ProgramKey> programKeys() { return kKeys; }

QList<QKeySequence> keysOf(const char* control) {
  const auto row = std::find_if(kKeys.begin(), kKeys.end(), [control](const ProgramKey& key) {
    return std::string_view(key.window) == kMain && std::string_view(key.control) == control;
  });
  if (row == kKeys.end()) return {};
  return QKeySequence::listFromString(row->keys);
}

}  // namespace zevfit
