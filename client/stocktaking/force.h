#pragma once

#include <initializer_list>
#include <span>
#include <string_view>

namespace tallyra::client {

class VerbContext;

// Throws UsageError, which lists them, when --force has a name that is none of `known`.
void require_known_forces(const VerbContext& context, std::span<const std::string_view> known);
void require_known_forces(const VerbContext& context, std::initializer_list<std::string_view> known);

// Whether --force has that name.
bool is_forced(const VerbContext& context, std::string_view name);

}  // namespace tallyra::client
