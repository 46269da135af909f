#include "platform/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace zevfit {

namespace {

bool isOwn(const QString& folder) { return folder != "/usr/bin" && QFileInfo(folder).isWritable(); }

}  // namespace

std::filesystem::path programFolder() {
  return programFolderFor(QCoreApplication::applicationDirPath());
}

std::filesystem::path programFolderFor(const QString& folder) {
  if (isOwn(folder)) return QFile::encodeName(folder).toStdString();
  const QString data =
      QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/zevFIT";
  QDir().mkpath(data);
  return QFile::encodeName(data).toStdString();
}

}  // namespace zevfit
