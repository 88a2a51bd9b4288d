#pragma once

#include <cstddef>
#include <optional>

#include "automation/value.h"

namespace tallyra::automation {

// What a late-bound object is besides when a client's For Each can walk it. The functions may throw Error.
class Enumerable {
 public:
  virtual std::size_t item_count() const = 0;
  // By position from 0.
  virtual Value item_at(std::size_t position) const = 0;

  // From here to end_walk the position of a walk's next item is the object's to move, as items before it come
  // and go. Objects whose items stay have nothing to do.
  virtual void begin_walk(std::size_t& /*next*/) {}
  virtual void end_walk(std::size_t& /*next*/) noexcept {}

 protected:
  ~Enumerable() = default;
};

// A walk over the items of an object, which it keeps. Items may come and go meanwhile: each that stays is
// visited once, and one that comes in behind where the walk stands is visited too.
class Walk {
 public:
  // The object must be Enumerable. `position`, from 0, is that of the first item to visit.
  explicit Walk(Object object, std::size_t position = 0)
      : object_(std::move(object)), items_(dynamic_cast<Enumerable&>(*object_.dispatch())), next_(position) {
    items_.begin_walk(next_);
  }
  ~Walk() { items_.end_walk(next_); }
  Walk(const Walk&) = delete;
  Walk& operator=(const Walk&) = delete;

  // The item to visit next; nothing behind the last one. The walk stays there until it is moved.
  std::optional<Value> item() const {
    if (left() == 0) return std::nullopt;
    return items_.item_at(next_);
  }
  std::size_t left() const {
    const std::size_t size = items_.item_count();
    return next_ < size ? size - next_ : 0;
  }

  const Object& object() const { return object_; }
  std::size_t position() const { return next_; }
  void move_to(std::size_t position) { next_ = position; }

 private:
  Object object_;
  Enumerable& items_;  // the same object
  std::size_t next_;
};

}  // namespace tallyra::automation
