#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standins/ado/dialect/literal_scan.h"
#include "standins/ado/dialect/literal_use.h"
#include "standins/ado/sqlite/sqlite_handle.h"

namespace tallyra::standins::ado {

// A statement whose values are given apart from it.
struct PreparedForm {
  sqlite3_stmt* statement = nullptr;
  const std::vector<dialect::LiteralUse>* uses = nullptr;  // of the text's literals

  explicit operator bool() const { return statement != nullptr; }
};

// The statements that a connection has compiled for texts of one form, so that the next text of that form is
// not compiled. Keeps a limited number; those not used for longest go first.
class PreparedForms {
 public:
  // The statement for `sql`, whose form is `form`; none when it is not known, or when a text stands where
  // none has stood yet. Valid until the next call that is not const.
  PreparedForm find(const dialect::StatementForm& form, std::string_view sql);

  // Remembers what has been found out about `sql`. Keeps the statement that it had for the same form, if any,
  // and adds to it what is known of the uses.
  PreparedForm add(const dialect::StatementForm& form, std::string_view sql,
                   const std::vector<dialect::LiteralUse>& uses, StatementHandle statement);

  void clear() { entries_.clear(); }
  bool empty() const { return entries_.empty(); }

 private:
  // What differs within a form where a value cannot be given apart.
  struct Variant {
    std::string fixed;
    StatementHandle statement;
    std::uint64_t used = 0;
  };
  struct Entry {
    std::vector<dialect::LiteralUse> uses;
    std::vector<Variant> variants;
    std::uint64_t used = 0;
  };

  void read_fixed(const dialect::StatementForm& form, std::string_view sql,
                  const std::vector<dialect::LiteralUse>& uses);
  Variant* variant_of(Entry& entry);
  void make_room();

  std::unordered_map<std::string, Entry> entries_;  // by form
  std::string fixed_;                               // of the text at hand
  std::uint64_t now_ = 0;
};

}  // namespace tallyra::standins::ado
