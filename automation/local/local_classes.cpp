#include "automation/local/local_classes.h"

#include <map>
#include <mutex>
#include <utility>

#include "automation/folded_name.h"

namespace tallyra::automation::local {
namespace {

struct Registration {
  std::string prog_id;
  Factory factory;
};

struct Registry {
  std::mutex mutex;
  std::map<std::string, Registration, std::less<>> classes;
};

Registry& registry() {
  static Registry instance;
  return instance;
}

Factory exchange_factory(std::string_view prog_id, Factory factory) {
  const std::lock_guard lock(registry().mutex);
  auto& entry = registry().classes[folded(prog_id)];
  if (entry.prog_id.empty()) entry.prog_id = prog_id;
  return std::exchange(entry.factory, std::move(factory));
}

}  // namespace

void register_class(std::string_view prog_id, Factory factory) {
  exchange_factory(prog_id, std::move(factory));
}

Factory find_factory(std::string_view prog_id) {
  const std::lock_guard lock(registry().mutex);
  const auto found = registry().classes.find(folded(prog_id));
  return found == registry().classes.end() ? Factory{} : found->second.factory;
}

std::vector<std::string> registered_classes() {
  const std::lock_guard lock(registry().mutex);
  std::vector<std::string> names;
  for (const auto& [key, entry] : registry().classes)
    if (entry.factory) names.push_back(entry.prog_id);
  return names;
}

ScopedClass::ScopedClass(std::string_view prog_id, Factory factory)
    : prog_id_(prog_id), previous_(exchange_factory(prog_id, std::move(factory))) {}

ScopedClass::~ScopedClass() {
  exchange_factory(prog_id_, std::move(previous_));
}

}  // namespace tallyra::automation::local
