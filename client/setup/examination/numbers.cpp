#include <filesystem>
#include <system_error>

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/file_path.h"
#include "client/platform/writable_folder.h"
#include "client/setup/examination/examination.h"
#include "client/setup/rights_library.h"
#include "client/setup/trouble.h"
#include "company/database_place.h"
#include "schema/description.h"

// Whether a document could get a number. None is taken.
namespace tallyra::client {
namespace {

constexpr const char* what = "document numbers";

std::string counters() {
  return std::string(schema::number_table);
}

// Writes as taking a number does, yet to no row, and rolls back.
void write_nothing(const Reader& reader) {
  reader.begin();
  try {
    reader.execute("Update " + counters() + " Set LASTNO=LASTNO Where SERIES<>SERIES");
  } catch (const automation::Error&) {
    reader.roll_back();
    throw;
  }
  reader.roll_back();
}

std::string sqlite_file_of(const Reader& reader) {
  std::string file;
  reader.each_row("Pragma database_list", [&](const Row& row) {
    if (automation::to_text(row.at(1)) == "main") file = automation::to_text(row.at(2));
  });
  return file;
}

// A file that is there and opens; its table comes with the first number.
Observation look_into_file(const std::string& file) {
  try {
    const Reader reader(company::DatabasePlace(file).connection_string, "MSACCESS");
    if (reader.count("Select Count(*) As N From sqlite_master Where name='" + counters() + "'") == 0)
      return {Health::good, what, "the first one makes the counters in " + file};
    write_nothing(reader);
    return {Health::good, what, "the counters in " + file + " can be read and written"};
  } catch (const automation::Error& error) {
    const std::string text = error_text(error);
    return {
        Health::bad, what, file + ": " + text,
        advice_against(text).value_or(
            "put the file of the counters back from a backup, or move it away: the next number then goes on "
            "from the highest one in the database")};
  }
}

// A name that stands where the file of the counters would.
std::string told(const std::string& file, std::filesystem::file_type type) {
  if (type == std::filesystem::file_type::directory)
    return file + " is a folder: no document can get a number";
  if (type == std::filesystem::file_type::symlink)
    return file + " is a symbolic link, which is not followed: no document can get a number";
  return file + " is no file: no document can get a number";
}

Observation look_beside(const std::string& database) {
  const std::string file = database + ".keys";
  const auto path = file_path(file);
  std::error_code ignored;
  const auto kind = std::filesystem::symlink_status(path, ignored).type();
  if (kind == std::filesystem::file_type::regular) return look_into_file(file);
  if (kind != std::filesystem::file_type::not_found)
    return {Health::bad, what, told(file, kind),
            "move it away: the counters are a file of that name, which the next number makes"};
  if (folder_is_writable(path_text(std::filesystem::absolute(path, ignored).parent_path())))
    return {Health::good, what, "the first one makes the counters in " + file};
  return {Health::bad, what, file + " is not there, and its folder cannot be written to",
          "give this login the right to write to the folder"};
}

Observation look_at_table(const Reader& reader) {
  if (!reader.has_table(schema::number_table))
    return {Health::doubtful, what, "no table " + counters() + ", or it cannot be read",
            "'upgrade' adds it; where it is there, let the user of the connection read it"};
  try {
    write_nothing(reader);
    return {Health::good, what, "the counters in table " + counters() + " can be read and written"};
  } catch (const automation::Error& error) {
    const std::string text = error_text(error);
    return {Health::bad, what, text,
            advice_against(text).value_or("let the user of the connection write to the table " + counters())};
  }
}

Observation look_at_numbers(VerbContext& context) {
  // The library that gives the numbers is the one that keeps the rights; another one tells nothing of either.
  if (!RightsLibrary(context.session(), context.user()).table())
    return {Health::good, what, "given by the installed Corvane itself"};
  const Reader& reader = context.reader();
  if (!automation::equals_folded(reader.engine(), "SQLite")) return look_at_table(reader);
  const std::string database = sqlite_file_of(reader);
  if (database.empty()) return {Health::good, what, "the database is in memory"};
  return look_beside(database);
}

}  // namespace

void examine_numbers(VerbContext& context, Observations& seen) {
  seen.push_back(look_at_numbers(context));
}

}  // namespace tallyra::client
