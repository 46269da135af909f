#include "tests/tour/answers.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "tests/tour/hand.h"

namespace zevfit::tour {

namespace {

constexpr int kLookEach = 2;  // milliseconds

}  // namespace

Answers::Answers() {
  QTimer::singleShot(kLookEach, &context_, [this] { look(); });
}

void Answers::expect(const QString& title, Steps steps) {
  turns_.push_back({title, std::move(steps)});
}

void Answers::expectBox(const QString& title, const QString& text) {
  expect(title, [text](QWidget& modal) {
    auto* box = qobject_cast<QMessageBox*>(&modal);
    if (!box) fail("no box", modal);
    if (box->text() != text) fail(qPrintable("another text: " + box->text()), modal);
    Hand().key(modal, Qt::Key_Return);
  });
}

void Answers::expectFile(const QString& title, const QString& path) {
  expect(title, [path](QWidget& modal) {
    auto* field = modal.findChild<QLineEdit*>("fileNameEdit");
    if (!field) fail("no field for a file's name", modal);
    Hand().typeAndEnter(*field, qPrintable(path));
  });
}

// A new wait each time, which runs in the loops of modal windows within each other, too.
void Answers::look() {
  QTimer::singleShot(kLookEach, &context_, [this] { look(); });
  std::erase_if(known_, [](const auto& window) { return !window || !window->isVisible(); });
  QWidget* modal = QApplication::activeModalWidget();
  if (!modal || !modal->isVisible()) return;
  if (std::find(known_.begin(), known_.end(), modal) != known_.end()) return;
  if (turns_.empty() || turns_.front().title != modal->windowTitle())
    fail("a window that nobody told of", *modal);
  const Steps steps = turns_.front().steps;
  turns_.pop_front();
  known_.emplace_back(modal);
  steps(*modal);
}

}  // namespace zevfit::tour
