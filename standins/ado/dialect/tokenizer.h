#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// Token offsets are 32 bits wide.
inline constexpr std::size_t longest_text = std::numeric_limits<std::uint32_t>::max() - 1;

// Where the next token of `sql` begins at or behind `at`, which no token reaches over; its size when there is
// none.
std::size_t skip_between_tokens(std::string_view sql, std::size_t at);

// Cuts `sql`, at most `longest_text` bytes, into `tokens`, whose storage is reused. Every text can be cut:
// bytes that mean nothing become tokens of kind `other`. Bytes above 0x7F belong to names. Comments run from
// `--` to the end of the line or from `/*` to `*/`; one that is never closed reaches to the end of the text.
void tokenize(std::string_view sql, Tokens& tokens);

}  // namespace tallyra::standins::ado::dialect
