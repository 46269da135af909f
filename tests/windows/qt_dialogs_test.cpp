#include "platform/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

namespace zevfit {
namespace {

/// Asks, looks at the box and answers it by `reply`.
Answer ask(const std::function<void(QMessageBox&)>& reply) {
  QTimer::singleShot(0, qApp, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), "Save configuration data file to zevFIT.INI ?");
    EXPECT_EQ(box->windowTitle(), "zevRA: Program zevFIT");
    EXPECT_EQ(box->icon(), QMessageBox::Question);
    EXPECT_EQ(box->standardButtons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    reply(*box);
  });
  return QtDialogs().question("Save configuration data file to zevFIT.INI ?");
}

Answer press(QMessageBox::StandardButton button) {
  return ask([&](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
}

TEST(QtDialogs, QuestionGivesTheButtonPressed) {
  EXPECT_EQ(press(QMessageBox::Yes), Answer::yes);
  EXPECT_EQ(press(QMessageBox::No), Answer::no);
  EXPECT_EQ(press(QMessageBox::Cancel), Answer::cancel);
}

TEST(QtDialogs, QuestionClosedOrEscapedIsACancel) {
  EXPECT_EQ(ask([](QMessageBox& box) { box.close(); }), Answer::cancel);
  EXPECT_EQ(ask([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }), Answer::cancel);
}

TEST(QtDialogs, HoldsTheFileNameThatTheFileDialogStartsWith) {
  QtDialogs dialogs;
  EXPECT_EQ(dialogs.heldFile(), "");
  dialogs.holdFile("/data/caf\xc3\xa9.zvm");
  EXPECT_EQ(dialogs.heldFile(), "/data/caf\xc3\xa9.zvm");
}

}  // namespace
}  // namespace zevfit
