#pragma once

#include "automation/collection.h"
#include "tests/support/stage.h"

namespace tallyra {

// A collection of the client's whose every use is a moment at which the client does something.
class ClientCollection : public automation::Collection {
 public:
  explicit ClientCollection(stage::Stage& stage) : stage_(stage) {}
  automation::Value invoke(automation::MemberId id, automation::Access access,
                           automation::Arguments arguments) override {
    stage_.moment();
    return automation::Collection::invoke(id, access, arguments);
  }

 private:
  stage::Stage& stage_;
};

}  // namespace tallyra
