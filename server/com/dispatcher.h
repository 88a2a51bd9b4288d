#pragma once

#include <oaidl.h>

#include <memory>
#include <optional>
#include <string>

#include "automation/com/pointer.h"
#include "automation/error.h"
#include "server/class_table.h"
#include "server/com/thread_use.h"

namespace tallyra::server::com {

// Runs the members of one business object for all its callers, by name or through the interface, over the
// class table. A member that the type library declares and the table has not answers E_NOTIMPL.
//
// Refused are calls from another thread than the one that made the object (RPC_E_WRONG_THREAD). While a
// method runs, every member may be called all the same: from the client's message loop, which has a turn in a
// month close, or from a collection of the client's. Whoever calls a member holds the object until it
// returns.
class Dispatcher {
 public:
  Dispatcher(std::string_view class_name, REFIID interface_id);

  HRESULT GetTypeInfo(UINT index, ITypeInfo** info) noexcept;
  HRESULT GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) noexcept;
  HRESULT Invoke(DISPID id, REFIID reserved, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                 EXCEPINFO* failure, UINT* argument_at_fault) noexcept;

  // For a member of the interface: a failure is left as the thread's error object too.
  HRESULT call(DISPID id, automation::Access access, const DISPPARAMS& parameters,
               automation::Value& result) noexcept;
  // Whether a method has a parameter (from 0) of that place and does without it.
  bool may_be_left_out(DISPID id, std::size_t parameter) const noexcept;

 private:
  struct Failure {
    automation::Error error;
    // Whether the member itself has failed, in contrast to the way it was called.
    bool in_member = false;
    std::optional<UINT> argument_at_fault = {};

    HRESULT code() const;
  };

  std::optional<Failure> run(DISPID id, automation::Access access, const DISPPARAMS& parameters,
                             automation::Value& result) noexcept;
  ITypeInfo& interface_info();
  // Of a member that the library declares and the table has not.
  HRESULT declared_ids(LPOLESTR* names, UINT count, DISPID* ids);
  HRESULT missing_member(DISPID id, automation::Access access);
  std::string source() const { return "Tallyra." + std::string(class_name_); }

  ThreadUse thread_use_;
  std::string_view class_name_;
  IID interface_id_;
  const ClassTable* table_;  // none for a class that only the type library knows
  std::unique_ptr<frame::BusinessObject> object_;
  automation::com::Pointer<ITypeInfo> interface_info_;
};

}  // namespace tallyra::server::com
