#include "files/variogram_reader.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "files/output_file.h"
#include "files/tokens.h"
#include "files/variogram_format.h"
#include "session/fault.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

/// Shortest line of a class in a file: three digits and their delimiters.
constexpr std::size_t kShortestClass = 6;

/// What is kept of a letter: a cut block puts the last one into every place that it leaves empty.
constexpr std::size_t kLongestLetter = 255;

/// The stream ended at one of the tests.
struct EndOfFile {};

class Reader {
 public:
  Reader(std::string_view bytes, Session& session) : in_(bytes), session_(session) {}

  void header();
  void data();
  void models();

 private:
  /// Reads the next number token into `number_`; false at the end of the stream, and the last one
  /// read stays there.
  bool takeNumber();
  /// The value of the next number token; 0 for a text, and at the end of the stream.
  double takeValue();
  float takePairs();
  void takeCount(std::int64_t& count);
  template <class Names>
  void takeNames(std::int64_t count, std::int64_t slots, Names& names);
  void variable(std::int64_t v);
  void direction(std::int64_t v, std::int64_t d);
  void classes(std::int64_t v, std::int64_t d, std::vector<Cell>& h, std::vector<double>& g,
               std::vector<float>& n);
  void oneClass(std::int64_t v, std::int64_t d, std::vector<Cell>& h, std::vector<double>& g,
                std::vector<float>& n);
  void deriveAxis(std::int64_t v, std::int64_t d);
  void model(std::int64_t v, std::int64_t d);
  void takeLetter(std::string& letter);

  void endTest() const {
    if (in_.atEnd()) throw EndOfFile();
  }

  TokenStream in_;
  Session& session_;
  Cell number_;
  std::optional<std::string> letter_;
};

bool Reader::takeNumber() {
  if (const auto plain = in_.plainNumber<double>()) {
    number_ = *plain;
    return true;
  }
  const auto token = in_.number();
  if (!token) return false;
  const auto number = numberOf(*token);
  number_ = number ? Cell(*number) : Cell::ofText(*token);
  return true;
}

double Reader::takeValue() { return takeNumber() && !number_.isText() ? number_.number() : 0; }

float Reader::takePairs() {
  if (const auto plain = in_.plainNumber<float>()) {
    number_ = static_cast<double>(*plain);
    return *plain;
  }
  const auto token = in_.number();
  if (!token) return 0;
  const auto number = floatOf(*token);
  number_ = number ? Cell(static_cast<double>(*number)) : Cell::ofText(*token);
  return number.value_or(0.0F);
}

void Reader::takeCount(std::int64_t& count) {
  endTest();
  if (!takeNumber() || number_.isText()) return;
  endSilently([&] { count = toCount(number_.number()); });
}

template <class Names>
void Reader::takeNames(std::int64_t count, std::int64_t slots, Names& names) {
  for (std::int64_t i = 1; i <= count; ++i) {
    endTest();
    // Names beyond the table take no token, so that one test stands for all of them.
    if (i >= slots) return;
    if (const auto name = in_.text()) names(i) = *name;
  }
}

void Reader::header() {
  endTest();
  in_.text();
  endTest();
  if (const auto tag = in_.text()) session_.filetag = *tag;
  if (lowered(trimmed(session_.filetag)) == kModelTag) session_.hasmodel = 1;
  takeCount(session_.nvar);
  takeNames(session_.nvar, kVariableSlots, session_.varname);
  takeCount(session_.ndir);
  takeCount(session_.nclass);
  takeNames(session_.ndir, kDirectionSlots, session_.dirname);
}

void Reader::data() {
  session_.hlag.create(session_.nclass);
  session_.gam.create(session_.nclass);
  session_.npairs.create(session_.nclass);
  for (std::int64_t v = 1; v <= session_.nvar; ++v) {
    endTest();
    // Variables beyond the tables take no token, so that one test stands for all of them.
    if (v >= kVariableSlots) return;
    variable(v);
  }
}

void Reader::variable(std::int64_t v) {
  if (takeNumber()) session_.variance(v) = number_;
  for (std::int64_t d = 1; d <= session_.ndir; ++d) {
    if (d < kDirectionSlots) {
      direction(v, d);
      continue;
    }
    if (session_.nclass > 0) endTest();
    return;
  }
}

void Reader::direction(std::int64_t v, std::int64_t d) {
  std::vector<Cell> h(1);
  std::vector<double> g(1);
  std::vector<float> n(1);
  const auto classesClaimed = static_cast<std::size_t>(std::max<std::int64_t>(session_.nclass, 0));
  const std::size_t room = std::min(classesClaimed, in_.bytesLeft() / kShortestClass + 1) + 1;
  h.reserve(room);
  g.reserve(room);
  n.reserve(room);
  const auto store = [&] {
    session_.hlag.setRow(v, d, std::move(h));
    session_.gam.setRow(v, d, std::move(g));
    session_.npairs.setRow(v, d, std::move(n));
  };
  try {
    classes(v, d, h, g, n);
  } catch (const EndOfFile&) {
    store();
    throw;
  }
  store();
  deriveAxis(v, d);
}

void Reader::classes(std::int64_t v, std::int64_t d, std::vector<Cell>& h, std::vector<double>& g,
                     std::vector<float>& n) {
  for (std::int64_t lag = 1; lag <= session_.nclass; ++lag) oneClass(v, d, h, g, n);
}

void Reader::oneClass(std::int64_t v, std::int64_t d, std::vector<Cell>& h, std::vector<double>& g,
                      std::vector<float>& n) {
  endTest();
  h.push_back(takeNumber() ? number_ : Cell());
  endTest();
  g.push_back(takeValue());
  endTest();
  n.push_back(takePairs());
  if (!h.back().isText()) session_.hmax(v, d) = std::max(session_.hmax(v, d), h.back().number());
  session_.gmax(v, d) = std::max(session_.gmax(v, d), g.back());
  session_.gmin(v, d) = std::min(session_.gmin(v, d), g.back());
}

void Reader::deriveAxis(std::int64_t v, std::int64_t d) {
  Session& s = session_;
  endSilently(
      [&] { s.ymax(v, d) = finite(kAxisMargin * std::max(s.gmax(v, d), s.variance(v).number())); });
  endSilently(
      [&] { s.ymin(v, d) = finite(kAxisMargin * std::min(s.gmin(v, d), s.variance(v).number())); });
  if (s.ymin(v, d) > 0) s.ymin(v, d) = 0;
  s.ymin0(v, d) = s.ymin(v, d);
  s.ymax0(v, d) = s.ymax(v, d);
}

void Reader::models() {
  const std::int64_t variables = std::min<std::int64_t>(session_.nvar, kVariableSlots - 1);
  const std::int64_t directions = std::min<std::int64_t>(session_.ndir, kDirectionSlots - 1);
  for (std::int64_t v = 1; v <= variables; ++v)
    for (std::int64_t d = 1; d <= directions; ++d) model(v, d);
  session_.modelshown = 0;
}

/// A read that fails at the end of the file leaves what the one before it has read in its place.
void Reader::model(std::int64_t v, std::int64_t d) {
  for (int line = 0; line < kLines; ++line) {
    const auto at = static_cast<std::size_t>(line);
    takeNumber();
    endSilently([&] { setFlag(session_, line, v, d, number_); });
    if (line > 0) takeLetter((session_.*kLetterTable[at])(v, d));
    takeNumber();
    (session_.*kSillTable[at])(v, d) = number_;
    if (line == 0) continue;
    takeNumber();
    (session_.*kRangeTable[at])(v, d) = number_;
  }
}

void Reader::takeLetter(std::string& letter) {
  if (const auto token = in_.text()) letter_ = trimmed(*token).substr(0, kLongestLetter);
  if (letter_) letter = *letter_;
}

}  // namespace

bool hasVariogramExtension(std::string_view fileName) {
  return fileName.size() >= 3 && lowered(fileName.substr(fileName.size() - 3)) == "zvm";
}

bool readVariogramBytes(std::string_view bytes, Session& session) {
  session.plotdir = 1;
  session.plotvar = 1;
  session.hasmodel = 0;
  Reader reader(bytes, session);
  try {
    reader.header();
    resetFitState(session);
    reader.data();
  } catch (const EndOfFile&) {
    return false;
  }
  if (session.hasmodel == 1) reader.models();
  return true;
}

bool readVariogramFile(const std::filesystem::path& path, Session& session) {
  std::string bytes;
  endSilently([&] { bytes = readWhole(path); });
  return readVariogramBytes(bytes, session);
}

void acceptLoad(Session& session, const std::filesystem::path& path) {
  const std::int64_t names = std::min<std::int64_t>(session.nvar, kVariableSlots - 1);
  for (std::int64_t v = 1; v <= names; ++v)
    if (session.varname(v).empty()) session.varname(v) = "No Name" + std::to_string(v);
  session.nvarfile = session.nvar;
  for (int v = 1; v <= kResetVariables; ++v) session.addflag(v) = 0;
  session.datavar = 1;
  session.inputfile = path.string();
  session.loaded = true;
}

}  // namespace zevfit
