// What somebody does to the program: one event each.
#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <array>

#include "tests/users/user.h"
#include "windows/mdimod.h"

namespace zevfit::test {

namespace {

const std::vector<std::string> kTexts{
    "0",   "1",    "0.5",    "15",  "-5",    "1.5",  "2",      "1e-05", "900",    "1e999",
    "abc", "",     "#0.000", "0.0", "##,##", ".",    "1,5",    "  7",   "1e308",  "\xe9",
    "sum", "zinc", "100000", "45",  "90",    "-0.1", "0.0001", "S",     "1e-320", "h (m)"};

const std::vector<Qt::Key> kKeys{Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,
                                 Qt::Key_Escape, Qt::Key_Space,   Qt::Key_Up,     Qt::Key_Down,
                                 Qt::Key_Left,   Qt::Key_Right,   Qt::Key_Home,   Qt::Key_End,
                                 Qt::Key_F1,     Qt::Key_F4,      Qt::Key_F6,     Qt::Key_PageDown,
                                 Qt::Key_PageUp, Qt::Key_Delete,  Qt::Key_1,      Qt::Key_0,
                                 Qt::Key_Period, Qt::Key_E,       Qt::Key_A,      Qt::Key_Backspace,
                                 Qt::Key_Menu,   Qt::Key_Alt,     Qt::Key_F10,    Qt::Key_S};

bool isForUsers(const QWidget& control) {
  return control.isVisible() && control.isEnabled() && control.width() > 2 && control.height() > 2;
}

/// A letter that no key stands for is pasted.
void press(QLineEdit& field, char letter) {
  if (static_cast<unsigned char>(letter) < 128) return QTest::keyClick(&field, letter);
  field.insert(QString(QLatin1Char(letter)));
}

/// What does something when it is pointed at.
bool works(const QWidget& control) {
  const QString name = control.objectName();
  return qobject_cast<const QAbstractButton*>(&control) ||
         qobject_cast<const QComboBox*>(&control) || qobject_cast<const QLineEdit*>(&control) ||
         (qobject_cast<const QAbstractSlider*>(&control) && !name.isEmpty()) ||
         name.startsWith("Picture") || name.startsWith("estru") || name.startsWith("Label") ||
         name == "qt_scrollarea_viewport";
}

/// The plot in whose content a control lies; nothing for those of other windows and of its frame.
QMdiSubWindow* plotAround(QWidget& control) {
  for (QWidget* above = control.parentWidget(); above; above = above->parentWidget())
    if (auto* plot = qobject_cast<QMdiSubWindow*>(above))
      return plot->widget()->isAncestorOf(&control) ? plot : nullptr;
  return nullptr;
}

/// A window that is hidden rather than taken away when it closes.
bool lasts(const QWidget& window) {
  return window.windowType() != Qt::Popup && !window.objectName().isEmpty() &&
         !window.objectName().startsWith("Dialog");
}

}  // namespace

std::string nameOf(const QWidget& control) {
  return std::string(control.metaObject()->className()) + " " + control.objectName().toStdString();
}

QWidget* User::stage() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  std::vector<QWidget*> shown;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->isEnabled() && window->windowHandle() &&
        window->windowType() != Qt::ToolTip)
      shown.push_back(window);
  // The toolkit's order is that of their places in the memory.
  std::sort(shown.begin(), shown.end(),
            [](const QWidget* a, const QWidget* b) { return nameOf(*a) < nameOf(*b); });
  return shown.empty() ? nullptr : chance_.among(shown);
}

QWidget* User::target(QWidget& stage) {
  std::vector<QWidget*> found;
  std::vector<QWidget*> working;
  for (QWidget* control : stage.findChildren<QWidget*>()) {
    if (control->window() != &stage || !isForUsers(*control)) continue;
    found.push_back(control);
    if (works(*control)) working.push_back(control);
  }
  if (!working.empty() && chance_.inHundred(75)) return chance_.among(working);
  return found.empty() ? nullptr : chance_.among(found);
}

QPoint User::placeIn(QWidget& control) {
  return control.mapTo(control.window(),
                       QPoint(chance_.upTo(control.width()), chance_.upTo(control.height())));
}

void User::answerFiles(QFileDialog& dialog) {
  auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
  const bool writes = dialog.acceptMode() == QFileDialog::AcceptSave;
  if (!name || chance_.inHundred(15)) {
    note("cancels a file dialog");
    return dialog.reject();
  }
  const std::string path = writes ? desk_.newFile(chance_) : desk_.anyFile(chance_);
  note("chooses " + path);
  name->setText(QString::fromStdString(path));
  QTest::keyClick(name, Qt::Key_Return);
}

void User::answer(QMessageBox& box) {
  QAbstractButton* button = chance_.among(box.buttons());
  note("answers '" + box.text().toStdString() + "' by " + button->text().toStdString());
  button->click();
}

bool User::fit() {
  if (!window_->isEnabled() || QApplication::activeModalWidget() ||
      QApplication::activePopupWidget())
    return false;
  static const std::vector<const char*> kControls{
      "Picture4",  "Picture4", "estru_0", "estru_1", "estru_2", "estru_3", "Command5",   "Command5",
      "HScrollc0", "HScrolla", "est1",    "est2",    "est3",    "est4",    "tipo1",      "tipo2",
      "tipo3",     "tipo4",    "plot0",   "plot1",   "plot2",   "Combo2",  "Combodirvar"};
  const QList<QWidget*> found = window_->findChildren<QWidget*>(chance_.among(kControls));
  if (found.isEmpty()) return false;
  QWidget* control = chance_.among(found);
  if (!isForUsers(*control)) return false;
  if (chance_.inHundred(50)) {
    dragOn(*control);
  } else {
    clickOn(*control);
  }
  return true;
}

void User::click() {
  QWidget* on = stage();
  if (QWidget* control = on ? target(*on) : nullptr) clickOn(*control);
}

void User::clickOn(QWidget& control) {
  QWidget* on = control.window();
  if (!on->windowHandle()) return;
  const QPoint at = placeIn(control);
  const auto button = chance_.inHundred(92) ? Qt::LeftButton : Qt::RightButton;
  note("clicks " + nameOf(control));
  const QPointer<QWindow> window = on->windowHandle();
  QTest::mouseMove(window, at);
  if (chance_.inHundred(12) && lasts(*on)) return QTest::mouseDClick(window, button, {}, at);
  QTest::mousePress(window, button, {}, at);
  if (window) QTest::mouseRelease(window, button, {}, at);
}

void User::drag() {
  QWidget* on = stage();
  if (QWidget* control = on ? target(*on) : nullptr) dragOn(*control);
}

void User::dragOn(QWidget& control) {
  QWidget* on = control.window();
  if (!on->windowHandle()) return;
  QPoint at = placeIn(control);
  note("drags " + nameOf(control));
  const QPointer<QWindow> window = on->windowHandle();
  const QPointer<QMdiSubWindow> plot = plotAround(control);
  const QSize size = plot ? plot->size() : QSize();
  const int turns = turns_;
  const auto button = chance_.inHundred(70) ? Qt::LeftButton : Qt::RightButton;
  const int leap = chance_.inHundred(50) ? 60 : 180;
  QTest::mouseMove(window, at);
  QTest::mousePress(window, button, {}, at);
  for (int i = chance_.upTo(6); i > 0 && window; --i) {
    at += QPoint(chance_.upTo(2 * leap + 1) - leap, chance_.upTo(2 * leap + 1) - leap);
    QTest::mouseMove(window, at);
  }
  if (window) QTest::mouseRelease(window, button, {}, at);
  // Boxes that have come up in it let others do things to the plot.
  if (!plot || turns != turns_ || plot->size() == size || !broken_.empty()) return;
  end("a drag in a plot leaves its window as large as it was");
}

void User::wheel() {
  QWidget* on = stage();
  QWidget* control = on ? target(*on) : nullptr;
  if (!control) return;
  note("wheels " + nameOf(*control));
  const QPoint at = control->rect().center();
  QWheelEvent event(at, control->mapToGlobal(at), {}, QPoint(0, chance_.inHundred(50) ? 120 : -120),
                    {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(control, &event);
}

void User::key() {
  QWidget* on = stage();
  if (!on || !on->windowHandle()) return;
  const Qt::Key key = chance_.among(kKeys);
  constexpr std::array kModifiers{Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                  Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
  // With modifiers the toolkit presses more than one key on the window.
  const Qt::KeyboardModifier with = lasts(*on) ? chance_.among(kModifiers) : Qt::NoModifier;
  note("presses key " + std::to_string(key) + " with " + std::to_string(with) + " in " +
       nameOf(*on));
  const QPointer<QWindow> window = on->windowHandle();
  QTest::keyPress(window, key, with);
  if (window) QTest::keyRelease(window, key, with);
}

void User::type() {
  QWidget* on = stage();
  if (!on) return;
  std::vector<QLineEdit*> fields;
  for (QLineEdit* field : on->findChildren<QLineEdit*>())
    if (field->window() == on && isForUsers(*field) && !field->isReadOnly())
      fields.push_back(field);
  if (fields.empty()) return;
  const QPointer<QLineEdit> field = chance_.among(fields);
  const std::string& text = chance_.among(kTexts);
  note("types '" + text + "' into " + nameOf(*field));
  field->setFocus();
  if (chance_.inHundred(80)) field->selectAll();
  for (const char letter : text)
    if (field) press(*field, letter);
  if (field && chance_.inHundred(60)) QTest::keyClick(field, Qt::Key_Return);
}

void User::choose() {
  QWidget* on = stage();
  if (!on) return;
  std::vector<QComboBox*> lists;
  for (QComboBox* list : on->findChildren<QComboBox*>())
    if (list->window() == on && isForUsers(*list) && list->count() > 0) lists.push_back(list);
  if (lists.empty()) return;
  QComboBox& list = *chance_.among(lists);
  note("chooses in " + nameOf(list));
  list.setFocus();
  constexpr std::array kWays{Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End};
  QTest::keyClick(&list, chance_.among(kWays));
}

void User::trigger() {
  if (QApplication::activePopupWidget() || QApplication::activeModalWidget() ||
      !window_->isEnabled())
    return;
  std::vector<QAction*> commands;
  for (QAction* command : window_->findChildren<QAction*>())
    if (command->isEnabled() && !command->isSeparator() && !command->objectName().isEmpty() &&
        !command->menu())
      commands.push_back(command);
  QAction* command = chance_.among(commands);
  // The end comes by other ways too.
  if (command->objectName() == "mnuvoltar" && chance_.inHundred(80)) return;
  note("triggers " + command->objectName().toStdString());
  command->trigger();
}

void User::arrange() {
  if (QApplication::activeModalWidget()) {
    note("closes the modal window");
    QApplication::activeModalWidget()->close();
    return;
  }
  const QList<QMdiSubWindow*> plots = window_->findChild<QMdiArea*>()->subWindowList();
  const int what = chance_.upTo(8);
  note("arranges " + std::to_string(what));
  if (window_->isMinimized()) return window_->showNormal();
  if (what == 0) return window_->showMinimized();
  if (what == 1) return window_->showNormal();
  if (what == 2) return window_->resize(400 + chance_.upTo(1200), 300 + chance_.upTo(800));
  if (plots.isEmpty()) return;
  QMdiSubWindow* plot = plots.at(chance_.upTo(static_cast<int>(plots.size())));
  if (what == 3) plot->showMaximized();
  if (what == 4) plot->showMinimized();
  if (what == 5) plot->showNormal();
  if (what == 6) plot->close();
  if (what == 7) plot->resize(30 + chance_.upTo(900), 30 + chance_.upTo(700));
}

}  // namespace zevfit::test
