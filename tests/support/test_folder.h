#pragma once

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

namespace tallyra::tests {

// A folder of its own for the databases of one test, removed with everything in it. Paths have forward
// slashes and, under Wine, no drive: so the program and the database driver, which is a library of the
// machine, both find the files. The folders are made where TALLYRA_TEST_FOLDER says, or among the temporary
// files.
class TestFolder {
 public:
  TestFolder() : TestFolder(usual_parent()) {}
  // In another folder, which is there.
  explicit TestFolder(const std::filesystem::path& parent) {
    std::random_device random;
    // Somebody else's folder of the same name is no folder of this test.
    while (!std::filesystem::create_directory(
        path_ = (parent / ("tallyra-test-" + std::to_string(random()))).generic_string())) {
    }
  }
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string file(std::string_view name) const { return path_ + '/' + std::string(name); }

 private:
  static std::filesystem::path usual_parent() {
    const char* const chosen = std::getenv("TALLYRA_TEST_FOLDER");
    return chosen ? chosen : std::filesystem::temp_directory_path();
  }

  std::string path_;
};

}  // namespace tallyra::tests
