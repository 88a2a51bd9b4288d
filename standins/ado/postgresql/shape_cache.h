#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "standins/ado/postgresql/shape.h"

namespace tallyra::standins::ado {

// The shapes that a connection has prepared on the server, the most used of them, and those that it has met
// once, which is no reason yet to prepare them.
class ShapeCache {
 public:
  struct Entry {
    std::string name;     // on the server
    bool usable = false;  // the server takes values for the literals
  };

  // Null for a shape that is not known.
  Entry* find(const Shape& shape);
  // Whether the shape was met before, by this question.
  bool comes_again(const Shape& shape);
  // A new entry, not usable yet. `discarded` gets the name that the server should forget, or nothing.
  Entry& add(const Shape& shape, std::string& discarded);
  // False when there was nothing to clear.
  bool clear();

 private:
  struct Known {
    std::string key;
    Entry entry;
  };

  std::list<Known> known_;  // the one used last in front
  std::unordered_map<std::string, std::list<Known>::iterator> by_key_;
  std::unordered_set<std::size_t> met_once_;  // hashes
  std::uint64_t last_name_ = 0;
};

// Whether a value of the kind, given as a text to a parameter of the type, means what the literal would.
bool means_the_same(LiteralKind kind, unsigned type);
// The type that the literal itself has; 0 when that follows from its place.
unsigned own_type(LiteralKind kind);

}  // namespace tallyra::standins::ado
