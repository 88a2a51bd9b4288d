#include "bench/record_calls.h"

#include "bench/measured_run.h"
#include "bench/session.h"

namespace tallyra::bench {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

constexpr int calls_of_a_note = 4;

void keep_note(const Object& notes, const std::string& number) {
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
}

void keep_notes(const Object& notes, int calls) {
  for (int round = 0; round < calls / calls_of_a_note; ++round)
    keep_note(notes, "NOTE" + std::to_string(round));
}

}  // namespace

Scenario record_calls(Companies& companies, const CompanySize& size, int calls) {
  Scenario scenario;
  scenario.work = "record calls";
  scenario.size = with_commas(calls) + " calls";
  scenario.rounds = 5;
  scenario.company = [&companies, size] { return companies.company(size); };
  scenario.run = [calls](const std::string& connection_string) -> std::uint64_t {
    keep_notes(session(connection_string, "CStkShipNote"), calls);
    return static_cast<std::uint64_t>(calls);
  };
  return scenario;
}

std::uint64_t growth_over_record_calls(const std::string& connection_string, int calls) {
  const Object notes = session(connection_string, "CStkShipNote");
  keep_notes(notes, calls);
  const std::uint64_t before = peak_kilobytes();
  keep_notes(notes, calls);
  return peak_kilobytes() - before;
}

}  // namespace tallyra::bench
