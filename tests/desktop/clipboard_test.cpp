// What the program shares with others on a display of its own.
#include <gtest/gtest.h>

#include <QEventLoop>
#include <QMdiArea>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

/// What another program finds on the clipboard in a form. This one goes on meanwhile: it is asked
/// for the bytes.
QByteArray foundByAnother(const char* form) {
  QProcess reader;
  QEventLoop waiting;
  QObject::connect(&reader, &QProcess::finished, &waiting, [&] { waiting.quit(); });
  QObject::connect(&reader, &QProcess::errorOccurred, &waiting, [&] { waiting.quit(); });
  QTimer::singleShot(20000, &waiting, &QEventLoop::quit);
  reader.start("xclip", {"-selection", "clipboard", "-target", form, "-out"});
  if (reader.state() != QProcess::NotRunning) waiting.exec();
  if (reader.state() != QProcess::NotRunning) reader.kill();
  reader.waitForFinished();
  return reader.readAllStandardOutput();
}

TEST(Clipboard, AnotherProgramPastesThePlot) {
  const QTemporaryDir folder;
  Program program(folder.path().toStdString());
  program.openBytes(kOneDirection);
  program.trigger("k8");
  auto* plot = dynamic_cast<Formod*>(program.control<QMdiArea>("Area").activeSubWindow());
  ASSERT_NE(plot, nullptr);
  const QImage expected = plot->clipboardImage().convertToFormat(QImage::Format_RGB32);
  for (const char* form : {"image/png", "image/bmp"}) {
    const QImage pasted =
        QImage::fromData(foundByAnother(form)).convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(pasted.size(), QSize(431, 248)) << form;
    EXPECT_EQ(pasted, expected) << form;
  }
  EXPECT_TRUE(foundByAnother("image/svg+xml").contains(">Semivariogram (0;0)</text>"));
}

}  // namespace
}  // namespace zevfit::test
