#pragma once

#include <string_view>

#include "automation/object.h"
#include "frame/collaborators.h"

namespace tallyra::frame {

// A member of one of the thread's collaborators, for use in loops: its name is resolved once for each object,
// since a set-up may replace the set between two calls.
class CollaboratorMember {
 public:
  CollaboratorMember(automation::Object Collaborators::*role, std::string_view name)
      : role_(role), name_(name) {}

  // The member of the object that the set has at this moment.
  const automation::BoundMember& now() {
    const automation::Object object = collaborators().*role_;
    if (object != member_.object()) member_ = automation::BoundMember(object, name_);
    return member_;
  }

 private:
  automation::Object Collaborators::*role_;
  std::string_view name_;
  automation::BoundMember member_;
};

}  // namespace tallyra::frame
