#pragma once

// The server's numbers of the types that mean something here; they never change.
namespace tallyra::standins::ado::oid {

inline constexpr unsigned boolean = 16;
inline constexpr unsigned bytes = 17;
inline constexpr unsigned big_int = 20;
inline constexpr unsigned small_int = 21;
inline constexpr unsigned integer = 23;
inline constexpr unsigned long_text = 25;
inline constexpr unsigned single = 700;
inline constexpr unsigned double_precision = 701;
inline constexpr unsigned blank_padded = 1042;
inline constexpr unsigned varying = 1043;
inline constexpr unsigned date = 1082;
inline constexpr unsigned time_stamp = 1114;
inline constexpr unsigned numeric = 1700;

}  // namespace tallyra::standins::ado::oid
