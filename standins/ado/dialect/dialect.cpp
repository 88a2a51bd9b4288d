#include "standins/ado/dialect/dialect.h"

#include <algorithm>
#include <array>

#include "standins/ado/dialect/characters.h"
#include "standins/ado/dialect/date_literal.h"
#include "standins/ado/dialect/insert_values.h"
#include "standins/ado/dialect/tokenizer.h"

namespace tallyra::standins::ado::dialect {
namespace {

// Buffers grown beyond this by one huge text are given back before the next text.
constexpr std::size_t kept_bytes = std::size_t{1} << 20;

bool blank_before(std::string_view sql, std::size_t at) {
  return at == 0 || is_blank(sql[at - 1]);
}
bool blank_at(std::string_view sql, std::size_t at) {
  return at == sql.size() || is_blank(sql[at]);
}

}  // namespace

std::string_view Dialect::rewrite(std::string_view sql) {
  if (!is_readable(sql)) return sql;
  if (const InsertHead* head = heads_.match(sql)) {
    const ValuesOutcome outcome = rewrite_values(sql, *head, out_);
    if (outcome != ValuesOutcome::not_plain) return outcome == ValuesOutcome::rewritten ? out_ : sql;
  }
  read(sql);
  collect_edits(sql);
  const std::string_view rewritten = written(sql);
  if (verdict_.reach == Reach::database) remember_head(sql);
  return rewritten;
}

std::string_view Dialect::rewrite_form(std::string_view sql, const std::vector<Literal>& literals,
                                       std::vector<LiteralUse>& uses) {
  uses.assign(literals.size(), {});
  if (!is_readable(sql)) return sql;
  read(sql);
  find_literal_uses(tokens_, findings_, literals, uses);
  collect_edits(sql);
  edit_literals(literals, uses);
  return written(sql);
}

// Begins anew. Texts that nothing can be said of go as they are.
bool Dialect::is_readable(std::string_view sql) {
  no_date_ = {};
  changes_schema_ = false;
  verdict_ = {};
  if (sql.size() <= longest_text && sql.find('\0') == std::string_view::npos) return true;
  verdict_ = {Reach::beyond, sql.substr(0, 1)};
  return false;
}

void Dialect::read(std::string_view sql) {
  release_memory();
  tokenize(sql, tokens_);
  analyzer_.analyze(tokens_, findings_);
  no_date_ = findings_.no_date;
  changes_schema_ = findings_.changes_schema;
  if (changes_schema_) forget();
}

// The text with the edits that have been collected, judged.
std::string_view Dialect::written(std::string_view sql) {
  std::string_view result = sql;
  if (!edits_.empty()) {
    apply_edits(sql);
    tokenize(out_, tokens_);
    result = out_;
  }
  result = reword(result);
  verdict_ = differences_.judge(tokens_);
  return result;
}

// `tokens_` are those of the text.
std::string_view Dialect::reword(std::string_view text) {
  rewordings_.clear();
  if (differences_.reword) differences_.reword(tokens_, rewordings_);
  if (rewordings_.empty()) return text;
  reworded_.clear();
  std::size_t copied = 0;
  for (const Rewording& rewording : rewordings_) {
    reworded_.append(text, copied, rewording.span.begin - copied).append(rewording.text);
    copied = rewording.span.end;
  }
  reworded_.append(text, copied);
  tokenize(reworded_, tokens_);
  return reworded_;
}

// What comes behind a known head is not judged again. So the driver must not find a quote in it that is none
// to the engine.
void Dialect::remember_head(std::string_view sql) {
  if (findings_.values_begin == 0 || !rewordings_.empty() || heads_.match(sql) != nullptr) return;
  const std::string_view head = sql.substr(0, findings_.values_begin);
  if (head.find_first_of("'\"{") == std::string_view::npos) heads_.remember(head, analyzer_.insert().dates);
}

void Dialect::collect_edits(std::string_view sql) {
  edits_.clear();
  replacements_.clear();
  for (const Span& literal : findings_.dates) edit_date(sql, literal);
  for (const TopSelect& top : findings_.tops) edit_top(sql, top);
  for (const Span& list : findings_.delete_lists) remove(sql, list);
  for (const JoinedDelete& statement : findings_.deletes) edit_delete(sql, statement);
}

void Dialect::edit_date(std::string_view sql, Span literal) {
  const std::string_view text = sql.substr(literal.begin, literal.end - literal.begin);
  std::array<char, written_date_length> buffer;
  write_date(*read_quoted_date(text.substr(1, text.size() - 2)), buffer.data());
  const std::string_view written(buffer.data(), buffer.size());
  if (text != written) replace(literal, written);
}

// In place of what would be made of them as parts of the text.
void Dialect::edit_literals(const std::vector<Literal>& literals, const std::vector<LiteralUse>& uses) {
  for (std::size_t i = 0; i < literals.size(); ++i) {
    const Literal& literal = literals[i];
    if (!can_be_apart(literal.kind, uses[i])) continue;
    std::erase_if(edits_,
                  [&](const Edit& edit) { return edit.begin == literal.begin && edit.end == literal.end; });
    replace({literal.begin, literal.end}, "?");
  }
}

// LIMIT is no part of a member of a compound, so such a member becomes a subquery.
void Dialect::edit_top(std::string_view sql, const TopSelect& top) {
  if (top.in_compound) replace({top.begin, top.begin}, differences_.member_begin);
  remove(sql, top.clause);
  replace({top.end, top.end}, " LIMIT ", top.count, top.in_compound ? ")" : "");
}

// The alias keeps the outer table out of the subquery's sight: were the inner name not found, it would mean
// the outer row, and every row would go.
void Dialect::edit_delete(std::string_view sql, const JoinedDelete& statement) {
  const Span target = statement.target;
  replace(target, blank_before(sql, target.begin) ? "" : " ", "FROM ", statement.table,
          " AS doomed WHERE doomed.", differences_.row_identity, differences_.rows_begin, "SELECT ",
          statement.row, ".", differences_.row_identity, blank_at(sql, target.end) ? "" : " ");
  replace({statement.end, statement.end}, differences_.rows_end);
}

// Takes the blanks behind along, but leaves the words on both sides apart.
void Dialect::remove(std::string_view sql, Span span) {
  while (span.end < sql.size() && is_blank(sql[span.end])) ++span.end;
  replace(span, blank_before(sql, span.begin) ? "" : " ");
}

template <typename... Texts>
void Dialect::replace(Span span, Texts... texts) {
  const std::size_t begin = replacements_.size();
  (replacements_.append(texts), ...);
  edits_.push_back({span.begin, span.end, begin, replacements_.size()});
}

void Dialect::apply_edits(std::string_view sql) {
  std::sort(edits_.begin(), edits_.end(), [](const Edit& a, const Edit& b) {
    return a.begin != b.begin ? a.begin < b.begin : a.text_begin < b.text_begin;
  });
  out_.clear();
  std::size_t copied = 0;
  for (const Edit& edit : edits_) {
    out_.append(sql, copied, edit.begin - copied);
    out_.append(replacements_, edit.text_begin, edit.text_end - edit.text_begin);
    copied = edit.end;
  }
  out_.append(sql, copied);
}

void Dialect::release_memory() {
  if (tokens_.list.capacity() * sizeof(Token) <= kept_bytes && out_.capacity() <= kept_bytes) return;
  tokens_ = {};
  edits_ = {};
  findings_ = {};
  replacements_ = {};
  out_ = {};
  reworded_ = {};
}

}  // namespace tallyra::standins::ado::dialect
