#include "client/configuration.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "tests/support/test_folder.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

class ConfigurationFile : public testing::Test {
 protected:
  std::string write(const std::string& text) {
    const std::string path = folder_.file("client.conf");
    std::ofstream(path) << text;
    return path;
  }
  Configuration read(const std::optional<std::string>& file) {
    return read_configuration(file, [this](const std::string& name) -> std::optional<std::string> {
      const auto found = environment_.find(name);
      return found == environment_.end() ? std::nullopt : std::optional(found->second);
    });
  }

  tests::TestFolder folder_;
  std::map<std::string, std::string> environment_;
};

TEST_F(ConfigurationFile, HasALineForEachSettingAndRemarks) {
  const std::string file = write("# of the company\n\n db = DSN=stock \r\nUSER=ANNA\nkind=mssqlserver\n");
  const Configuration read_back = read(file);
  EXPECT_EQ(read_back.db->value, "DSN=stock");
  EXPECT_EQ(read_back.db->origin, "db in " + file);
  EXPECT_EQ(read_back.user->value, "ANNA");
  EXPECT_FALSE(read_back.language.has_value());
  EXPECT_EQ(session_of({}, read_back).database_kind, "MSSQLSERVER");
}

TEST_F(ConfigurationFile, IsBeatenByTheEnvironmentAndThatByTheCommandLine) {
  const std::string file = write("user=FILE\nlanguage=de\n");
  environment_ = {{"TALLYRA_USER", "ENVIRONMENT"}, {"TALLYRA_CONFIG", file}};
  const Configuration configured = read(std::nullopt);
  EXPECT_EQ(session_of({}, configured).user, "ENVIRONMENT");
  EXPECT_EQ(session_of({}, configured).language, "de");
  Configuration said;
  said.user = Setting{"SAID", "--user"};
  EXPECT_EQ(session_of(said, configured).user, "SAID");
}

TEST_F(ConfigurationFile, IsTheUsualOneOfTheUserWhenNoneIsNamed) {
  const std::string folder = folder_.path();
  environment_["XDG_CONFIG_HOME"] = folder;
  environment_["APPDATA"] = folder;
  EXPECT_FALSE(read(std::nullopt).user.has_value());
  std::filesystem::create_directory(folder_.file("tallyra"));
  std::ofstream(folder_.file("tallyra/client.conf")) << "user=ANNA\n";
  EXPECT_EQ(read(std::nullopt).user->value, "ANNA");
}

TEST_F(ConfigurationFile, IsRefusedWhenItCannotBeRead) {
  const std::string folder = folder_.path();
  EXPECT_EQ(usage_error_text([&] { read(folder); }), "'" + folder + "' is a directory, no file");
  EXPECT_EQ(usage_error_text([&] { read(folder + "/none"); }), "'" + folder + "/none' cannot be read");
  const std::string file = write("user=A\npassword=x\n");
  EXPECT_EQ(usage_error_text([&] { read(file); }),
            file + ":2: no setting; write db=, user=, language= or kind= and the value, # before a remark");
}

TEST_F(ConfigurationFile, MayBeginWithAByteOrderMark) {
  EXPECT_EQ(read(write("\xEF\xBB\xBF"
                       "user=ANNA\r\n"))
                .user->value,
            "ANNA");
}

TEST(SessionOfSettings, TakesAnEmptyDatabaseForNone) {
  Configuration configured;
  configured.db = Setting{"", "TALLYRA_DB"};
  EXPECT_FALSE(session_of({}, configured).connection_string);
  configured.db = Setting{"DSN=stock", "TALLYRA_DB"};
  Configuration said;
  said.db = Setting{"", "--db"};
  EXPECT_FALSE(session_of(said, configured).connection_string);
}

TEST(SessionOfSettings, NamesWhereAWrongOneCameFrom) {
  Configuration configured;
  configured.kind = Setting{"ORACLE", "TALLYRA_KIND"};
  EXPECT_EQ(usage_error_text([&] { session_of({}, configured); }),
            "TALLYRA_KIND 'ORACLE': the kinds are MSACCESS and MSSQLSERVER");
  configured.kind.reset();
  configured.db = Setting{"/no/such.db", "TALLYRA_DB"};
  EXPECT_TRUE(usage_error_text([&] {
                session_of({}, configured);
              }).starts_with("TALLYRA_DB '/no/such.db': no such file"));
}

}  // namespace
}  // namespace tallyra::client
