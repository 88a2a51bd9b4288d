#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "company/document.h"
#include "company/random.h"

namespace tallyra::company {

// A document that a later one can refer to: a receipt that is partly sent back, an issue that is partly
// returned.
struct Returnable {
  std::string reference;  // what the later document's lines refer to
  int department;
  std::string partner;
  std::string partner_name;
  std::vector<Line> lines;
};

// The latest such documents of one kind; older ones are forgotten.
class Returnables {
 public:
  void add(Returnable document) {
    if (documents_.size() < capacity) {
      documents_.push_back(std::move(document));
    } else {
      documents_[oldest_++ % capacity] = std::move(document);
    }
  }

  // Any one of them, which is then gone, so that no document is taken back twice.
  std::optional<Returnable> take(Random& random) {
    if (documents_.empty()) return std::nullopt;
    std::swap(random.pick(documents_), documents_.back());
    Returnable taken = std::move(documents_.back());
    documents_.pop_back();
    return taken;
  }

 private:
  static constexpr std::size_t capacity = 256;
  std::vector<Returnable> documents_;
  std::size_t oldest_ = 0;
};

// A quarter of a line's quantity without its sign, in whole units; 0 when that is less than one.
double quarter_of(double quantity);

}  // namespace tallyra::company
