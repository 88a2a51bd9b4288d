#pragma once

#include <optional>
#include <string_view>

#include "automation/value.h"
#include "frame/field_collections.h"

namespace tallyra::frame {

enum class NameMatch { exact, any_case };

// The value of the first entry whose column has this name; nothing when no entry has it.
std::optional<automation::Value> find_field(const FieldCollections& fields, std::string_view name,
                                            NameMatch match);

}  // namespace tallyra::frame
