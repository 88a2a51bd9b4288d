#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "standins/ado/dialect/column_ref.h"
#include "standins/ado/dialect/date_column_cache.h"
#include "standins/ado/dialect/findings.h"
#include "standins/ado/dialect/insert_statement.h"
#include "standins/ado/dialect/scopes.h"
#include "standins/ado/dialect/token.h"
#include "standins/ado/dialect/top_clause.h"

namespace tallyra::standins::ado::dialect {

// Walks over a text once and finds what another engine needs to be told differently. Each statement of a text
// that holds several, separated by semicolons, is looked at by itself. Needs time linear in the length of the
// text.
class Analyzer {
 public:
  explicit Analyzer(DateColumnCache& columns) : columns_(columns) {}

  // Nothing is found in a text with parentheses nested deeper than any engine accepts.
  void analyze(const Tokens& tokens, Findings& findings);

  // The columns of the last INSERT that `analyze` met; belongs to `Findings::values_begin`.
  const InsertStatement& insert() const { return insert_; }

 private:
  enum class Inside : std::uint8_t { statement, expression, source, list, values };

  // One open parenthesis, or the statement around all of them.
  struct Frame {
    Inside inside = Inside::statement;
    Scopes::Id parent = Scopes::none;
    Scopes::Id scope = Scopes::none;
    bool selects = false;
    bool in_from = false;
    bool expects_table = false;
    bool in_select_list = false;
    bool in_compound = false;
    bool declares = false;       // before what CREATE, ALTER or WITH declares: a name with a list of names
    bool lists_names = false;    // that list
    std::size_t select = 0;      // the word SELECT
    std::size_t list_begin = 0;  // first token of the select list
    std::size_t order = 0;       // the word ORDER
    std::optional<TopClause> top = {};
    ColumnRef column = {};     // left of IN (...) or BETWEEN
    std::size_t low = 0;       // the word BETWEEN
    std::size_t high = 0;      // the AND that belongs to it
    std::size_t position = 0;  // of the current item in VALUES or in the select list of an INSERT
  };

  // A text that has to be a date if the column holds dates.
  struct Comparison {
    std::size_t literal;
    ColumnRef column;
    Scopes::Id scope;
  };

  bool statement(std::size_t& i);
  std::size_t begin_statement(std::size_t first);
  std::size_t begin_delete(std::size_t first);
  std::size_t begin_insert(std::size_t first);
  void end_statement(std::size_t end);
  void resolve_comparisons();
  void resolve_delete(std::size_t end);

  std::size_t step(std::size_t i);
  std::size_t keyword(std::size_t i);
  void open(std::size_t i);
  std::size_t close(std::size_t i);
  void comma();
  std::size_t begin_select(std::size_t i);
  void end_select(std::size_t end, bool in_compound);
  std::size_t table(std::size_t i);
  std::size_t alias(std::size_t i, std::string_view& alias) const;
  void between(std::size_t i);

  void date(std::size_t i);
  bool is_operand(std::size_t i) const;
  void text(std::size_t i);
  void meet_date_column(std::size_t i);
  std::string_view content(std::size_t i) const;
  bool is_inserted(std::size_t i) const;
  ColumnRef met_column(std::size_t i) const;

  Span span(std::size_t i) const { return {(*tokens_)[i].begin, (*tokens_)[i].end}; }
  std::size_t end_before(std::size_t i) const;

  DateColumnCache& columns_;
  const Tokens* tokens_ = nullptr;
  Findings* findings_ = nullptr;
  std::vector<Frame> frames_;
  std::vector<Comparison> comparisons_;
  Scopes scopes_;
  InsertStatement insert_;
  Scopes::Id outermost_ = Scopes::none;  // scope of the statement itself
  std::size_t delete_target_ = 0;        // the name between DELETE and FROM
  bool balanced_ = true;
};

}  // namespace tallyra::standins::ado::dialect
