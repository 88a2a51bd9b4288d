#pragma once

#include <cstdint>

// The numbers of this library's own failures. Clients keep error numbers in single precision, which holds
// every whole number below 16777216 exactly.
namespace tallyra::standins::corvane::failure {

// Statement builders
inline constexpr std::int32_t counts_differ = 10000201;   // also: no column at all
inline constexpr std::int32_t no_column_name = 10000202;  // an empty name, or a name that is no text
inline constexpr std::int32_t unknown_column = 10000203;
inline constexpr std::int32_t repeated_column = 10000204;
inline constexpr std::int32_t unfit_value = 10000205;      // does not convert to the column's type
inline constexpr std::int32_t object_as_value = 10000206;  // an object, an array, ...
inline constexpr std::int32_t bad_table_name = 10000207;

// Document numbers
inline constexpr std::int32_t bad_key_request = 10000221;  // unknown call shape, document type or key column
inline constexpr std::int32_t bad_key_date = 10000222;
inline constexpr std::int32_t no_key_database = 10000223;      // the connection string is missing
inline constexpr std::int32_t key_database_failed = 10000224;  // cannot be opened, is locked, ...
inline constexpr std::int32_t series_exhausted = 10000225;

}  // namespace tallyra::standins::corvane::failure
