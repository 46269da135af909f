#pragma once

#include <QObject>
#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <span>

#include "session/messages.h"
#include "windows/boundary.h"

class QWidget;

namespace zevfit {

/// Shows a page that lies on this machine; false where nothing could be started for it.
using PageOpener = std::function<bool(const QString& path)>;

/// A window and the section of the manual that tells of it.
struct ManualSection {
  const char* window;
  const char* anchor;
};
std::span<const ManualSection> manualSections();

/// The section of a control: that of the nearest window around it that has one.
const char* manualAnchor(const QWidget* control);

/// A heading as its anchor: small letters and digits, hyphens for blanks.
QString anchorOf(const QString& heading);
/// A page in HTML of one in Markdown, whose headings have anchors; pictures are taken from
/// `folder`, other pages from beside the new one.
QString toPage(const QString& markdown, const QString& folder);

/// The manual in a browser. F1 opens it in every window of the program, at the section of that.
class Manual : public QObject {
 public:
  Manual(Messages& messages, const FaultReport& faults);

  /// What shows the page; nothing at first.
  void setOpener(PageOpener opener) { opener_ = std::move(opener); }
  /// The folder of the pages in Markdown, in place of the one that lies beside the program.
  void setFolder(const QString& folder) { folder_ = folder; }

  /// Opens it at the section of a control; says so where there is none.
  void open(const QWidget* from);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Makes the pages at their first use; false when there are none.
  bool makePages();

  Messages& messages_;
  const FaultReport& faults_;
  PageOpener opener_;
  QString folder_;
  std::unique_ptr<QTemporaryDir> pages_;
};

}  // namespace zevfit
