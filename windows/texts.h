#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace zevfit {

/// Names, titles and captions of the session are Latin-1 bytes.
inline QString toQString(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string toBytes(const QString& text) { return text.toLatin1().toStdString(); }

/// A window title that shows a text as it is, a file name with the mark for changes in it too.
inline QString toTitle(QString text) { return text.replace("[*]", "[*][*]"); }

}  // namespace zevfit
