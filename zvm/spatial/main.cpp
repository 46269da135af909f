// The program zvm-ogr: reads what is asked for from stdin, texts with a zero byte behind each
// (source, its drivers and what messages call it, layer, condition, query, coordinate system,
// columns of the coordinates), and writes the features of a layer to stdout as a table. Only zvm
// runs it. What fails is told on stderr.

#include <cpl_conv.h>
#include <sys/prctl.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <new>
#include <string>

#include "zvm/spatial/table.h"

namespace {

using namespace zevfit::spatial;

/// What GDAL's drivers would otherwise leave beside a source, whatever the environment says: notes
/// of GDAL, the size of a compressed file, a Shapefile's index.
struct Setting {
  const char *name, *value;
};
constexpr std::array kQuiet{Setting{"GDAL_PAM_ENABLED", "NO"},
                            Setting{"CPL_VSIL_GZIP_WRITE_PROPERTIES", "NO"},
                            Setting{"SHAPE_RESTORE_SHX", "NO"}};

/// A database that another source leads to is not to be changed either.
constexpr const char* kReadOnly = " -c default_transaction_read_only=on";

Request requestFrom(std::istream& in) {
  Request request;
  for (std::string* text :
       {&request.source, &request.drivers, &request.shown, &request.layer, &request.where,
        &request.sql, &request.projected, &request.x, &request.y, &request.z})
    if (!std::getline(in, *text, '\0')) throw Refusal(kUsage, "the request is not whole");
  return request;
}

/// A message as a line of its own.
void tell(const char* kind, const std::string& text, const Request& request) {
  std::string line = withoutPasswords(text, request.source, request.shown);
  for (char& c : line)
    if (c == '\n' || c == '\r') c = ' ';
  std::cerr << kind << ": " << line << '\n';
}

int run(const Request& request) {
  try {
    Errors errors([&](const std::string& text) { tell("warning", text, request); });
    GDALAllRegister();
    writeTable(request, errors, std::cout);
    return 0;
  } catch (const Refusal& refusal) {
    tell("error", refusal.what(), request);
    return refusal.code();
  } catch (const std::bad_alloc&) {
    tell("error", "not enough memory", request);
    return kData;
  }
}

}  // namespace

int main() {
  // The points of a command that has been ended are nobody's.
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  const char* const given = std::getenv("PGOPTIONS");
  ::setenv("PGOPTIONS", ((given == nullptr ? "" : given) + std::string(kReadOnly)).c_str(), 1);
  for (const Setting& one : kQuiet) CPLSetConfigOption(one.name, one.value);
  try {
    return run(requestFrom(std::cin));
  } catch (const Refusal& refusal) {
    std::cerr << "error: " << refusal.what() << '\n';
    return refusal.code();
  }
}
