#pragma once

#include <optional>
#include <string_view>

#include "automation/object.h"

namespace tallyra::frame {

// A member whose name is resolved at its first use and remembered as long as the object is held.
class LazyMember {
 public:
  explicit LazyMember(std::string_view name) : name_(name) {}
  const automation::BoundMember& of(const automation::Object& object) {
    if (!bound_) bound_.emplace(object, name_);
    return *bound_;
  }

 private:
  std::string_view name_;
  std::optional<automation::BoundMember> bound_;
};

}  // namespace tallyra::frame
