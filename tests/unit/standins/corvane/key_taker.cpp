#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/error.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"

// corvane_key_taker CONNECTION-STRING COUNT FILE: takes COUNT document numbers, one per line of FILE.
int main(int argc, char** argv) try {
  using namespace tallyra;
  if (argc != 4) return 2;
  standins::ado::register_classes();
  standins::corvane::register_classes();
  const automation::Object system = automation::create("Corvane.CSystem");
  system.put("ConnectionString", argv[1]);
  std::ofstream file(argv[3]);
  for (int i = std::atoi(argv[2]); i > 0; --i) {
    automation::Value key;
    if (system.call("GetTableKeyID", "STK027CLOSE", "TRANNO", automation::ref(key)) != automation::Value(1)) {
      std::cerr << automation::to_text(system.get("ErrDescription")) << '\n';
      return 1;
    }
    file << automation::to_text(key) << '\n';
  }
  return file.flush() ? 0 : 1;
} catch (const tallyra::automation::Error& error) {
  std::cerr << error.description() << '\n';
  return 1;
}
