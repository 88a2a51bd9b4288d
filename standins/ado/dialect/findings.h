#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tallyra::standins::ado::dialect {

// Byte range of the text.
struct Span {
  std::size_t begin;
  std::size_t end;
};

// A SELECT with a TOP clause.
struct TopSelect {
  std::size_t begin;  // of the word SELECT
  std::size_t end;    // behind its last token; in a compound before the ORDER BY, which belongs to the whole
  Span clause;        // TOP n
  std::string_view count;  // n
  bool in_compound;        // one of several joined by UNION, EXCEPT or INTERSECT
};

// `Delete T.* From ...` or `Delete T From ...` with more than one table, or with the table under an alias.
struct JoinedDelete {
  Span target;             // T.* or T
  std::string_view row;    // the name under which the FROM clause exposes the table, as written
  std::string_view table;  // the table's own name, as written in the FROM clause
  std::size_t end;         // behind the last token of the statement
};

// What an engine has to be told differently, in the words of no engine. Views are into the analysed text.
struct Findings {
  std::vector<Span> dates;   // with delimiters: every #...#, and each '...' that meets a date column
  std::string_view no_date;  // the first '...' that meets a date column and is no date; empty for none
  std::vector<TopSelect> tops;
  std::vector<Span> delete_lists;  // what stands between DELETE and FROM where DELETE FROM says the same
  std::vector<JoinedDelete> deletes;
  std::size_t values_begin = 0;  // behind the parenthesis that opens the values, when the text is one
                                 // statement `Insert Into T (A,B,...) Values (...`; else 0
  bool changes_schema = false;   // CREATE, ALTER or DROP, or ROLLBACK, which takes such a change back

  void clear() {
    dates.clear();
    no_date = {};
    tops.clear();
    delete_lists.clear();
    deletes.clear();
    values_begin = 0;
    changes_schema = false;
  }
};

}  // namespace tallyra::standins::ado::dialect
