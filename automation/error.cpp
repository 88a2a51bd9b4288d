#include "automation/error.h"

#include <new>
#include <utility>

namespace tallyra::automation {
namespace {

struct StandardText {
  std::int32_t number;
  std::string_view text;
};

constexpr StandardText standard_texts[] = {
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {10, "This array is fixed or temporarily locked"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {70, "Permission denied"},
    {91, "Object variable or With block variable not set"},
    {94, "Invalid use of Null"},
    {424, "Object required"},
    {429, "ActiveX component can't create object"},
    {430, "Class does not support Automation or does not support expected interface"},
    {438, "Object doesn't support this property or method"},
    {445, "Object doesn't support this action"},
    {446, "Object doesn't support named arguments"},
    {448, "Named argument not found"},
    {449, "Argument not optional"},
    {450, "Wrong number of arguments or invalid property assignment"},
    {451, "Object not a collection"},
    {457, "This key is already associated with an element of this collection"},
    {458, "Variable uses an Automation type not supported"},
    {462, "The remote server machine does not exist or is unavailable"},
};

struct KnownCode {
  std::uint32_t hresult;
  std::int32_t number;
};

// The first code of a number is the one that carries it outwards.
constexpr KnownCode known_codes[] = {
    {0x80020003, 438}, {0x80020001, 438}, {0x80020006, 438}, {0x80020004, 448}, {0x80020005, 13},
    {0x80028CA0, 13},  {0x80020007, 446}, {0x80020008, 458}, {0x8002000A, 6},   {0x8002000B, 9},
    {0x8002000D, 10},  {0x8002000E, 450}, {0x8002000F, 449}, {0x80020011, 451}, {0x80020012, 11},
    {0x8007000E, 7},   {0x80070057, 5},   {0x80004001, 445}, {0x80004002, 430}, {0x80040154, 429},
    {0x800401F3, 429}, {0x80080005, 429}, {0x800706BA, 462}, {0x80070005, 70},
};

constexpr std::uint32_t facility_control = 0x800A0000;
constexpr std::int32_t catastrophic_failure = -2147418113;

}  // namespace

Error::Error(std::int32_t number) noexcept : Error(number, ErrorText::of_literal(standard_text(number))) {}

Error::Error(std::int32_t number, std::string description)
    : Error(number, ErrorText(std::move(description))) {}

Error::Error(std::int32_t number, ErrorText description) noexcept
    : number_(number), text_(std::move(description)) {}

Error current_error() noexcept {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return Error(error_number::out_of_memory);
  } catch (const std::exception& error) {
    try {
      return Error(catastrophic_failure, error.what());
    } catch (...) {
      return Error(error_number::out_of_memory);
    }
  } catch (...) {
    return {catastrophic_failure, ErrorText::of_literal("Catastrophic failure")};
  }
}

std::string_view standard_text(std::int32_t number) noexcept {
  for (const auto& entry : standard_texts)
    if (entry.number == number) return entry.text;
  return "";
}

std::int32_t number_from_hresult(std::int32_t hresult) {
  const auto code = static_cast<std::uint32_t>(hresult);
  if ((code & 0xFFFF0000U) == facility_control) return static_cast<std::int32_t>(code & 0xFFFFU);
  for (const auto& known : known_codes)
    if (known.hresult == code) return known.number;
  return hresult;
}

std::int32_t hresult_from_number(std::int32_t number) {
  if (number < 0) return number;
  for (const auto& known : known_codes)
    if (known.number == number) return static_cast<std::int32_t>(known.hresult);
  return hresult_of_raised(number);
}

std::int32_t hresult_of_raised(std::int32_t number) {
  if (number < 0) return number;
  return static_cast<std::int32_t>(facility_control | (static_cast<std::uint32_t>(number) & 0xFFFFU));
}

}  // namespace tallyra::automation
