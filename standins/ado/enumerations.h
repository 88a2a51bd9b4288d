#pragma once

#include <cstdint>

// The numbers of ADO's enumerations that clients pass and read.
namespace tallyra::standins::ado {

enum class CursorLocation : std::int32_t { server = 2, client = 3 };

enum class CursorType : std::int32_t { forward_only = 0, keyset = 1, dynamic = 2, fixed = 3 };

enum class LockType : std::int32_t { read_only = 1, pessimistic = 2, optimistic = 3, batch_optimistic = 4 };

inline constexpr std::int32_t unspecified = -1;

namespace state {
inline constexpr std::int32_t closed = 0;
inline constexpr std::int32_t open = 1;
}  // namespace state

namespace execute_option {
inline constexpr std::int32_t text = 1;
inline constexpr std::int32_t table = 2;
inline constexpr std::int32_t stored_procedure = 4;
inline constexpr std::int32_t unknown = 8;
inline constexpr std::int32_t no_records = 128;
inline constexpr std::int32_t table_direct = 512;
}  // namespace execute_option

namespace position {
inline constexpr std::int32_t unknown = -1;
inline constexpr std::int32_t before_first = -2;
inline constexpr std::int32_t after_last = -3;
}  // namespace position

}  // namespace tallyra::standins::ado
