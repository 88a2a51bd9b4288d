#include "company/ledger.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tallyra::company {
namespace {

constexpr int day_starts = 7 * 3600, day_ends = 18 * 3600;

const std::initializer_list<Column> header_columns = {
    {"TRANNO", Kind::text},      {"TRANTYPE", Kind::text}, {"REFERENCE", Kind::text},
    {"TRANDT", Kind::text},      {"DEPTNOFR", Kind::text}, {"DEPTNMFR", Kind::text},
    {"DEPTNOTO", Kind::text},    {"DEPTNMTO", Kind::text}, {"STATUS", Kind::text},
    {"STATUSSN", Kind::integer}, {"STATUSBY", Kind::text}, {"STATUSDT", Kind::text},
    {"MAKEBY", Kind::text},      {"NOTES", Kind::text},    {"ADDBY", Kind::text},
    {"ADDDT", Kind::text},       {"EDITBY", Kind::text},   {"EDITDT", Kind::text}};

const std::initializer_list<Column> line_columns = {
    {"TRANNO", Kind::text},    {"REFERENCE", Kind::text}, {"SN", Kind::integer}, {"PARTNO", Kind::text},
    {"REFPARTNO", Kind::text}, {"MONO", Kind::text},      {"QTY", Kind::number}, {"VQTY", Kind::number},
    {"UPRICE", Kind::number},  {"NOTES", Kind::text},     {"ADDBY", Kind::text}, {"ADDDT", Kind::text},
    {"EDITBY", Kind::text},    {"EDITDT", Kind::text}};

const std::initializer_list<Column> note_columns = {
    {"TRANNO", Kind::text},  {"TRANTYPE", Kind::text}, {"NOTEDT", Kind::text},
    {"CARRIER", Kind::text}, {"NOTES", Kind::text},    {"ADDBY", Kind::text},
    {"ADDDT", Kind::text},   {"EDITBY", Kind::text},   {"EDITDT", Kind::text}};

struct Status {
  int number;
  std::string_view word;
};

// Most documents are approved, a few are still open and some were taken back.
Status random_status(Random& random) {
  const int place = random.below(100);
  if (place < 96) return {1, "Approved"};
  if (place < 99) return {0, "Open"};
  return {3, "Cancelled"};
}

std::string document_number(const Document& document, int number) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%06d", number);
  return std::string(document.type->prefix) + short_month(document.day) + digits;
}

}  // namespace

Ledger::Ledger(const Masters& masters, const Options& options, Random& random, Database& database)
    : masters_(masters),
      random_(random),
      stock_(options.departments, options.parts),
      headers_(database, "STKTRANHD", header_columns),
      lines_(database, "STKTRANDT", line_columns),
      notes_(database, "STKSHIPNOTE", note_columns) {
  const auto parts = static_cast<std::size_t>(options.parts);
  const int check_month = std::min(options.months, 2) - 1;
  book = {1, last_day(options.start + std::chrono::months{check_month}), std::vector<double>(parts),
          std::vector<double>(parts)};
}

std::string_view Ledger::next_user() {
  constexpr std::array<std::string_view, 4> users = {"CLERK", "MANAGER", "CLERK", "OWNER"};
  return users[static_cast<std::size_t>(users_asked_++) % users.size()];
}

std::string Ledger::write(Document& document) {
  std::string number = document_number(document, ++last_numbers_[document.type->prefix]);
  const Status status = random_status(random_);
  const std::string_view user = next_user();
  const std::string at = timestamp(document.day, random_.between(day_starts, day_ends));
  const Department& from = masters_.departments[static_cast<std::size_t>(document.department)];
  const Department* to =
      document.target < 0 ? nullptr : &masters_.departments[static_cast<std::size_t>(document.target)];
  headers_.row(number, document.type->code, document.lines.front().reference, timestamp(document.day),
               from.number, from.name, to ? to->number : document.partner,
               to ? to->name : document.partner_name, status.word, status.number, user, at, user,
               document.type->name, user, at, user, at);
  int sn = 0;
  for (Line& line : document.lines) {
    ++sn;
    if (line.sn == 0) line.sn = sn;
    lines_.row(number, line.reference, line.sn, masters_.parts[static_cast<std::size_t>(line.part)].number,
               "", line.order, line.quantity, line.quantity, line.price, "", user, at, user, at);
    move_stock(document, line);
  }
  lines_written_ += sn;
  if (document.type == &shipment) write_note(document, number, at);
  return number;
}

void Ledger::move_stock(const Document& document, const Line& line) {
  const bool made = masters_.parts[static_cast<std::size_t>(line.part)].material_type > raw_material;
  const bool is_transfer = document.target >= 0;
  stock_.add(document.department, line.part, is_transfer ? -line.quantity : line.quantity, made);
  if (is_transfer) stock_.add(document.target, line.part, line.quantity, made);
  if (document.day > book.until) return;
  const auto part = static_cast<std::size_t>(line.part);
  if (document.department == book.department) book.issued_from[part] += line.quantity;
  if (document.target == book.department) book.transferred_in[part] += line.quantity;
}

void Ledger::write_note(const Document& document, const std::string& number, const std::string& at) {
  constexpr std::array<std::string_view, 4> feedback = {
      "Delivered complete", "One box damaged, replaced at once", "Delivered a day late", "收货无误"};
  if (random_.chance(10)) return;  // not every customer answers
  const std::string_view user = next_user();
  const std::string_view type = random_.chance(95) ? "STK030SHIPN" : document.type->code;
  const std::string_view carrier = random_.chance(50) ? "Rail cargo" : "Road haulage";
  const std::string_view text = random_.pick(feedback);
  notes_.row(number, type, timestamp(document.day), carrier, text, user, at, user, at);
}

}  // namespace tallyra::company
