// Faults and signals that end the program: what it keeps, and what the next start says.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>

#include "files/rescue.h"
#include "files/variogram_reader.h"
#include "tests/support/ended_program.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {
namespace {

constexpr int kPatience = 30000;  // milliseconds; a program that hangs

class Rescue : public testing::Test {
 protected:
  Rescue() {
    std::filesystem::create_directory(program_);
    putFile(file_, sampleFile("zevra"));
  }
  /// What the program has kept, as the next one reads it.
  Session kept() {
    Session session;
    EXPECT_TRUE(readVariogramFile(program_ / kRescueName, session));
    return session;
  }
  bool keptAny() { return std::filesystem::exists(program_ / kRescueName); }

  ScratchFolder folder_;
  std::filesystem::path program_ = folder_ / "program";
  std::filesystem::path file_ = folder_ / "meuse.zvm";
};

TEST_F(Rescue, AFatalFaultKeepsTheModelsAndNamesTheirFile) {
  Program program(program_);
  program.open(file_);
  program.session().c0({2, 2}) = 0.25;
  program.session().use0({1, 1}) = Cell::ofText("yes");
  program.session().curvar = 42;
  QTimer::singleShot(0, [&] { program.control<QAbstractButton>("plot1").click(); });
  EXPECT_EQ(QApplication::exec(), 70);
  EXPECT_EQ(program.dialogs().shown.back(),
            fatalBox("Subscript out of range: use0(42, 1)", program_));
  EXPECT_EQ(kept().c0({2, 2}).number(), 0.25);
  EXPECT_EQ(kept().use0({1, 1}).toText(), "yes");
  EXPECT_EQ(contentOf(file_), sampleFile("zevra"));
}

TEST_F(Rescue, HoldsDerivedVariablesAlsoBehindASave) {
  Program program(program_);
  program.dialogs().files.push_back(file_);
  Program::inModal([&] { program.trigger("k1"); },
                   [&](QWidget& modal) {
                     program.session().addflag(1) = program.session().addflag(2) = true;
                     Program::find<QLineEdit>(modal, "Text2").setText("sum");
                     Program::find<QAbstractButton>(modal, "adicionar").click();
                     Program::find<QAbstractButton>(modal, "Command2").click();
                   });
  program.trigger("k11");
  // The count of the old file, as a save leaves it.
  ASSERT_EQ(program.session().nvar, 2);
  program.window().endBySignal(SIGTERM);
  EXPECT_EQ(kept().nvar, 3);
  EXPECT_EQ(kept().varname(3), "sum");
}

TEST_F(Rescue, TakesTheVariablesOfTheDataStructureWindowWhileThatIsUp) {
  Program program(program_);
  program.open(file_);
  putFile(file_, "one\nzevra\n1\nzinc\n1\n1\n0;0\n1\n10 1 9\n");
  program.dialogs().files.push_back(file_);
  Program::inModal([&] { program.trigger("k1"); },
                   [&](QWidget& modal) {
                     program.window().endBySignal(SIGTERM);
                     Program::find<QAbstractButton>(modal, "Command1").click();
                   });
  EXPECT_EQ(kept().nvar, 1);
}

TEST_F(Rescue, SignalsEndTheProgramInTheEventLoop) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    const EndSignals signals;
    EndedProgram program(program_, signals);
    program.open(file_);
    program.session().c1({1, 1}) = signal;
    std::raise(signal);
    EXPECT_FALSE(keptAny()) << "outside the event loop nothing happens";
    // Later it would end the loop of another test.
    const QObject waiting;
    QTimer::singleShot(kPatience, &waiting, [] { QCoreApplication::exit(0); });
    EXPECT_EQ(QApplication::exec(), 128 + signal);
    EXPECT_EQ(kept().c1({1, 1}).number(), signal);
    std::filesystem::remove(program_ / kRescueName);
  }
}

TEST_F(Rescue, ASignalEndsAlsoBehindAModalWindow) {
  const EndSignals signals;
  EndedProgram program(program_, signals);
  program.open(file_);
  QTimer::singleShot(0, [&] { program.trigger("k2"); });
  QTimer::singleShot(0, [] { std::raise(SIGTERM); });
  EXPECT_EQ(QApplication::exec(), 128 + SIGTERM);
  EXPECT_TRUE(keptAny());
}

TEST_F(Rescue, TheWholeProgramKeepsItsModelsAtASignal) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    QProcess process;
    process.start(ZEVFIT_ENDED_PROGRAM, {QString::fromStdString(program_.string()),
                                         QString::fromStdString(file_.string())});
    ASSERT_TRUE(process.waitForReadyRead(kPatience));
    EXPECT_EQ(process.readAllStandardOutput(), "ready\n");
    ::kill(static_cast<pid_t>(process.processId()), signal);
    ASSERT_TRUE(process.waitForFinished(kPatience));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 128 + signal);
    EXPECT_EQ(kept().c0({1, 1}).number(), 0.25);
    EXPECT_EQ(contentOf(file_), sampleFile("zevra"));
    std::filesystem::remove(program_ / kRescueName);
  }
}

TEST_F(Rescue, TheNextStartSaysSoOnceAndUntilAFileIsLoaded) {
  {
    Program program(program_);
    EXPECT_EQ(program.control<QLabel>("LabelFoot").text(), "");
    program.open(file_);
    program.window().endBySignal(SIGTERM);
  }
  {
    Program program(program_);
    auto& told = program.control<QLabel>("LabelFoot");
    EXPECT_TRUE(told.isVisible());
    EXPECT_EQ(told.text().toStdString(), "The program had to end early. The models of " +
                                             file_.string() + " are kept in " +
                                             (program_ / "rescue.zvm").string());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    program.open(file_);
    EXPECT_FALSE(told.isVisible());
  }
  Program program(program_);
  EXPECT_EQ(program.control<QLabel>("LabelFoot").text(), "");
}

}  // namespace
}  // namespace zevfit::test
