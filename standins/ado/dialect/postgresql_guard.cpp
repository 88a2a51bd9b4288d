#include "standins/ado/dialect/postgresql_guard.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "automation/folded_name.h"
#include "standins/ado/dialect/keyword.h"
#include "standins/ado/dialect/postgresql_misread_text.h"

namespace tallyra::standins::ado::dialect {
namespace {

using automation::is_one_of;

using Names = std::string_view;

constexpr auto server_reaching_verbs =
    std::to_array<Names>({"copy", "do", "load", "call", "import", "security", "prepare", "execute",
                          "deallocate", "discard", "reassign", "checkpoint"});

// Behind CREATE, ALTER or DROP.
constexpr auto reaching_objects = std::to_array<Names>(
    {"access",    "aggregate", "cast",    "collation", "conversion",   "database", "event",  "extension",
     "foreign",   "function",  "group",   "language",  "large",        "operator", "policy", "procedural",
     "procedure", "role",      "routine", "rule",      "subscription", "system",   "server", "tablespace",
     "text",      "transform", "trusted", "user",      "publication"});

constexpr auto modifiers =
    std::to_array<Names>({"or", "replace", "temp", "temporary", "global", "local", "unlogged", "unique",
                          "constraint", "materialized", "recursive"});

// Beginnings of the names of functions and views.
constexpr auto reaching_beginnings = std::to_array<Names>(
    {"pg_read_",       "pg_ls_",          "pg_file_",   "pg_stat_file", "pg_logdir_",
     "pg_hba_file",    "pg_ident_file",   "pg_reload_", "pg_rotate_",   "pg_terminate_",
     "pg_cancel_",     "pg_promote",      "pg_create_", "pg_backup_",   "pg_start_backup",
     "pg_stop_backup", "pg_switch_",      "pg_import_", "pg_execute_",  "pg_authid",
     "pg_shadow",      "pg_user_mapping", "lo_import",  "lo_export",    "dblink"});

// Would do for columns as well: refused where they are called. They run the text that they are given, or
// change a setting.
constexpr auto reaching_functions = std::to_array<Names>(
    {"query_to_xml", "query_to_xmlschema", "query_to_xml_and_xmlschema", "cursor_to_xml", "ts_stat",
     "ts_rewrite", "set_config", "crosstab", "crosstab2", "crosstab3", "crosstab4", "connectby",
     "xslt_process", "database_to_xml", "schema_to_xml", "table_to_xml"});

// By a rule of the server an UPDATE of it changes a setting, and anybody may.
constexpr Names view_of_settings = "pg_settings";

// Settings that change neither how a text is read nor who the session is.
constexpr auto harmless_settings = std::to_array<Names>(
    {"lock_timeout", "statement_timeout", "idle_in_transaction_session_timeout", "work_mem",
     "maintenance_work_mem", "application_name", "synchronous_commit", "search_path", "transaction",
     "constraints", "plan_cache_mode", "jit", "random_page_cost", "enable_seqscan", "enable_nestloop",
     "enable_hashjoin", "enable_mergejoin", "enable_sort", "default_transaction_isolation"});

// Of the beginnings. Every name of every statement is looked at, and most have another.
constexpr auto reaching_initials = [] {
  std::array<bool, 256> table{};
  for (const Names beginning : reaching_beginnings)
    for (const char c : {beginning[0], static_cast<char>(beginning[0] - 'a' + 'A')})
      table[static_cast<unsigned char>(c)] = true;
  return table;
}();

// Anything else in front might hide a verb: another version of the server may take it for a blank.
bool may_begin(TokenKind kind) {
  return kind == TokenKind::word || kind == TokenKind::open || kind == TokenKind::semicolon ||
         kind == TokenKind::end;
}

bool has_reaching_beginning(std::string_view name) {
  if (name.empty() || !reaching_initials[static_cast<unsigned char>(name[0])]) return false;
  return std::ranges::any_of(reaching_beginnings,
                             [&](Names entry) { return same_name(entry, name.substr(0, entry.size())); });
}

class ServerJudge {
 public:
  explicit ServerJudge(const Tokens& tokens) : tokens_(tokens) {}

  Verdict verdict() const {
    if (const auto misread = misread_by_postgresql(tokens_); !misread.empty())
      return {Reach::beyond, misread};
    if (const std::size_t verb = reaching_verb()) return {Reach::beyond, tokens_.text(verb)};
    const bool reads_only = is_word(1, "select");
    for (std::size_t i = 1; i < last(); ++i)
      if (reaches(i) || (!reads_only && is_view_of_settings(i))) return {Reach::beyond, tokens_.text(i)};
    if (const std::size_t second = second_statement()) return {Reach::several, tokens_.text(second)};
    return {};
  }

 private:
  std::size_t last() const { return tokens_.list.size() - 1; }

  bool is_word(std::size_t i, std::string_view word) const {
    return i < last() && tokens_[i].kind == TokenKind::word && same_name(tokens_.text(i), word);
  }

  bool reaches(std::size_t i) const {
    if (!tokens_.is_name(i)) return false;
    const std::string_view name = tokens_.name(i);
    return has_reaching_beginning(name) ||
           (tokens_[i + 1].kind == TokenKind::open && is_one_of(reaching_functions, name));
  }

  bool is_view_of_settings(std::size_t i) const {
    return tokens_.is_name(i) && same_name(tokens_.name(i), view_of_settings);
  }

  // 0 when there is none.
  std::size_t reaching_verb() const {
    if (!may_begin(tokens_[1].kind)) return 1;
    if (tokens_[1].kind != TokenKind::word) return 0;
    if (is_one_of(server_reaching_verbs, tokens_.text(1))) return 1;
    if (is_word(1, "create") || is_word(1, "alter") || is_word(1, "drop")) return reaching_object();
    return is_word(1, "set") ? reaching_setting() : 0;
  }

  std::size_t reaching_object() const {
    std::size_t i = 2;
    while (i < last() && is_one_of(modifiers, tokens_.text(i))) ++i;
    return i < last() && is_one_of(reaching_objects, tokens_.text(i)) ? i : 0;
  }

  std::size_t reaching_setting() const {
    std::size_t i = 2;
    if (is_word(i, "local") || (is_word(i, "session") && !is_word(i + 1, "authorization"))) ++i;
    return i < last() && tokens_.is_name(i) && is_one_of(harmless_settings, tokens_.name(i)) ? 0 : 1;
  }

  // The first token behind the semicolon that ends the first statement; 0 when there is none.
  std::size_t second_statement() const {
    std::size_t i = 1;
    while (i < last() && tokens_[i].kind != TokenKind::semicolon) ++i;
    while (i < last() && tokens_[i].kind == TokenKind::semicolon) ++i;
    return i < last() ? i : 0;
  }

  const Tokens& tokens_;
};

}  // namespace

Verdict judge_for_postgresql(const Tokens& tokens) {
  return ServerJudge(tokens).verdict();
}

}  // namespace tallyra::standins::ado::dialect
