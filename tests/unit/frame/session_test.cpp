#include "frame/session.h"

#include <gtest/gtest.h>

#include "automation/create.h"
#include "tests/support/fields.h"
#include "tests/support/stage.h"

// The session that an object begins with.
namespace tallyra {
namespace {

using automation::Object;
using automation::Value;
using stage::Fields;
using stage::Stage;

TEST(Session, BeginsAsAccessExceptInStocktakings) {
  const struct {
    const char* class_name;
    int keys;
    const char* kind;
  } rows[] = {
      {"CRevAddr", 1, "MSACCESS"},    {"CSTKController", 1, "MSACCESS"}, {"CStkShipNote", 1, "MSACCESS"},
      {"CStockClose", 1, "MSACCESS"}, {"CPartCostSet", 1, "MSACCESS"},   {"CTranHead", 2, "MSACCESS"},
      {"CTranDetail", 3, "MSACCESS"}, {"CCheckDetail", 2, "MSACCESS"},   {"CCheckHead", 1, ""}};
  for (const auto& [class_name, keys, kind] : rows) {
    Stage stage;
    stage.finds_nothing_else();
    const Object object = automation::create(std::string("Tallyra.") + class_name);
    Fields fields;
    std::vector<Value> values(static_cast<std::size_t>(keys), Value("1"));
    values.push_back(fields.names);
    values.push_back(fields.values);
    std::vector<automation::Argument> arguments(values.begin(), values.end());
    object.invoke(object.resolve("Read"), automation::Access::read, arguments);
    EXPECT_NE(stage.transcript().find("rights.SystemDatabase = '" + std::string(kind) + "'\n"),
              std::string::npos)
        << class_name << "\n"
        << stage.transcript();
  }
}

}  // namespace
}  // namespace tallyra
