#include "windows/save_picture.h"

#include <QMimeData>
#include <QStringList>
#include <array>
#include <string>

#include "files/output_file.h"
#include "platform/picture_file.h"
#include "plot/drawing/picture.h"
#include "plot/drawing/window_key.h"
#include "session/policy.h"
#include "windows/foot.h"
#include "windows/formod.h"
#include "windows/texts.h"
#include "windows/wait_cursor.h"

namespace zevfit {

namespace {

constexpr const char* kSvgForm = "image/svg+xml";

/// A plot on a surface of its own; titles are measured in its window, as on the screen.
class Target : public PlotPicture {
 public:
  Target(Formod& plot, Surface& surface) : plot_(plot), surface_(surface) {}

  double pictureWidth() const override { return plot_.pictureWidth(); }
  double pictureHeight() const override { return plot_.pictureHeight(); }
  Surface& picture() override { return surface_; }
  PenState& pen() override { return pen_; }
  double measureTitle(std::string_view text, const Font& font) override {
    return plot_.measureTitle(text, font);
  }

 private:
  Formod& plot_;
  Surface& surface_;
  PenState pen_;
};

QSizeF sizeOf(const Formod& plot) { return {plot.pictureWidth(), plot.pictureHeight()}; }

Draw drawingOf(Formod& plot, const Session& session) {
  return [&plot, &session](Surface& surface) {
    Target target(plot, surface);
    drawPicture(session, windowKey(plot.caption()), target);
  };
}

using Make = QByteArray (*)(Formod& plot, const Session& session);

QByteArray svgOf(Formod& plot, const Session& session) {
  return svgPicture(sizeOf(plot), toQString(plot.caption()), drawingOf(plot, session));
}

QByteArray pdfOf(Formod& plot, const Session& session) {
  return pdfPicture(sizeOf(plot), toQString(plot.caption()), drawingOf(plot, session));
}

template <int scale>
QByteArray pngOf(Formod& plot, const Session& session) {
  return pngPicture(sizeOf(plot), scale, drawingOf(plot, session));
}

// Kinds and makers go together.
constexpr auto kKinds = std::to_array<FileKind>({{"SVG drawing", "svg"},
                                                 {"PDF page", "pdf"},
                                                 {"PNG picture, as large as on the screen", "png"},
                                                 {"PNG picture, 2 times as fine", "png"},
                                                 {"PNG picture, 4 times as fine", "png"},
                                                 {"PNG picture, 8 times as fine", "png"}});
constexpr std::array<Make, kKinds.size()> kMakers{svgOf,    pdfOf,    pngOf<1>,
                                                  pngOf<2>, pngOf<4>, pngOf<8>};

/// Characters of a name; with its ending a file's name has room for two of them.
constexpr qsizetype kLongestName = 60;

/// A name without what a file system or a shell takes for something else.
QString cleaned(std::string_view name) {
  QString clean;
  for (const QChar c : toQString(name).left(kLongestName)) {
    const bool isPlain = c.isLetterOrNumber() || c == '-' || c == '+';
    if (isPlain || (!clean.isEmpty() && !clean.endsWith('_'))) clean.append(isPlain ? c : '_');
  }
  if (clean.endsWith('_')) clean.chop(1);
  return clean;
}

bool write(const ChosenFile& file, Formod& plot, const Session& session) {
  const WaitCursor wait;
  return attempt(
      [&] {
        const QByteArray bytes = kMakers.at(file.kind)(plot, session);
        saveWhole(file.path, {bytes.data(), static_cast<std::size_t>(bytes.size())});
        return true;
      },
      [] { return false; });
}

}  // namespace

QString pictureName(const Session& session, Pair pair) {
  QStringList names{cleaned(session.varname(pair.variable)),
                    cleaned(session.dirname(pair.direction))};
  names.removeAll(QString());
  return names.isEmpty() ? "plot" : names.join('_');
}

void savePicture(QMainWindow& window, Formod& plot, const Session& session, Dialogs& dialogs,
                 std::size_t& kind) {
  const Pair pair = windowKey(plot.caption());
  const auto chosen =
      dialogs.saveFileAs("Save Picture", kKinds, kind, pictureName(session, pair).toStdString());
  if (!chosen) return;
  kind = chosen->kind;
  if (!write(*chosen, plot, session)) return dialogs.plain("Cannot save picture: " + chosen->path);
  hintAtFoot(window, "The picture is saved as " + chosen->path);
}

QMimeData* clipboardPicture(Formod& plot, const Session& session) {
  auto* data = new QMimeData;
  data->setImageData(plot.clipboardImage());
  endSilently([&] { data->setData(kSvgForm, svgOf(plot, session)); });
  return data;
}

}  // namespace zevfit
