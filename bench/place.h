#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tallyra::bench {

// A folder in which databases could be made.
struct Place {
  std::string folder;
  bool in_memory = false;
  std::uint64_t free_bytes = 0;
};

// A folder that is not there is not in memory and has no room.
Place place_at(const std::string& folder);

// The first that is in memory and has the room.
std::optional<Place> memory_place(const std::vector<Place>& places, std::uint64_t needed_bytes);

// A folder of this process, removed with everything in it. What processes that were killed have left beside
// it is removed first: in memory it would be missing.
class WorkFolder {
 public:
  explicit WorkFolder(const std::string& parent);
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace tallyra::bench
