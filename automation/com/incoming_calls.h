#pragma once

#include <oaidl.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "automation/com/role.h"
#include "automation/object.h"

namespace tallyra::automation::com {

// What clients are told of a member's parameters.
struct MemberSignature {
  DISPID id;
  std::size_t required;  // so many of the parameters, from the first on, no call leaves out
  std::span<const std::string_view> parameters;
};

// What clients are told of an object besides its members' names.
struct ObjectSignature {
  std::string_view source;  // of its errors
  std::span<const MemberSignature> members = {};

  const MemberSignature* find(DISPID id) const;
};

// The calls that other modules make of one object of this module. An object that is Enumerable has the member
// _NewEnum too. Arguments of a member with a signature may be named; those of all others have positions only.
// Threads are the caller's concern.
class IncomingCalls {
 public:
  IncomingCalls(Object object, Role role, const ObjectSignature& signature)
      : object_(std::move(object)), role_(role), signature_(signature) {}
  IncomingCalls(const IncomingCalls&) = delete;
  IncomingCalls& operator=(const IncomingCalls&) = delete;

  // The identifier under which a COM object of this module gives its IncomingCalls to this module alone, with
  // a reference to the COM object.
  static const IID& own_id();
  // The object behind a COM object that this module has made in that role; none for any other object.
  static Object object_behind(IDispatch& dispatch, Role role);

  // As in IDispatch. The COM object must live until they return: a call may let go of all but that.
  HRESULT ids_of_names(LPOLESTR* names, UINT count, DISPID* ids) const;
  HRESULT invoke(DISPID id, REFIID reserved, WORD flags, const DISPPARAMS* parameters, VARIANT* result,
                 EXCEPINFO* failure, UINT* argument_at_fault) const;

  // For a member of the interface: a failure is left as the thread's error object too. `result` may be null.
  HRESULT call(REFIID interface_id, DISPID id, const DISPPARAMS& parameters, VARIANT* result) const noexcept;

 private:
  void run(DISPID id, Access access, const DISPPARAMS& parameters, VARIANT* result, UINT* at_fault) const;

  Object object_;
  Role role_;
  const ObjectSignature& signature_;
};

// What Invoke's flags ask for; nothing when they ask for nothing that is known.
std::optional<Access> access_of(WORD flags);

}  // namespace tallyra::automation::com
