#include "company/settings.h"

#include <array>
#include <string_view>

#include "company/database.h"
#include "company/naming.h"

namespace tallyra::company {
namespace {

// One row for all functions of a user.
struct Rights {
  std::string_view user;
  int insert, update, remove, approve, unapprove, cancel, finish, owner;
};

constexpr std::array<Rights, 5> user_rights = {{
    {"ADMIN", 1, 1, 1, 1, 1, 1, 1, 1},
    {"MANAGER", 1, 1, 1, 1, 1, 1, 1, 0},
    {"CLERK", 1, 1, 0, 0, 0, 0, 0, 0},
    {"OWNER", 0, 0, 0, 0, 0, 0, 0, 1},
    {"AUDITOR", 0, 0, 0, 0, 0, 0, 0, 0},
}};

void write_rights(Database& database) {
  Insert rights(database, "USERRIGHTS",
                {{"USERID", Kind::text},
                 {"FUNCCODE", Kind::text},
                 {"CANINSERT", Kind::integer},
                 {"CANUPDATE", Kind::integer},
                 {"CANDELETE", Kind::integer},
                 {"CANAPPROVED", Kind::integer},
                 {"CANUNAPPROVED", Kind::integer},
                 {"CANCANCEL", Kind::integer},
                 {"CANFINISHED", Kind::integer},
                 {"OWNER", Kind::integer}});
  for (const Rights& user : user_rights) {
    rights.row(user.user, "*", user.insert, user.update, user.remove, user.approve, user.unapprove,
               user.cancel, user.finish, user.owner);
  }
}

void write_controllers(const Masters& masters, const std::string& at, Database& database) {
  Insert controllers(database, "STKCONTROLLER",
                     {{"CONTROLLERNO", Kind::text},
                      {"CONTROLLERNM", Kind::text},
                      {"DEPTNO", Kind::text},
                      {"TEL", Kind::text},
                      {"ADDBY", Kind::text},
                      {"ADDDT", Kind::text},
                      {"EDITBY", Kind::text},
                      {"EDITDT", Kind::text}});
  constexpr std::array<std::string_view, 6> names = {"Anna Berg",   "Jonas Weber", "李伟",
                                                     "Maria Costa", "Tom Fields",  "Jürgen Roth"};
  Insert addresses(database, "REVADDR",
                   {{"ADDRNO", Kind::text},
                    {"ADDRNM", Kind::text},
                    {"STREET", Kind::text},
                    {"CITY", Kind::text},
                    {"CONTACT", Kind::text},
                    {"ADDBY", Kind::text},
                    {"ADDDT", Kind::text},
                    {"EDITBY", Kind::text},
                    {"EDITDT", Kind::text}});
  std::size_t index = 0;
  for (const Department& department : masters.departments) {
    const std::string_view name = names[index++ % names.size()];
    const int count = static_cast<int>(index);
    const std::string number = department.number;
    controllers.row(std::string("K").append(number), name, number, numbered("555-0", 100 + count), "ADMIN",
                    at, "ADMIN", at);
    addresses.row(std::string("A").append(number), numbered("Gate ", count), numbered("Works Road ", count),
                  "Hillside", name, "ADMIN", at, "ADMIN", at);
  }
}

void write_cost_settings(const std::string& at, Database& database) {
  Insert settings(database, "PARTCOSTSET",
                  {{"MTYPESN", Kind::integer},
                   {"MTYPENM", Kind::text},
                   {"COSTMETHOD", Kind::integer},
                   {"OVERHEADRATE", Kind::number},
                   {"STATUS", Kind::text},
                   {"STATUSSN", Kind::integer},
                   {"ADDBY", Kind::text},
                   {"ADDDT", Kind::text},
                   {"EDITBY", Kind::text},
                   {"EDITDT", Kind::text}});
  settings.row(raw_material, "Raw material", 1, 0.0, "Approved", 1, "ADMIN", at, "ADMIN", at);
  settings.row(semi_finished, "Semi-finished part", 2, 0.2, "Approved", 1, "ADMIN", at, "ADMIN", at);
  settings.row(finished_product, "Finished product", 2, 0.25, "Open", 0, "ADMIN", at, "ADMIN", at);
}

}  // namespace

void write_settings(const Masters& masters, Day entered, Database& database) {
  const std::string at = timestamp(entered);
  write_rights(database);
  write_controllers(masters, at, database);
  write_cost_settings(at, database);
}

}  // namespace tallyra::company
