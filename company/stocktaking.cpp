#include "company/stocktaking.h"

#include <algorithm>
#include <vector>

#include "company/prices.h"

namespace tallyra::company {
namespace {

constexpr int line_without_quantity = 3, line_without_price = 5;
constexpr std::size_t parts_per_line = 4;

// What a posting holds the count against: sums below zero count as nothing.
double movement_of(const BookMovement& book, std::size_t part) {
  return std::max(book.issued_from[part], 0.0) + std::max(book.transferred_in[part], 0.0);
}

// Evenly spread over the parts that moved; parts that never did fill up the list.
std::vector<std::size_t> parts_to_count(const BookMovement& book) {
  std::vector<std::size_t> moved;
  std::vector<std::size_t> still;
  for (std::size_t part = 0; part < book.issued_from.size(); ++part) {
    (movement_of(book, part) > 0 ? moved : still).push_back(part);
  }
  const std::size_t wanted = book.issued_from.size() / parts_per_line;
  std::vector<std::size_t> chosen;
  const std::size_t from_moved = std::min(moved.size(), wanted - wanted / 20);
  for (std::size_t place = 0; place < from_moved; ++place) {
    chosen.push_back(moved[place * moved.size() / from_moved]);
  }
  for (std::size_t place = 0; chosen.size() < wanted && place < still.size(); ++place)
    chosen.push_back(still[place]);
  return chosen;
}

double counted(double movement, Random& random) {
  if (random.chance(60)) return movement;
  const double difference = random.between(1, 6);
  return random.chance(50) && movement >= difference ? movement - difference : movement + difference;
}

}  // namespace

void write_stocktaking(const Generation& generation) {
  const BookMovement& book = generation.ledger.book;
  const std::string number = "CK" + short_month(book.until) + "0001";
  const std::string at = timestamp(book.until, 16 * 3600);
  Insert header(generation.database, "STKCHECKHD",
                {{"CHECKNO", Kind::text},
                 {"CHECKDT", Kind::text},
                 {"DEPTNO", Kind::text},
                 {"CHECKBY", Kind::text},
                 {"STATUS", Kind::text},
                 {"STATUSSN", Kind::integer},
                 {"NOTES", Kind::text},
                 {"ADDBY", Kind::text},
                 {"ADDDT", Kind::text},
                 {"EDITBY", Kind::text},
                 {"EDITDT", Kind::text}});
  header.row(number, timestamp(book.until),
             generation.masters.departments[static_cast<std::size_t>(book.department)].number, "CLERK",
             "Open", 0, "Counted at month end", "CLERK", at, "CLERK", at);
  Insert lines(generation.database, "STKCHECKDT",
               {{"CHECKNO", Kind::text},
                {"PARTNO", Kind::text},
                {"QTY", Kind::number},
                {"UPRICE", Kind::number},
                {"ADDBY", Kind::text},
                {"ADDDT", Kind::text},
                {"EDITBY", Kind::text},
                {"EDITDT", Kind::text}});
  int line = 0;
  for (const std::size_t index : parts_to_count(book)) {
    const Part& part = generation.masters.parts[index];
    const double quantity = counted(movement_of(book, index), generation.random);
    ++line;
    if (line == line_without_quantity) {
      lines.row(number, part.number, nullptr, standard_price(part), "CLERK", at, "CLERK", at);
    } else if (line == line_without_price) {
      lines.row(number, part.number, quantity + 1, nullptr, "CLERK", at, "CLERK", at);
    } else {
      lines.row(number, part.number, quantity, standard_price(part), "CLERK", at, "CLERK", at);
    }
  }
}

}  // namespace tallyra::company
