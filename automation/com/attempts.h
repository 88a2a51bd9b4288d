#pragma once

#include <windows.h>

#include "automation/error.h"

namespace tallyra::automation::com {

// The steps of a work that goes on after a failure.
class Attempts {
 public:
  // A step fails by throwing.
  template <class Step>
  void run(const Step& step) noexcept {
    try {
      step();
    } catch (...) {
      if (SUCCEEDED(first_failure_)) first_failure_ = current_hresult();
    }
  }

  // S_OK when nothing has failed.
  HRESULT first_failure() const { return first_failure_; }

 private:
  HRESULT first_failure_ = S_OK;
};

}  // namespace tallyra::automation::com
