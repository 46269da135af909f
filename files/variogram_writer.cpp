#include "files/variogram_writer.h"

#include <unistd.h>

#include <algorithm>
#include <optional>
#include <string>

#include "files/tokens.h"
#include "files/variogram_format.h"
#include "session/fault.h"
#include "session/line.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

/// Classes that no file has filled are written as zeros up to this number; a claim beyond it does
/// not fit the tables.
constexpr std::int64_t kClassesOnTrust = 1'000;

/// The old file ended at one of the tests.
struct EndOfFile {};

/// Writes the lines of the new file, with the tests for the end of the old one between them.
class Writer {
 public:
  Writer(const Session& session, std::int64_t variables, std::string_view oldFile, ByteSink& out)
      : session_(session),
        variables_(variables),
        directions_(session.ndir),
        classes_(session.nclass),
        old_(oldFile),
        out_(out) {}

  /// Hands out the old file's tag and count as it comes by them.
  void header(std::string& filetag, std::int64_t& nvar);
  void data();
  void models();

  /// Cuts the counts to what the tables hold.
  void fitCounts();
  /// Header and models with nothing from an old file, and all cells as they stand.
  void wholeHeader(std::string_view title, std::string_view tag);
  void wholeModels();

 private:
  void endTest() const {
    if (old_.atEnd()) throw EndOfFile();
  }
  template <class Value>
  void number(const Value& value);
  void text(std::string_view line);
  void token(std::string_view text);
  void wholeLine(Line which, Pair pair);
  std::string_view oldToken();
  void classes(Pair pair);
  void nugget(Pair pair);
  void structure(Line which, Pair pair);

  const Session& session_;
  std::int64_t variables_, directions_, classes_;
  std::int64_t trusted_ = kClassesOnTrust;
  TokenStream old_;
  ByteSink& out_;
  std::string line_;
};

template <class Value>
void Writer::number(const Value& value) {
  line_.clear();
  appendFileNumber(line_, value);
  text(line_);
}

void Writer::text(std::string_view line) {
  out_.write(line);
  out_.write(kLineEnd);
}

std::string_view Writer::oldToken() {
  endTest();
  const auto token = old_.text();
  if (!token) throw Fault("Input past end of file");
  return *token;
}

std::string_view tagToWrite(std::string_view tag) {
  const std::string plain = lowered(trimmed(tag));
  const bool replaced = std::any_of(std::begin(kPlainTags), std::end(kPlainTags),
                                    [&](const char* known) { return plain == known; });
  return replaced ? std::string_view(kModelTagWritten) : tag;
}

void Writer::header(std::string& filetag, std::int64_t& nvar) {
  token(oldToken());
  filetag = oldToken();
  token(tagToWrite(filetag));
  endTest();
  const auto count = old_.number();
  const auto value = count ? numberOf(*count) : std::nullopt;
  if (!value) throw Fault("Type mismatch");
  // The old file's count, not the one that is written: sums count as the file's only once loaded.
  nvar = toCount(*value);
  number(static_cast<double>(variables_));
  for (std::int64_t v = 1; v <= variables_; ++v) {
    endTest();
    token(session_.varname(v));
  }
  endTest();
  number(static_cast<double>(directions_));
  endTest();
  number(static_cast<double>(classes_));
  for (std::int64_t d = 1; d <= directions_; ++d) {
    endTest();
    token(session_.dirname(d));
  }
}

void Writer::data() {
  for (std::int64_t v = 1; v <= variables_; ++v) {
    endTest();
    number(session_.variance(v));
    for (std::int64_t d = 1; d <= directions_; ++d) classes({v, d});
  }
}

void Writer::classes(Pair pair) {
  const auto held = static_cast<std::int64_t>(session_.gam.written(pair).size());
  if (classes_ > std::max(held, trusted_)) throw Fault("Out of memory");
  // The three tests before each line repeat one answer, as no more is read from the old file.
  if (classes_ > 0) endTest();
  for (std::int64_t lag = 1; lag <= classes_; ++lag) {
    line_.clear();
    appendFileNumber(line_, session_.hlag(pair, lag));
    nextPrintZone(line_, 0);
    appendFileNumber(line_, session_.gam(pair, lag));
    nextPrintZone(line_, 0);
    appendFileNumber(line_, session_.npairs(pair, lag));
    line_ += kLineEnd;
    out_.write(line_);
  }
}

void Writer::nugget(Pair pair) {
  const ConstLineRef at = line(session_, pair, Line::nugget);
  const double used = at.used();
  if (used != 0 && used != 1) return;
  number(used);
  if (used == 0) return text(kUnusedSill);
  number(at.sill());
}

/// Nothing is written for a flag other than 0 and 1.
void Writer::structure(Line which, Pair pair) {
  const ConstLineRef at = line(session_, pair, which);
  const double used = at.used();
  if (used != 0 && used != 1) return;
  number(used);
  if (used == 0) {
    for (const char* unused : {kUnusedLetter, kUnusedSill, kUnusedRange}) text(unused);
    return;
  }
  token(at.letter());
  number(at.sill());
  number(at.range());
}

void Writer::fitCounts() {
  variables_ = std::clamp<std::int64_t>(variables_, 0, kVariableSlots - 1);
  directions_ = std::clamp<std::int64_t>(directions_, 0, kDirectionSlots - 1);
  std::size_t most = 1;  // slot 0 holds no class
  for (std::int64_t v = 1; v <= variables_; ++v)
    for (std::int64_t d = 1; d <= directions_; ++d)
      most = std::max(most, session_.gam.written({v, d}).size());
  classes_ = std::min(classes_, static_cast<std::int64_t>(most) - 1);
  trusted_ = classes_;
}

void Writer::wholeHeader(std::string_view title, std::string_view tag) {
  token(title);
  text(tag);
  number(static_cast<double>(variables_));
  for (std::int64_t v = 1; v <= variables_; ++v) token(session_.varname(v));
  number(static_cast<double>(directions_));
  number(static_cast<double>(classes_));
  for (std::int64_t d = 1; d <= directions_; ++d) token(session_.dirname(d));
}

/// A line that the reader takes for one text, this one: in double quotes where it needs them. Only
/// quotes beside a comma come back as apostrophes, which no file can bring about.
void Writer::token(std::string_view text) {
  const bool plain = !text.empty() && text.find_first_of(",\r\n") == std::string_view::npos &&
                     std::string_view(" \t\"").find(text.front()) == std::string_view::npos;
  if (plain) return this->text(text);
  std::string quoted(text);
  std::replace(quoted.begin(), quoted.end(), '"', '\'');
  this->text('"' + quoted + '"');
}

void Writer::wholeModels() {
  for (std::int64_t v = 1; v <= variables_; ++v)
    for (std::int64_t d = 1; d <= directions_; ++d)
      for (const Line which : kLines) wholeLine(which, {v, d});
}

void Writer::wholeLine(Line which, Pair pair) {
  const bool isStructure = which != Line::nugget;
  const ConstLineRef at = line(session_, pair, which);
  number(at.flag());
  if (isStructure) token(at.letter());
  number(at.sill());
  if (isStructure) number(at.range());
}

void Writer::models() {
  for (std::int64_t v = 1; v <= variables_; ++v) {
    for (std::int64_t d = 1; d <= directions_; ++d) {
      nugget({v, d});
      for (const Line which : kStructures) structure(which, {v, d});
    }
  }
}

}  // namespace

bool composeVariogramFile(Session& session, std::int64_t variables, std::string_view oldFile,
                          ByteSink& out) {
  Writer writer(session, variables, oldFile, out);
  try {
    writer.header(session.filetag, session.nvar);
    writer.data();
    writer.models();
  } catch (const EndOfFile&) {
    return false;
  }
  return true;
}

void composeWhole(const Session& session, std::int64_t variables, std::string_view title,
                  ByteSink& out) {
  // There is no old file to read; the tests for its end only ask whether a byte is left.
  Writer writer(session, variables, ".", out);
  writer.fitCounts();
  writer.wholeHeader(title, kModelTagWritten);
  writer.data();
  writer.wholeModels();
}

void composeData(const Session& session, std::int64_t variables, std::string_view title,
                 ByteSink& out) {
  Writer writer(session, variables, ".", out);
  writer.fitCounts();
  writer.wholeHeader(title, kDataTag);
  writer.data();
}

std::optional<std::string> ModelSaver::gravando(Session& session, std::int16_t listedVariables,
                                                Messages& messages) {
  hasSaved_ = false;
  if (trimmed(session.inputfile).empty() || listedVariables <= 0) {
    messages.plain(kNoFileText);
    return std::nullopt;
  }
  if (!messages.confirm("Save  current models to file: " + session.inputfile)) return std::nullopt;
  return attempt([&] { return save(session, listedVariables, messages); },
                 [&] {
                   messages.plain("Cannot save  models to file:\n-" + session.inputfile);
                   closeFiles();
                   return std::optional<std::string>();
                 });
}

std::filesystem::path ModelSaver::keptName(const std::filesystem::path& file) const {
  const std::filesystem::path beside = file.has_parent_path() ? file.parent_path() : ".";
  const bool isBeside = ::access(beside.c_str(), W_OK) == 0;
  std::filesystem::path kept = isBeside ? file : folder_ / file.filename();
  kept += kKeptSuffix;
  return kept;
}

std::optional<std::string> ModelSaver::replaceAndKeep(const std::filesystem::path& temporary,
                                                      const std::filesystem::path& file) const {
  const std::filesystem::path kept = keptName(file);
  std::optional<SiblingFile> copy;
  endSilently([&] { copy.emplace(kept, SiblingFile::Copy{file}); });
  replaceFile(temporary, file);
  bool isKept = false;
  endSilently([&] {
    if (!copy) return;
    copy->takeName();
    isKept = true;
  });
  if (isKept) return std::nullopt;
  return "The file as it was before this save could not be kept as " + kept.string();
}

std::optional<std::string> ModelSaver::save(Session& session, std::int16_t listedVariables,
                                            Messages& messages) {
  if (leftOpen_) throw Fault("File already open");
  const std::filesystem::path temporary = folder_ / kTemporaryName;
  // The temporary file of a save that was cut short can be loaded, but not written over.
  std::error_code missing;
  if (std::filesystem::equivalent(temporary, session.inputfile, missing))
    throw Fault("File already open");
  auto out = std::make_unique<OutputFile>(temporary);
  const std::string oldFile = readWhole(session.inputfile);
  if (!composeVariogramFile(session, listedVariables, oldFile, *out)) {
    leftOpen_ = std::move(out);
    messages.warning(kBadFileText);
    return std::nullopt;
  }
  out->close();
  std::optional<std::string> note;
  if (isKept_)
    replaceFile(temporary, session.inputfile);
  else
    note = replaceAndKeep(temporary, session.inputfile);
  isKept_ = hasSaved_ = true;
  messages.plain("Models saved to file:" + session.inputfile);
  return note;
}

}  // namespace zevfit
