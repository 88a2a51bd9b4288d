#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "automation/error.h"
#include "automation/folded_name.h"
#include "automation/object.h"

// A way to write a late-bound object in C++: a class states its members in a table, once per type.
//
//   class Stack : public Implements<Stack> {
//    public:
//     static const MemberTable<Stack>& members() {
//       static const MemberTable<Stack> table{{1, "Push", method<&Stack::push>}, {2, "Count",
//       property<&Stack::count>}}; return table;
//     }
//     Value push(Arguments arguments);
//     Value count();
//   };
namespace tallyra::automation {

template <class T>
struct Member {
  MemberId id;  // 0 or a small positive number
  std::string_view name;
  Value (*use)(T&, Access, Arguments);
};

template <class T>
class MemberTable {
 public:
  MemberTable(std::initializer_list<Member<T>> members) {
    for (const auto& member : members) {
      by_name_.emplace(folded(member.name), member.id);
      const auto index = static_cast<std::size_t>(member.id);
      if (index >= by_id_.size()) by_id_.resize(index + 1);
      by_id_[index] = member.use;
    }
  }

  MemberId resolve(std::string_view name) const {
    const auto found = by_name_.find(folded(name));
    if (found == by_name_.end()) throw Error(error_number::no_such_member);
    return found->second;
  }

  Value invoke(T& object, MemberId id, Access access, Arguments arguments) const {
    const auto index = static_cast<std::size_t>(id);
    if (index >= by_id_.size() || !by_id_[index]) throw Error(error_number::no_such_member);
    return by_id_[index](object, access, arguments);
  }

 private:
  std::unordered_map<std::string, MemberId> by_name_;
  std::vector<Value (*)(T&, Access, Arguments)> by_id_;
};

template <class T>
class Implements : public Dispatch {
 public:
  MemberId resolve(std::string_view name) override { return T::members().resolve(name); }
  Value invoke(MemberId id, Access access, Arguments arguments) override {
    return T::members().invoke(static_cast<T&>(*this), id, access, arguments);
  }
};

namespace detail {
template <class>
struct ClassOf;
template <class T, class R, class... A>
struct ClassOf<R (T::*)(A...)> {
  using type = T;
};
template <class T, class R, class... A>
struct ClassOf<R (T::*)(A...) const> {
  using type = T;
};
template <auto F>
using class_of = typename ClassOf<decltype(F)>::type;
}  // namespace detail

// Value T::f(Arguments): a method; it checks its own argument count with expect_arguments.
template <auto F>
Value method(detail::class_of<F>& object, Access access, Arguments arguments) {
  if (access != Access::read) throw Error(error_number::no_such_member);
  return (object.*F)(arguments);
}

// Value T::f(): a property that can be read only.
template <auto Get>
Value property(detail::class_of<Get>& object, Access access, Arguments arguments) {
  if (access != Access::read) throw Error(error_number::no_such_member);
  if (!arguments.empty()) throw Error(error_number::wrong_argument_count);
  return (object.*Get)();
}

// Value T::get() and void T::set(const Value&): a property that can be read and written.
template <auto Get, auto Set>
Value read_write(detail::class_of<Get>& object, Access access, Arguments arguments) {
  if (access == Access::read) return property<Get>(object, access, arguments);
  if (arguments.size() != 1) throw Error(error_number::wrong_argument_count);
  (object.*Set)(arguments[0].get());
  return {};
}

// void T::set(const Value&): a property that can be written only.
template <auto Set>
Value write_only(detail::class_of<Set>& object, Access access, Arguments arguments) {
  if (access == Access::read) throw Error(error_number::no_such_member);
  if (arguments.size() != 1) throw Error(error_number::wrong_argument_count);
  (object.*Set)(arguments[0].get());
  return {};
}

inline void expect_arguments(Arguments arguments, std::size_t least, std::size_t most) {
  if (arguments.size() < least || arguments.size() > most) throw Error(error_number::wrong_argument_count);
}

// The argument at a 0-based position, or nothing when it is absent or was left out on purpose.
inline const Value* argument_at(Arguments arguments, std::size_t position) {
  if (position >= arguments.size() || arguments[position].get().is_missing()) return nullptr;
  return &arguments[position].get();
}

}  // namespace tallyra::automation
