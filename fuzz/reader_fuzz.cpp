// Variogram files: any bytes are read; what was read and then written reads back to the same
// tables. The check of a file never throws; where it finds no error the tables hold what it has
// read.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "files/output_file.h"
#include "files/tokens.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "fuzz/plain_fields.h"
#include "fuzz/require.h"
#include "session/fault.h"
#include "session/line.h"
#include "tests/support/same_tables.h"
#include "zvm/checking/check_file.h"

namespace zevfit {
namespace {

// Above these the last digit written can round up to what no number holds.
constexpr double kLargest = 1.79769313486231e308;
constexpr float kLargestPairs = 3.402822e38F;
// Claims from here on have more digits than are written.
constexpr std::int64_t kLargestCount = 999'999'999'999'999;

// Written on a line of its own it is one text token.
bool isOneToken(std::string_view text) {
  return !text.empty() && text.find_first_of(",\r\n") == std::string_view::npos &&
         text.find_first_of(" \t\"") != 0;
}

bool isLetter(std::string_view text) { return isOneToken(text) && !text.ends_with(' '); }

bool isWritable(const Cell& cell) { return cell.isText() || std::fabs(cell.number()) <= kLargest; }

bool areClassesWritable(const Session& session, Pair pair) {
  for (std::int64_t lag = 1; lag <= session.nclass; ++lag) {
    if (!isWritable(session.hlag(pair, lag)) || !isWritable(session.gam(pair, lag)) ||
        std::fabs(session.npairs(pair, lag)) > kLargestPairs)
      return false;
  }
  return true;
}

bool isModelWritable(const Session& session, Pair pair) {
  for (const Line which : kLines) {
    const ConstLineRef at = line(session, pair, which);
    const double used = at.used();
    if (used != 0 && used != 1) return false;
    if (used == 0) continue;
    if (!isWritable(at.sill())) return false;
    if (which == Line::nugget) continue;
    if (!isWritable(at.range()) || !isLetter(at.letter())) return false;
  }
  return true;
}

// Counts within the tables, and nothing in them that a save writes as something else.
bool isWritable(const Session& session) {
  for (const std::int64_t count : {session.nvar, session.ndir, session.nclass})
    if (std::abs(count) > kLargestCount) return false;
  for (std::int64_t v = 1; v <= session.nvar; ++v) {
    if (!isWritable(session.variance(v))) return false;
    for (std::int64_t d = 1; d <= session.ndir; ++d)
      if (!areClassesWritable(session, {v, d}) || !isModelWritable(session, {v, d})) return false;
  }
  return true;
}

bool compose(Session& session, std::string_view old, MemorySink& out) {
  try {
    return composeVariogramFile(session, session.nvar, old, out);
  } catch (const Fault&) {
    return false;
  }
}

void checkReadBack(Session& session, std::int64_t variables, const std::string& bytes) {
  Session again;
  require(readVariogramBytes(bytes, again), "what was written is a good file");
  session.nvar = variables;
  session.filetag = again.filetag;
  require(test::dataText(again) == test::dataText(session), "the data read back");
  test::dropUnused(session);
  if (again.hasmodel)
    require(test::modelTexts(again) == test::modelTexts(session), "the models read back");
  MemorySink twice;
  require(compose(again, bytes, twice) && twice.bytes == bytes, "a second save changes nothing");
}

/// A title reads back as it is, whatever stands in it.
void checkTitle(std::string_view bytes, std::string_view written) {
  TokenStream old(bytes), made(written);
  require(old.text() == made.text(), "the title reads back");
}

/// The lines of a model as the reader keeps them: the flag of structure 3 has 16 bits.
bool isSameModel(const Session& session, Pair pair, const checking::ModelLines& lines) {
  for (const Line which : kLines) {
    const checking::ModelLine& read = lines.at(indexOf(which));
    const ConstLineRef at = line(session, pair, which);
    if (at.used() != read.flag || at.sill().number() != read.sill) return false;
    if (which == Line::nugget) continue;
    if (at.letter() != read.letter || at.range().number() != read.range) return false;
  }
  return true;
}

bool areSameClasses(const Session& session, Pair pair,
                    const std::vector<checking::ClassValues>& classes) {
  std::int64_t lag = 0;
  for (const auto& [distance, semivariance, pairs] : classes) {
    ++lag;
    if (session.hlag(pair, lag).number() != distance || session.gam(pair, lag) != semivariance ||
        session.npairs(pair, lag) != pairs)
      return false;
  }
  return lag == session.nclass;
}

bool isSameHeader(const Session& session, const checking::FileContent& content) {
  if (session.nvar != content.variables || session.ndir != content.directions ||
      session.nclass != content.classes || session.filetag != content.tag)
    return false;
  for (std::int64_t v = 1; v <= session.nvar; ++v) {
    const auto at = static_cast<std::size_t>(v - 1);
    if (session.varname(v) != content.variableNames.at(at) ||
        session.variance(v).number() != content.variances.at(at))
      return false;
  }
  for (std::int64_t d = 1; d <= session.ndir; ++d)
    if (session.dirname(d) != content.directionNames.at(static_cast<std::size_t>(d - 1)))
      return false;
  return true;
}

void checkFindings(std::string_view bytes, const Session& session, bool isRead) {
  const checking::CheckResult result = checking::checkFile(bytes);
  checking::Place before;
  for (const checking::Finding& finding : result.findings) {
    require(!(finding.place < before), "findings stand in the order of the file");
    before = finding.place;
  }
  if (result.hasErrors()) return;
  require(isRead, "a file without errors is read");
  const checking::FileContent& content = result.content;
  require(isSameHeader(session, content), "the header is read in step");
  std::size_t at = 0;
  for (std::int64_t v = 1; v <= session.nvar; ++v) {
    for (std::int64_t d = 1; d <= session.ndir; ++d, ++at) {
      require(areSameClasses(session, {v, d}, content.data.at(at)), "classes are read in step");
      if (at < content.models.size())
        require(isSameModel(session, {v, d}, content.models[at]), "models are read in step");
    }
  }
}

/// As many fields as the tables that were read ask for.
bool takeAll(const Session& session, PlainFields& fields) {
  const auto variables = static_cast<std::size_t>(session.nvar),
             directions = static_cast<std::size_t>(session.ndir),
             classes = static_cast<std::size_t>(session.nclass);
  bool isThere = fields.takeTexts(2) && fields.takeNumber() && fields.takeTexts(variables) &&
                 fields.takeNumbers(2) && fields.takeTexts(directions) &&
                 fields.takeNumbers(variables * (1 + directions * classes * 3));
  if (!session.hasmodel) return isThere;
  for (std::size_t model = 0; isThere && model < variables * directions; ++model) {
    isThere = fields.takeNumbers(2);
    for (int structure = 1; isThere && structure <= 3; ++structure)
      isThere = fields.takeNumber() && fields.takeText() && fields.takeNumbers(2);
  }
  return isThere;
}

/// Without a finding on what is read, the last field is the last of the file.
void checkEnd(std::string_view bytes, const Session& session) {
  const checking::CheckResult result = checking::checkFile(bytes);
  for (const checking::Finding& finding : result.findings)
    if (finding.topic == checking::Topic::reading) return;
  PlainFields fields(bytes);
  require(takeAll(session, fields), "all fields are there");
  require(fields.isAtEnd(), "nothing stands behind the end");
}

void check(std::string_view bytes) {
  Session session;
  const bool isRead = readVariogramBytes(bytes, session);
  checkFindings(bytes, session, isRead);
  checkEnd(bytes, session);
  if (!isRead) return;
  acceptLoad(session, "file.zvm");
  const std::int64_t variables = session.nvar;
  MemorySink out;
  const std::string old = "t\n" + session.filetag + "\n1\n.";
  const bool composed = compose(session, isOneToken(session.filetag) ? old : bytes, out);
  MemorySink titled;
  if (compose(session, bytes, titled)) checkTitle(bytes, titled.bytes);
  session.nvar = variables;
  if (!composed || !isOneToken(session.filetag)) return;
  bool writable = false;
  try {
    writable = isWritable(session);
  } catch (const Fault&) {
    return;
  }
  if (writable) checkReadBack(session, variables, out.bytes);
}

}  // namespace
}  // namespace zevfit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zevfit::check(std::string(data, data + size));
  return 0;
}
