#include "client/stocktaking/force.h"

#include <algorithm>

#include "client/suggestion.h"
#include "client/usage_error.h"
#include "client/verbs/context.h"

namespace tallyra::client {

void require_known_forces(const VerbContext& context, std::initializer_list<std::string_view> known) {
  for (const std::string& name : context.words().values("--force"))
    if (std::ranges::find(known, name) == known.end())
      throw UsageError("--force '" + name + "': there is nothing of that name to force here" +
                       did_you_mean(name, {known.begin(), known.size()}));
}

bool is_forced(const VerbContext& context, std::string_view name) {
  const auto names = context.words().values("--force");
  return std::ranges::find(names, name) != names.end();
}

}  // namespace tallyra::client
