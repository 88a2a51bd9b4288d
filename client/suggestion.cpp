#include "client/suggestion.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "automation/folded_name.h"
#include "client/catalogue.h"
#include "client/verbs/verb.h"

namespace tallyra::client {
namespace {

// How many letters have to be put in, taken out, changed or swapped with the next one.
std::size_t distance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> before_last(right.size() + 1);
  std::vector<std::size_t> last(right.size() + 1);
  std::vector<std::size_t> current(right.size() + 1);
  std::iota(last.begin(), last.end(), 0U);
  for (std::size_t i = 1; i <= left.size(); ++i) {
    current[0] = i;
    for (std::size_t j = 1; j <= right.size(); ++j) {
      const std::size_t changed = last[j - 1] + (left[i - 1] == right[j - 1] ? 0U : 1U);
      current[j] = std::min({last[j] + 1, current[j - 1] + 1, changed});
      const bool swapped = i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1];
      if (swapped) current[j] = std::min(current[j], before_last[j - 2] + 1);
    }
    std::swap(before_last, last);
    std::swap(last, current);
  }
  return last[right.size()];
}

}  // namespace

std::string did_you_mean(std::string_view written, std::span<const std::string_view> known) {
  const std::string wanted = automation::folded(written);
  std::string_view best;
  std::size_t best_distance = std::max<std::size_t>(1, wanted.size() / 3) + 1;
  for (const std::string_view word : known) {
    const std::size_t far = distance(wanted, automation::folded(word));
    if (far < best_distance) {
      best = word;
      best_distance = far;
    }
  }
  return best.empty() ? std::string() : "; did you mean '" + std::string(best) + "'?";
}

std::string resembling_word(std::string_view written) {
  std::vector<std::string_view> known;
  for (const Verb* verb : verbs()) known.push_back(verb->name.substr(0, verb->name.find(' ')));
  for (const auto& entry : catalogue()) known.push_back(entry.name);
  return did_you_mean(written, known);
}

}  // namespace tallyra::client
