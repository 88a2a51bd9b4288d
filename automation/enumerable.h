#pragma once

#include <cstddef>

#include "automation/value.h"

namespace tallyra::automation {

// What a late-bound object is besides when a client's For Each can walk it. Both functions may throw Error.
class Enumerable {
 public:
  virtual std::size_t item_count() const = 0;
  // By position from 0.
  virtual Value item_at(std::size_t position) const = 0;

 protected:
  ~Enumerable() = default;
};

}  // namespace tallyra::automation
