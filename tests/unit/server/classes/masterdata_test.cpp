#include <gtest/gtest.h>

#include "tests/unit/server/classes/described_class.h"

// What clients were compiled against: never to change.
namespace tallyra::server {
namespace {

TEST(MasterDataTables, RecordClassesTakeTheirKeyByReference) {
  const struct {
    const char* name;
    std::string key;
  } rows[] = {{"CRevAddr", "&cAddrNo text"}, {"CSTKController", "&cCONTROLLERNO text"}};
  for (const auto& [name, key] : rows)
    EXPECT_EQ(methods_of(name), "11 Read(" + key +
                                    ", &colFieldName collection, &colFieldValue collection): single\n"
                                    "12 Update(" +
                                    key +
                                    ", &colFieldName collection, &colFieldValue collection): single\n"
                                    "13 Insert(" +
                                    key +
                                    ", &colFieldName collection, &colFieldValue collection): single\n"
                                    "14 Delete(" +
                                    key + "): single\n");
}

TEST(MasterDataTables, ShippingNotes) {
  EXPECT_EQ(methods_of("CStkShipNote"),
            "11 Read(&cTRANNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "12 Update(cTRANNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "13 Insert(cTRANNO text, &colFieldName collection, &colFieldValue collection): single\n"
            "14 Delete(cTRANNO text): single\n");
}

}  // namespace
}  // namespace tallyra::server
