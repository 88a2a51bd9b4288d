#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "company/generation.h"
#include "company/returnable.h"

namespace tallyra::company {

// Production orders with their material lists, the issues and returns of material, and what is made.
class Production {
 public:
  explicit Production(Generation generation);

  // Issues material: what a running order still lacks, or the material of a new order.
  int issue(const Task& task);

  // Takes unused material of an earlier issue back into stock.
  int take_back(const Task& task);

  // Receives the goods of running orders; when none runs, of orders begun before the books were opened.
  int receive(const Task& task);

 private:
  struct Material {
    int part;
    double required;
    double issued;
  };
  struct Order {
    std::string number;
    int product;
    int quantity;
    std::vector<Material> materials;
  };

  Order plan_order(const Task& task);
  void write_order(const Order& order, const Task& task, int status);
  int issue_shortage(const Task& task);
  int issue_all(Order order, const Task& task);
  int write_issue(Document& document, const std::string& order);

  Generation generation_;
  Insert headers_;
  Insert details_;
  int last_number_ = 0;
  std::map<int, std::deque<Order>> running_;  // by department, oldest first
  Returnables issues_;
};

}  // namespace tallyra::company
