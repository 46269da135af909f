// The controls of the format window and their places.
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "windows/click_label.h"
#include "windows/controls.h"
#include "windows/cores.h"
#include "windows/formfont.h"
#include "windows/frame2.h"

namespace zevfit {

namespace {

constexpr std::array<const char*, 3> kRows{"Title:", "Labels:", "Legend:"};
constexpr std::array<const char*, 3> kSpokenRows{"Font of the title", "Font of the axis numbers",
                                                 "Font of the legend"};
/// Of the semivariance axis, a gamma, and of the distance axis.
constexpr std::array<const char16_t*, 2> kMarks{u"\u03B3", u"h"};
constexpr std::array<const char*, 2> kSpokenPatterns{"Number pattern of the semivariance axis",
                                                     "Number pattern of the distance axis"};
constexpr int kFontWidth = 210, kPatternWidth = 120;

}  // namespace

void Formfont::makeControls() {
  Picture1 = named(new PictureBox, "Picture1", "Click to refresh");
  Picture1->setAccessibleName("Preview");
  Picture1->setFocusPolicy(Qt::StrongFocus);
  Picture1->setSizeTwips(kPreviewWidth, kPreviewHeight);
  Picture1->setFixedSize(Picture1->size());
  for (std::size_t row = 0; row < Label2.size(); ++row) {
    Label1[row] = named(makeLabel(kRows[row]), QString("Label1_%1").arg(row));
    Label2[row] = named(new ClickLabel, QString("Label2_%1").arg(row), "Click here");
    Label2[row]->setMinimumWidth(kFontWidth);
    Label2[row]->setAccessibleName(kSpokenRows[row]);
    Label3[row] = named(makeLabel(QString()), QString("Label3_%1").arg(row));
  }
  for (std::size_t i = 0; i < formato.size(); ++i) {
    formato[i] = named(new QLineEdit, QString("formato_%1").arg(i));
    formato[i]->setMinimumWidth(kPatternWidth);
    formato[i]->setAccessibleName(kSpokenPatterns[i]);
  }
  Command1 = makeIconButton("Command1", "defaults", "Default Options", {"Alt+D"});
  Command2 = makeIconButton("Command2", "continue", "Save Options", {"Ctrl+Return"});
  Command3 = makeIconButton("Command3", "cancel", "Cancel these Options", {});
  Command4 = makeIconButton("Command4", "help", "Help", {"Alt+H"});
  Command5 = makeIconButton("Command5", "colours", "Colors", {"Alt+C"});
  help_ = new Frame2(this);
  colours_ = new cores(fit_.session, chooser_, faults_, this);
}

void Formfont::layOut() {
  auto* fonts = new QGroupBox("Fonts");
  auto* rows = new QGridLayout(fonts);
  rows->addWidget(makeLabel("Fontname"), 0, 1);
  rows->addWidget(makeLabel("Fontsize"), 0, 2);
  for (std::size_t row = 0; row < Label2.size(); ++row) {
    const int at = static_cast<int>(row) + 1;
    rows->addWidget(Label1[row], at, 0);
    rows->addWidget(Label2[row], at, 1);
    rows->addWidget(Label3[row], at, 2);
  }
  rows->setColumnStretch(1, 1);

  auto* axis = new QGroupBox("Format - Axis");
  auto* patterns = new QGridLayout(axis);
  for (std::size_t i = 0; i < formato.size(); ++i) {
    auto* mark = makeLabel(QString::fromUtf16(kMarks[i]));
    mark->setBuddy(formato[i]);
    patterns->addWidget(mark, static_cast<int>(i), 0);
    patterns->addWidget(formato[i], static_cast<int>(i), 1);
  }
  patterns->setColumnStretch(1, 1);

  auto* leaving = new QHBoxLayout;
  for (QPushButton* button : {Command5, Command1, Command4}) leaving->addWidget(button);
  leaving->addStretch(1);
  for (QPushButton* button : {Command2, Command3}) leaving->addWidget(button);

  auto* side = new QVBoxLayout;
  side->addWidget(fonts);
  side->addWidget(axis);
  side->addStretch(1);
  auto* all = new QGridLayout(this);
  all->addLayout(side, 0, 0);
  all->addWidget(Picture1, 0, 1, Qt::AlignCenter);
  all->addLayout(leaving, 1, 0, 1, 2);
  all->setSizeConstraint(QLayout::SetMinAndMaxSize);
}

}  // namespace zevfit
