#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "standins/ado/dialect/insert_heads.h"

namespace tallyra::standins::ado::dialect {

enum class ValuesOutcome : std::uint8_t { as_is, rewritten, not_plain };

// Rewrites the dates in the values of `sql`, which begins with `head`, in one pass: `out` receives the whole
// text when the outcome is `rewritten`. Understands one row of text, number, date and word values and nothing
// behind it; the outcome for any other text is `not_plain`, and `out` is then of no use.
ValuesOutcome rewrite_values(std::string_view sql, const InsertHead& head, std::string& out);

}  // namespace tallyra::standins::ado::dialect
