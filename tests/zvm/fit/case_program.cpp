// case_program: reads cases from the standard input and writes the model that is fitted to each. A
// case is a letter, a number of classes, and their distances, semivariances and pairs; a model is
// nugget, sill, range and weighted sum of squares, and 1 where the range is unbounded.
#include <iomanip>
#include <iostream>
#include <string>

#include "fitting/fit.h"

namespace {

using namespace zevfit;
using namespace zevfit::fitting;

Classes readClasses(std::size_t count) {
  Classes classes(count);
  for (LagClass& one : classes) std::cin >> one.distance >> one.semivariance >> one.pairs;
  return classes;
}

void writeFit(Form form, const Classes& classes) {
  Options options;
  options.forms = {form};
  options.structures = 1;
  options.smoothGaussian = true;
  const Candidate candidate = startModel(classes, options).ranking.front();
  const Structure& structure = *candidate.model.structures[0];
  std::cout << candidate.model.nugget << ' ' << structure.sill << ' ' << structure.range << ' '
            << candidate.sum << ' ' << (candidate.unbounded ? 1 : 0) << '\n';
}

}  // namespace

int main() {
  std::cout << std::setprecision(17);
  std::string letter;
  std::size_t count = 0;
  while (std::cin >> letter >> count) writeFit(formOf(letter).value(), readClasses(count));
  return std::cin.eof() ? 0 : 1;
}
