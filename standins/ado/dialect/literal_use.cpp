#include "standins/ado/dialect/literal_use.h"

#include <algorithm>
#include <string_view>

#include "standins/ado/dialect/keyword.h"

namespace tallyra::standins::ado::dialect {
namespace {

using Place = LiteralUse::Place;

class Finder {
 public:
  Finder(const Tokens& tokens, const Findings& findings, const std::vector<Literal>& literals,
         std::vector<LiteralUse>& uses)
      : tokens_(tokens), findings_(findings), literals_(literals), uses_(uses) {}

  void find() {
    uses_.assign(literals_.size(), {});
    for (std::size_t i = 1; i + 1 < tokens_.list.size(); ++i) {
      follow(i);
      if (next_ == literals_.size()) continue;
      const Literal& literal = literals_[next_];
      if (tokens_[i].begin != literal.begin) continue;
      while (tokens_[i].end < literal.end) ++i;  // a sign and its number
      decide(i, literal);
      ++next_;
    }
    if (!ends_plainly_) forget_stored();
  }

 private:
  enum class Part : std::uint8_t { other, values, set, condition };

  // Whether a text here is the name of a column of the result, or a part of it.
  enum class Naming : std::uint8_t {
    none,
    list,   // between the items of a select list
    item,   // yes, within an item
    apart,  // no, the item has an alias
  };
  struct Level {
    Part part;
    Naming naming;
  };

  // Which part of the statement token `i` is in.
  void follow(std::size_t i) {
    switch (tokens_[i].kind) {
      case TokenKind::open: open(i); return;
      case TokenKind::close:
        if (outer_.empty()) return;
        if (in_values_ && outer_.size() == 1) {
          in_values_ = false;
          ends_plainly_ = tokens_[i + 1].kind == TokenKind::end;
        }
        part_ = outer_.back().part;
        naming_ = outer_.back().naming;
        outer_.pop_back();
        return;
      default: break;
    }
    follow_list(i);
    switch (tokens_[i].keyword) {
      case Keyword::where:
      case Keyword::on: part_ = Part::condition; return;
      case Keyword::set:
        if (outer_.empty() && tokens_[1].keyword == Keyword::update) part_ = Part::set;
        return;
      case Keyword::none:
      case Keyword::and_:
      case Keyword::between:
      case Keyword::in:
      case Keyword::is:
      case Keyword::like:
      case Keyword::not_:
      case Keyword::or_: return;
      default: part_ = Part::other;
    }
  }

  void follow_list(std::size_t i) {
    switch (tokens_[i].keyword) {
      case Keyword::select:
      case Keyword::returning:
        if (naming_ == Naming::none) naming_ = Naming::list;
        return;
      case Keyword::from:
        if (tokens_[i - 1].keyword == Keyword::distinct) return;  // a comparison
        [[fallthrough]];
      case Keyword::where:
        if (naming_ == Naming::list) naming_ = Naming::none;
        return;
      default: return;
    }
  }

  // `As` behind the parenthesis that token `i` opens. Without that word it may be an operator that follows.
  bool has_alias(std::size_t i) const {
    int depth = 0;
    for (; i + 1 < tokens_.list.size(); ++i) {
      if (tokens_[i].kind == TokenKind::open) ++depth;
      if (tokens_[i].kind == TokenKind::close && --depth == 0) return tokens_[i + 1].keyword == Keyword::as;
    }
    return false;
  }

  // Within parentheses a condition goes on; the arguments of a function are none.
  void open(std::size_t i) {
    outer_.push_back({part_, naming_});
    if (naming_ == Naming::list) naming_ = has_alias(i) ? Naming::apart : Naming::item;
    const Keyword before = tokens_[i - 1].keyword;
    if (findings_.values_begin != 0 && tokens_[i].end == findings_.values_begin) {
      in_values_ = true;
      ends_plainly_ = false;
      part_ = Part::values;
      return;
    }
    const bool groups = tokens_[i - 1].kind == TokenKind::open || before == Keyword::where ||
                        before == Keyword::on || before == Keyword::and_ || before == Keyword::or_ ||
                        before == Keyword::not_;
    if (part_ != Part::condition || !groups) part_ = Part::other;
  }

  // The literal ends with token `last`.
  void decide(std::size_t last, const Literal& literal) {
    if (naming_ == Naming::list || naming_ == Naming::item) return;
    const std::size_t first = tokens_[last].begin == literal.begin ? last : last - 1;
    LiteralUse& use = uses_[next_];
    if (part_ == Part::values && is_item(first, last)) use.place = Place::stored;
    if (part_ == Part::set && is_assigned(first, last)) use.place = Place::stored;
    if (part_ == Part::condition && is_compared(first, last)) use.place = Place::compared;
    if (use.place == Place::fixed || literal.kind != Literal::Kind::text) return;
    const bool date =
        std::ranges::any_of(findings_.dates, [&](const Span& span) { return span.begin == literal.begin; });
    use.text = date ? LiteralUse::Text::date : LiteralUse::Text::plain;
  }

  bool is_item(std::size_t first, std::size_t last) const {
    const TokenKind before = tokens_[first - 1].kind;
    const TokenKind after = tokens_[last + 1].kind;
    return (before == TokenKind::open || before == TokenKind::comma) &&
           (after == TokenKind::close || after == TokenKind::comma);
  }

  // `Set column = value` and no expression that begins so.
  bool is_assigned(std::size_t first, std::size_t last) const {
    if (tokens_.text(first - 1) != "=" || !tokens_.is_name(first - 2)) return false;
    std::size_t name = first - 2;
    if (tokens_[name - 1].kind == TokenKind::dot && tokens_.is_name(name - 2)) name -= 2;
    const Token& before = tokens_[name - 1];
    const Token& after = tokens_[last + 1];
    return (before.kind == TokenKind::comma || before.keyword == Keyword::set) &&
           (after.kind == TokenKind::comma || after.kind == TokenKind::end ||
            after.keyword == Keyword::where);
  }

  // Unequal is left alone: an index may be made for the rows that are unequal to this very value.
  bool is_compared(std::size_t first, std::size_t last) const {
    const std::string_view op = tokens_.text(first - 1);
    if (op != "=" && op != "<" && op != ">" && op != "<=" && op != ">=") return false;
    const Token& after = tokens_[last + 1];
    return tokens_.is_name(first - 2) && (after.kind == TokenKind::close || after.kind == TokenKind::end ||
                                          (after.kind == TokenKind::word && after.keyword != Keyword::none));
  }

  // Something stands behind the one row of values.
  void forget_stored() {
    for (LiteralUse& use : uses_)
      if (use.place == Place::stored) use = {};
  }

  const Tokens& tokens_;
  const Findings& findings_;
  const std::vector<Literal>& literals_;
  std::vector<LiteralUse>& uses_;
  std::vector<Level> outer_;  // around each parenthesis that is open
  Part part_ = Part::other;
  Naming naming_ = Naming::none;
  std::size_t next_ = 0;  // literal to come
  bool in_values_ = false;
  bool ends_plainly_ = true;
};

}  // namespace

void find_literal_uses(const Tokens& tokens, const Findings& findings, const std::vector<Literal>& literals,
                       std::vector<LiteralUse>& uses) {
  Finder(tokens, findings, literals, uses).find();
}

}  // namespace tallyra::standins::ado::dialect
