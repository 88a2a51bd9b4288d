#include "tests/faults/scene.h"

namespace tallyra::faults {

std::vector<Scene> all_scenes() {
  std::vector<Scene> scenes;
  for (const auto& folder : {masterdata_scenes, close_scenes, stockcheck_scenes, transaction_scenes})
    for (auto& scene : folder()) scenes.push_back(std::move(scene));
  return scenes;
}

}  // namespace tallyra::faults
