#pragma once

#include <array>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "automation/convert.h"
#include "automation/error.h"
#include "server/class_table.h"

// Makes the entries of a class table from the C++ methods themselves, so that the type and direction of a
// parameter stand in one place only. A parameter that is a non-const reference is passed by reference.
namespace tallyra::server::detail {

template <class T>
struct TypeOf;
template <>
struct TypeOf<std::string> {
  static constexpr auto parameter = ParameterType::text;
  static constexpr auto result = ResultType::text;
  static std::string from(const automation::Value& value) { return automation::to_text(value); }
};
template <>
struct TypeOf<automation::Object> {
  static constexpr auto parameter = ParameterType::collection;
  static constexpr auto result = ResultType::object;
  // A variable that was never set to an object stands for none.
  static automation::Object from(const automation::Value& value) {
    if (value.is_empty()) return {};
    if (!value.is_object()) throw automation::Error(automation::error_number::type_mismatch);
    return automation::to_object(value);
  }
};
template <>
struct TypeOf<automation::Value> {
  static constexpr auto parameter = ParameterType::variant;
  static constexpr auto result = ResultType::variant;
  static automation::Value from(const automation::Value& value) { return value; }
};
template <>
struct TypeOf<std::int16_t> {
  static constexpr auto parameter = ParameterType::int16;
  static constexpr auto result = ResultType::int16;
  static std::int16_t from(const automation::Value& value) { return automation::to_int16(value); }
};
template <>
struct TypeOf<std::int32_t> {
  static constexpr auto parameter = ParameterType::int32;
  static std::int32_t from(const automation::Value& value) { return automation::to_int32(value); }
};
template <>
struct TypeOf<double> {
  static constexpr auto parameter = ParameterType::float64;
  static constexpr auto result = ResultType::float64;
  static double from(const automation::Value& value) { return automation::to_double(value); }
};
template <>
struct TypeOf<float> {
  static constexpr auto result = ResultType::single;
};
template <>
struct TypeOf<void> {
  static constexpr auto result = ResultType::none;
};

// One parameter during a call: holds the converted value, and hands it back if it has changed.
template <class P>
class Passed {
 public:
  using Plain = std::remove_cvref_t<P>;
  static constexpr bool by_reference =
      std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;

  Passed(const Parameter& parameter, automation::Arguments arguments, std::size_t index)
      : argument_(index < arguments.size() && !arguments[index].get().is_missing() ? &arguments[index]
                                                                                   : nullptr),
        value_(convert(parameter, index)) {
    if constexpr (by_reference) before_ = value_;
  }

  P get() {
    if constexpr (by_reference)
      return value_;
    else
      return std::move(value_);
  }

  void hand_back() {
    if constexpr (by_reference)
      if (argument_ && (!(value_ == before_) || is_output()))
        argument_->set(automation::Value(std::move(value_)));
  }

 private:
  // A quantity is an output: a variable that held nothing or a text holds a number afterwards, also when that
  // is 0.
  bool is_output() const { return std::is_same_v<Plain, double> && !argument_->get().holds<Plain>(); }

  Plain convert(const Parameter& parameter, std::size_t index) {
    if (!argument_ && !parameter.optional()) {
      automation::Error error(automation::error_number::argument_not_optional);
      error.blame_argument(static_cast<int>(index) + 1);
      throw error;
    }
    try {
      return TypeOf<Plain>::from(argument_ ? argument_->get() : parameter.when_omitted);
    } catch (const automation::Error& failed) {
      // Null fits no typed parameter; that is a mismatch here, not a use of Null.
      automation::Error error(failed.number() == automation::error_number::invalid_null
                                  ? automation::Error(automation::error_number::type_mismatch)
                                  : failed);
      error.blame_argument(static_cast<int>(index) + 1);
      throw error;
    }
  }

  const automation::Argument* argument_;
  Plain value_;
  [[no_unique_address]] std::conditional_t<by_reference, Plain, std::tuple<>> before_{};
};

// What a signature tells of a parameter.
struct ParameterShape {
  ParameterType type;
  bool by_reference;
};

template <class F>
struct Signature;
template <class C, class R, class... P>
struct Signature<R (C::*)(P...)> {
  using Class = C;
  using Result = R;
  static constexpr std::size_t arity = sizeof...(P);

  static constexpr std::array<ParameterShape, arity> shapes{
      ParameterShape{TypeOf<std::remove_cvref_t<P>>::parameter, Passed<P>::by_reference}...};

  template <auto F>
  static automation::Value invoke(frame::BusinessObject& object, const ClassMember& member,
                                  automation::Arguments arguments) {
    if (arguments.size() > arity) throw automation::Error(automation::error_number::wrong_argument_count);
    return invoke_with<F>(static_cast<C&>(object), member, arguments, std::index_sequence_for<P...>{});
  }

 private:
  template <auto F, std::size_t... I>
  static automation::Value invoke_with(C& object, [[maybe_unused]] const ClassMember& member,
                                       [[maybe_unused]] automation::Arguments arguments,
                                       std::index_sequence<I...>) {
    // Braces: the parameters are converted from the first to the last.
    std::tuple<Passed<P>...> passed{Passed<P>(member.parameters[I], arguments, I)...};
    const auto call = [&] {
      try {
        return (object.*F)(std::get<I>(passed).get()...);
      } catch (automation::Error& error) {
        // What went wrong inside is the fault of none of the caller's arguments.
        error.blame_argument(0);
        throw;
      }
    };
    if constexpr (std::is_void_v<R>) {
      call();
      (std::get<I>(passed).hand_back(), ...);
      return {};
    } else {
      automation::Value result(call());
      (std::get<I>(passed).hand_back(), ...);
      return result;
    }
  }
};
template <class C, class R, class... P>
struct Signature<R (C::*)(P...) const> : Signature<R (C::*)(P...)> {};

}  // namespace tallyra::server::detail
