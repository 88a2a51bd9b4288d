#include "automation/com/opaque_variant.h"

#include <array>

#include "automation/com/failure.h"

namespace tallyra::automation::com {
namespace {

Value unsigned_64(ULONGLONG number) {
  return Decimal({static_cast<std::uint32_t>(number), static_cast<std::uint32_t>(number >> 32), 0}, 0, false);
}

std::optional<Value> number_in(const VARIANT& variant) {
  switch (V_VT(&variant)) {
    case VT_I1: return static_cast<std::int16_t>(static_cast<signed char>(V_I1(&variant)));
    case VT_UI2: return static_cast<std::int32_t>(V_UI2(&variant));
    case VT_UI4: return static_cast<std::int64_t>(V_UI4(&variant));
    case VT_UI8: return unsigned_64(V_UI8(&variant));
    case VT_INT: return static_cast<std::int32_t>(V_INT(&variant));
    case VT_UINT: return static_cast<std::int64_t>(V_UINT(&variant));
    default: return std::nullopt;
  }
}

}  // namespace

OpaqueVariant::OpaqueVariant(const VARIANT& source) {
  throw_if_failed(VariantCopyInd(&content_.raw(), const_cast<VARIANT*>(&source)));
  number_ = number_in(content_.raw());
}

std::string_view OpaqueVariant::kind() const {
  if (number_) return "number";
  return (V_VT(&content_.raw()) & VT_ARRAY) != 0 ? "array" : "variant";
}

Variant OpaqueVariant::copy() const {
  Variant result;
  throw_if_failed(VariantCopy(&result.raw(), const_cast<VARIANT*>(&content_.raw())));
  return result;
}

}  // namespace tallyra::automation::com
