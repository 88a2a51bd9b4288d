#pragma once

#include <dispex.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automation/com/outgoing_arguments.h"
#include "automation/com/pointer.h"
#include "automation/value.h"

namespace tallyra::automation::com {

// An object of another module, called by name through IDispatch. Names are looked up once per object; member
// ids are its dispatch ids.
//
// Objects of a script come from an engine, and engines are particular: some answer to IDispatchEx alone, some
// refuse to read a variable of the object as "method or property". Both are met half-way, and never in a way
// that runs a member twice.
class ComProxy : public Dispatch {
 public:
  explicit ComProxy(Pointer<IDispatch> target) : target_(std::move(target)) {}

  MemberId resolve(std::string_view name) override;
  Value invoke(MemberId id, Access access, Arguments arguments) override;

  const Pointer<IDispatch>& target() const { return target_; }

 private:
  struct Answer;

  HRESULT look_up(std::string_view name, DISPID& id);
  void remember(std::string_view name, MemberId id) noexcept;
  ReferenceForm reference_form(Arguments arguments);
  Answer ask(MemberId id, WORD flags, DISPPARAMS& parameters);
  bool may_be_variable(const Answer& answer, Access access, Arguments arguments) const;

  Pointer<IDispatch> target_;
  Pointer<IDispatchEx> engine_object_;  // in place of an IDispatch that is there in name only
  std::vector<std::pair<std::string, MemberId>> known_names_;
  std::optional<ReferenceForm> reference_form_;  // as soon as somebody wanted to know
};

}  // namespace tallyra::automation::com
