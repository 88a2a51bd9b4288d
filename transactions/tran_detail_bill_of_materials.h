#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tallyra::transactions {

// The parts that an order leads to and how they go into each other. Parts are numbered from 0 in the order in
// which they came up, so that whoever fills in the bills can work through them while new ones come up.
class BillOfMaterials {
 public:
  // A part that the order names itself.
  void order(const std::string& part, double quantity);
  // A line of the bill of an assembly: what one piece of it takes of a component.
  void add(const std::string& assembly, const std::string& component, double quantity);
  // Begins a new lot of bills. A bill comes in one lot; where an engine finds it a second time, under another
  // spelling of the assembly, its lines are left out.
  void next_lot() { ++lot_; }

  std::size_t parts() const { return parts_.size(); }
  const std::string& part(std::size_t index) const { return parts_[index].number; }

  // Two part numbers, of those that came up and the given one, that differ in the case of letters A to Z or
  // in trailing blanks and in nothing else, if there are such.
  struct Spellings {
    std::string one;
    std::string other;
  };
  std::optional<Spellings> two_spellings(const std::string& part) const;
  // Makes one part of all that differ so. No line may be added any more.
  void unite_spellings();

  // What the order takes of a part, added up over all places where it is used; nothing when it is used
  // nowhere. Throws Error 28 when an assembly contains itself, and names it.
  std::optional<double> requirement(const std::string& part) const;

 private:
  struct Component {
    std::size_t part;
    double quantity;
  };
  struct Part {
    std::string number;
    double ordered = 0;
    // How many lines of bills this part is a component of.
    std::size_t uses = 0;
    // The lot that its bill came in, 0 as long as none has come.
    std::size_t lot = 0;
    std::vector<Component> bill = {};
  };

  std::size_t index_of(const std::string& part);
  [[noreturn]] void report_cycle(const std::vector<std::size_t>& open_uses) const;

  std::vector<Part> parts_;
  // By number, or by what all its spellings have in common once they are united.
  std::unordered_map<std::string, std::size_t> indexes_;
  bool united_ = false;
  std::size_t lot_ = 1;
  // The lines of a bill come one after the other.
  std::size_t last_assembly_ = 0;
};

}  // namespace tallyra::transactions
