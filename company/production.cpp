#include "company/production.h"

#include <algorithm>

#include "company/order_number.h"
#include "company/prices.h"

namespace tallyra::company {
namespace {

constexpr std::size_t most_running_orders = 200;

}  // namespace

Production::Production(Generation generation)
    : generation_(generation),
      headers_(generation.database, "COHD",
               {{"CONO", Kind::text},
                {"CODT", Kind::text},
                {"PARTNO", Kind::text},
                {"PRODQTY", Kind::number},
                {"DEPTNO", Kind::text},
                {"STATUSSN", Kind::integer},
                {"ADDBY", Kind::text},
                {"ADDDT", Kind::text}}),
      details_(generation.database, "CODETAIL",
               {{"CONO", Kind::text},
                {"SN", Kind::integer},
                {"PARTNO", Kind::text},
                {"COQTY", Kind::number},
                {"TEMPLETQTY", Kind::number}}) {}

Production::Order Production::plan_order(const Task& task) {
  Order order{order_number("MO", task.day, last_number_),
              generation_.random.pick(generation_.masters.products),
              generation_.random.between(5, 40),
              {}};
  for (const BomLine& line : generation_.part(order.product).bom) {
    order.materials.push_back({line.part, static_cast<double>(line.quantity * order.quantity), 0});
  }
  return order;
}

void Production::write_order(const Order& order, const Task& task, int status) {
  const std::string at = timestamp(task.day - std::chrono::days{generation_.random.between(0, 5)});
  headers_.row(order.number, at, generation_.part(order.product).number, static_cast<double>(order.quantity),
               generation_.masters.departments[static_cast<std::size_t>(task.department)].number, status,
               generation_.ledger.next_user(), at);
  int sn = 0;
  for (const Material& material : order.materials) {
    // Part of a requirement may stand as material for templates.
    const double templates = material.required >= 20 && generation_.random.chance(8) ? 2 : 0;
    details_.row(order.number, ++sn, generation_.part(material.part).number, material.required - templates,
                 templates);
  }
}

int Production::issue(const Task& task) {
  if (generation_.random.chance(20)) {
    if (const int lines = issue_shortage(task)) return lines;
  }
  if (generation_.random.chance(5))
    write_order(plan_order(task), task, 0);  // an order that waits for approval
  return issue_all(plan_order(task), task);
}

int Production::issue_shortage(const Task& task) {
  auto& running = running_[task.department];
  if (running.empty()) return 0;
  Order& order = generation_.random.pick(running);
  Document document{&production_issue, task.day, task.department, -1, "", "", {}};
  for (Material& material : order.materials) {
    const double lacking = material.required - material.issued;
    const double quantity = std::min(lacking, generation_.ledger.stock().of(task.department, material.part));
    if (quantity <= 0 || static_cast<int>(document.lines.size()) == task.max_lines) continue;
    document.lines.push_back({material.part, -quantity, standard_price(generation_.part(material.part)),
                              order.number, order.number});
    material.issued += quantity;
  }
  return write_issue(document, order.number);
}

int Production::issue_all(Order order, const Task& task) {
  Stock& stock = generation_.ledger.stock();
  Document document{&production_issue, task.day, task.department, -1, "", "", {}};
  const auto add_line = [&](Material& material) {
    material.issued = std::min(material.required, stock.of(task.department, material.part));
    if (material.issued <= 0) return;
    document.lines.push_back({material.part, -material.issued,
                              standard_price(generation_.part(material.part)), order.number, order.number});
  };
  for (Material& material : order.materials) {
    if (static_cast<int>(document.lines.size()) < task.max_lines) add_line(material);
  }
  // Paint, screws and whatever else the shop asks for besides the bill of materials.
  const int wanted = generation_.random.between(1, task.max_lines);
  for (int tries = 0; tries < 12 && static_cast<int>(document.lines.size()) < wanted; ++tries) {
    const int part = stock.any_part(task.department, generation_.random.chance(20), generation_.random);
    if (part < 0 || part == order.product) continue;
    const bool listed = std::any_of(order.materials.begin(), order.materials.end(),
                                    [part](const Material& material) { return material.part == part; });
    if (listed) continue;
    Material extra{part, lot(generation_.part(part), 1, 20, generation_.random), 0};
    add_line(extra);
    order.materials.push_back(extra);
  }
  if (document.lines.empty()) return 0;
  write_order(order, task, 1);
  const int lines = write_issue(document, order.number);
  auto& running = running_[task.department];
  running.push_back(std::move(order));
  if (running.size() > most_running_orders) running.pop_front();
  return lines;
}

int Production::write_issue(Document& document, const std::string& order) {
  if (document.lines.empty()) return 0;
  generation_.ledger.write(document);
  issues_.add({order, document.department, "", "", document.lines});
  return static_cast<int>(document.lines.size());
}

int Production::take_back(const Task& task) {
  const auto issued = issues_.take(generation_.random);
  if (!issued) return 0;
  Document document{&production_return, task.day, issued->department, -1, "", "", {}};
  for (const Line& line : issued->lines) {
    const double quantity = quarter_of(line.quantity);
    if (quantity <= 0 || static_cast<int>(document.lines.size()) == std::min(task.max_lines, 4)) continue;
    document.lines.push_back({line.part, quantity, line.price, issued->reference, issued->reference});
  }
  if (document.lines.empty()) return 0;
  generation_.ledger.write(document);
  return static_cast<int>(document.lines.size());
}

int Production::receive(const Task& task) {
  auto& running = running_[task.department];
  Document document{&production_receipt, task.day, task.department, -1, "", "", {}};
  const int wanted = generation_.random.between(1, std::min(task.max_lines, 6));
  while (static_cast<int>(document.lines.size()) < wanted) {
    if (running.empty()) {
      running.push_back(plan_order(task));
      write_order(running.back(), task, 1);
    }
    const Order& order = running.front();
    document.lines.push_back({order.product, static_cast<double>(order.quantity),
                              standard_price(generation_.part(order.product)), order.number, order.number});
    running.pop_front();
  }
  generation_.ledger.write(document);
  return wanted;
}

}  // namespace tallyra::company
