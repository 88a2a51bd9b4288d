#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "company/database.h"
#include "company/document.h"
#include "company/masters.h"
#include "company/stock.h"

namespace tallyra::company {

// Movement of each part in one department up to a day, counted as a stocktaking counts it: everything issued
// from the department as stored, and the transfers into it.
struct BookMovement {
  int department;
  Day until;
  std::vector<double> issued_from;
  std::vector<double> transferred_in;
};

// Writes stock documents and keeps the stock that they leave behind.
class Ledger {
 public:
  Ledger(const Masters& masters, const Options& options, Random& random, Database& database);

  // Numbers the document and writes header and lines; returns the number. The document must have a line.
  std::string write(Document& document);

  Stock& stock() { return stock_; }
  int lines_written() const { return lines_written_; }
  // Users in turn, as clerks share the work.
  std::string_view next_user();

  BookMovement book;

 private:
  void move_stock(const Document& document, const Line& line);
  void write_note(const Document& document, const std::string& number, const std::string& at);

  const Masters& masters_;
  Random& random_;
  Stock stock_;
  Insert headers_;
  Insert lines_;
  Insert notes_;
  std::map<std::string_view, int> last_numbers_;  // by prefix
  int lines_written_ = 0;
  int users_asked_ = 0;
};

}  // namespace tallyra::company
