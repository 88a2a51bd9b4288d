#include "tests/com/recording_classes.h"

#include <map>
#include <stdexcept>

#include "automation/collection.h"
#include "automation/com/failure.h"
#include "automation/com/module.h"
#include "automation/com/text.h"
#include "automation/convert.h"
#include "frame/business_object.h"

namespace tallyra::tests::com {

using automation::Object;
using automation::Value;
using automation::com::Pointer;
using automation::com::throw_if_failed;

std::vector<RecordedCall> recorded_calls;

std::string described(const Value& value) {
  if (const auto* object = value.get_if<Object>())
    return *object ? "collection of " + described(object->call("Item", 1)) : "nothing";
  const char* const kind = value.holds<std::string>()    ? "text "
                           : value.holds<std::int16_t>() ? "int16 "
                           : value.holds<std::int32_t>() ? "int32 "
                           : value.holds<double>()       ? "double "
                           : value.holds<float>()        ? "single "
                                                         : "other ";
  return kind + automation::to_text(value);
}

Value sample(VARTYPE type, int place) {
  switch (type) {
    case VT_BSTR: return "place " + std::to_string(place);
    case VT_I2: return static_cast<std::int16_t>(place);
    case VT_I4: return static_cast<std::int32_t>(place);
    case VT_R4: return static_cast<float>(place);
    case VT_R8:
    case VT_VARIANT: return place + 0.5;
    case VT_DISPATCH: {
      const auto collection = automation::make_object<automation::Collection>();
      collection.call("Add", "place " + std::to_string(place));
      return collection;
    }
    default: throw std::logic_error("no sample of type " + std::to_string(type));
  }
}

bool is_result(const ELEMDESC& parameter) {
  return (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
}

VARTYPE variable_type(const ELEMDESC& parameter) {
  const TYPEDESC& type = parameter.tdesc;
  return type.vt == VT_PTR ? type.lptdesc->vt : type.vt;
}

namespace {

std::string name_of(ITypeInfo& info) {
  BSTR name = nullptr;
  throw_if_failed(info.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
  std::string text = automation::com::text_of(name);
  SysFreeString(name);
  return text;
}

GUID guid_of(ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  throw_if_failed(info.GetTypeAttr(&attributes));
  const GUID guid = attributes->guid;
  info.ReleaseTypeAttr(attributes);
  return guid;
}

DescribedInterface default_interface_of(ITypeInfo& coclass) {
  HREFTYPE reference = 0;
  Pointer<ITypeInfo> dispatch;
  throw_if_failed(coclass.GetRefTypeOfImplType(0, &reference));
  throw_if_failed(coclass.GetRefTypeInfo(reference, dispatch.out()));
  DescribedInterface found{name_of(coclass), guid_of(coclass), guid_of(*dispatch.get()), {}};
  // The other half of a dual interface.
  throw_if_failed(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  throw_if_failed(dispatch->GetRefTypeInfo(reference, found.vtable.out()));
  return found;
}

bool is_creatable(ITypeInfo& coclass) {
  TYPEATTR* attributes = nullptr;
  throw_if_failed(coclass.GetTypeAttr(&attributes));
  const bool creatable = (attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0;
  coclass.ReleaseTypeAttr(attributes);
  return creatable;
}

server::ParameterType parameter_type(VARTYPE type) {
  switch (type) {
    case VT_BSTR: return server::ParameterType::text;
    case VT_DISPATCH: return server::ParameterType::collection;
    case VT_VARIANT: return server::ParameterType::variant;
    case VT_I2: return server::ParameterType::int16;
    case VT_I4: return server::ParameterType::int32;
    case VT_R8: return server::ParameterType::float64;
    default: throw std::logic_error("no parameter of type " + std::to_string(type));
  }
}

VARTYPE wire_type(server::ParameterType type) {
  static const std::map<server::ParameterType, VARTYPE> types{
      {server::ParameterType::text, VT_BSTR},       {server::ParameterType::collection, VT_DISPATCH},
      {server::ParameterType::variant, VT_VARIANT}, {server::ParameterType::int16, VT_I2},
      {server::ParameterType::int32, VT_I4},        {server::ParameterType::float64, VT_R8}};
  return types.at(type);
}

const std::map<server::ResultType, VARTYPE>& result_types() {
  static const std::map<server::ResultType, VARTYPE> types{
      {server::ResultType::text, VT_BSTR},       {server::ResultType::single, VT_R4},
      {server::ResultType::float64, VT_R8},      {server::ResultType::int16, VT_I2},
      {server::ResultType::variant, VT_VARIANT}, {server::ResultType::object, VT_DISPATCH}};
  return types;
}

server::ResultType result_type(VARTYPE wanted) {
  for (const auto& [result, type] : result_types())
    if (type == wanted) return result;
  throw std::logic_error("no result of type " + std::to_string(wanted));
}

Value record(frame::BusinessObject&, const server::ClassMember& member, automation::Arguments arguments) {
  RecordedCall& call = recorded_calls.emplace_back();
  call.id = member.id;
  for (const auto& argument : arguments) call.arguments.push_back(described(argument.get()));
  for (std::size_t i = 0; i < arguments.size(); ++i)
    if (member.parameters[i].by_reference)
      arguments[i].set(sample(wire_type(member.parameters[i].type), first_new_place + static_cast<int>(i)));
  if (member.result == server::ResultType::none) return {};
  return sample(result_types().at(member.result), result_place);
}

server::ClassMember member_of(const FUNCDESC& function) {
  server::ClassMember member{function.memid,           "member", server::MemberKind::method, {},
                             server::ResultType::none, &record};
  if (function.invkind == INVOKE_PROPERTYGET) member.kind = server::MemberKind::property_get;
  if (function.invkind == INVOKE_PROPERTYPUT) member.kind = server::MemberKind::property_put;
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    if (is_result(parameter)) {
      member.result = result_type(variable_type(parameter));
      continue;
    }
    const bool optional = (parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
    member.parameters.push_back({"parameter", parameter_type(variable_type(parameter)),
                                 parameter.tdesc.vt == VT_PTR,
                                 optional ? Value("left out") : Value(automation::Missing{})});
  }
  return member;
}

class Recorder : public frame::BusinessObject {
 public:
  Recorder() : BusinessObject("MSACCESS") {}
};

server::ClassTable table_of(const DescribedInterface& described) {
  server::ClassTable table{described.class_name, {}, []() -> std::unique_ptr<frame::BusinessObject> {
                             return std::make_unique<Recorder>();
                           }};
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(described.vtable->GetFuncDesc(i, &function)); ++i) {
    table.members.push_back(member_of(*function));
    described.vtable->ReleaseFuncDesc(function);
  }
  return table;
}

}  // namespace

const std::vector<DescribedInterface>& described_interfaces() {
  static const auto list = [] {
    std::vector<DescribedInterface> interfaces;
    Pointer<ITypeLib> library;
    throw_if_failed(LoadTypeLibEx(automation::com::module_path().c_str(), REGKIND_NONE, library.out()));
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
      TYPEKIND kind = TKIND_MAX;
      Pointer<ITypeInfo> info;
      throw_if_failed(library->GetTypeInfoType(i, &kind));
      throw_if_failed(library->GetTypeInfo(i, info.out()));
      if (kind == TKIND_COCLASS && is_creatable(*info.get()))
        interfaces.push_back(default_interface_of(*info.get()));
    }
    return interfaces;
  }();
  return list;
}

}  // namespace tallyra::tests::com

namespace tallyra::server {

// Takes the place of the component's own tables in this program.
std::span<const ClassTable> classes() {
  static const auto tables = [] {
    std::vector<ClassTable> list;
    for (const auto& each : tests::com::described_interfaces()) list.push_back(tests::com::table_of(each));
    return list;
  }();
  return tables;
}

}  // namespace tallyra::server
