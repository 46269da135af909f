// The program zvm-plot: reads what is to be drawn from stdin and writes the files of the pictures
// to stdout. Only `zvm plot` runs it. What fails is told on stderr.

#include <sys/prctl.h>

#include <QGuiApplication>
#include <array>
#include <csignal>
#include <iostream>
#include <iterator>
#include <set>
#include <string>

#include "platform/picture_file.h"
#include "session/fault.h"
#include "session/numbers.h"
#include "zvm/plotting/pages.h"

namespace {

using namespace zevfit;
using plotting::Page;
using plotting::Request;

constexpr double kScreenDots = 96;
static_assert(plotting::kMostDots == kLargestSide);
/// Exit codes of zvm: data that can't be used, a file that can't be written.
constexpr int kUnusable = 3, kUnwritten = 4;

/// What would have a picture depend on the machine that draws it.
constexpr std::array kSettings{"QT_SCALE_FACTOR",
                               "QT_SCREEN_SCALE_FACTORS",
                               "QT_FONT_DPI",
                               "QT_AUTO_SCREEN_SCALE_FACTOR",
                               "QT_ENABLE_HIGHDPI_SCALING",
                               "QT_USE_PHYSICAL_DPI"};

std::string bytesOf(const QByteArray& bytes) {
  return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

QString toText(std::string_view latin1) {
  return QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size()));
}

Draw drawingOf(const Session& session, const Request& request, const Page& page) {
  return [&](Surface& surface) {
    plotting::drawPage(session, page, surface, request.width / request.scale,
                       request.height / request.scale);
  };
}

/// Names each font that is not there, once.
void warnOfFonts(const GraphStyle& style) {
  std::set<std::string> told;
  for (const FontSample& sample : style.Formfont.Label2) {
    const auto other = standInFor(sample.fontname);
    if (!other || !told.insert(sample.fontname).second) continue;
    std::cerr << "warning: no font `" << toText(sample.fontname).toStdString()
              << "` is installed: its texts are those of `" << other->toStdString() << "`\n";
  }
}

QString titleOf(const Session& session, const Page& page) {
  if (page.map) return toText(page.map->name);
  QString variable = toText(trimmed(session.varname(page.variable)));
  if (page.kind == plotting::Kind::overlay) return variable;
  return variable + ' ' + toText(trimmed(session.dirname(page.direction)));
}

std::vector<std::string> filesOf(const Request& request) {
  const auto session = plotting::sessionOf(request);
  warnOfFonts(session->style);
  const QSizeF size(request.width, request.height);
  std::vector<Draw> drawings;
  for (const Page& page : request.pages) drawings.push_back(drawingOf(*session, request, page));
  const auto title = [&](std::size_t page) { return titleOf(*session, request.pages.at(page)); };
  if (request.format == plotting::Format::pdf)
    return {bytesOf(pdfPages(size, title(0), drawings, request.scale))};
  std::vector<std::string> files;
  for (std::size_t i = 0; i < drawings.size(); ++i)
    files.push_back(
        bytesOf(request.format == plotting::Format::svg
                    ? svgPicture(size, title(i), drawings[i], request.scale)
                    : pngPicture(size, request.dots / kScreenDots, drawings[i], request.scale)));
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  // The pictures of a command that has been ended are nobody's.
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  for (const char* setting : kSettings) qunsetenv(setting);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("TZ", "UTC0");  // A PDF file is longer where the clocks differ from it.
  const QGuiApplication application(argc, argv);
  try {
    const std::string request(std::istreambuf_iterator<char>(std::cin), {});
    std::cout << plotting::bytesOf(filesOf(plotting::requestOf(request))) << std::flush;
    return std::cout ? 0 : kUnwritten;
  } catch (const Fault& fault) {
    std::cerr << "error: " << fault.what() << '\n';
  } catch (const std::bad_alloc&) {
    std::cerr << "error: not enough memory\n";
  }
  return kUnusable;
}
