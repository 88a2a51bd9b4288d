#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

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
inline constexpr std::int32_t no_such_named_argument = 448;
inline constexpr std::int32_t argument_not_optional = 449;
inline constexpr std::int32_t wrong_argument_count = 450;
inline constexpr std::int32_t key_in_use = 457;
}  // namespace error_number

// The text of an error. Copying it takes no memory: an error can be told, and kept, when there is none.
class ErrorText {
 public:
  ErrorText() = default;
  explicit ErrorText(std::string text)
      : owned_(text.empty() ? nullptr : std::make_shared<const std::string>(std::move(text))) {}
  // The text itself lives as long as the program and has a zero behind it, as a literal has.
  static ErrorText of_literal(std::string_view text) noexcept {
    ErrorText result;
    result.literal_ = text;
    return result;
  }

  std::string_view view() const noexcept { return owned_ ? std::string_view(*owned_) : literal_; }

 private:
  std::shared_ptr<const std::string> owned_;  // shared by the copies; none for a literal
  // NOLINTNEXTLINE(readability-redundant-string-init): what() of an error without a text is no null
  std::string_view literal_ = "";
};

// A run-time error on its way to the trap of a business method or to the edge where a caller gets it.
class Error : public std::exception {
 public:
  // The number with the standard text of that number.
  explicit Error(std::int32_t number) noexcept;
  Error(std::int32_t number, std::string description);
  Error(std::int32_t number, ErrorText description) noexcept;

  std::int32_t number() const noexcept { return number_; }
  std::string_view description() const noexcept { return text_.view(); }
  const ErrorText& text() const noexcept { return text_; }
  // 1-based position of the argument at fault, 0 when no argument is.
  int argument() const noexcept { return argument_; }
  void blame_argument(int position) noexcept { argument_ = position; }

  const char* what() const noexcept override { return text_.view().data(); }

 private:
  std::int32_t number_;
  int argument_ = 0;
  ErrorText text_;
};

// The error that the exception being handled stands for, as a classic client would see it. Call it from a
// handler. Takes no memory but for the text of an exception that is none of ours, and is error 7 without it.
Error current_error() noexcept;

// The standard English text of an error number, a literal; empty for a number that has none.
std::string_view standard_text(std::int32_t number) noexcept;

// The number that a classic client shows for a failing HRESULT: known automation codes have a number of
// their own, FACILITY_CONTROL codes show their low word, all others the negative code itself.
std::int32_t number_from_hresult(std::int32_t hresult);

// The HRESULT that carries an error number over a COM edge; the inverse of number_from_hresult.
std::int32_t hresult_from_number(std::int32_t number);

// That of the exception being handled. Call it from a handler.
inline std::int32_t current_hresult() {
  return hresult_from_number(current_error().number());
}

// The HRESULT under which a classic component raises an error of its own. A number below 65536 goes as it is,
// in a FACILITY_CONTROL code: there are clients that look into no other code for a number.
std::int32_t hresult_of_raised(std::int32_t number);

}  // namespace tallyra::automation
