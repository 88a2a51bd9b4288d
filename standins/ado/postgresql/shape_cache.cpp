#include "standins/ado/postgresql/shape_cache.h"

#include <functional>

#include "standins/ado/postgresql/type_oids.h"

namespace tallyra::standins::ado {
namespace {

constexpr std::size_t most_shapes = 64;
constexpr std::size_t most_met_once = 1024;

}  // namespace

ShapeCache::Entry* ShapeCache::find(const Shape& shape) {
  if (!known_.empty() && known_.front().key == shape.key()) return &known_.front().entry;
  const auto found = by_key_.find(shape.key());
  if (found == by_key_.end()) return nullptr;
  known_.splice(known_.begin(), known_, found->second);
  return &found->second->entry;
}

bool ShapeCache::comes_again(const Shape& shape) {
  if (met_once_.size() >= most_met_once) met_once_.clear();
  return !met_once_.insert(std::hash<std::string>()(shape.key())).second;
}

ShapeCache::Entry& ShapeCache::add(const Shape& shape, std::string& discarded) {
  discarded.clear();
  if (known_.size() >= most_shapes) {
    if (known_.back().entry.usable) discarded = known_.back().entry.name;
    by_key_.erase(known_.back().key);
    known_.pop_back();
  }
  known_.push_front({shape.key(), {"tallyra_" + std::to_string(++last_name_)}});
  by_key_.emplace(shape.key(), known_.begin());
  return known_.front().entry;
}

bool ShapeCache::clear() {
  const bool any = !known_.empty();
  by_key_.clear();
  known_.clear();
  met_once_.clear();
  return any;
}

bool means_the_same(LiteralKind kind, unsigned type) {
  switch (kind) {
    case LiteralKind::text: return true;
    case LiteralKind::integer:
      return type == oid::integer || type == oid::big_int || type == oid::double_precision ||
             type == oid::numeric;
    case LiteralKind::decimal: return type == oid::double_precision || type == oid::numeric;
  }
  return false;
}

unsigned own_type(LiteralKind kind) {
  switch (kind) {
    case LiteralKind::integer: return oid::integer;
    case LiteralKind::decimal: return oid::numeric;
    case LiteralKind::text: break;
  }
  return 0;
}

}  // namespace tallyra::standins::ado
