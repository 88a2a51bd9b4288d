#include "bench/record_maintenance.h"

#include "bench/company.h"
#include "company/generator.h"

namespace tallyra::bench {

using automation::Object;
using automation::ref;
using automation::Value;

Scenario record_maintenance(int rounds, const std::string& schema) {
  Scenario scenario;
  scenario.name = "shipping notes";
  scenario.limit = 1.15;
  scenario.size = std::to_string(rounds) + " rounds of 4";
  scenario.prepare = [=](const std::string& database) {
    samples::company::Options options;
    options.database = database;
    options.schema = schema;
    options.lines = 1'000;
    samples::company::generate(options, [](int) {});
    settle(database);
  };
  scenario.run = [=](const std::string& database) -> std::uint64_t {
    const Object notes = session(database, "CStkShipNote");
    std::uint64_t rows = 0;
    for (int round = 0; round < rounds; ++round) {
      const std::string number = "NOTE" + std::to_string(round);
      Value names = collection({"TRANNO", "TRANTYPE", "NOTES", "ADDBY"});
      Value values = collection({number, "STK030SHIPN", "left at the gate", "ADMIN"});
      require_success(notes, notes.call("Insert", number, ref(names), ref(values)));
      Value read_names = collection({});
      Value read_values = collection({});
      require_success(notes, notes.call("Read", number, ref(read_names), ref(read_values)));
      Value changed_names = collection({"NOTES"});
      Value changed_values = collection({"handed over"});
      require_success(notes, notes.call("Update", number, ref(changed_names), ref(changed_values)));
      require_success(notes, notes.call("Delete", number));
      rows += 4;
    }
    return rows;
  };
  return scenario;
}

}  // namespace tallyra::bench
