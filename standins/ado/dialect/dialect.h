#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "standins/ado/dialect/analyzer.h"
#include "standins/ado/dialect/date_column_cache.h"
#include "standins/ado/dialect/date_columns.h"
#include "standins/ado/dialect/differences.h"
#include "standins/ado/dialect/findings.h"
#include "standins/ado/dialect/insert_heads.h"
#include "standins/ado/dialect/literal_scan.h"
#include "standins/ado/dialect/literal_use.h"
#include "standins/ado/dialect/statement_guard.h"
#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// From the Access and SQL Server forms to what another engine understands, as its table of differences has
// it:
//
//   Select Top 5 ...            Select ... LIMIT 5, also in subqueries and in the members of a UNION
//   Delete * From T ...         Delete From T ...
//   Delete T.* From T Join U    DELETE FROM T ... WHERE rowid IN (SELECT ...)
//   #2024/3/31 14:05#           '2024-03-31 14:05:00'
//   '2024/3/31' at a date column, compared or written: the same
//   '' there                    '1900-01-01 00:00:00'
//
// and what else the table says.
//
// Only the tokens concerned change, and only where such a thing can stand: what is malformed stays so, for
// the engine to refuse. Not safe for use by several threads at once.
class Dialect {
 public:
  // `columns` must outlive the dialect. It is asked about each column once, not once per statement; a
  // statement that changes the schema makes the dialect ask again when it goes through `rewrite`.
  // `differences` too; it is usually a constant.
  Dialect(const Differences& differences, DateColumns& columns)
      : differences_(differences), columns_(columns), analyzer_(columns_) {}

  Dialect(const Dialect&) = delete;
  Dialect& operator=(const Dialect&) = delete;

  // The text for the engine, UTF-8 like `sql`, which must not be what an earlier call returned. A text that
  // needs no change comes back as it is; so the view is valid until the next call, and only as long as `sql`
  // is. Of several statements separated by semicolons each is rewritten by itself. What makes no sense goes
  // through, so that the database's own error reaches the caller; a text with a NUL character goes through
  // untouched. Throws only what `DateColumns` throws.
  std::string_view rewrite(std::string_view sql);

  // As `rewrite`, with `?` in place of each of the `literals`, which `scan_literals` has found in the text,
  // that can be given apart; `uses` says of each whether it can and how. A date among them is then to be
  // given as `write_date` has it.
  std::string_view rewrite_form(std::string_view sql, const std::vector<Literal>& literals,
                                std::vector<LiteralUse>& uses);

  // The first text of the statement rewritten last that meets a date column and is no date, with its quotes;
  // empty when there is none. Such a text stays as it is, and an engine without a type for dates would
  // compare or store it as a text; the databases for which the statements are written answer with an error. A
  // view into that statement.
  std::string_view no_date() const { return no_date_; }

  // Whether the statement rewritten last may change a table or take such a change back: CREATE, ALTER, DROP
  // or ROLLBACK. When it has run, `columns` must not answer from what it knew before.
  bool changes_schema() const { return changes_schema_; }

  // Makes the dialect ask `columns` again: to be called when the schema may have changed by another way.
  void forget() {
    columns_.clear();
    heads_.clear();
  }

  // How far the text reaches that `rewrite` returned last. A view into it.
  const Verdict& verdict() const { return verdict_; }

 private:
  struct Edit {
    std::size_t begin;  // replaced range of the text
    std::size_t end;
    std::size_t text_begin;  // range of `replacements_`
    std::size_t text_end;
  };

  bool is_readable(std::string_view sql);
  void read(std::string_view sql);
  std::string_view written(std::string_view sql);
  std::string_view reword(std::string_view text);
  void remember_head(std::string_view sql);
  void collect_edits(std::string_view sql);
  void edit_date(std::string_view sql, Span literal);
  void edit_literals(const std::vector<Literal>& literals, const std::vector<LiteralUse>& uses);
  void edit_top(std::string_view sql, const TopSelect& top);
  void edit_delete(std::string_view sql, const JoinedDelete& statement);
  void remove(std::string_view sql, Span span);
  template <typename... Texts>
  void replace(Span span, Texts... texts);
  void apply_edits(std::string_view sql);
  void release_memory();

  const Differences& differences_;
  DateColumnCache columns_;
  Analyzer analyzer_;
  InsertHeads heads_;
  Tokens tokens_;
  Findings findings_;
  std::vector<Edit> edits_;
  std::string replacements_;
  std::string out_;
  std::vector<Rewording> rewordings_;
  std::string reworded_;
  std::string_view no_date_;
  bool changes_schema_ = false;
  Verdict verdict_;
};

}  // namespace tallyra::standins::ado::dialect
