#include "fitting/candidates.h"

#include <numeric>

#include "fitting/elementary.h"

namespace zevfit::fitting {
namespace {

constexpr std::size_t kMostByChoice = 2;
/// Of the sum of the data: what the golden section and rounding leave of an exact model.
constexpr double kRounding = 1e-14;
/// A parameter so near to its limit, as a part of its stretch, has run into it.
constexpr double kAtLimit = 1e-6;

void addSets(const std::vector<Form>& forms, std::size_t from, std::size_t left,
             std::vector<Form>& set, std::vector<std::vector<Form>>& sets) {
  if (left == 0) {
    sets.push_back(set);
    return;
  }
  for (std::size_t i = from; i < forms.size(); ++i) {
    set.push_back(forms[i]);
    addSets(forms, i, left - 1, set, sets);
    set.pop_back();
  }
}

bool isAt(double value, double limit, const RangeLimits& limits, Form form) {
  return std::abs(value - limit) <= kAtLimit * (limits.upper(form) - limits.lower(form));
}

}  // namespace

std::vector<std::vector<Form>> formSets(const Options& options) {
  std::vector<Form> forms;
  for (const Form form : options.forms)
    if (std::ranges::count(forms, form) == 0) forms.push_back(form);
  std::vector<std::vector<Form>> sets;
  std::vector<Form> set;
  if (options.structures) {
    addSets(forms, 0, static_cast<std::size_t>(*options.structures), set, sets);
    return sets;
  }
  for (std::size_t count = 0; count <= kMostByChoice; ++count) addSets(forms, 0, count, set, sets);
  return sets;
}

std::vector<std::size_t> byRange(const std::vector<Form>& forms, const Theta& theta) {
  std::vector<std::size_t> places(forms.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::ranges::stable_sort(places, [&](std::size_t a, std::size_t b) {
    const bool powerA = forms[a] == Form::power, powerB = forms[b] == Form::power;
    return powerA != powerB ? powerB : theta[a] < theta[b];
  });
  return places;
}

double aiccOf(double sum, double total, std::size_t classes, std::size_t parameters) {
  const auto n = static_cast<double>(classes), k = static_cast<double>(parameters + 1);
  if (n - k - 1 < 1) return std::numeric_limits<double>::infinity();
  const double least = std::max(kRounding * total, std::numeric_limits<double>::min());
  return n * logarithmOf(std::max(sum, least) / n) + 2 * k + 2 * k * (k + 1) / (n - k - 1);
}

std::size_t rangeParameters(const Problem& problem, const std::vector<Form>& forms) {
  const bool drawn = std::ranges::any_of(forms, [](Form form) { return form != Form::power; });
  return forms.size() + (drawn ? problem.family.parameters() : 0);
}

void refuseNumbers(std::size_t classes, Tried& tried) {
  if (!std::isfinite(tried.sum))
    tried.refusal = "its sum of squares is beyond all numbers";
  else if (!std::isfinite(tried.aicc))
    tried.refusal = std::to_string(classes) + (classes == 1 ? " class is" : " classes are") +
                    " too few for " + std::to_string(tried.parameters) +
                    (tried.parameters == 1 ? " parameter" : " parameters");
}

void refuseRanges(const Problem& problem, const Theta& theta, Tried& tried) {
  const std::span<const double> ellipse = std::span(theta).subspan(tried.forms.size());
  const double main = logarithmOf(problem.family.drawn(ellipse).main);
  const RangeLimits& limits = problem.limits;
  bool drawn = false;
  for (std::size_t s = 0; s < tried.forms.size(); ++s) {
    const Form form = tried.forms[s];
    if (form == Form::power) {
      if (isAt(theta[s], limits.lower(form), limits, form) ||
          isAt(theta[s], limits.upper(form), limits, form))
        tried.refusal = "the exponent runs to its end";
      continue;
    }
    drawn = true;
    if (theta[s] + main < limits.most && !isAt(theta[s] + main, limits.most, limits, form))
      continue;
    tried.unbounded = true;
    tried.refusal = "range at the grid's end, 4 times the largest distance: unbounded";
  }
  if (!drawn || tried.unbounded || !problem.family.isAtLimit(ellipse)) return;
  tried.unbounded = true;
  tried.refusal = "the ratio of ranges runs to its end: unbounded in a direction";
}

std::string refusalOf(const Choice& choice, const Tried& best) {
  if (!choice.unbounded) return best.refusal;
  return "unbounded: the best range is at the grid's end, 4 times the largest distance";
}

}  // namespace zevfit::fitting
