#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

#include "automation/com/failure.h"
#include "automation/com/incoming_arguments.h"
#include "automation/com/object_passage.h"
#include "automation/com/text.h"
#include "automation/com/variant.h"
#include "automation/convert.h"

// Storing a value through each kind of reference that a caller may have passed.
namespace tallyra::automation::com {
namespace {

Currency currency_of(const Value& value) {
  if (const auto* same = value.get_if<Currency>()) return *same;
  const double scaled = std::nearbyint(to_double(value) * 10000.0);
  // The bounds of the type are no exact doubles; these are the nearest inside.
  if (!(scaled >= -9223372036854774784.0 && scaled <= 9223372036854774784.0))
    throw Error(error_number::overflow);
  return {static_cast<std::int64_t>(scaled)};
}

void store_decimal(const VARIANTARG& target, const Value& value) {
  const auto* same = value.get_if<Decimal>();
  const auto decimal = same ? *same : Decimal::parse(to_text(value));
  if (!decimal) throw Error(error_number::type_mismatch);
  const Variant content(*decimal, Role::callee);
  *V_DECIMALREF(&target) = V_DECIMAL(&content.raw());
}

std::uint8_t byte_of(const Value& value) {
  const std::int32_t number = to_int32(value);
  if (number < 0 || number > std::numeric_limits<std::uint8_t>::max()) throw Error(error_number::overflow);
  return static_cast<std::uint8_t>(number);
}

template <class T>
void write(const VARIANTARG& target, T content) {
  std::memcpy(V_BYREF(&target), &content, sizeof content);
}

// The old content is let go last: letting go may run any code of the caller.
void store_text(const VARIANTARG& target, const Value& value) {
  BSTR& variable = *V_BSTRREF(&target);
  const BSTR old = std::exchange(variable, new_bstr(to_text(value)));
  SysFreeString(old);
}

template <class I>
void store_object(I*& variable, const Value& value) {
  I* const old = std::exchange(variable, dispatch_of(to_object(value), Role::callee).detach());
  if (old) old->Release();
}

void store_typed(const VARIANTARG& target, const Value& value) {
  if (!V_BYREF(&target)) throw error_of(E_POINTER);
  switch (V_VT(&target) & ~VT_BYREF) {
    case VT_BSTR: store_text(target, value); break;
    case VT_DISPATCH: store_object(*V_DISPATCHREF(&target), value); break;
    case VT_UNKNOWN: store_object(*V_UNKNOWNREF(&target), value); break;
    case VT_I2: write(target, to_int16(value)); break;
    case VT_I4:
    case VT_INT: write(target, to_int32(value)); break;
    case VT_UI1: write(target, byte_of(value)); break;
    case VT_R4: write(target, to_single(value)); break;
    case VT_R8: write(target, to_double(value)); break;
    case VT_DATE: write(target, to_date(value).serial); break;
    case VT_CY: write(target, currency_of(value).ten_thousandths); break;
    case VT_DECIMAL: store_decimal(target, value); break;
    case VT_BOOL: write<VARIANT_BOOL>(target, to_boolean(value) ? VARIANT_TRUE : VARIANT_FALSE); break;
    case VT_ERROR: break;
    default: throw error_of(DISP_E_TYPEMISMATCH);
  }
}

}  // namespace

void store(VARIANTARG& argument, const Value& value) {
  const VARIANT& inner = innermost(argument);
  if ((V_VT(&inner) & VT_BYREF) != 0) return store_typed(inner, value);
  if (&inner == &argument || V_VT(&inner) == VT_ERROR) return;
  Variant fresh(value, Role::callee);
  // The variable is the caller's own and meant to be written.
  std::swap(const_cast<VARIANT&>(inner), fresh.raw());
}

}  // namespace tallyra::automation::com
