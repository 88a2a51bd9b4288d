#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/object.h"
#include "tests/transcript/stage/fields.h"
#include "tests/transcript/stage/stage.h"

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
};

// The scenes of the classes of one folder.
std::vector<Scene> masterdata_scenes();
std::vector<Scene> close_scenes();

// All of them.
std::vector<Scene> all_scenes();

}  // namespace tallyra::faults
