#include "client/database/own_tables.h"

#include "automation/error.h"

namespace tallyra::client {
namespace {

constexpr const char* lock_table = "TALLYRALOCK";
constexpr const char* journal_table = "TALLYRAJOURNAL";

// Moments are texts "YYYY/MM/DD HH:MM:SS", which every engine keeps and orders alike.
constexpr const char* make_lock_table =
    "Create Table TALLYRALOCK(LOCKKEY varchar(20) Not Null Constraint TALLYRALOCK_KEY Primary Key,"
    " WORKTEXT varchar(100),OWNERID varchar(50),OSUSER varchar(100),HOSTNAME varchar(255),PROCESSID integer,"
    "PROCESSSTART varchar(40),SINCE varchar(19))";
constexpr const char* make_journal_table =
    "Create Table TALLYRAJOURNAL(SEQNO integer Not Null,DONEAT varchar(19),ACTION varchar(40),SUBJECT "
    "varchar(100),"
    "RESULT varchar(20),DETAIL varchar(255),USERID varchar(50),OSUSER varchar(100),HOSTNAME varchar(255),"
    "PROCESSID integer)";

// Another one may be making it at the same moment.
void make(const Reader& reader, const char* table, const char* statement) {
  if (reader.has_table(table)) return;
  try {
    reader.execute(statement);
  } catch (const automation::Error&) {
    if (!reader.has_table(table)) throw;
  }
}

}  // namespace

bool has_own_tables(const Reader& reader) {
  return reader.has_table(lock_table) && reader.has_table(journal_table);
}

void make_own_tables(const Reader& reader) {
  make(reader, lock_table, make_lock_table);
  make(reader, journal_table, make_journal_table);
}

}  // namespace tallyra::client
