#include "tests/support/statement_corpus.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

#include "frame/schema/codes.h"

namespace tallyra::stage {
namespace {

// A statement is a line of the file, whatever a test has put into it.
std::string on_one_line(std::string_view statement) {
  std::string line;
  for (const char c : statement) {
    switch (c) {
      case '\n': line += "\\n"; break;
      case '\r': line += "\\r"; break;
      case '\t': line += "\\t"; break;
      case '\0': line += "\\0"; break;
      case '\\': line += "\\\\"; break;
      default: line += c;
    }
  }
  return line;
}

}  // namespace

void record_statement(std::string_view class_name, std::string_view system_database,
                      std::string_view statement) {
  const char* file = std::getenv("TALLYRA_STATEMENTS");
  if (!file) return;
  std::ofstream out(file, std::ios::app | std::ios::binary);
  out << class_name << '\t' << (system_database == frame::schema::access_kind ? "access" : "sqlserver")
      << '\t' << on_one_line(statement) << '\n';
  if (!out.flush()) throw std::runtime_error(std::string("cannot write ") + file);
}

}  // namespace tallyra::stage
