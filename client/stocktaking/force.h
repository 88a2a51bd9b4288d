#pragma once

#include <initializer_list>
#include <string_view>

namespace tallyra::client {

class VerbContext;

// Throws UsageError when --force has a name that is none of `known`.
void require_known_forces(const VerbContext& context, std::initializer_list<std::string_view> known);

// Whether --force has that name.
bool is_forced(const VerbContext& context, std::string_view name);

}  // namespace tallyra::client
