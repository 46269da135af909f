#pragma once

#include <QString>

class QWidget;

namespace zevfit::tour {

/// The pictures of a folder, one for each window.
class Album {
 public:
  explicit Album(QString folder) : folder_(std::move(folder)) {}

  /// Keeps a window as it stands, as NAME.png.
  void keep(QWidget& window, const char* name);

 private:
  QString folder_;
};

}  // namespace zevfit::tour
