#include "server/describe/class_objects.h"

#include <gtest/gtest.h>

#include "tests/unit/server/describe/example_class.h"

namespace tallyra::server::describe {
namespace {

TEST(ClassObjects, EverySlotPassesItsArgumentsOnUnderTheIdOfItsMember) {
  const ClassTable table = example_class();
  EXPECT_EQ(class_objects({&table, 1}),
            "class STKBinObject final : public EventSource<_CSTKBin, __CSTKBin> {\n"
            " public:\n"
            "  using EventSource::EventSource;\n"
            "\n"
            "  STDMETHODIMP put_Language(BSTR value) override { return put(1, value); }\n"
            "  STDMETHODIMP get_ErrNumber(float* result) override { return call(3, result); }\n"
            "  STDMETHODIMP Read(BSTR* cKey, IDispatch** colNames, IDispatch** colValues, long* intRow,\n"
            "                    float* result) override {\n"
            "    return call(11, result, cKey, colNames, colValues, intRow);\n"
            "  }\n"
            "  STDMETHODIMP Update(BSTR* cKey, IDispatch** colNames, IDispatch** colValues, BSTR* strTag, "
            "BSTR* strAgain,\n"
            "                      float* result) override {\n"
            "    return call(12, result, cKey, colNames, colValues, strTag, strAgain);\n"
            "  }\n"
            "  STDMETHODIMP Insert(BSTR* cKey, IDispatch** colNames, IDispatch** colValues, float* result) "
            "override {\n"
            "    return call(13, result, cKey, colNames, colValues);\n"
            "  }\n"
            "  STDMETHODIMP Weigh(VARIANT vDate, double* nScale, short* result) override {\n"
            "    return call(14, result, vDate, nScale);\n"
            "  }\n"
            "};\n");
}

TEST(ClassObjects, AClassWithoutEventsIsAnInterfaceObject) {
  ClassTable table = example_class();
  table.about.event_interface = "";
  table.members.clear();
  EXPECT_EQ(class_objects({&table, 1}),
            "class STKBinObject final : public InterfaceObject<_CSTKBin> {\n"
            " public:\n"
            "  using InterfaceObject::InterfaceObject;\n"
            "\n"
            "};\n");
}

TEST(ClassObjects, AServedClassHasItsNameInTheRegistry) {
  const ClassTable table = example_class();
  EXPECT_EQ(served_classes({&table, 1}),
            "          served<STKBinObject>(\"CSTKBin\", CLSID_CSTKBin, L\"Tallyra bins\"),\n");
}

}  // namespace
}  // namespace tallyra::server::describe
