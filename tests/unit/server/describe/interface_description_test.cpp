#include "server/describe/interface_description.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/unit/server/describe/example_class.h"

namespace tallyra::server::describe {
namespace {

TEST(InterfaceDescription, AnInterfaceHasEveryMemberWithItsHelp) {
  const ClassTable table = example_class();
  EXPECT_EQ(interface_names({&table, 1}), "  interface _CSTKBin;\n");
  EXPECT_EQ(interfaces({&table, 1}),
            "  [\n"
            "    object,\n"
            "    uuid(22222222-BBBB),\n"
            "    dual,\n"
            "    oleautomation,\n"
            "    nonextensible,\n"
            "    helpstring(\"Bins\")\n"
            "  ]\n"
            "  interface _CSTKBin : IDispatch\n"
            "  {\n"
            "    [id(1), propput, helpstring(\"Sets it\")]\n"
            "    HRESULT Language([in, HELP(\"Code\")] BSTR value);\n"
            "    [id(3), propget, helpstring(\"Tells it\")]\n"
            "    HRESULT ErrNumber([out, retval, HELP(\"Number\")] float* result);\n"
            "    [id(11), helpstring(\"Reads\")]\n"
            "    HRESULT Read(\n"
            "        [in, out, HELP(\"Key of the row\")] BSTR* cKey,\n"
            "        [in, out, HELP(\"Names\")] IDispatch** colNames,\n"
            "        [in, out, HELP(\"Values\")] IDispatch** colValues,\n"
            "        [in, out, optional, defaultvalue(-1), HELP(\"Number of the row\")] long* intRow,\n"
            "        [out, retval, HELP(\"100\")] float* result);\n"
            "    [id(12), helpstring(\"Changes\")]\n"
            "    HRESULT Update(\n"
            "        [in, out, HELP(\"Key of the row\")] BSTR* cKey,\n"
            "        [in, out, HELP(\"Names\")] IDispatch** colNames,\n"
            "        [in, out, HELP(\"Values\")] IDispatch** colValues,\n"
            "        [in, out, optional, defaultvalue(0), HELP(\"Tag\")] BSTR* strTag,\n"
            "        [in, out, optional, defaultvalue(0), HELP(\"Tag again\")] BSTR* strAgain,\n"
            "        [out, retval, HELP(\"100\")] float* result);\n"
            "    [id(13), helpstring(\"Creates\")]\n"
            "    HRESULT Insert(\n"
            "        [in, out, HELP(\"Key of the row\")] BSTR* cKey,\n"
            "        [in, out, HELP(\"Names\")] IDispatch** colNames,\n"
            "        [in, out, HELP(\"Values\")] IDispatch** colValues,\n"
            "        [out, retval, HELP(\"100\")] float* result);\n"
            "    [id(14), helpstring(\"Weighs\")]\n"
            "    HRESULT Weigh(\n"
            "        [in, HELP(\"Date\")] VARIANT vDate,\n"
            "        [in, out, HELP(\"Scale\")] double* nScale,\n"
            "        [out, retval, HELP(\"The weight; SO for none\")] short* result);\n"
            "  };\n");
}

TEST(InterfaceDescription, AClassHasItsInterfaceAndItsEvents) {
  ClassTable tables[] = {example_class(), example_class()};
  tables[1].about.event_interface = "";
  EXPECT_EQ(creatable_classes(tables),
            "  [\n"
            "    uuid(11111111-AAAA),\n"
            "    helpstring(\"Bins\")\n"
            "  ]\n"
            "  coclass CSTKBin\n"
            "  {\n"
            "    [default] interface _CSTKBin;\n"
            "    [default, source] dispinterface __CSTKBin;\n"
            "  };\n"
            "\n"
            "  [\n"
            "    uuid(11111111-AAAA),\n"
            "    helpstring(\"Bins\")\n"
            "  ]\n"
            "  coclass CSTKBin\n"
            "  {\n"
            "    [default] interface _CSTKBin;\n"
            "  };\n");
}

TEST(InterfaceDescription, ATextThatIsLeftOutCanOnlyBeEmpty) {
  ClassTable table = example_class();
  table.members[3].parameters[3].when_omitted = "APPROVED";
  EXPECT_THROW(interfaces({&table, 1}), std::invalid_argument);
}

}  // namespace
}  // namespace tallyra::server::describe
