#pragma once

#include <QByteArray>
#include <QSizeF>
#include <QString>
#include <functional>
#include <vector>

#include "plot/drawing/surface.h"

namespace zevfit {

/// What a picture is drawn by; the surface has the size that was asked for.
using Draw = std::function<void(Surface& surface)>;

// The bytes of a file that holds one picture of that size in twips. Throws Fault where it can't be
// made.

/// Lines and texts; a unit of the drawing is a twip.
QByteArray svgPicture(QSizeF twips, const QString& title, const Draw& draw);
/// One page of the size of the picture, with lines and texts.
QByteArray pdfPicture(QSizeF twips, const QString& title, const Draw& draw);
/// A page for each picture; no date, so that the same pictures give the same bytes.
QByteArray pdfPages(QSizeF twips, const QString& title, const std::vector<Draw>& pages);
/// A bitmap with `scale` dots to each of a screen of 96 dots to the inch, which its file states.
QByteArray pngPicture(QSizeF twips, double scale, const Draw& draw);

}  // namespace zevfit
