#pragma once

#include <optional>

#include "automation/com/variant.h"

namespace tallyra::automation::com {

// A variant whose kind a Value has not: kept whole, its own copy.
class OpaqueVariant : public OpaqueData {
 public:
  // Reads through a reference. Throws Error when the variant cannot be copied.
  explicit OpaqueVariant(const VARIANT& source);

  std::string_view kind() const override;
  const Value* number() const override { return number_ ? &*number_ : nullptr; }
  // A copy of the variant.
  Variant copy() const;

 private:
  Variant content_;
  std::optional<Value> number_;
};

}  // namespace tallyra::automation::com
