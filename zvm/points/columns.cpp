#include "zvm/points/columns.h"

#include <algorithm>
#include <charconv>

#include "zvm/points/names.h"

namespace zevfit::zvm {

namespace {

/// A table of names that answers with what there is.
class Header {
 public:
  Header(const std::vector<std::string>& names, const std::string& file)
      : names_(names), file_(file) {}

  std::size_t find(const std::string& column) const {
    const auto at = std::ranges::find(names_, column);
    if (at == names_.end()) return byNumber(column);
    const auto position = static_cast<std::size_t>(at - names_.begin());
    const auto second = std::find(at + 1, names_.end(), column);
    if (second != names_.end())
      throw DataError({file_, 0, 0}, "columns " + std::to_string(position + 1) + " and " +
                                         std::to_string(second - names_.begin() + 1) +
                                         " are both named `" + column +
                                         "`; name one by its number");
    return position;
  }

 private:
  std::size_t byNumber(const std::string& column) const {
    std::size_t number = 0;
    const char* end = column.data() + column.size();
    const auto read = std::from_chars(column.data(), end, number);
    if (read.ec == std::errc() && read.ptr == end && number >= 1 && number <= names_.size())
      return number - 1;
    throw DataError({}, noSuchName("column", column, file_, names_));
  }

  const std::vector<std::string>& names_;
  const std::string& file_;
};

std::size_t positionOf(std::size_t column, const std::vector<std::size_t>& wanted) {
  return static_cast<std::size_t>(std::ranges::lower_bound(wanted, column) - wanted.begin());
}

}  // namespace

Columns findColumns(const std::vector<std::string>& names, const ReadOptions& options,
                    const std::string& file) {
  const Header header(names, file);
  std::vector<std::size_t> chosen{header.find(options.x), header.find(options.y)};
  if (options.z) chosen.push_back(header.find(*options.z));
  Columns columns;
  columns.count = names.size();
  columns.inSpace = options.z.has_value();
  const std::size_t coordinates = chosen.size();
  for (const std::string& variable : options.variables) {
    chosen.push_back(header.find(variable));
    columns.names.push_back(names[chosen.back()]);
  }
  columns.logs.assign(options.variables.size(), false);
  for (const std::string& log : options.logs) {
    const std::size_t column = header.find(log);
    const auto at =
        std::find(chosen.begin() + static_cast<std::ptrdiff_t>(coordinates), chosen.end(), column);
    if (at == chosen.end()) throw OptionError(noSuchName("variable", log, "--var", columns.names));
    columns.logs[static_cast<std::size_t>(at - chosen.begin()) - coordinates] = true;
  }
  columns.wanted = chosen;
  std::ranges::sort(columns.wanted);
  columns.wanted.erase(std::unique(columns.wanted.begin(), columns.wanted.end()),
                       columns.wanted.end());
  for (const std::size_t column : chosen)
    columns.targets.push_back(positionOf(column, columns.wanted));
  return columns;
}

}  // namespace zevfit::zvm
