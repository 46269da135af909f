#include "files/variogram_reader.h"

#include <algorithm>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "files/output_file.h"
#include "files/tokens.h"
#include "files/variogram_format.h"
#include "session/fault.h"
#include "session/line.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

/// Shortest line of a class in a file: three digits and their delimiters.
constexpr std::size_t kShortestClass = 6;

/// The bytes kept of a letter. A block that ends early repeats its last letter in all places
/// behind, so a long one would cost memory many times over.
constexpr std::size_t kLongestLetter = 255;

/// The stream ended at one of the tests.
struct EndOfFile {};

class Reader {
 public:
  Reader(const TokenStream& in, Session& session, const std::function<void()>& beforeStoring)
      : in_(in), session_(session), beforeStoring_(beforeStoring) {}

  void header();
  void data();
  void models();
  /// Something of the file stands in the tables.
  bool hasStored() const { return hasStored_; }

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
  void direction(Pair pair);
  void classes(Pair pair, std::vector<Cell>& h, std::vector<double>& g, std::vector<float>& n);
  void oneClass(Pair pair, std::vector<Cell>& h, std::vector<double>& g, std::vector<float>& n);
  void deriveAxis(Pair pair);
  void model(Pair pair);
  void takeLetter(std::string& letter);

  void endTest() const {
    if (in_.atEnd()) throw EndOfFile();
  }

  TokenStream in_;
  Session& session_;
  const std::function<void()>& beforeStoring_;
  Cell number_;
  std::optional<std::string> letter_;
  bool hasStored_ = false;
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
  if (beforeStoring_) beforeStoring_();
  hasStored_ = true;
  if (const auto tag = in_.text()) session_.filetag = *tag;
  if (lowered(trimmed(session_.filetag)) == kModelTag) session_.hasmodel = true;
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
      direction({v, d});
      continue;
    }
    if (session_.nclass > 0) endTest();
    return;
  }
}

void Reader::direction(Pair pair) {
  std::vector<Cell> h(1);
  std::vector<double> g(1);
  std::vector<float> n(1);
  const auto classesClaimed = static_cast<std::size_t>(std::max<std::int64_t>(session_.nclass, 0));
  const std::size_t room = std::min(classesClaimed, in_.bytesLeft() / kShortestClass + 1) + 1;
  h.reserve(room);
  g.reserve(room);
  n.reserve(room);
  const auto store = [&] {
    session_.hlag.setRow(pair, std::move(h));
    session_.gam.setRow(pair, std::move(g));
    session_.npairs.setRow(pair, std::move(n));
  };
  try {
    classes(pair, h, g, n);
  } catch (const EndOfFile&) {
    store();
    throw;
  }
  store();
  deriveAxis(pair);
}

void Reader::classes(Pair pair, std::vector<Cell>& h, std::vector<double>& g,
                     std::vector<float>& n) {
  for (std::int64_t lag = 1; lag <= session_.nclass; ++lag) oneClass(pair, h, g, n);
}

void Reader::oneClass(Pair pair, std::vector<Cell>& h, std::vector<double>& g,
                      std::vector<float>& n) {
  endTest();
  h.push_back(takeNumber() ? number_ : Cell());
  endTest();
  g.push_back(takeValue());
  endTest();
  n.push_back(takePairs());
  if (!h.back().isText()) session_.hmax(pair) = std::max(session_.hmax(pair), h.back().number());
  session_.gmax(pair) = std::max(session_.gmax(pair), g.back());
  session_.gmin(pair) = std::min(session_.gmin(pair), g.back());
}

void Reader::deriveAxis(Pair pair) {
  Session& s = session_;
  endSilently([&] {
    s.ymax(pair) = finite(kAxisMargin * std::max(s.gmax(pair), s.variance(pair.variable).number()));
  });
  endSilently([&] {
    s.ymin(pair) = finite(kAxisMargin * std::min(s.gmin(pair), s.variance(pair.variable).number()));
  });
  if (s.ymin(pair) > 0) s.ymin(pair) = 0;
  s.ymin0(pair) = s.ymin(pair);
  s.ymax0(pair) = s.ymax(pair);
}

void Reader::models() {
  const std::int64_t variables = std::min<std::int64_t>(session_.nvar, kVariableSlots - 1);
  const std::int64_t directions = std::min<std::int64_t>(session_.ndir, kDirectionSlots - 1);
  for (std::int64_t v = 1; v <= variables; ++v)
    for (std::int64_t d = 1; d <= directions; ++d) model({v, d});
  session_.modelshown = false;
}

/// A read that fails at the end of the file leaves what the one before it has read in its place.
void Reader::model(Pair pair) {
  for (const Line which : kLines) {
    const bool isStructure = which != Line::nugget;
    const LineRef at = line(session_, pair, which);
    takeNumber();
    endSilently([&] { at.use(number_); });
    if (isStructure) takeLetter(at.letter());
    takeNumber();
    at.sill() = number_;
    if (!isStructure) continue;
    takeNumber();
    at.range() = number_;
  }
}

void Reader::takeLetter(std::string& letter) {
  if (const auto token = in_.text()) letter_ = trimmed(*token).substr(0, kLongestLetter);
  if (letter_) letter = *letter_;
}

Load load(const TokenStream& in, Session& session, const std::function<void()>& beforeStoring) {
  session.setPlotted({1, 1});
  session.hasmodel = false;
  Reader reader(in, session, beforeStoring);
  try {
    reader.header();
    resetFitState(session);
    reader.data();
  } catch (const EndOfFile&) {
    return reader.hasStored() ? Load::halfWay : Load::refused;
  }
  if (session.hasmodel) reader.models();
  return Load::good;
}

/// All is read before anything of it is stored; none where the file can't be opened or read.
Pieces piecesOf(const std::filesystem::path& path) {
  std::deque<std::string> pieces;
  endSilently([&] { pieces = readPieces(path); });
  return Pieces(std::move(pieces));
}

}  // namespace

bool hasVariogramExtension(std::string_view fileName) {
  return fileName.size() >= 3 && lowered(fileName.substr(fileName.size() - 3)) == "zvm";
}

bool readVariogramBytes(std::string_view bytes, Session& session) {
  return load(TokenStream(bytes), session, {}) == Load::good;
}

bool readVariogramFile(const std::filesystem::path& path, Session& session) {
  Pieces pieces = piecesOf(path);
  return load(TokenStream(pieces), session, {}) == Load::good;
}

void acceptLoad(Session& session, const std::filesystem::path& path) {
  const std::int64_t names = std::min<std::int64_t>(session.nvar, kVariableSlots - 1);
  for (std::int64_t v = 1; v <= names; ++v)
    if (session.varname(v).empty()) session.varname(v) = "No Name" + std::to_string(v);
  session.nvarfile = session.nvar;
  for (int v = 1; v <= kResetVariables; ++v) session.addflag(v) = false;
  session.datavar = 1;
  session.inputfile = path.string();
  session.loaded = true;
}

Load loadVariogramFile(const std::filesystem::path& path, Session& session,
                       const std::function<void()>& beforeStoring) {
  Pieces pieces = piecesOf(path);
  const Load outcome = load(TokenStream(pieces), session, beforeStoring);
  if (outcome == Load::good) acceptLoad(session, path);
  return outcome;
}

}  // namespace zevfit
