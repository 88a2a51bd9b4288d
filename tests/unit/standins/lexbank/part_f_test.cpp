#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/create.h"
#include "standins/lexbank/local_classes.h"

namespace tallyra::standins::lexbank {
namespace {

TEST(PartF, GivesTheWordsOfGeneratedRowsInTheLanguage) {
  register_classes();
  const struct {
    const char* language;
    const char* status_approved;
    const char* name_check;
  } cases[] = {
      {"EN", "Approved", "Stocktaking adjustment"},
      {"ZH", "已审核", "盘点调整"},
      {"DE", "Genehmigt", "Inventurausgleich"},
      {"", "Approved", "Stocktaking adjustment"},
  };
  const automation::Object words = automation::create("Lexbank.CPartF");
  for (const auto& row : cases) {
    words.put("Language", row.language);
    EXPECT_EQ(words.get("StatusApproved"), automation::Value(row.status_approved)) << row.language;
    EXPECT_EQ(words.get("NameCheck"), automation::Value(row.name_check)) << row.language;
  }
}

// They are written between single quotes as they are.
TEST(PartF, WordsContainNoApostrophe) {
  register_classes();
  const automation::Object words = automation::create("Lexbank.CPartF");
  for (const char* language : {"EN", "ZH", "DE"}) {
    words.put("Language", language);
    for (const char* member : {"StatusApproved", "NameCheck"})
      EXPECT_EQ(automation::to_text(words.get(member)).find('\''), std::string::npos) << language << member;
  }
}

}  // namespace
}  // namespace tallyra::standins::lexbank
