#include <gtest/gtest.h>

#include "client/platform/database_path.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

TEST(DatabasePath, OfWindowsIsNoneHere) {
  for (const char* path : {"C:\\stock.db", "\\\\server\\stock.db"})
    EXPECT_EQ(usage_error_text([&] { driver_path(path); }),
              "'" + std::string(path) + "' is a Windows path; give the path that the file has here");
}

}  // namespace
}  // namespace tallyra::client
