#include <gtest/gtest.h>

#include <set>

#include "automation/com/text.h"
#include "tests/com/server_dll.h"

// What the type library tells a person who looks at it in a browser of objects.
namespace tallyra::tests::com {
namespace {

// Where the help string of a parameter stands, as the interface description says.
const GUID parameter_help = {0xEF37099B, 0xEED4, 0x47BC, {0x88, 0xE8, 0x87, 0xA0, 0xC6, 0xEB, 0x8E, 0xB3}};

struct Described {
  std::string name;
  std::string help;
};

Described described(ITypeInfo& info, MEMBERID member) {
  BSTR name = nullptr;
  BSTR help = nullptr;
  EXPECT_EQ(info.GetDocumentation(member, &name, &help, nullptr, nullptr), S_OK);
  return {text_and_free(name), text_and_free(help)};
}

std::string help_of_parameter(ITypeInfo2& info, UINT function, UINT parameter) {
  VARIANT help;
  VariantInit(&help);
  if (FAILED(info.GetParamCustData(function, parameter, parameter_help, &help)) || help.vt != VT_BSTR)
    return {};
  return text_and_free(help.bstrVal);
}

// A sentence on its own: it neither fails nor repeats what it stands beside.
void expect_help(const std::string& help, const std::string& name) {
  EXPECT_GE(help.size(), 5U) << name << ": '" << help << "'";
  EXPECT_NE(help, name);
  EXPECT_TRUE(!help.empty() && !std::islower(static_cast<unsigned char>(help[0]))) << name << ": " << help;
}

// Checks the functions of one interface; how many parameters they have.
int check_functions(ITypeInfo& info) {
  Pointer<ITypeInfo2> info2;
  EXPECT_EQ(info.QueryInterface(IID_ITypeInfo2, reinterpret_cast<void**>(info2.out())), S_OK);
  int parameters = 0;
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(info.GetFuncDesc(i, &function)); ++i) {
    const Described member = described(info, function->memid);
    SCOPED_TRACE(member.name);
    expect_help(member.help, member.name);
    for (SHORT p = 0; p < function->cParams; ++p, ++parameters)
      expect_help(help_of_parameter(*info2.get(), i, static_cast<UINT>(p)),
                  "parameter " + std::to_string(p + 1));
    info.ReleaseFuncDesc(function);
  }
  return parameters;
}

// The functions that an interface has of its own, as compiled clients see them: of a dual one the other face.
Pointer<ITypeInfo> own_functions(const Pointer<ITypeInfo>& info) {
  HREFTYPE reference = 0;
  Pointer<ITypeInfo> dual;
  if (FAILED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference))) return info;
  EXPECT_EQ(info->GetRefTypeInfo(reference, dual.out()), S_OK);
  return dual;
}

TEST(TypeLibraryHelp, EveryTypeMemberAndParameterHasAHelpString) {
  const ServerDll dll;
  const Pointer<ITypeLib> library = dll.type_library();
  int interfaces = 0;
  int parameters = 0;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    Pointer<ITypeInfo> info;
    TYPEKIND kind = TKIND_MAX;
    ASSERT_EQ(library->GetTypeInfo(i, info.out()), S_OK);
    ASSERT_EQ(library->GetTypeInfoType(i, &kind), S_OK);
    const Described type = described(*info.get(), MEMBERID_NIL);
    SCOPED_TRACE(type.name);
    expect_help(type.help, type.name);
    if (kind == TKIND_COCLASS) continue;
    ++interfaces;
    parameters += check_functions(*own_functions(info).get());
  }
  EXPECT_GE(interfaces, 12) << "of ten classes, one of events, one of collections";
  EXPECT_GE(parameters, 250);
}

}  // namespace
}  // namespace tallyra::tests::com
