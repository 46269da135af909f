#include "platform/program_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>

namespace zevfit {
namespace {

TEST(ProgramFolder, IsThatOfTheExecutableWhereItCanBeWritten) {
  const std::string own = QCoreApplication::applicationDirPath().toStdString();
  ASSERT_EQ(access(own.c_str(), W_OK), 0);
  EXPECT_EQ(programFolder(), own);
}

}  // namespace
}  // namespace zevfit
