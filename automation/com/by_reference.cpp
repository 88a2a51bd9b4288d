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

constexpr LCID language_neutral = LOCALE_NEUTRAL;

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

// A number that keeps every digit the value has.
Variant exact_number(const Value& value) {
  if (value.holds<std::int64_t>() || value.holds<Decimal>() || value.holds<Currency>())
    return Variant(value, Role::callee);
  if (const auto* opaque = value.get_if<Opaque>(); opaque && (*opaque)->number())
    return exact_number(*(*opaque)->number());
  if (const auto* text = value.get_if<std::string>())
    if (const auto decimal = Decimal::parse(*text)) return Variant(*decimal, Role::callee);
  return Variant(to_double(value), Role::callee);
}

// The kinds of whole numbers that a Value has not, and the wide one, which is more than a double can tell.
void store_rare_integer(const VARIANTARG& target, const Value& value, std::size_t size) {
  const auto type = static_cast<VARTYPE>(V_VT(&target) & ~VT_BYREF);
  Variant number = exact_number(value);
  throw_if_failed(VariantChangeTypeEx(&number.raw(), &number.raw(), language_neutral, 0, type));
  std::memcpy(V_BYREF(&target), &V_NONE(&number.raw()), size);
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
    case VT_I1: store_rare_integer(target, value, 1); break;
    case VT_UI2: store_rare_integer(target, value, 2); break;
    case VT_UI4:
    case VT_UINT: store_rare_integer(target, value, 4); break;
    case VT_I8:
    case VT_UI8: store_rare_integer(target, value, 8); break;
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
