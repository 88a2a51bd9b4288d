#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

namespace tallyra::automation {

// Run-time error numbers that the language itself or automation raises, as a classic client sees them.
namespace error_number {
inline constexpr std::int32_t invalid_argument = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t out_of_memory = 7;
inline constexpr std::int32_t bad_index = 9;
inline constexpr std::int32_t type_mismatch = 13;
inline constexpr std::int32_t object_not_set = 91;
inline constexpr std::int32_t invalid_null = 94;
inline constexpr std::int32_t object_required = 424;
inline constexpr std::int32_t cannot_create = 429;
inline constexpr std::int32_t no_such_member = 438;
inline constexpr std::int32_t action_not_supported = 445;
inline constexpr std::int32_t no_such_named_argument = 448;
inline constexpr std::int32_t argument_not_optional = 449;
inline constexpr std::int32_t wrong_argument_count = 450;
inline constexpr std::int32_t key_in_use = 457;
}  // namespace error_number

// A run-time error on its way to the trap of a business method or to the edge where a caller gets it.
class Error : public std::exception {
 public:
  // The number with the standard text of that number.
  explicit Error(std::int32_t number);
  Error(std::int32_t number, std::string description);

  std::int32_t number() const noexcept { return number_; }
  const std::string& description() const noexcept { return *description_; }
  // 1-based position of the argument at fault, 0 when no argument is.
  int argument() const noexcept { return argument_; }
  void blame_argument(int position) noexcept { argument_ = position; }

  const char* what() const noexcept override { return description_->c_str(); }

 private:
  std::int32_t number_;
  int argument_ = 0;
  // Shared, so that an error is copied without another one.
  std::shared_ptr<const std::string> description_;
};

// The error that the exception being handled stands for, as a classic client would see it. Call it from a
// handler.
Error current_error() noexcept;

// The standard English text of an error number; empty for a number that has none.
std::string_view standard_text(std::int32_t number);

// The number that a classic client shows for a failing HRESULT: known automation codes have a number of
// their own, FACILITY_CONTROL codes show their low word, all others the negative code itself.
std::int32_t number_from_hresult(std::int32_t hresult);

// The HRESULT that carries an error number over a COM edge; the inverse of number_from_hresult.
std::int32_t hresult_from_number(std::int32_t number);

// The HRESULT under which a classic component raises an error of its own. A number below 65536 goes as it is,
// in a FACILITY_CONTROL code: there are clients that look into no other code for a number.
std::int32_t hresult_of_raised(std::int32_t number);

}  // namespace tallyra::automation
