#include "bench/place.h"

#include <linux/magic.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <system_error>

namespace tallyra::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view prefix = "tallyra-bench-";

bool is_left_over(const std::string& name) {
  if (!name.starts_with(prefix)) return false;
  pid_t process = 0;
  const char* const end = name.data() + name.size();
  const auto read = std::from_chars(name.data() + prefix.size(), end, process);
  return read.ec == std::errc() && read.ptr == end && process > 0 && kill(process, 0) != 0 && errno == ESRCH;
}

void remove_left_overs(const std::string& parent) {
  std::vector<fs::path> found;
  for (const auto& entry : fs::directory_iterator(parent))
    if (is_left_over(entry.path().filename())) found.push_back(entry.path());
  std::error_code ignored;
  for (const fs::path& folder : found) fs::remove_all(folder, ignored);
}

}  // namespace

Place place_at(const std::string& folder) {
  Place place{.folder = folder};
  struct statfs about {};
  if (statfs(folder.c_str(), &about) != 0 || access(folder.c_str(), W_OK) != 0) return place;
  place.in_memory = about.f_type == TMPFS_MAGIC;
  place.free_bytes = static_cast<std::uint64_t>(about.f_bavail) * static_cast<std::uint64_t>(about.f_bsize);
  return place;
}

std::optional<Place> memory_place(const std::vector<Place>& places, std::uint64_t needed_bytes) {
  const auto found = std::find_if(places.begin(), places.end(), [&](const Place& place) {
    return place.in_memory && place.free_bytes >= needed_bytes;
  });
  if (found == places.end()) return std::nullopt;
  return *found;
}

WorkFolder::WorkFolder(const std::string& parent) {
  fs::create_directories(parent);
  remove_left_overs(parent);
  path_ = fs::absolute(parent) / (std::string(prefix) + std::to_string(getpid()));
  fs::create_directory(path_);
}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

}  // namespace tallyra::bench
