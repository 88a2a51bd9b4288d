#include <cstddef>
#include <string>
#include <string_view>

#include "standins/ado/dialect/postgresql_dialect.h"

namespace tallyra::standins::ado::dialect {
namespace {

std::string quoted_name(std::string_view name) {
  std::string text = "\"";
  for (const char c : name) {
    if (c == '"') text += c;
    text += c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  }
  return text += '"';
}

class Rewriter {
 public:
  Rewriter(const Tokens& tokens, std::vector<Rewording>& rewordings)
      : tokens_(tokens), rewordings_(rewordings) {}

  void statement() {
    if (tokens_[1].keyword == Keyword::delete_) from_before_table();
    const bool updates = tokens_[1].keyword == Keyword::update;
    for (std::size_t i = 1; i + 1 < tokens_.list.size(); ++i) {
      follow(i);
      if (updates && assigns_ && is_assigned(i)) {
        add(tokens_[i].begin, tokens_[i + 2].begin, {});
        ++i;  // the dot
      } else if (tokens_[i].kind == TokenKind::name && tokens_.sql[tokens_[i].begin] == '[') {
        add(tokens_[i].begin, tokens_[i].end, quoted_name(tokens_.name(i)));
      }
    }
  }

 private:
  // `Delete T` and `Delete T Where ...`; anything else between is no statement of any engine's.
  void from_before_table() {
    if (!tokens_.is_name(2)) return;
    std::size_t i = 2;
    while (tokens_[i + 1].kind == TokenKind::dot && tokens_.is_name(i + 2)) i += 2;
    const Token& after = tokens_[i + 1];
    if (after.keyword == Keyword::where || after.kind == TokenKind::end || after.kind == TokenKind::semicolon)
      add(tokens_[2].begin, tokens_[2].begin, "From ");
  }

  void follow(std::size_t i) {
    if (tokens_[i].kind == TokenKind::open) ++depth_;
    if (tokens_[i].kind == TokenKind::close) --depth_;
    if (depth_ != 0) return;
    if (tokens_[i].keyword == Keyword::set) assigns_ = true;
    if (tokens_[i].keyword == Keyword::where || tokens_[i].keyword == Keyword::from) assigns_ = false;
  }

  // A qualifier before a column that a value is assigned to.
  bool is_assigned(std::size_t i) const {
    const Token& before = tokens_[i - 1];
    return depth_ == 0 && (before.keyword == Keyword::set || before.kind == TokenKind::comma) &&
           tokens_.is_name(i) && tokens_[i + 1].kind == TokenKind::dot && tokens_.is_name(i + 2) &&
           tokens_.text(i + 3) == "=";
  }

  void add(std::size_t begin, std::size_t end, std::string text) {
    rewordings_.push_back({{begin, end}, std::move(text)});
  }

  const Tokens& tokens_;
  std::vector<Rewording>& rewordings_;
  int depth_ = 0;
  bool assigns_ = false;
};

}  // namespace

void reword_for_postgresql(const Tokens& tokens, std::vector<Rewording>& rewordings) {
  Rewriter(tokens, rewordings).statement();
}

}  // namespace tallyra::standins::ado::dialect
