#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace tallyra::automation {

class Value;

// One argument of a late-bound call. An argument by reference comes back replaced when the callee sets it;
// setting one that was passed by value reaches nobody.
class Argument {
 public:
  Argument(const Value& by_value) : value_(&by_value) {}
  static Argument by_reference(Value& target) {
    Argument argument(target);
    argument.target_ = &target;
    return argument;
  }

  const Value& get() const { return *value_; }
  bool is_reference() const { return target_ != nullptr; }
  void set(Value value) const;

 private:
  const Value* value_;
  Value* target_ = nullptr;
};

using Arguments = std::span<const Argument>;
using MemberId = std::int32_t;

inline constexpr MemberId default_member = 0;

// How a member is used. Reads ask for method or property alike, as classic automation clients do.
enum class Access { read, put, put_reference };

// A late-bound object: whatever stands behind it, it is reached by member names and ids only. Counted by
// reference; belongs to the thread that made it, like every object of an apartment. Whoever calls it holds a
// reference meanwhile, as every Object does.
class Dispatch {
 public:
  Dispatch() = default;
  Dispatch(const Dispatch&) = delete;
  Dispatch& operator=(const Dispatch&) = delete;

  // The id of a member, whatever the case of its name. Throws Error 438 when there is none.
  virtual MemberId resolve(std::string_view name) = 0;
  // Throws Error for whatever goes wrong inside; a put passes the new value as the last argument.
  virtual Value invoke(MemberId member, Access access, Arguments arguments) = 0;

  void add_reference() noexcept { ++references_; }
  void release() noexcept {
    if (--references_ == 0) delete this;
  }

 protected:
  virtual ~Dispatch() = default;

 private:
  std::atomic<int> references_{0};
};

// Marks an argument that the callee may replace.
struct Reference {
  Value& target;
};
inline Reference ref(Value& target) {
  return {target};
}

// Counted reference to a late-bound object, or to none. Every use of none throws Error 91. A call goes on
// with the object that it began with, though whatever runs inside it may let the Object go or give it another
// one.
class Object {
 public:
  Object() = default;
  explicit Object(Dispatch* dispatch) noexcept : dispatch_(dispatch) {
    if (dispatch_) dispatch_->add_reference();
  }
  Object(const Object& other) noexcept : Object(other.dispatch_) {}
  Object(Object&& other) noexcept : dispatch_(std::exchange(other.dispatch_, nullptr)) {}
  Object& operator=(Object other) noexcept {
    std::swap(dispatch_, other.dispatch_);
    return *this;
  }
  ~Object() {
    if (dispatch_) dispatch_->release();
  }

  explicit operator bool() const noexcept { return dispatch_ != nullptr; }
  Dispatch* dispatch() const noexcept { return dispatch_; }
  friend bool operator==(const Object&, const Object&) = default;

  MemberId resolve(std::string_view name) const;
  Value invoke(MemberId member, Access access, Arguments arguments) const;

  // Arguments are Values, anything a Value can be made of, or ref(value) for one by reference.
  template <class... Args>
  Value call(std::string_view name, Args&&... arguments) const;
  Value get(std::string_view name) const;
  void put(std::string_view name, const Value& value) const;

 private:
  Dispatch* dispatch_ = nullptr;
};

// Makes an object of a C++ class derived from Dispatch.
template <class T, class... Args>
Object make_object(Args&&... arguments) {
  return Object(new T(std::forward<Args>(arguments)...));
}

// A member of one object with its name already resolved, for use in loops.
class BoundMember {
 public:
  BoundMember() = default;
  BoundMember(const Object& object, std::string_view name) : object_(object), member_(object.resolve(name)) {}

  template <class... Args>
  Value call(Args&&... arguments) const;
  Value get() const;
  const Object& object() const { return object_; }

 private:
  Object object_;
  MemberId member_ = 0;
};

}  // namespace tallyra::automation

// Completes the calls above; the two headers need each other.
#include "automation/value.h"
