#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "automation/date.h"
#include "automation/decimal.h"
#include "automation/object.h"

namespace tallyra::automation {

class Value;

// A value of a kind that the component never looks into (an array, bytes, ...); it travels through unchanged.
class OpaqueData {
 public:
  virtual ~OpaqueData() = default;
  // What it converts like when it is a number after all, of a kind that is rare (an unsigned one, say).
  virtual const Value* number() const { return nullptr; }
  // The kind's name for a message, for example "array".
  virtual std::string_view kind() const = 0;
};
using Opaque = std::shared_ptr<const OpaqueData>;

struct Null {
  friend bool operator==(Null, Null) = default;
};
// An optional argument that the caller left out.
struct Missing {
  friend bool operator==(Missing, Missing) = default;
};

// What a variable of automation can hold. Texts are UTF-8. Two values are equal when kind and content are.
class Value {
 public:
  Value() = default;
  Value(Null value) : content_(value) {}
  Value(Missing value) : content_(value) {}
  Value(std::same_as<bool> auto value) : content_(value) {}
  Value(std::uint8_t value) : content_(value) {}
  Value(std::int16_t value) : content_(value) {}
  Value(std::int32_t value) : content_(value) {}
  Value(std::int64_t value) : content_(value) {}
  Value(float value) : content_(value) {}
  Value(double value) : content_(value) {}
  Value(Currency value) : content_(value) {}
  Value(Decimal value) : content_(value) {}
  Value(Date value) : content_(value) {}
  Value(std::string value) : content_(std::move(value)) {}
  Value(std::string_view value) : content_(std::string(value)) {}
  Value(const char* value) : content_(std::string(value)) {}
  Value(Object value) : content_(std::move(value)) {}
  Value(Opaque value) : content_(std::move(value)) {}

  bool is_empty() const { return holds<std::monostate>(); }
  bool is_null() const { return holds<Null>(); }
  bool is_missing() const { return holds<Missing>(); }
  bool is_text() const { return holds<std::string>(); }
  bool is_object() const { return holds<Object>(); }
  template <class T>
  bool holds() const {
    return std::holds_alternative<T>(content_);
  }
  // The content when it is of that kind, else null.
  template <class T>
  const T* get_if() const {
    return std::get_if<T>(&content_);
  }
  template <class T>
  T* get_if() {
    return std::get_if<T>(&content_);
  }

  template <class Visitor>
  decltype(auto) visit(Visitor&& visitor) const {
    return std::visit(std::forward<Visitor>(visitor), content_);
  }

  // Makes this a text, empty, and keeps the room of the text that was there.
  std::string& restart_text();

  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<std::monostate, Null, Missing, bool, std::uint8_t, std::int16_t, std::int32_t, std::int64_t,
               float, double, Currency, Decimal, Date, std::string, Object, Opaque>
      content_;
};

}  // namespace tallyra::automation

#include "automation/object_call.h"
