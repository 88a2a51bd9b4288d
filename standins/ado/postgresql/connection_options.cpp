#include "standins/ado/postgresql/connection_options.h"

#include <libpq-fe.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "automation/error.h"
#include "automation/folded_name.h"
#include "standins/ado/ado_error.h"
#include "standins/ado/library_options.h"
#include "standins/ado/postgresql/connection_words.h"

namespace tallyra::standins::ado {
namespace {

using automation::equals_folded;
using automation::is_one_of;
using namespace connection_words;

[[noreturn]] void refuse(std::string_view what, std::string_view name) {
  throw automation::Error(provider_error::unspecified, std::string(what) + std::string(name));
}

class Reader {
 public:
  explicit Reader(const ConnectionSource& source) {
    // The user and the password given beside the string are in the string for ODBC only.
    const auto complete = read_connection_string(source.odbc_string, {}, {}, 0);
    for (const Keyword& keyword : complete.keywords) add(keyword);
    if (const std::string* const options = complete.find("pqopt")) add_options(*options);
    if (!result_.find("port")) result_.options.push_back({"port", "5432"});
    if (!result_.find("connect_timeout"))
      result_.options.push_back({"connect_timeout", std::to_string(source.login_seconds)});
    complete_string();
    add_settings();
  }

  PostgresqlOptions result() { return std::move(result_); }

 private:
  void add(const Keyword& keyword) {
    for (const Renamed& entry : renamed)
      if (equals_folded(entry.odbc, keyword.name)) return set(entry, keyword.value, keyword.name);
    if (equals_folded(keyword.name, "ReadOnly")) {
      read_only_ = keyword.value == "1";
      return;
    }
    if (is_one_of(logs_of_the_driver, keyword.name)) {
      if (keyword.value == "0") return;
      throw automation::Error(provider_error::permission_denied,
                              "The connection string reaches beyond the database: " + keyword.name);
    }
    if (!is_one_of(of_the_driver_alone, keyword.name) && !equals_folded(keyword.name, "pqopt"))
      refuse("The connection string has an unknown keyword: ", keyword.name);
  }

  // Its own messages quote what they cannot read, which may be a password.
  void add_options(const std::string& text) {
    const std::unique_ptr<PQconninfoOption, void (*)(PQconninfoOption*)> parsed(
        PQconninfoParse(text.c_str(), nullptr), PQconninfoFree);
    if (!parsed) refuse("The connection string has options of the library that make no sense: ", "pqopt");
    for (const PQconninfoOption* option = parsed.get(); option->keyword != nullptr; ++option) {
      if (option->val == nullptr) continue;
      if (is_refused_option(option->keyword, option->val))
        refuse("pqopt has an option that is not taken: ", option->keyword);
      append(option->keyword, option->val, option->keyword);
    }
  }

  // To the driver the last user and the last password count; those given beside the string stand there.
  void set(const Renamed& entry, const std::string& value, std::string_view name) {
    if (entry.library == "user" || entry.library == "password")
      std::erase_if(result_.options, [&](const auto& option) { return option.keyword == entry.library; });
    append(entry.library, value, name);
  }

  void append(std::string_view keyword, const std::string& value, std::string_view name) {
    if (result_.find(keyword)) refuse("The connection string says this twice: ", name);
    result_.options.push_back({std::string(keyword), value});
  }

  void add_settings() {
    std::string settings(planner_settings);
    if (const std::string* const options = result_.find("options")) settings += *options;
    std::erase_if(result_.options, [](const auto& option) { return option.keyword == "options"; });
    settings += session_settings;
    if (read_only_) settings += " -c default_transaction_read_only=on";
    result_.options.push_back({"options", settings});
    result_.options.push_back({"client_encoding", "UTF8"});
    if (!result_.find("application_name"))
      result_.options.push_back({"fallback_application_name", "tallyra"});
  }

  void complete_string() {
    std::string more;
    result_.completed_string = "DRIVER={PostgreSQL Unicode}";
    for (const auto& [keyword, value] : result_.options) {
      if (keyword.find("password") != std::string::npos) continue;
      const auto entry = std::ranges::find(renamed, keyword, &Renamed::library);
      if (entry != std::end(renamed))
        result_.completed_string += ";" + std::string(entry->odbc) + "=" + value;
      else
        more += (more.empty() ? "" : " ") + keyword + "=" + quoted(value);
    }
    result_.completed_string += ";pqopt={" + more + "}";
  }

  static std::string quoted(const std::string& value) {
    std::string text = "'";
    for (const char c : value) {
      if (c == '\'' || c == '\\') text += '\\';
      text += c;
    }
    return text += "'";
  }

  PostgresqlOptions result_;
  bool read_only_ = false;
};

}  // namespace

const std::string* PostgresqlOptions::find(std::string_view keyword) const {
  const auto found = std::ranges::find(options, keyword, &Option::keyword);
  return found == options.end() ? nullptr : &found->value;
}

bool means_postgresql(const ConnectionSource& source) {
  const std::string* const driver = source.find("Driver");
  return driver && !source.names_provider && is_one_of(driver_names, *driver);
}

PostgresqlOptions read_postgresql_options(const ConnectionSource& source) {
  return Reader(source).result();
}

}  // namespace tallyra::standins::ado
