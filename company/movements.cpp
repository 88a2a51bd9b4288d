#include "company/movements.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "company/prices.h"
#include "company/production.h"
#include "company/purchasing.h"
#include "company/sales.h"

namespace tallyra::company {
namespace {

constexpr int most_lines_per_document = 12;
constexpr int opening_percent = 8;  // of all lines, spent on filling the stores

class Trade {
 public:
  explicit Trade(Generation generation)
      : generation_(generation), purchasing_(generation), production_(generation), sales_(generation) {}

  void open(const Task& task) {
    if (generation_.random.chance(60)) {
      purchasing_.receive(task);
    } else {
      production_.receive(task);
    }
  }

  void work(const Task& task) {
    if (write_some(task) == 0) purchasing_.receive(task);  // nothing in stock: buy
  }

 private:
  // Shares of a hundred documents.
  int write_some(const Task& task) {
    const int place = generation_.random.below(100);
    if (place < 25) return purchasing_.receive(task);
    if (place < 28) return purchasing_.send_back(task);
    if (place < 29) return purchasing_.receive_replacement(task);
    if (place < 47) return production_.issue(task);
    if (place < 52) return production_.take_back(task);
    if (place < 66) return production_.receive(task);
    if (place < 70) return sales_.issue_material(task);
    if (place < 72) return sales_.take_material_back(task);
    if (place < 86) return sales_.ship(task);
    if (place < 88) return sales_.receive_back(task);
    return move_between_departments(task);
  }

  int move_between_departments(const Task& task) {
    const int departments = static_cast<int>(generation_.masters.departments.size());
    Stock& stock = generation_.ledger.stock();
    Document document{&transfer, task.day, task.department, -1, "", "", {}};
    document.target = (task.department + generation_.random.between(1, departments - 1)) % departments;
    const int wanted = generation_.random.between(1, task.max_lines);
    for (int tries = 0; tries < 12 && static_cast<int>(document.lines.size()) < wanted; ++tries) {
      const int part = stock.any_part(task.department, generation_.random.chance(50), generation_.random);
      if (part < 0 || document.holds(part)) continue;
      const double half = std::ceil(stock.of(task.department, part) / 2);
      const double quantity = std::min(
          {lot(generation_.part(part), 1, 30, generation_.random), half, stock.of(task.department, part)});
      document.lines.push_back({part, quantity, standard_price(generation_.part(part)), "", ""});
    }
    if (document.lines.empty()) return 0;
    generation_.ledger.write(document);
    return static_cast<int>(document.lines.size());
  }

  Generation generation_;
  Purchasing purchasing_;
  Production production_;
  Sales sales_;
};

int month_of(Day day, std::chrono::year_month start) {
  const std::chrono::year_month_day date{day};
  return static_cast<int>((date.year() / date.month() - start).count());
}

}  // namespace

void write_movements(const Options& options, Generation generation, const Progress& progress) {
  Trade trade(generation);
  const auto days = booking_days(options.start, options.months);
  const auto opening = static_cast<std::int64_t>(options.lines) * opening_percent / 100;
  for (std::size_t day = 0; day < days.size(); ++day) {
    const auto due = static_cast<std::int64_t>(options.lines) * static_cast<std::int64_t>(day + 1) /
                     static_cast<std::int64_t>(days.size());
    while (generation.ledger.lines_written() < due) {
      const int left = options.lines - generation.ledger.lines_written();
      const Task task{days[day], month_of(days[day], options.start),
                      generation.random.below(options.departments), std::min(left, most_lines_per_document)};
      if (generation.ledger.lines_written() < opening) {
        trade.open(task);
      } else {
        trade.work(task);
      }
    }
    progress(generation.ledger.lines_written());
  }
}

}  // namespace tallyra::company
