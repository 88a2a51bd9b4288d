#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "automation/convert.h"
#include "standins/corvane/failure.h"
#include "tests/support/file_text.h"
#include "tests/unit/standins/corvane/company_database.h"

// What can be the matter with a key file, or with the process that needs it, on systems that have links and
// limits.
namespace tallyra::standins::corvane::testing {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

// The number, or the text of the failure.
std::string next(const CompanyDatabase& database) {
  const Object system = database.system();
  Value key;
  if (system.call("GetTableKeyID", "STK027CLOSE", "TRANNO", ref(key)) == Value(1))
    return automation::to_text(key);
  EXPECT_EQ(system.get("ErrNumber"), Value(failure::key_database_failed));
  return automation::to_text(system.get("ErrDescription"));
}

TEST(KeyFile, ThatIsASymbolicLinkIsRefusedAndWhatItLeadsToStays) {
  const CompanyDatabase database;
  const CompanyDatabase victim;
  const std::string before = tests::file_text(victim.file());
  std::filesystem::create_symlink(victim.file(), database.key_file());
  EXPECT_EQ(next(database), "No document number could be issued for 027CLOSE: The key file " +
                                database.key_file().string() +
                                " is a symbolic link, and what it leads to is not written.");
  EXPECT_EQ(tests::file_text(victim.file()), before);

  std::filesystem::remove(database.key_file());
  const std::string nothing = victim.file().string() + ".new";
  std::filesystem::create_symlink(nothing, database.key_file());
  EXPECT_NE(next(database).find("is a symbolic link"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(nothing));

  std::filesystem::remove(database.key_file());
  EXPECT_EQ(next(database), "027CLOSE00000001");
}

// Two names of one database would otherwise have two key files.
TEST(KeyFile, LiesBesideTheDatabaseItselfWhereTheStringNamesALinkToIt) {
  const CompanyDatabase database;
  const std::string link = database.file().string() + ".link";
  std::filesystem::create_symlink(database.file(), link);
  const Object system = database.system();
  system.put("ConnectionString", "DRIVER={SQLite3};Database=" + link);
  Value key;
  EXPECT_EQ(system.call("GetTableKeyID", "STK027CLOSE", "TRANNO", ref(key)), Value(1));
  EXPECT_EQ(key, Value("027CLOSE00000001"));
  EXPECT_EQ(next(database), "027CLOSE00000002");
  EXPECT_FALSE(std::filesystem::exists(link + ".keys"));
}

// Lets the process have no descriptor at or above a number, as long as it lives.
class DescriptorLimit {
 public:
  explicit DescriptorLimit(int highest) {
    ::getrlimit(RLIMIT_NOFILE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = static_cast<rlim_t>(highest);
    ::setrlimit(RLIMIT_NOFILE, &limit);
  }
  ~DescriptorLimit() { ::setrlimit(RLIMIT_NOFILE, &before_); }

 private:
  rlimit before_{};
};

int lowest_free_descriptor() {
  const int descriptor = ::dup(STDIN_FILENO);
  ::close(descriptor);
  return descriptor;
}

TEST(KeyFile, TheReasonIsToldWhenTheProcessHasTooFewDescriptors) {
  const CompanyDatabase database;
  database.run({"PRAGMA journal_mode=DELETE"});  // so that reading needs fewer than writing
  next(database);                                // what is loaded once is loaded
  const int free = lowest_free_descriptor();
  int without_journal = 0;
  std::string outcome;
  for (int more = 0; more < 40 && !outcome.starts_with("027CLOSE"); ++more) {
    std::filesystem::remove(database.key_file());
    {
      const DescriptorLimit limit(free + more);
      outcome = next(database);
    }
    EXPECT_EQ(outcome.find("no such table"), std::string::npos) << more << " descriptors: " << outcome;
    // The key file could be opened, and the journal beside it not.
    without_journal += std::filesystem::exists(database.key_file()) && !outcome.starts_with("027CLOSE");
    std::printf("%d descriptors: %s\n", more, outcome.c_str());
  }
  EXPECT_GT(without_journal, 0);
  EXPECT_EQ(outcome, "027CLOSE00000001");
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
