#include "tests/com/client_objects.h"

#include <gtest/gtest.h>

#include "tallyra.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {

std::span<const ServedClassId> served_class_ids() {
  static const ServedClassId ids[] = {
      {"CCheckDetail", CLSID_CCheckDetail},     {"CCheckHead", CLSID_CCheckHead},
      {"CPartCostSet", CLSID_CPartCostSet},     {"CRevAddr", CLSID_CRevAddr},
      {"CSTKController", CLSID_CSTKController}, {"CStkShipNote", CLSID_CStkShipNote},
      {"CStkrptFuns", CLSID_CStkrptFuns},       {"CStockClose", CLSID_CStockClose},
      {"CTranDetail", CLSID_CTranDetail},       {"CTranHead", CLSID_CTranHead},
  };
  return ids;
}

REFCLSID served_class_id(std::string_view name) {
  for (const auto& each : served_class_ids())
    if (each.name == name) return each.id;
  return CLSID_NULL;
}

Pointer<IDispatch> new_client(const ServerDll& dll, REFCLSID class_id,
                              const behaviour::CompanyDatabase& company) {
  auto object = dll.create<IDispatch>(class_id);
  put_session(object.get(), 1, "EN");
  put_session(object.get(), 2, company.system_database());
  put_session(object.get(), 5, "ADMIN");
  put_session(object.get(), 6, company.connection_string());
  return object;
}

void put_session(IDispatch* object, DISPID id, std::string_view text) {
  const Variant value(Value(text), Role::caller);
  WireCall put{.id = id, .flags = DISPATCH_PROPERTYPUT, .arguments = {value.raw()}};
  EXPECT_EQ(put.on(object), S_OK);
}

float error_number_of(IDispatch* object) {
  WireCall get{.id = 3};
  EXPECT_EQ(get.on(object), S_OK);
  return V_R4(&get.result.raw());
}

std::string error_description_of(IDispatch* object) {
  WireCall get{.id = 4};
  EXPECT_EQ(get.on(object), S_OK);
  return *value_in(get.result.raw()).get_if<std::string>();
}

}  // namespace tallyra::tests::com
