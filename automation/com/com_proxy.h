#pragma once

#include <oaidl.h>

#include <string>
#include <utility>
#include <vector>

#include "automation/com/pointer.h"
#include "automation/value.h"

namespace tallyra::automation::com {

// An object of another module, called by name through IDispatch. Names are looked up once per object; member
// ids are its dispatch ids.
class ComProxy : public Dispatch {
 public:
  explicit ComProxy(Pointer<IDispatch> target) : target_(std::move(target)) {}

  MemberId resolve(std::string_view name) override;
  Value invoke(MemberId id, Access access, Arguments arguments) override;

  const Pointer<IDispatch>& target() const { return target_; }

 private:
  Pointer<IDispatch> target_;
  std::vector<std::pair<std::string, MemberId>> known_names_;
};

}  // namespace tallyra::automation::com
