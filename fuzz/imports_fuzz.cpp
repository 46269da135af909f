// Listings of gamv and tables of gstat: any bytes are read or refused with a place; what is
// imported is written as a file that check finds no error in, with the same classes.
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "files/variogram_reader.h"
#include "fuzz/require.h"
#include "session/session.h"
#include "zvm/checking/check_file.h"
#include "zvm/exchange/import.h"
#include "zvm/points/data_error.h"

namespace zevfit::exchange {
namespace {

/// The reader's tables are large: one session for all inputs.
Session& session() {
  static const auto one = std::make_unique<Session>();
  return *one;
}

void checkClasses(const Imported& imported) {
  const std::size_t count = imported.variables.front().classes.front().size();
  for (const Imported::Variable& variable : imported.variables) {
    require(variable.classes.size() == imported.directions.size(),
            "each direction has its classes");
    for (const auto& classes : variable.classes) {
      require(classes.size() == count, "all directions have the same number of classes");
      for (const zvm::LagClass& lag : classes)
        require(std::isfinite(lag.distance) && lag.distance >= 0 &&
                    std::isfinite(lag.semivariance) && (lag.pairs > 0 || lag.semivariance == 0),
                "classes are numbers, and empty ones hold nothing");
    }
  }
}

void checkFile(const Imported& imported) {
  zvm::Experimental experimental;
  experimental.frame.title = "t";
  for (const Imported::Variable& variable : imported.variables) {
    const std::string name = "v" + std::to_string(experimental.classes.size());
    experimental.frame.variables.push_back({name, variable.isCross(), 1, 0});
    experimental.classes.push_back(variable.classes);
  }
  for (const std::string& direction : imported.directions)
    experimental.frame.directions.push_back({direction, false});
  const auto& first = experimental.classes.front().front();
  experimental.frame.lags.count = static_cast<std::int64_t>(first.size());
  // Larger ones take time alone.
  if (first.size() > 1000) return;
  MemorySink sink;
  zvm::composeExperimental(experimental, sink);
  require(!checking::checkFile(sink.bytes).hasErrors(), "check finds no error in the file");
  require(readVariogramBytes(sink.bytes, session()), "the file is read");
  require(session().nclass == experimental.frame.lags.count, "with all classes");
  for (std::size_t k = 0; k < first.size(); ++k)
    require(session().npairs({1, 1}, static_cast<std::int64_t>(k + 1)) ==
                static_cast<float>(first[k].pairs),
            "and their pairs");
}

/// Reads and joins; nothing where that is refused.
template <class Listed, class Options>
void check(const std::string& bytes,
           std::vector<Listed> (*read)(std::string_view, const std::string&),
           Imported (*join)(const std::vector<Listed>&, const Options&), const Options& options) {
  try {
    const Imported imported = join(read(bytes, "f"), options);
    checkClasses(imported);
    checkFile(imported);
  } catch (const zvm::DataError& error) {
    require(error.what()[0] != '\0', "a refusal has a text");
    require(error.place().column == 0 || error.place().line > 0, "a column has a line");
  } catch (const WrongOption& error) {
    require(error.what()[0] != '\0', "a refusal has a text");
  }
}

void checkAll(const std::string& bytes) {
  check(bytes, readGamv, importGamv, GamvOptions{{}, {90}, std::nullopt, std::nullopt});
  check(bytes, readGamv, importGamv, GamvOptions{{"0;0", "90;0"}, {90, 22.5}, 10, 5});
  check(bytes, readGstat, importGstat, GstatOptions{100, {}});
}

}  // namespace
}  // namespace zevfit::exchange

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zevfit::exchange::checkAll(std::string(data, data + size));
  return 0;
}
