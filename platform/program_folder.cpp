#include "platform/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace zevfit {

std::filesystem::path programFolder() {
  QString folder = QCoreApplication::applicationDirPath();
  if (!QFileInfo(folder).isWritable()) {
    folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/zevFIT";
    QDir().mkpath(folder);
  }
  return QFile::encodeName(folder).toStdString();
}

}  // namespace zevfit
