#include <cstdio>
#include <exception>

#include "schema/script.h"

// tallyra-schema ENGINE prints the create script for an engine.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs(
        "tallyra-schema sqlite|postgresql|sqlserver|access: prints the create script of a company database\n",
        stderr);
    return 2;
  }
  try {
    const std::string script = tallyra::schema::create_script(tallyra::schema::engine_named(argv[1]));
    return std::fwrite(script.data(), 1, script.size(), stdout) == script.size() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tallyra-schema: %s\n", error.what());
    return 2;
  }
}
