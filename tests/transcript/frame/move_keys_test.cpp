#include "tests/transcript/frame/record_script.h"

// Keys that are texts go into the statements as they stand, unescaped, with their blanks and their case.
namespace tallyra::records {
namespace {

class TextKey : public RecordTest {
 protected:
  // The statement with these keys in place of those of the description.
  std::string with_keys(std::string statement, const std::vector<Value>& keys) const {
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const std::string told = "'" + automation::to_text(record.keys[i]) + "'";
      const auto at = statement.find(told);
      if (at != std::string::npos)
        statement.replace(at, told.size(), "'" + automation::to_text(keys[i]) + "'");
    }
    return statement;
  }
  // The queries find nothing under these keys either.
  void know(Stage& on, const std::vector<Value>& keys) const {
    for (const auto& statement :
         {record.row_query, record.key_query, record.update_owner.statement, record.delete_owner.statement})
      if (!statement.empty()) on.finds_nothing(with_keys(statement, keys));
  }
  void expect_told(const Stage& on, const std::string& before, const std::string& statement,
                   const std::vector<Value>& keys) const {
    const std::string line = before + with_keys(statement, keys) + " | ";
    EXPECT_NE(on.transcript().find(line), std::string::npos) << line << "\n" << on.transcript();
  }
};
TALLYRA_ON_RECORD_CLASSES(TextKey, each.keys[0].is_text() && !each.other_keys_elsewhere);

TEST_P(TextKey, IsWrittenAsItStandsInEveryStatement) {
  for (const char* key : {"O'Neil", " O'Neil ", "", "   ", "p'1 ", " s1"}) {
    std::vector<Value> keys(record.keys.size(), Value(key));
    if (keys.size() > 1) keys[1] = std::string("of ") + key;
    fields = Fields{{"NAME", "x"}};
    Stage each(GetParam().kind);
    grant_everything(each);
    know(each, keys);
    if (!record.known_query.empty()) each.finds(with_keys(record.known_query, keys), {{"COLUMN"}, {{"x"}}});
    for (const char* member : {"Insert", "Update", "Delete"})
      EXPECT_EQ(play(client(each), member, keys), done) << member << "'" << key << "'";
    Fields untouched = fields;
    EXPECT_EQ(play(client(each), "Read", keys), missing) << "'" << key << "'";
    fields = untouched;
    expect_told(each, "R4.Open ", record.row_query, keys);
    if (!record.known_query.empty()) expect_told(each, "R1.Open ", record.known_query, keys);
    expect_told(each, "R1.Open ", record.key_query, keys);
    expect_told(each, std::string("C2.Execute <GetUpdateSQL ") + record.table + ">", record.condition, keys);
    for (const auto& removal : record.removals) expect_told(each, "C3.Execute ", removal, keys);

    Stage owner(GetParam().kind);
    owner.set("Owner", 1);
    know(owner, keys);
    for (const char* member : {"Update", "Delete"}) play(client(owner), member, keys);
    expect_told(owner, "R1.Open ", record.update_owner.statement, keys);
    expect_told(owner, "R2.Open ", record.delete_owner.statement, keys);
  }
}

}  // namespace
}  // namespace tallyra::records
