#include "client/stocktaking/force.h"

#include <algorithm>

#include "client/suggestion.h"
#include "client/usage_error.h"
#include "client/verbs/context.h"

namespace tallyra::client {

void require_known_forces(const VerbContext& context, std::span<const std::string_view> known) {
  for (const std::string& name : context.words().values("--force")) {
    if (std::ranges::find(known, name) != known.end()) continue;
    std::string text = "--force '" + name + "': there is nothing of that name to force here";
    const char* separator = "; there is ";
    for (const std::string_view word : known) {
      text.append(separator).append(word);
      separator = ", ";
    }
    throw UsageError(text + did_you_mean(name, known));
  }
}

void require_known_forces(const VerbContext& context, std::initializer_list<std::string_view> known) {
  require_known_forces(context, std::span(known.begin(), known.size()));
}

bool is_forced(const VerbContext& context, std::string_view name) {
  const auto names = context.words().values("--force");
  return std::ranges::find(names, name) != names.end();
}

}  // namespace tallyra::client
