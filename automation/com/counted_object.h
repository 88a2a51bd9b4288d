#pragma once

#include <atomic>

#include "automation/com/identity.h"
#include "automation/com/module.h"

namespace tallyra::automation::com {

// An object with these interfaces that lives, and keeps the module in use, until its last reference is let
// go. Whoever makes it, by new, holds the first one.
template <class... Interfaces>
class CountedObject : public Identity<Interfaces...> {
 public:
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;

  STDMETHODIMP_(ULONG) AddRef() final { return ++references_; }
  STDMETHODIMP_(ULONG) Release() final {
    const ULONG left = --references_;
    if (left == 0) {
      // What goes with the object may take references of its own and let them go.
      references_ = 1;
      delete this;
    }
    return left;
  }

 protected:
  CountedObject() = default;
  virtual ~CountedObject() = default;

 private:
  std::atomic<ULONG> references_ = 1;
  ModuleUse module_use_;
};

}  // namespace tallyra::automation::com
