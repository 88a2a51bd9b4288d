#pragma once

#include <cstdint>

namespace tallyra::standins::ado {

// The numbers that ADO itself raises, as a classic client sees them.
namespace ado_error {
inline constexpr std::int32_t invalid_argument = 3001;
inline constexpr std::int32_t no_current_record = 3021;
inline constexpr std::int32_t in_transaction = 3246;
inline constexpr std::int32_t not_supported = 3251;
inline constexpr std::int32_t item_not_found = 3265;
inline constexpr std::int32_t object_closed = 3704;
inline constexpr std::int32_t object_open = 3705;
inline constexpr std::int32_t provider_not_found = 3706;
inline constexpr std::int32_t invalid_connection = 3709;
}  // namespace ado_error

// Codes of a provider that have no short number: clients see the negative code itself.
namespace provider_error {
constexpr std::int32_t from_hresult(std::uint32_t hresult) {
  return static_cast<std::int32_t>(hresult);
}
inline constexpr std::int32_t unspecified = from_hresult(0x80004005);
inline constexpr std::int32_t cannot_convert = from_hresult(0x80040E07);
inline constexpr std::int32_t permission_denied = from_hresult(0x80040E09);
inline constexpr std::int32_t parameter_missing = from_hresult(0x80040E10);
inline constexpr std::int32_t errors_in_command = from_hresult(0x80040E14);
inline constexpr std::int32_t cannot_fetch_backward = from_hresult(0x80040E24);
inline constexpr std::int32_t integrity_violation = from_hresult(0x80040E2F);
inline constexpr std::int32_t timeout = from_hresult(0x80040E31);
inline constexpr std::int32_t no_such_table = from_hresult(0x80040E37);
inline constexpr std::int32_t login_failed = from_hresult(0x80040E4D);
inline constexpr std::int32_t overflow = from_hresult(0x80040E57);
inline constexpr std::int32_t no_transaction = from_hresult(0x8004D00E);
inline constexpr std::int32_t only_one_transaction = from_hresult(0x8004D013);
}  // namespace provider_error

// Throws the automation Error with the number and its standard text.
[[noreturn]] void raise(std::int32_t number);

}  // namespace tallyra::standins::ado
