#include <filesystem>
#include <fstream>

#include "client/database/reader.h"
#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, CopiesTheDatabaseBeforeAndChecksTheCopy) {
  ASSERT_EQ(run({"close", "2024/01/31", "--backup"}), exit_done) << client_.all();
  EXPECT_TRUE(says(" rows, equal to the database.")) << client_.all();
  const std::string copy = company_.file().string() + ".before-close-20240305093000";
  ASSERT_TRUE(std::filesystem::exists(copy));
  const Reader reader("DRIVER={SQLite3};Database=" + copy, "MSACCESS");
  EXPECT_EQ(reader.count("Select Count(*) As N From STKCLOSEHD"), 0);
  EXPECT_GT(reader.count("Select Count(*) As N From STKTRANDT"), 0);
  EXPECT_EQ(reader.count("Select Count(*) As N From TALLYRALOCK"), 0) << "restored, nobody is at work in it";
}

TEST_F(ClosingClient, LeavesACopyAloneThatIsThereAlready) {
  const std::string copy = company_.file().string() + ".before-close-20240305093000";
  std::ofstream(copy) << "another";
  EXPECT_EQ(run({"close", "2024/01/31", "--backup"}), exit_failed);
  EXPECT_TRUE(says("is there already; nothing was done")) << client_.all();
  EXPECT_EQ(std::filesystem::file_size(copy), 7U);
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKCLOSEHD"), "0\n");
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM TALLYRALOCK"), "0\n");
}

}  // namespace
}  // namespace tallyra::client
