#include "automation/local/local_classes.h"

#include <map>
#include <mutex>
#include <utility>

#include "automation/folded_name.h"

namespace tallyra::automation::local {
namespace {

struct LocalClasses {
  std::mutex mutex;
  std::map<std::string, Factory, std::less<>> factories;  // by the ProgID in one case
};

LocalClasses& local_classes() {
  static LocalClasses instance;
  return instance;
}

Factory exchange_factory(std::string_view prog_id, Factory factory) {
  const std::lock_guard lock(local_classes().mutex);
  return std::exchange(local_classes().factories[folded(prog_id)], std::move(factory));
}

}  // namespace

void register_class(std::string_view prog_id, Factory factory) {
  exchange_factory(prog_id, std::move(factory));
}

Factory find_factory(std::string_view prog_id) {
  const std::lock_guard lock(local_classes().mutex);
  const auto found = local_classes().factories.find(folded(prog_id));
  return found == local_classes().factories.end() ? Factory{} : found->second;
}

ScopedClass::ScopedClass(std::string_view prog_id, Factory factory)
    : prog_id_(prog_id), previous_(exchange_factory(prog_id, std::move(factory))) {}

ScopedClass::~ScopedClass() {
  exchange_factory(prog_id_, std::move(previous_));
}

}  // namespace tallyra::automation::local
