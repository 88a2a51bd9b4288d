#include "client/platform/database_path.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

TEST(DatabasePath, BeginsWithADriveOnlyInTheFormOfWindows) {
  for (const char* path : {"C:\\stock.db", "c:/stock.db", "Z:\\"}) EXPECT_TRUE(has_drive(path)) << path;
  for (const char* path : {"", "C:", "C:stock.db", "stock.db", "/C:/stock.db", "1:/stock.db", "CD:/stock.db"})
    EXPECT_FALSE(has_drive(path)) << path;
}

TEST(DatabasePath, OfTheMachineIsWhatItsDriverTakes) {
  EXPECT_EQ(driver_path("stock.db"), "stock.db");
  EXPECT_EQ(driver_path("/var/lib/stock.db"), "/var/lib/stock.db");
}

}  // namespace
}  // namespace tallyra::client
