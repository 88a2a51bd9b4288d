#include "standins/ado/dialect/statement_guard.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "automation/folded_name.h"
#include "standins/ado/dialect/keyword.h"
#include "standins/ado/dialect/misread_text.h"
#include "standins/ado/dialect/table_places.h"

namespace tallyra::standins::ado::dialect {
namespace {

using automation::is_one_of;

// Functions and tables of the engine, of its driver and of the libraries that are loaded most often.
constexpr auto reaching_names = std::to_array<std::string_view>({
    "load_extension",
    "fts3_tokenizer",
    "blob_import",
    "blob_export",
    "readfile",
    "writefile",
    "fsdir",
    "lsmode",
    "zipfile",
    "import_sql",
    "import_csv",
    "import_xml",
    "export_sql",
    "export_csv",
    "export_xml",
    "export_json",
});
// Would do for a column as well: refused where it is called.
constexpr std::string_view reaching_function = "edit";

constexpr auto reaching_verbs = std::to_array<std::string_view>({"attach", "detach", "vacuum"});

// Settings of the connection and of the database that take no names of files or libraries.
constexpr auto harmless_pragmas = std::to_array<std::string_view>({
    "busy_timeout",     "cache_size",   "compile_options", "database_list", "foreign_key_check",
    "foreign_key_list", "foreign_keys", "function_list",   "index_info",    "index_list",
    "integrity_check",  "journal_mode", "page_count",      "page_size",     "query_only",
    "quick_check",      "synchronous",  "table_info",      "user_version",  "wal_checkpoint",
});

// Before the name of a pragma it makes a table of it.
constexpr std::string_view pragma_prefix = "pragma_";

class StatementJudge {
 public:
  explicit StatementJudge(const Tokens& tokens) : tokens_(tokens) {}

  Verdict verdict() const {
    if (const auto misread = misread_part(tokens_); !misread.empty()) return {Reach::beyond, misread};
    if (const std::size_t verb = reaching_verb()) return {Reach::beyond, tokens_.text(verb)};
    TablePlaces places(tokens_);
    for (std::size_t i = 1; i < last(); ++i)
      if (reaches(i, places.names_table(i))) return {Reach::beyond, tokens_.text(i)};
    if (const std::size_t second = second_statement()) return {Reach::several, tokens_.text(second)};
    return {};
  }

 private:
  std::size_t last() const { return tokens_.list.size() - 1; }

  bool is_word(std::size_t i, std::string_view word) const {
    return i < last() && tokens_[i].kind == TokenKind::word && same_name(tokens_.text(i), word);
  }

  bool reaches(std::size_t i, bool names_table) const {
    if (tokens_[i].kind == TokenKind::text) return names_table && is_reaching_name(tokens_.name(i));
    if (!tokens_.is_name(i)) return false;
    const std::string_view name = tokens_.name(i);
    return is_reaching_name(name) ||
           (tokens_[i + 1].kind == TokenKind::open && same_name(reaching_function, name));
  }

  std::size_t verb() const {
    std::size_t i = 1;
    if (!is_word(i, "explain")) return i;
    ++i;
    return is_word(i, "query") && is_word(i + 1, "plan") ? i + 2 : i;
  }

  // Some pragmas act while they are compiled, so that EXPLAIN does not stop them. 0 when there is none.
  std::size_t reaching_verb() const {
    const std::size_t i = verb();
    if (tokens_[i].kind != TokenKind::word) return 0;
    if (is_one_of(reaching_verbs, tokens_.text(i))) return i;
    if (is_word(i, "create") && is_word(i + 1, "virtual")) return i + 1;
    return is_word(i, "pragma") ? reaching_pragma(i + 1) : 0;
  }

  std::size_t reaching_pragma(std::size_t i) const {
    if (i == last()) return 0;
    if (tokens_[i + 1].kind == TokenKind::dot) i += 2;
    return tokens_.is_name(i) && is_harmless_pragma(tokens_.name(i)) ? 0 : i;
  }

  // The first token behind the semicolon that ends the first statement, semicolons apart; 0 when there is
  // none.
  std::size_t second_statement() const {
    std::size_t i = statement_end();
    while (tokens_[i].kind == TokenKind::semicolon) ++i;
    return i < last() ? i : 0;
  }

  std::size_t statement_end() const {
    const std::size_t first = verb();
    const std::size_t kind =
        is_word(first + 1, "temp") || is_word(first + 1, "temporary") ? first + 2 : first + 1;
    const bool trigger = is_word(first, "create") && is_word(kind, "trigger");
    std::size_t i = 1;
    for (; i < last(); ++i)
      if (tokens_[i].kind == TokenKind::semicolon && (!trigger || ends_trigger(i))) break;
    return i;
  }

  // The statements within a trigger end in semicolons too; only its END stands behind one.
  bool ends_trigger(std::size_t semicolon) const {
    return tokens_[semicolon - 1].keyword == Keyword::end &&
           tokens_[semicolon - 2].kind == TokenKind::semicolon;
  }

  const Tokens& tokens_;
};

}  // namespace

bool is_reaching_name(std::string_view name) {
  if (!same_name(name.substr(0, pragma_prefix.size()), pragma_prefix)) return is_one_of(reaching_names, name);
  return !is_harmless_pragma(name.substr(pragma_prefix.size()));
}

bool is_harmless_pragma(std::string_view name) {
  return is_one_of(harmless_pragmas, name);
}

Verdict judge(const Tokens& tokens) {
  return StatementJudge(tokens).verdict();
}

}  // namespace tallyra::standins::ado::dialect
