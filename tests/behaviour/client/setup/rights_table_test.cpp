#include "client/setup/rights_table.h"

#include "automation/local/local_classes.h"
#include "automation/member_table.h"
#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

// A library that answers for rights and says nothing about where it keeps them.
class OtherPowerCheck : public automation::Implements<OtherPowerCheck> {
 public:
  static const automation::MemberTable<OtherPowerCheck>& members() {
    using automation::property;
    using automation::write_only;
    static const automation::MemberTable<OtherPowerCheck> table{
        {1, "Language", write_only<&OtherPowerCheck::ignore>},
        {2, "ConnectionString", write_only<&OtherPowerCheck::ignore>},
        {3, "UserID", write_only<&OtherPowerCheck::ignore>},
        {4, "SystemDatabase", write_only<&OtherPowerCheck::ignore>},
    };
    return table;
  }
  void ignore(const automation::Value&) {}
};

TEST_F(NewDatabase, GrantsNothingWhereRightsAreKeptElsewhere) {
  ASSERT_EQ(run({"init"}), exit_done);
  automation::local::register_class("Corvane.CPowerCheck",
                                    [] { return automation::make_object<OtherPowerCheck>(); });
  EXPECT_EQ(run({"grant", "ANNA", "*", "all"}), exit_failed);
  EXPECT_TRUE(says("keeps rights in a place of its own")) << client_.all();
  EXPECT_EQ(run({"revoke", "ANNA", "*", "all"}), exit_failed);
  EXPECT_EQ(run({"rights"}), exit_failed);
}

}  // namespace
}  // namespace tallyra::client
