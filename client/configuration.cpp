#include "client/configuration.h"

#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "automation/convert.h"
#include "automation/folded_name.h"
#include "client/file_path.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

// Editors put it before a text in UTF-8.
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

struct KnownSetting {
  std::string_view key;
  const char* variable;
  std::optional<Setting> Configuration::*member;
};

constexpr KnownSetting known_settings[] = {
    {"db", "TALLYRA_DB", &Configuration::db},
    {"user", "TALLYRA_USER", &Configuration::user},
    {"language", "TALLYRA_LANGUAGE", &Configuration::language},
    {"kind", "TALLYRA_KIND", &Configuration::kind},
};

const KnownSetting* find_setting(std::string_view key) {
  for (const auto& setting : known_settings)
    if (automation::equals_folded(setting.key, key)) return &setting;
  return nullptr;
}

void read_line(const std::string& path, int number, std::string_view line, Configuration& result) {
  const std::string text = automation::trimmed(line);
  if (text.empty() || text.front() == '#') return;
  const std::size_t equals = text.find('=');
  const KnownSetting* setting =
      equals == std::string::npos ? nullptr : find_setting(automation::trimmed(text.substr(0, equals)));
  if (!setting)
    throw UsageError(path + ":" + std::to_string(number) +
                     ": no setting; write db=, user=, language= or kind= and the value, # before a remark");
  result.*setting->member =
      Setting{automation::trimmed(text.substr(equals + 1)), std::string(setting->key) + " in " + path};
}

Configuration read_file(const std::string& path, bool named) {
  Configuration result;
  std::error_code error;
  const auto file = file_path(path);
  if (!named && !std::filesystem::exists(file, error)) return result;
  if (std::filesystem::is_directory(file, error)) throw UsageError("'" + path + "' is a directory, no file");
  std::ifstream in(file);
  if (!in) throw UsageError("'" + path + "' cannot be read");
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (line.ends_with('\r')) line.pop_back();
    if (number == 1 && line.starts_with(byte_order_mark)) line.erase(0, byte_order_mark.size());
    read_line(path, number, line, result);
  }
  return result;
}

}  // namespace

std::string usual_configuration_file(const Environment& environment) {
#ifdef _WIN32
  if (const auto folder = environment("APPDATA")) return *folder + "\\tallyra\\client.conf";
#else
  const auto folder = environment("XDG_CONFIG_HOME");
  if (folder && !folder->empty()) return *folder + "/tallyra/client.conf";
  if (const auto home = environment("HOME")) return *home + "/.config/tallyra/client.conf";
#endif
  return {};
}

Configuration read_configuration(const std::optional<std::string>& file, const Environment& environment) {
  const auto named = file ? file : environment("TALLYRA_CONFIG");
  const std::string path = named ? *named : usual_configuration_file(environment);
  Configuration result = path.empty() ? Configuration() : read_file(path, named.has_value());
  for (const auto& setting : known_settings)
    if (auto value = environment(setting.variable))
      result.*setting.member = Setting{*std::move(value), setting.variable};
  return result;
}

Session session_of(const Configuration& command_line, const Configuration& configured, MissingFile missing) {
  const auto first = [&](std::optional<Setting> Configuration::*member) {
    return command_line.*member ? command_line.*member : configured.*member;
  };
  Session session;
  if (command_line.db) session.db_word = command_line.db->value;
  // An empty one says that there is none.
  if (const auto db = first(&Configuration::db); db && !db->value.empty())
    session.connection_string = connection_string_for(db->value, db->origin, missing);
  if (const auto user = first(&Configuration::user)) session.user = user->value;
  if (const auto language = first(&Configuration::language)) session.language = language->value;
  if (const auto kind = first(&Configuration::kind)) {
    session.kind_given = true;
    session.database_kind = kind->value;
    for (char& c : session.database_kind)
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
    if (session.database_kind != "MSACCESS" && session.database_kind != "MSSQLSERVER")
      throw UsageError(kind->origin + " '" + kind->value + "': the kinds are MSACCESS and MSSQLSERVER");
  }
  return session;
}

}  // namespace tallyra::client
