#pragma once

#include <functional>
#include <optional>
#include <string>

#include "client/session.h"

namespace tallyra::client {

// A setting and where it was found, for messages: "--db", "TALLYRA_DB", "db in /home/anna/.config/...".
struct Setting {
  std::string value;
  std::string origin;
};

// What the environment and a file say about the session; the command line goes before it.
struct Configuration {
  std::optional<Setting> db;
  std::optional<Setting> user;
  std::optional<Setting> language;
  std::optional<Setting> kind;
};

using Environment = std::function<std::optional<std::string>(const std::string& name)>;

// The environment (TALLYRA_DB, TALLYRA_USER, TALLYRA_LANGUAGE, TALLYRA_KIND) beats the file. The file is the
// one that is given, else that of TALLYRA_CONFIG, else the usual one of the user, which may be missing.
// Throws UsageError for a file that was named and cannot be read, and for a line that is no setting.
Configuration read_configuration(const std::optional<std::string>& file, const Environment& environment);

// The file that is read when none is named; "" when the environment names no folder.
std::string usual_configuration_file(const Environment& environment);

// Puts what the command line has said before what is configured; a database that is named by an empty text is
// none. Throws UsageError for a database that does
// not exist and a kind that is none.
Session session_of(const Configuration& command_line, const Configuration& configured,
                   MissingFile missing = MissingFile::refused);

}  // namespace tallyra::client
