#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include "automation/com/role.h"
#include "automation/value.h"

// Values on the wire and back.
namespace tallyra::automation::com {

// Owns the content of a VARIANT.
class Variant {
 public:
  Variant() noexcept { VariantInit(&raw_); }
  Variant(const Value& value, Role role);
  Variant(Variant&& other) noexcept : raw_(other.raw_) { VariantInit(&other.raw_); }
  Variant& operator=(Variant&& other) noexcept {
    std::swap(raw_, other.raw_);
    return *this;
  }
  ~Variant() { VariantClear(&raw_); }

  VARIANT& raw() noexcept { return raw_; }
  const VARIANT& raw() const noexcept { return raw_; }
  // Gives the content away.
  VARIANT detach() noexcept;

 private:
  VARIANT raw_;
};

// The value that a variant holds or refers to, through any number of references. Number kinds that a Value
// has not, arrays and the like become opaque and keep their kind. Throws Error 458 for a variant that is none
// and -2147467261 for a reference to nowhere.
Value value_of(const VARIANT& variant, Role role);

// The end of a chain of references to variants: the variant that holds a value or refers to one of some other
// type.
const VARIANT& innermost(const VARIANT& variant);

}  // namespace tallyra::automation::com
