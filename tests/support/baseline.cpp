#include "tests/support/baseline.h"

#include <cstdlib>
#include <fstream>

#include "tests/support/file_text.h"

namespace tallyra::stage {

std::string approved(const std::string& file, const std::string& actual) {
  const std::string path = std::string(TALLYRA_BASELINES) + "/" + file;
  if (const char* approve = std::getenv("TALLYRA_APPROVE"); approve && std::string_view(approve) == "1") {
    std::ofstream(path, std::ios::binary) << actual;
    return path + " has been written; read it and run the tests again without TALLYRA_APPROVE";
  }
  return tests::file_text(path);
}

}  // namespace tallyra::stage
