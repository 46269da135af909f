#pragma once

#include <QByteArray>
#include <QSizeF>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "plot/drawing/surface.h"

namespace zevfit {

/// What a picture is drawn by; the surface has the size that was asked for, in units.
using Draw = std::function<void(Surface& surface)>;

/// No bitmap has more dots a side.
inline constexpr int kLargestSide = 32000;

// The bytes of a file that holds one picture of that size in twips. A unit of the drawing takes
// `unit` of them: with another one than 1 all of it, texts and pens as well, is larger or smaller.
// Throws Fault where it can't be made.

/// Lines and texts.
QByteArray svgPicture(QSizeF twips, const QString& title, const Draw& draw, double unit = 1);
/// One page of the size of the picture, with lines and texts.
QByteArray pdfPicture(QSizeF twips, const QString& title, const Draw& draw);
/// A page for each picture; no date, so that the same pictures give the same bytes.
QByteArray pdfPages(QSizeF twips, const QString& title, const std::vector<Draw>& pages,
                    double unit = 1);
/// A bitmap with `scale` dots to each of a screen of 96 dots to the inch, which its file states.
QByteArray pngPicture(QSizeF twips, double scale, const Draw& draw, double unit = 1);

/// The font that pictures have in place of one that is not installed, where texts come out wider or
/// narrower by that; the font of the plots by itself has one of the same metrics in its place.
std::optional<QString> standInFor(const std::string& font);

}  // namespace zevfit
