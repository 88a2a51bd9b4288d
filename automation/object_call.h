#pragma once

// How the argument list of a call is laid out; included by value.h, once a Value is known.

#include <tuple>
#include <type_traits>

#include "automation/object.h"

namespace tallyra::automation {
namespace detail {

// Keeps a temporary Value alive for the call when the caller gave something else than a Value.
template <class T>
class ArgumentHolder {
 public:
  explicit ArgumentHolder(T&& source) : value_(std::forward<T>(source)) {}
  Argument argument() const { return Argument(value_); }

 private:
  Value value_;
};

template <class T>
requires std::is_same_v<std::remove_cvref_t<T>, Value>
class ArgumentHolder<T> {
 public:
  explicit ArgumentHolder(const Value& source) : value_(source) {}
  Argument argument() const { return Argument(value_); }

 private:
  const Value& value_;
};

template <class T>
requires std::is_same_v<std::remove_cvref_t<T>, Reference>
class ArgumentHolder<T> {
 public:
  explicit ArgumentHolder(Reference source) : target_(source.target) {}
  Argument argument() const { return Argument::by_reference(target_); }

 private:
  Value& target_;
};

template <class Invoke, class... Args>
Value with_arguments(const Invoke& invoke, Args&&... arguments) {
  if constexpr (sizeof...(Args) == 0) {
    return invoke(Arguments{});
  } else {
    const std::tuple<ArgumentHolder<Args>...> holders(std::forward<Args>(arguments)...);
    return std::apply(
        [&](const auto&... holder) {
          const std::array<Argument, sizeof...(Args)> list{holder.argument()...};
          return invoke(Arguments(list));
        },
        holders);
  }
}

}  // namespace detail

template <class... Args>
Value Object::call(std::string_view name, Args&&... arguments) const {
  const Object called(*this);
  const MemberId member = called.resolve(name);
  return detail::with_arguments([&](Arguments list) { return called.invoke(member, Access::read, list); },
                                std::forward<Args>(arguments)...);
}

template <class... Args>
Value BoundMember::call(Args&&... arguments) const {
  return detail::with_arguments([&](Arguments list) { return object_.invoke(member_, Access::read, list); },
                                std::forward<Args>(arguments)...);
}

}  // namespace tallyra::automation
