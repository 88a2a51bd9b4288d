#include "tests/memory/method_play.h"

#include <sstream>

#include "automation/error.h"

namespace tallyra::memory {
namespace {

// Commits document by document. What it has committed before an error stays.
bool commits_step_by_step(const faults::Scene& scene) {
  return scene.class_name + "." + scene.member == "CStockClose.Insert";
}

// Commits everything and then ends in an error all the same, which may be this one.
bool fails_after_commit(const faults::Scene& scene) {
  return scene.class_name + "." + scene.member == "CCheckHead.Update" && scene.reported;
}

constexpr int collaborators = 4;
constexpr const char* given_fields = "COLUMN=1";

std::string text_of(const stage::Outcome& outcome) {
  std::ostringstream text;
  text << outcome;
  return text.str();
}

}  // namespace

MethodPlay::MethodPlay(const faults::Scene& scene, const MakeClient& make_client) : scene_(scene) {
  // Long enough for memory of its own wherever it is copied to.
  stage_.connection_string = "DSN=a data source with a name that is kept nowhere without an allocation";
  scene.prepare(stage_);
  outside_.emplace();
  client_ = make_client(stage_, scene);
}

MethodPlay::Seen MethodPlay::play(std::optional<Shortage> shortage) {
  stage::Fields fields{{"COLUMN", 1}};
  stage_.clear();
  Seen seen;
  std::optional<automation::Value> result;
  std::int32_t raised = 0;
  shortage ? begin(*shortage) : begin_counting();
  try {
    result = scene_.call(client_, fields);
  } catch (...) {
    raised = automation::current_error().number();
  }
  seen.allocations = end();
  seen.failures = failures();
  seen.outcome = result ? text_of(stage::outcome_of(client_, *result)) : "raised " + std::to_string(raised);
  seen.committed = committed(stage_.transcript());
  seen.fields = fields.text();
  return seen;
}

std::string MethodPlay::fault(const Seen& seen, const Seen& expected) {
  const std::string told =
      seen.outcome + " with committed:\n" + seen.committed + "after\n" + stage_.transcript();
  const bool reported = seen.outcome == text_of(stage::trapped(7, "Out of memory"));
  // The error goes to the caller where the shortage strikes on the way to the method, or on the way back with
  // what has been read.
  if (!reported && seen.outcome != "raised 7") return told;
  const bool may_be_stored = commits_step_by_step(scene_) ||
                             (reported && fails_after_commit(scene_) && seen.committed == expected.committed);
  if (!seen.committed.empty() && !may_be_stored) return told;
  if (reported && seen.fields != given_fields && !expected.fields.starts_with(seen.fields))
    return "fields " + seen.fields;
  return {};
}

std::string MethodPlay::verdict(const Seen& expected, Shortage shortage) {
  const Seen seen = play(shortage);
  if (seen.failures == 0) return "nothing has failed";
  const bool same = seen.outcome == expected.outcome && seen.committed == expected.committed;
  if (!same)
    if (std::string wrong = fault(seen, expected); !wrong.empty()) return wrong;
  if (stage_.alive() > collaborators) return "objects are left behind";
  const Seen next = play(std::nullopt);
  if (next.outcome != expected.outcome) return "the next call: " + next.outcome + "\n" + stage_.transcript();
  return same ? "same" : "memory";
}

}  // namespace tallyra::memory
