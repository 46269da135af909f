#include "platform/program_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace zevfit {
namespace {

/// The user's data folder lies in a scratch folder.
class ProgramFolder : public testing::Test {
 protected:
  ProgramFolder() { qputenv("XDG_DATA_HOME", QFile::encodeName(data())); }
  ~ProgramFolder() override {
    if (before_.isNull()) {
      qunsetenv("XDG_DATA_HOME");
    } else {
      qputenv("XDG_DATA_HOME", before_);
    }
  }

  QString data() const { return scratch_.filePath("data"); }

  const QByteArray before_ = qgetenv("XDG_DATA_HOME");
  const QTemporaryDir scratch_;
};

TEST_F(ProgramFolder, IsThatOfTheExecutableWhereItCanBeWritten) {
  const std::string own = QCoreApplication::applicationDirPath().toStdString();
  ASSERT_EQ(access(own.c_str(), W_OK), 0);
  EXPECT_EQ(programFolder(), own);
  EXPECT_FALSE(QFileInfo::exists(data()));
}

TEST_F(ProgramFolder, IsTheUsersWhereTheExecutablesCannotBeWritten) {
  // Not even root can write into a folder that does not exist.
  const std::string expected = data().toStdString() + "/zevFIT";
  EXPECT_EQ(programFolderFor(scratch_.filePath("missing")), expected);
  EXPECT_TRUE(QFileInfo(data() + "/zevFIT").isDir());
}

TEST_F(ProgramFolder, IsTheUsersForAPackageWhoeverTheUserIs) {
  EXPECT_EQ(programFolderFor("/usr/bin"), data().toStdString() + "/zevFIT");
  EXPECT_TRUE(QFileInfo(data() + "/zevFIT").isDir());
}

}  // namespace
}  // namespace zevfit
