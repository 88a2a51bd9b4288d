#include "automation/com/variant.h"

#include <cstring>
#include <memory>

#include "automation/bytes.h"
#include "automation/com/byte_array.h"
#include "automation/com/failure.h"
#include "automation/com/object_passage.h"
#include "automation/com/opaque_variant.h"
#include "automation/com/text.h"

namespace tallyra::automation::com {
namespace {

// No honest caller nests deeper; a variant that refers to itself ends here too.
constexpr int deepest_reference = 8;

Decimal decimal_of(const DECIMAL& raw) {
  if (raw.scale > Decimal::max_scale) throw error_of(DISP_E_BADVARTYPE);
  return Decimal({raw.Lo32, raw.Mid32, raw.Hi32}, raw.scale, raw.sign != 0);
}

DECIMAL raw_decimal(const Decimal& decimal) {
  DECIMAL raw{};
  raw.Lo32 = decimal.words()[0];
  raw.Mid32 = decimal.words()[1];
  raw.Hi32 = decimal.words()[2];
  raw.scale = static_cast<BYTE>(decimal.scale());
  raw.sign = decimal.negative() ? DECIMAL_NEG : 0;
  return raw;
}

template <class T>
T read(const void* data) {
  T content;
  std::memcpy(&content, data, sizeof content);
  return content;
}

Value opaque(const VARIANT& variant) {
  return Opaque(std::make_shared<const OpaqueVariant>(variant));
}

// `data` is where a content of that type lies: in the variant itself or where it refers to.
Value content_of(const VARIANT& variant, const void* data, Role role) {
  switch (V_VT(&variant) & ~VT_BYREF) {
    case VT_EMPTY: return {};
    case VT_NULL: return Null{};
    case VT_BSTR: return text_of(read<BSTR>(data));
    case VT_I2: return read<std::int16_t>(data);
    case VT_I4: return read<std::int32_t>(data);
    case VT_I8: return read<std::int64_t>(data);
    case VT_UI1: return read<std::uint8_t>(data);
    case VT_R4: return read<float>(data);
    case VT_R8: return read<double>(data);
    case VT_CY: return Currency{read<std::int64_t>(data)};
    case VT_DATE: return Date{read<double>(data)};
    case VT_BOOL: return read<VARIANT_BOOL>(data) != VARIANT_FALSE;
    case VT_DECIMAL: return decimal_of(read<DECIMAL>(data));
    case VT_DISPATCH: return object_of(read<IDispatch*>(data), role);
    case VT_UNKNOWN: {
      auto* unknown = read<IUnknown*>(data);
      if (!unknown) return Object();
      const auto object = query<IDispatch>(unknown);
      return object ? Value(object_of(object.get(), role)) : opaque(variant);
    }
    case VT_ERROR:
      if (read<SCODE>(data) == DISP_E_PARAMNOTFOUND) return Missing{};
      return opaque(variant);
    case VT_ARRAY | VT_UI1: {
      const auto bytes = bytes_in(read<SAFEARRAY*>(data));
      return bytes ? Opaque(std::make_shared<const Bytes>(*bytes)) : opaque(variant);
    }
    default: return opaque(variant);
  }
}

// Fills an empty variant.
struct Writer {
  VARIANT& out;
  Role role;

  void operator()(std::monostate) const {}
  void operator()(Null) const { V_VT(&out) = VT_NULL; }
  void operator()(Missing) const { set(VT_ERROR, V_ERROR(&out), DISP_E_PARAMNOTFOUND); }
  void operator()(bool value) const {
    set(VT_BOOL, V_BOOL(&out), static_cast<VARIANT_BOOL>(value ? VARIANT_TRUE : VARIANT_FALSE));
  }
  void operator()(std::uint8_t value) const { set(VT_UI1, V_UI1(&out), value); }
  void operator()(std::int16_t value) const { set(VT_I2, V_I2(&out), value); }
  void operator()(std::int32_t value) const { set(VT_I4, V_I4(&out), static_cast<LONG>(value)); }
  void operator()(std::int64_t value) const { set(VT_I8, V_I8(&out), value); }
  void operator()(float value) const { set(VT_R4, V_R4(&out), value); }
  void operator()(double value) const { set(VT_R8, V_R8(&out), value); }
  void operator()(Currency value) const { set(VT_CY, V_CY(&out).int64, value.ten_thousandths); }
  void operator()(Date value) const { set(VT_DATE, V_DATE(&out), value.serial); }
  void operator()(const std::string& value) const { set(VT_BSTR, V_BSTR(&out), new_bstr(value)); }
  void operator()(const Decimal& value) const {
    // The number lies over the type word, which therefore comes last.
    V_DECIMAL(&out) = raw_decimal(value);
    V_VT(&out) = VT_DECIMAL;
  }
  void operator()(const Object& value) const {
    set(VT_DISPATCH, V_DISPATCH(&out), dispatch_of(value, role).detach());
  }
  void operator()(const Opaque& value) const {
    if (const auto* bytes = dynamic_cast<const Bytes*>(value.get()))
      return set(VT_ARRAY | VT_UI1, V_ARRAY(&out), new_byte_array(bytes->content()));
    const auto* kept = dynamic_cast<const OpaqueVariant*>(value.get());
    if (!kept) throw error_of(DISP_E_BADVARTYPE);
    out = kept->copy().detach();
  }

 private:
  template <class T>
  void set(VARTYPE type, T& field, T content) const {
    field = content;
    V_VT(&out) = type;
  }
};

}  // namespace

Variant::Variant(const Value& value, Role role) : Variant() {
  value.visit(Writer{raw_, role});
}

VARIANT Variant::detach() noexcept {
  const VARIANT content = raw_;
  VariantInit(&raw_);
  return content;
}

const VARIANT& innermost(const VARIANT& variant) {
  const VARIANT* inner = &variant;
  for (int depth = 0; V_VT(inner) == (VT_BYREF | VT_VARIANT); ++depth) {
    if (depth == deepest_reference) throw error_of(DISP_E_BADVARTYPE);
    inner = V_VARIANTREF(inner);
    if (!inner) throw error_of(E_POINTER);
  }
  return *inner;
}

Value value_of(const VARIANT& variant, Role role) {
  const VARIANT& inner = innermost(variant);
  if ((V_VT(&inner) & VT_BYREF) != 0) {
    if (!V_BYREF(&inner)) throw error_of(E_POINTER);
    return content_of(inner, V_BYREF(&inner), role);
  }
  // A decimal lies over the whole variant, everything else behind the type word.
  const void* data = &inner;
  return content_of(inner, V_VT(&inner) == VT_DECIMAL ? data : &V_NONE(&inner), role);
}

}  // namespace tallyra::automation::com
