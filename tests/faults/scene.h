#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "automation/object.h"
#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"

namespace tallyra::faults {

// One successful run of a method, to be played again with each of its calls to the outside failing once.
struct Scene {
  std::string class_name;
  std::string member;
  // Tells the branch when a method has more than one.
  std::string branch;
  std::function<void(stage::Stage&)> prepare;
  // Calls the method with arguments that lead to success.
  std::function<automation::Value(const automation::Object&, stage::Fields&)> call;
  // What the client sees when nothing fails, in a method that does all its work and reports an error on
  // purpose.
  std::optional<stage::Outcome> reported = std::nullopt;
  // A Read that adds to the client's collections as it goes, so that what it has read stays when it fails.
  bool appends = false;

  friend void PrintTo(const Scene& scene, std::ostream* out) {
    *out << scene.class_name << "." << scene.member << " " << scene.branch;
  }
};

// The scenes of the classes of one folder.
std::vector<Scene> masterdata_scenes();
std::vector<Scene> close_scenes();
std::vector<Scene> stockcheck_scenes();
std::vector<Scene> transaction_scenes();

// All of them.
std::vector<Scene> all_scenes();

}  // namespace tallyra::faults
