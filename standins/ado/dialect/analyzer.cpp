#include "standins/ado/dialect/analyzer.h"

#include "standins/ado/dialect/keyword.h"

namespace tallyra::standins::ado::dialect {
namespace {

// SQLite gives up long before; the analysis must only not give up earlier.
constexpr std::size_t deepest = 1000;

// A DELETE with such a clause is no valid statement, but would be one as a subquery.
bool belongs_to_queries(Keyword keyword) {
  switch (keyword) {
    case Keyword::except:
    case Keyword::group:
    case Keyword::having:
    case Keyword::intersect:
    case Keyword::limit:
    case Keyword::order:
    case Keyword::select:
    case Keyword::union_:
    case Keyword::values:
    case Keyword::window: return true;
    default: return false;
  }
}

}  // namespace

void Analyzer::analyze(const Tokens& tokens, Findings& findings) {
  tokens_ = &tokens;
  findings_ = &findings;
  findings.clear();
  for (std::size_t i = 1; i + 1 < tokens.list.size(); ++i) {
    if (statement(i)) continue;
    findings.clear();
    return;
  }
}

// Leaves `i` at the semicolon or the end token behind the statement. False when it is nested too deeply.
bool Analyzer::statement(std::size_t& i) {
  const Tokens& tokens = *tokens_;
  i = begin_statement(i);
  while (tokens[i].kind != TokenKind::semicolon && tokens[i].kind != TokenKind::end) {
    i = step(i);
    if (frames_.size() > deepest) return false;
  }
  end_statement(i);
  return true;
}

// Handles token `i` and returns the index of the next one to handle.
std::size_t Analyzer::step(std::size_t i) {
  const Tokens& tokens = *tokens_;
  switch (tokens[i].kind) {
    case TokenKind::open: open(i); break;
    case TokenKind::close: return close(i);
    case TokenKind::comma: comma(); break;
    case TokenKind::date: date(i); break;
    case TokenKind::text: text(i); break;
    case TokenKind::word:
      if (tokens[i].keyword != Keyword::none) return keyword(i);
      [[fallthrough]];
    case TokenKind::name:
      if (frames_.back().expects_table) return table(i);
      break;
    default: break;
  }
  return i + 1;
}

std::size_t Analyzer::keyword(std::size_t i) {
  Frame& frame = frames_.back();
  if (frame.inside == Inside::statement && belongs_to_queries((*tokens_)[i].keyword)) delete_target_ = 0;
  switch ((*tokens_)[i].keyword) {
    case Keyword::select: return begin_select(i);
    case Keyword::from:
      // Elsewhere it is part of a function's arguments or of IS DISTINCT FROM.
      if ((frame.selects || frame.inside == Inside::statement) &&
          (*tokens_)[i - 1].keyword != Keyword::distinct) {
        frame.in_from = frame.expects_table = true;
        frame.in_select_list = false;
      }
      break;
    case Keyword::join: frame.expects_table = frame.in_from; break;
    case Keyword::order:
      if (frame.order == 0) frame.order = i;
      [[fallthrough]];
    case Keyword::group:
    case Keyword::having:
    case Keyword::limit:
    case Keyword::returning:
    case Keyword::set:
    case Keyword::values:
    case Keyword::where:
    case Keyword::window:
      frame.in_from = frame.expects_table = frame.in_select_list = frame.declares = false;
      break;
    case Keyword::with: frame.declares = !frame.selects; break;
    case Keyword::except:
    case Keyword::intersect:
    case Keyword::union_:
      end_select(i, true);
      frame.in_compound = true;
      break;
    case Keyword::between: between(i); break;
    case Keyword::and_:
      frame.high = frame.low != 0 ? i : 0;
      frame.low = 0;
      break;
    default: break;
  }
  return i + 1;
}

void Analyzer::open(std::size_t i) {
  const Tokens& tokens = *tokens_;
  Frame& frame = frames_.back();
  Frame inner{.inside = Inside::expression, .parent = frame.scope, .scope = frame.scope};
  const Keyword before = tokens[i - 1].keyword;
  if (frame.expects_table) {
    frame.expects_table = false;
    inner.inside = Inside::source;
    inner.in_from = inner.expects_table = true;
  } else if (before == Keyword::in) {
    inner.inside = Inside::list;
    inner.column = column_before(tokens, tokens[i - 2].keyword == Keyword::not_ ? i - 2 : i - 1);
  } else if (insert_.end != 0 && frame.inside == Inside::statement && !frame.selects &&
             (before == Keyword::values || tokens[i - 1].kind == TokenKind::comma)) {
    inner.inside = Inside::values;
  }
  inner.lists_names = frame.declares && tokens.is_name(i - 1);
  frames_.push_back(inner);
}

std::size_t Analyzer::close(std::size_t i) {
  end_select(i, false);
  if (frames_.size() == 1) {
    balanced_ = false;
    return i + 1;
  }
  const Frame inner = frames_.back();
  frames_.pop_back();
  if (inner.inside != Inside::source || !inner.selects) return i + 1;
  std::string_view name;
  const std::size_t next = alias(i + 1, name);
  scopes_.adopt(frames_.back().scope, inner.scope, name);
  return next;
}

void Analyzer::comma() {
  Frame& frame = frames_.back();
  if (frame.in_from) frame.expects_table = true;
  ++frame.position;
}

std::size_t Analyzer::begin_select(std::size_t i) {
  const Tokens& tokens = *tokens_;
  Frame& frame = frames_.back();
  frame.scope = scopes_.open(frame.parent);
  frame.selects = frame.in_select_list = true;
  frame.in_from = frame.expects_table = frame.declares = false;
  frame.select = i;
  frame.order = frame.position = 0;
  frame.top = read_top(tokens, i);
  frame.list_begin = i + 1;
  if (frame.top) {
    frame.list_begin = frame.top->last + 1;
  } else if (tokens[i + 1].keyword == Keyword::distinct || tokens[i + 1].keyword == Keyword::all) {
    frame.list_begin = i + 2;
  }
  return frame.list_begin;
}

// `end` is the first token that no longer belongs to the innermost open SELECT.
void Analyzer::end_select(std::size_t end, bool in_compound) {
  const Tokens& tokens = *tokens_;
  Frame& frame = frames_.back();
  if (!frame.top) return;
  const TopClause top = *frame.top;
  frame.top.reset();
  // An ORDER BY before the next member is refused; within a subquery it would not be.
  if (in_compound && frame.order != 0) return;
  if (!in_compound && frame.in_compound && frame.order != 0) end = frame.order;
  findings_->tops.push_back({.begin = tokens[frame.select].begin,
                             .end = end_before(end),
                             .clause = {tokens[top.first].begin, tokens[top.last].end},
                             .count = tokens.text(top.count),
                             .in_compound = in_compound || frame.in_compound});
}

std::size_t Analyzer::table(std::size_t i) {
  const Tokens& tokens = *tokens_;
  Frame& frame = frames_.back();
  frame.expects_table = false;
  const std::size_t first = i;
  while (tokens[i + 1].kind == TokenKind::dot && tokens.is_name(i + 2)) i += 2;
  const std::string_view name = tokens.name(i);
  const std::string_view written =
      tokens.sql.substr(tokens[first].begin, tokens[i].end - tokens[first].begin);
  std::string_view exposed = name;
  const std::size_t next = alias(i + 1, exposed);
  scopes_.add(frame.scope, {.name = name, .exposed = exposed, .written = written});
  return next;
}

// Reads `[AS] name` at `i`; leaves `alias` alone when there is none.
std::size_t Analyzer::alias(std::size_t i, std::string_view& alias) const {
  const Tokens& tokens = *tokens_;
  const std::size_t name = tokens[i].keyword == Keyword::as ? i + 1 : i;
  if (!tokens.is_name(name)) return i;
  alias = tokens.name(name);
  return name + 1;
}

// A token that is never closed stays last, so that the engine still complains about it.
std::size_t Analyzer::end_before(std::size_t i) const {
  const Tokens& tokens = *tokens_;
  const std::size_t last = tokens[i - 1].kind == TokenKind::unterminated ? i - 2 : i - 1;
  return tokens[last].end;
}

}  // namespace tallyra::standins::ado::dialect
