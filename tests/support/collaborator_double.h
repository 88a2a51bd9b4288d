#pragma once

#include <map>

#include "automation/object.h"
#include "tests/support/named.h"
#include "tests/support/stage.h"

namespace tallyra::stage {

// Any of the four collaborators. Its properties of the session can be set; a member that the stage has a
// value for returns it; builders return a text that shows their arguments; numbers are issued; everything
// else is no member and fails the test.
class CollaboratorDouble : public automation::Dispatch, public Named {
 public:
  CollaboratorDouble(Stage& stage, std::string role);
  ~CollaboratorDouble() override;

  automation::MemberId resolve(std::string_view name) override;
  automation::Value invoke(automation::MemberId id, automation::Access access,
                           automation::Arguments arguments) override;

 private:
  automation::Value answer(const std::string& member, automation::Arguments arguments);
  automation::Value issued_number(automation::Arguments arguments);
  automation::Value built(const std::string& builder, automation::Arguments arguments);

  Stage& stage_;
  std::vector<std::string> names_;
};

}  // namespace tallyra::stage
