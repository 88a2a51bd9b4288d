#pragma once

#include "schema/description.h"

namespace tallyra::tests {

using schema::Column;
using schema::Kind;
using schema::Table;

inline constexpr Column code{.name = "CODE", .kind = Kind::text, .length = 5, .nullable = false};
inline constexpr Column store{
    .name = "STORE", .kind = Kind::text, .length = 7, .trailing_blanks_count = false};
inline constexpr Column day{.name = "DAY", .kind = Kind::date, .compared = true};
inline constexpr Column quantity{.name = "QTY", .kind = Kind::number, .initial = "0"};
inline constexpr Column place{.name = "SN", .kind = Kind::integer};

// A column of every kind, and a key.
inline const Table things{.name = "THINGS",
                          .subject = {},
                          .note = {},
                          .columns = {code, store, day, quantity, place},
                          .key = {"CODE"},
                          .stored_by_key = true};

}  // namespace tallyra::tests
