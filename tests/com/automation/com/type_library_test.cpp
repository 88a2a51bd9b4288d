#include <gtest/gtest.h>

#include <map>
#include <ostream>

#include "automation/com/text.h"
#include "automation/com/variant.h"
#include "automation/convert.h"
#include "server/class_table.h"
#include "tallyra.h"
#include "tests/com/server_dll.h"

// The type library against the class tables, member by member.
namespace tallyra::tests::com {
namespace {

using server::ClassMember;
using server::ClassTable;
using server::MemberKind;
using server::Parameter;
using server::ParameterType;
using server::ResultType;

// A type as it is written in the interface description.
std::string type_name(const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR: return type_name(*type.lptdesc) + "*";
    case VT_BSTR: return "BSTR";
    case VT_DISPATCH: return "IDispatch*";
    case VT_VARIANT: return "VARIANT";
    case VT_I2: return "short";
    case VT_I4: return "long";
    case VT_R4: return "float";
    case VT_R8: return "double";
    case VT_VOID: return "void";
    default: return "type " + std::to_string(type.vt);
  }
}

std::string type_name(const Parameter& parameter) {
  static const std::map<ParameterType, std::string> names{
      {ParameterType::text, "BSTR"},   {ParameterType::collection, "IDispatch*"},
      {ParameterType::int16, "short"}, {ParameterType::variant, "VARIANT"},
      {ParameterType::int32, "long"},  {ParameterType::float64, "double"},
  };
  return names.at(parameter.type) + (parameter.by_reference ? "*" : "");
}

std::string type_name(ResultType result) {
  static const std::map<ResultType, std::string> names{
      {ResultType::text, "BSTR*"},   {ResultType::single, "float*"},    {ResultType::float64, "double*"},
      {ResultType::int16, "short*"}, {ResultType::variant, "VARIANT*"}, {ResultType::object, "IDispatch**"},
      {ResultType::none, "nothing"},
  };
  return names.at(result);
}

// The description language knows but one default for a text by reference, a null pointer: an empty text.
std::string declared_default(const automation::Value& value, bool is_text) {
  const std::string text = automation::to_text(value);
  return is_text && text == "0" ? "" : text;
}

std::string described(const ClassMember& member) {
  std::string line = std::to_string(member.id);
  line += member.kind == MemberKind::property_get   ? " get "
          : member.kind == MemberKind::property_put ? " put "
                                                    : " method ";
  line += std::string(member.name) + "(";
  for (const auto& parameter : member.parameters) {
    line += std::string(parameter.by_reference ? "in out " : "in ") + type_name(parameter);
    // The value of a put has no name of its own.
    if (member.kind != MemberKind::property_put) line += " " + std::string(parameter.name);
    if (parameter.optional()) line += " = '" + automation::to_text(parameter.when_omitted) + "'";
    line += "; ";
  }
  return line + ") -> " + type_name(member.result);
}

std::string described(const ELEMDESC& element, const std::string& name) {
  const USHORT flags = element.paramdesc.wParamFlags;
  std::string text = (flags & PARAMFLAG_FIN) != 0 ? "in " : "";
  if ((flags & PARAMFLAG_FOUT) != 0) text += "out ";
  text += type_name(element.tdesc);
  if (!name.empty()) text += " " + name;
  if ((flags & PARAMFLAG_FOPT) != 0) {
    EXPECT_NE(flags & PARAMFLAG_FHASDEFAULT, 0) << name;
    const VARIANT& value = element.paramdesc.pparamdescex->varDefaultValue;
    const bool is_text = element.tdesc.vt == VT_PTR && element.tdesc.lptdesc->vt == VT_BSTR;
    text += " = '" +
            declared_default(automation::com::value_of(value, automation::com::Role::caller), is_text) + "'";
  }
  return text;
}

std::string described(ITypeInfo& info, const FUNCDESC& function) {
  BSTR names[16] = {};
  UINT count = 0;
  EXPECT_EQ(info.GetNames(function.memid, names, 16, &count), S_OK);
  std::vector<std::string> all;
  for (UINT i = 0; i < count; ++i) all.push_back(text_and_free(names[i]));
  all.resize(16);

  std::string line = std::to_string(function.memid);
  line += function.invkind == INVOKE_PROPERTYGET   ? " get "
          : function.invkind == INVOKE_PROPERTYPUT ? " put "
                                                   : " method ";
  line += all[0] + "(";
  std::string result = "nothing";
  EXPECT_EQ(function.elemdescFunc.tdesc.vt, VT_HRESULT);
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& element = function.lprgelemdescParam[i];
    if ((element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0)
      result = type_name(element.tdesc);
    else
      line += described(element,
                        function.invkind == INVOKE_PROPERTYPUT ? "" : all[static_cast<std::size_t>(i) + 1]) +
              "; ";
  }
  return line + ") -> " + result;
}

// The functions of a dual interface as compiled clients see them, by id.
std::multimap<MEMBERID, std::string> interface_functions(ITypeInfo& dispatch_info) {
  HREFTYPE reference = 0;
  Pointer<ITypeInfo> info;
  EXPECT_EQ(dispatch_info.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
  EXPECT_EQ(dispatch_info.GetRefTypeInfo(reference, info.out()), S_OK);
  std::multimap<MEMBERID, std::string> functions;
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); ++i) {
    functions.emplace(function->memid, described(*info.get(), *function));
    info->ReleaseFuncDesc(function);
  }
  return functions;
}

std::string name_of(ITypeInfo& info) {
  BSTR name = nullptr;
  EXPECT_EQ(info.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr), S_OK);
  return text_and_free(name);
}

// By name: every type in the library.
std::map<std::string, Pointer<ITypeInfo>> library_types(ITypeLib& library) {
  std::map<std::string, Pointer<ITypeInfo>> types;
  for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
    Pointer<ITypeInfo> info;
    EXPECT_EQ(library.GetTypeInfo(i, info.out()), S_OK);
    types.emplace(name_of(*info.get()), info);
  }
  return types;
}

class TypeLibrary : public testing::Test {
 protected:
  ServerDll dll_;
  Pointer<ITypeLib> library_ = dll_.type_library();
  std::map<std::string, Pointer<ITypeInfo>> types_ = library_types(*library_.get());
};

TEST_F(TypeLibrary, HoldsTheTenClassesTheirInterfacesTheEventsAndTheCollectionAndNothingElse) {
  ASSERT_EQ(server::classes().size(), 10U);
  EXPECT_EQ(types_.size(), 23U);
  for (const auto& table : server::classes()) {
    EXPECT_TRUE(types_.contains(std::string(table.name))) << table.name;
    EXPECT_TRUE(types_.contains("_" + std::string(table.name))) << table.name;
  }
  for (const char* name : {"__CStockClose", "_Collection", "Collection"})
    EXPECT_TRUE(types_.contains(name)) << name;
}

TEST_F(TypeLibrary, EveryMemberAgreesWithItsClassTable) {
  for (const auto& table : server::classes()) {
    SCOPED_TRACE(table.name);
    ASSERT_TRUE(types_.contains("_" + std::string(table.name)));
    std::multimap<MEMBERID, std::string> expected;
    for (const auto& member : table.members) expected.emplace(member.id, described(member));
    const auto declared = interface_functions(*types_.at("_" + std::string(table.name)).get());
    EXPECT_EQ(declared.size(), expected.size());
    for (const auto& [id, line] : expected) {
      const auto found = declared.find(id);
      if (found == declared.end())
        ADD_FAILURE() << "not declared: " << line;
      else
        EXPECT_EQ(found->second, line);
    }
    for (const auto& [id, line] : declared)
      if (!expected.contains(id)) ADD_FAILURE() << "not in the table: " << line;
  }
}

TEST_F(TypeLibrary, EveryClassHasItsDualInterfaceAsTheDefault) {
  for (const auto& table : server::classes()) {
    SCOPED_TRACE(table.name);
    ITypeInfo& class_info = *types_.at(std::string(table.name)).get();
    HREFTYPE reference = 0;
    Pointer<ITypeInfo> first;
    int flags = 0;
    ASSERT_EQ(class_info.GetRefTypeOfImplType(0, &reference), S_OK);
    ASSERT_EQ(class_info.GetRefTypeInfo(reference, first.out()), S_OK);
    ASSERT_EQ(class_info.GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_EQ(name_of(*first.get()), "_" + std::string(table.name));
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(first->GetTypeAttr(&attributes), S_OK);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
    first->ReleaseTypeAttr(attributes);
  }
}

TEST_F(TypeLibrary, TheMonthCloseIsTheSourceOfItsEvents) {
  ITypeInfo& class_info = *types_.at("CStockClose").get();
  HREFTYPE reference = 0;
  Pointer<ITypeInfo> source;
  int flags = 0;
  ASSERT_EQ(class_info.GetRefTypeOfImplType(1, &reference), S_OK);
  ASSERT_EQ(class_info.GetRefTypeInfo(reference, source.out()), S_OK);
  ASSERT_EQ(class_info.GetImplTypeFlags(1, &flags), S_OK);
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
  EXPECT_EQ(name_of(*source.get()), "__CStockClose");

  FUNCDESC* event = nullptr;
  ASSERT_EQ(source->GetFuncDesc(0, &event), S_OK);
  EXPECT_EQ(event->memid, 1);
  ASSERT_EQ(event->cParams, 3);
  EXPECT_EQ(type_name(event->lprgelemdescParam[0].tdesc), "double");
  EXPECT_EQ(type_name(event->lprgelemdescParam[1].tdesc), "double*");
  EXPECT_EQ(type_name(event->lprgelemdescParam[2].tdesc), "BSTR*");
  BSTR names[4] = {};
  UINT count = 0;
  ASSERT_EQ(source->GetNames(1, names, 4, &count), S_OK);
  ASSERT_EQ(count, 4U);
  const char* const expected[] = {"Progressing", "nVal", "nMax", "DeptNm"};
  for (UINT i = 0; i < count; ++i) EXPECT_EQ(text_and_free(names[i]), expected[i]);
  source->ReleaseFuncDesc(event);
  EXPECT_EQ(source->GetFuncDesc(1, &event), TYPE_E_ELEMENTNOTFOUND);
}

// Clients are compiled against these. Whoever changes one breaks them.
TEST_F(TypeLibrary, IdentifiersNeverChange) {
  const std::pair<const char*, const wchar_t*> identifiers[] = {
      {"_CTranHead", L"{1A3A6DDC-4D57-4F32-9C6E-BB35D277BB8F}"},
      {"_CTranDetail", L"{19835EC1-FCB7-4F1A-A252-605A8B506956}"},
      {"_CCheckHead", L"{90B35196-A888-4F8B-A8C9-FAEB1C00D122}"},
      {"_CCheckDetail", L"{D7A5ACE9-D653-4B50-AB7D-DB33434B9AD7}"},
      {"_CStkrptFuns", L"{91E4D7F0-618A-4E05-B0CF-62E2D18B899E}"},
      {"_CPartCostSet", L"{68120F85-5EAB-4088-B4A0-1F9FBD1A80E5}"},
      {"_CStockClose", L"{31E60E63-0930-4739-8AD3-BE46E4F9AC43}"},
      {"_CRevAddr", L"{893EFFD4-0C6A-4774-84EC-F0ABFF253B36}"},
      {"_CSTKController", L"{2F3A7EDC-7B41-417D-A84A-B7A1F1D81E94}"},
      {"_CStkShipNote", L"{6D26BDEE-4115-49F8-83B2-074163ED4B9A}"},
      {"__CStockClose", L"{9FAADF83-2933-4CD1-9730-08D2FDFF1AA7}"},
      {"_Collection", L"{A4C46780-499F-101B-BB78-00AA00383CBB}"},
      {"Collection", L"{E8E500D0-5C5E-45D6-B2E4-BDA704BB377E}"},
      {"CTranHead", L"{C3CF34B2-56A6-4186-81E6-5878F852909B}"},
      {"CTranDetail", L"{1812A514-FF65-417F-B881-4A2AAF246929}"},
      {"CCheckHead", L"{D75EBA6D-3A4C-48EE-925F-E0B95B78DE4E}"},
      {"CCheckDetail", L"{B1243299-3821-4EF1-A33F-5F7F16EA772A}"},
      {"CStkrptFuns", L"{2EDA8D9D-74B2-4FD9-A720-9B4632986A82}"},
      {"CPartCostSet", L"{745B77C8-9C6E-465B-9674-6C44BC0455C9}"},
      {"CStockClose", L"{4B1738E2-0BBA-407F-B9BF-EB1D52A2EFDB}"},
      {"CRevAddr", L"{02B95098-C7B8-46A7-B64E-40C55B958EE9}"},
      {"CSTKController", L"{A3ADEDAB-5C24-442A-8F6C-66F639F1B004}"},
      {"CStkShipNote", L"{94ADFCEA-17C9-4468-9669-474597D9F575}"},
  };
  for (const auto& [name, text] : identifiers) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(types_.contains(name));
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(types_.at(name)->GetTypeAttr(&attributes), S_OK);
    wchar_t guid[39];
    StringFromGUID2(attributes->guid, guid, 39);
    EXPECT_STREQ(guid, text);
    types_.at(name)->ReleaseTypeAttr(attributes);
  }
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
  wchar_t guid[39];
  StringFromGUID2(attributes->guid, guid, 39);
  EXPECT_STREQ(guid, L"{76D7C306-DECB-4A0B-80DB-848B0CCBF00B}");
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  library_->ReleaseTLibAttr(attributes);
}

}  // namespace
}  // namespace tallyra::tests::com
