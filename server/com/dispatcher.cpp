#include "server/com/dispatcher.h"

#include <algorithm>

#include "automation/com/failure.h"
#include "automation/com/incoming_arguments.h"
#include "automation/com/incoming_calls.h"
#include "automation/com/text.h"
#include "automation/com/type_library.h"
#include "automation/com/variant.h"
#include "automation/folded_name.h"

namespace tallyra::server::com {
namespace {

using automation::Access;
using automation::Error;
using automation::Value;
using automation::com::IncomingArguments;
using automation::com::Role;
using automation::com::throw_if_failed;
using automation::com::Variant;

const ClassTable* find_table(std::string_view class_name) {
  for (const auto& table : classes())
    if (table.name == class_name) return &table;
  return nullptr;
}

const ClassMember* find_member(const ClassTable* table, std::string_view name) {
  if (!table) return nullptr;
  for (const auto& member : table->members)
    if (automation::equals_folded(member.name, name)) return &member;
  return nullptr;
}

DISPID parameter_id(const ClassMember& member, std::string_view name) {
  for (std::size_t i = 0; i < member.parameters.size(); ++i)
    if (automation::equals_folded(member.parameters[i].name, name)) return static_cast<DISPID>(i);
  return DISPID_UNKNOWN;
}

}  // namespace

HRESULT Dispatcher::Failure::code() const {
  const std::int32_t number = error.number();
  return in_member ? automation::hresult_of_raised(number) : automation::hresult_from_number(number);
}

Dispatcher::Dispatcher(std::string_view class_name, REFIID interface_id)
    : class_name_(class_name),
      interface_id_(interface_id),
      table_(find_table(class_name)),
      object_(table_ ? table_->make() : nullptr) {}

ITypeInfo& Dispatcher::interface_info() {
  if (!interface_info_) interface_info_ = automation::com::type_info(interface_id_);
  return *interface_info_.get();
}

HRESULT Dispatcher::GetTypeInfo(UINT index, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  try {
    *info = automation::com::Pointer<ITypeInfo>(&interface_info()).detach();
    return S_OK;
  } catch (...) {
    return automation::current_hresult();
  }
}

HRESULT Dispatcher::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids) return E_POINTER;
  if (count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  for (UINT i = 0; i < count; ++i)
    if (!names[i]) return E_POINTER;
  try {
    const ClassMember* member = find_member(table_, automation::com::to_utf8(names[0]));
    if (!member) return declared_ids(names, count, ids);
    ids[0] = member->id;
    HRESULT code = S_OK;
    for (UINT i = 1; i < count; ++i) {
      ids[i] = parameter_id(*member, automation::com::to_utf8(names[i]));
      if (ids[i] == DISPID_UNKNOWN) code = DISP_E_UNKNOWNNAME;
    }
    return code;
  } catch (...) {
    return automation::current_hresult();
  }
}

HRESULT Dispatcher::Invoke(DISPID id, REFIID reserved, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* failure, UINT* argument_at_fault) noexcept {
  if (result) VariantInit(result);
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  const auto access = automation::com::access_of(flags);
  if (!access || !parameters) return E_INVALIDARG;
  try {
    Value value;
    const auto failed = run(id, *access, *parameters, value);
    if (!failed) {
      if (result) *result = Variant(value, Role::callee).detach();
      return S_OK;
    }
    if (failed->argument_at_fault && argument_at_fault) *argument_at_fault = *failed->argument_at_fault;
    if (!failed->in_member || !failure) return failed->code();
    automation::com::describe(*failure, failed->error, source());
    return DISP_E_EXCEPTION;
  } catch (...) {
    return automation::current_hresult();
  }
}

HRESULT Dispatcher::call(DISPID id, Access access, const DISPPARAMS& parameters, Value& result) noexcept {
  const auto failed = run(id, access, parameters, result);
  if (!failed) return S_OK;
  try {
    automation::com::set_error_object(interface_id_, failed->error, source());
  } catch (...) {
    // The code alone has to do.
  }
  return failed->code();
}

bool Dispatcher::may_be_left_out(DISPID id, std::size_t parameter) const noexcept {
  const ClassMember* member = table_ ? table_->find(id, Access::read) : nullptr;
  return member && parameter < member->parameters.size() && member->parameters[parameter].optional();
}

std::optional<Dispatcher::Failure> Dispatcher::run(DISPID id, Access access, const DISPPARAMS& parameters,
                                                   Value& result) noexcept {
  std::optional<IncomingArguments> incoming;
  bool in_member = false;
  try {
    if (!thread_use_.on_own_thread()) throw_if_failed(RPC_E_WRONG_THREAD);
    const ClassMember* member = table_ ? table_->find(id, access) : nullptr;
    if (!member) throw_if_failed(missing_member(id, access));
    incoming.emplace(parameters, member->parameters.size());
    const automation::Arguments arguments = incoming->read();
    in_member = true;
    result = member->invoke(*object_, *member, arguments);
    incoming->write_back();
    return std::nullopt;
  } catch (...) {
    Failure failure{automation::current_error(), in_member};
    if (const int argument = failure.error.argument(); argument > 0) {
      failure.in_member = false;
      if (incoming) failure.argument_at_fault = incoming->wire_index(static_cast<std::size_t>(argument) - 1);
    } else if (incoming && incoming->unknown_name()) {
      failure.argument_at_fault = incoming->unknown_name();
    }
    return failure;
  }
}

HRESULT Dispatcher::declared_ids(LPOLESTR* names, UINT count, DISPID* ids) {
  const HRESULT code = interface_info().GetIDsOfNames(names, count, ids);
  if (!automation::com::is_inherited(ids[0])) return code;
  std::fill_n(ids, count, DISPID_UNKNOWN);
  return DISP_E_UNKNOWNNAME;
}

HRESULT Dispatcher::missing_member(DISPID id, Access access) {
  const unsigned kinds =
      access == Access::read ? INVOKE_FUNC | INVOKE_PROPERTYGET : INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF;
  return automation::com::declares(interface_info(), id, kinds) ? E_NOTIMPL : DISP_E_MEMBERNOTFOUND;
}

}  // namespace tallyra::server::com
