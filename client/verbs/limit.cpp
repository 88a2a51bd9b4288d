#include "client/verbs/limit.h"

#include <charconv>

#include "client/usage_error.h"

namespace tallyra::client {

std::size_t limit_of(const VerbContext& context, std::size_t usual) {
  const auto word = context.words().value("--limit");
  if (!word) return usual;
  std::size_t limit = 0;
  const char* const end = word->data() + word->size();
  if (const auto [stopped, error] = std::from_chars(word->data(), end, limit);
      error != std::errc{} || stopped != end)
    throw UsageError("--limit '" + *word + "': write a whole number");
  return limit;
}

}  // namespace tallyra::client
