#pragma once

#include <functional>
#include <thread>

#include "automation/apartment.h"

namespace tallyra::tests::com {

// Runs the body on a thread of its own, whose apartment has ended when this returns.
inline void in_own_apartment(const std::function<void()>& body) {
  std::thread([&body] {
    const automation::Apartment apartment;
    body();
  }).join();
}

}  // namespace tallyra::tests::com
