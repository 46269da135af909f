#include "tests/users/desk.h"

#include <sstream>

namespace zevfit::test {

namespace {

/// Numbers, texts and names that a file may have in place of others.
const std::vector<std::string> kOddTokens{
    "0",      "1",     "2",     "3",      "41",     "-1",         "1e308",    "-1e308",
    "1e-320", "1e999", "nan",   "inf",    "yes",    "",           "\"\"",     "\"a",
    ",",      ",,",    "32768", "-32769", "1.5",    "0.0001",     "99999999", "Omni",
    "0;0",    "90;90", "P",     "S",      "X",      "4000000000", "1;2;3",    "-",
    " ",      "\xe9t", "zevra", ";",      "1e400;0"};

std::string meuse() {
  return contentOf(std::filesystem::path(ZEVFIT_SOURCE_DIR) / "examples/meuse.zvm");
}

/// Two variables, three directions with dips, four classes; with models where the tag says so.
std::string smallFile(const std::string& tag) {
  std::ostringstream file;
  file << "small\r\n" << tag << "\r\n2\r\nzinc\r\nlead\r\n3\r\n4\r\n0;0\r\n90;0\r\n0;90\r\n";
  for (int v = 1; v <= 2; ++v) {
    file << v * 1.5 << "\r\n";
    for (int d = 1; d <= 3; ++d)
      for (int lag = 1; lag <= 4; ++lag)
        file << lag * 10 << "  " << v * 0.4 * lag - 0.05 * d << "  " << 100 - lag << "\r\n";
  }
  if (tag != "zevRA1") return file.str();
  for (int pair = 0; pair < 6; ++pair)
    file << "1\r\n0.25\r\n1\r\nS\r\n1\r\n25\r\n"
         << pair % 2 << "\r\nP\r\n0.5\r\n1.5\r\n0\r\n-\r\n0\r\n1E-05\r\n";
  return file.str();
}

/// The file with some of its lines turned into others.
std::string spoiled(const std::string& good, Chance& chance) {
  std::istringstream in(good);
  std::string bytes;
  const int share = 1 + chance.upTo(20);
  for (std::string line; std::getline(in, line);) {
    if (chance.inHundred(share)) line = chance.among(kOddTokens);
    bytes += line + "\n";
  }
  return bytes;
}

std::string noise(Chance& chance) {
  std::string bytes;
  for (int i = chance.upTo(400); i > 0; --i) bytes += static_cast<char>(chance.upTo(256));
  return bytes;
}

}  // namespace

UsersDesk::UsersDesk(unsigned seed) {
  Chance chance(seed);
  for (const char* name : {"program", "data"}) std::filesystem::create_directory(folder_ / name);
  put("meuse.zvm", meuse());
  put("small.zvm", smallFile("zevra"));
  put("models.zvm", smallFile("zevRA1"));
  put("noise.zvm", noise(chance));
  for (int i = 0; i < 3; ++i) {
    const std::string& good = i == 0 ? meuse() : smallFile("zevRA1");
    const std::string number = std::to_string(i);
    put("cut" + number + ".zvm",
        good.substr(0, static_cast<std::size_t>(chance.upTo(static_cast<int>(good.size())))));
    put("spoiled" + number + ".zvm", spoiled(good, chance));
  }
}

void UsersDesk::put(const std::string& name, const std::string& bytes) {
  const std::string path = (folder_ / "data" / name).string();
  putFile(path, bytes);
  files_[path] = bytes;
}

std::string UsersDesk::anyFile(Chance& chance) const {
  if (chance.inHundred(5)) return (folder_ / "data/missing.zvm").string();
  // Half of what a user opens is good.
  if (chance.inHundred(50)) {
    const std::vector<std::string> good{"meuse.zvm", "small.zvm", "models.zvm"};
    return (folder_ / "data" / chance.among(good)).string();
  }
  return std::next(files_.begin(), chance.upTo(static_cast<int>(files_.size())))->first;
}

std::string UsersDesk::newFile(Chance& chance) const {
  return (folder_ / "data" / ("out" + std::to_string(chance.upTo(3)) + ".ZVP")).string();
}

void UsersDesk::saved(const std::string& path) {
  if (files_.count(path) == 1) files_[path] = contentOf(path);
}

std::string UsersDesk::changedFile() const {
  for (const auto& [path, bytes] : files_)
    if (contentOf(path) != bytes) return path;
  return {};
}

}  // namespace zevfit::test
