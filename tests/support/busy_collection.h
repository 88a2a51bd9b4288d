#pragma once

#include <functional>
#include <utility>

#include "automation/collection.h"

namespace tallyra::tests {

// A collection that has something done whenever it is used.
class BusyCollection : public automation::Collection {
 public:
  explicit BusyCollection(std::function<void()> work) : work_(std::move(work)) {}
  automation::Value invoke(automation::MemberId id, automation::Access access,
                           automation::Arguments arguments) override {
    work_();
    return automation::Collection::invoke(id, access, arguments);
  }

 private:
  std::function<void()> work_;
};

}  // namespace tallyra::tests
