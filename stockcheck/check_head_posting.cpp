#include "stockcheck/check_head_posting.h"

#include "automation/clock.h"
#include "frame/collaborator_member.h"
#include "frame/collaborators.h"
#include "frame/recordset.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"

namespace tallyra::stockcheck {
namespace {

using automation::Value;
using frame::Connection;
using frame::CursorLocation;
using frame::CursorType;
using frame::DateLiteral;
using frame::Recordset;
using frame::sql;
namespace schema = frame::schema;

// Where the period begins as long as there is no close; the first close has another day.
constexpr std::string_view begin_without_a_close = "2004/01/01";
constexpr std::int16_t most_key_requests = 3;

std::string literal_of(const DateLiteral& literal, const Value& date) {
  return literal.of_text(frame::text_of(date));
}

// Its lines are counted in one department on one day; the period goes from the last close to that day.
struct Stocktaking {
  std::string number;
  std::string department;
  std::string after;
  std::string until;
};

// A statement that ends with a part number: its beginning is written once for all parts.
class PartStatement {
 public:
  explicit PartStatement(std::string beginning)
      : beginning_(beginning.size()), statement_(std::move(beginning)) {}

  const Value& of(std::string_view part) {
    std::string& text = *statement_.get_if<std::string>();
    text.resize(beginning_);
    text += part;
    text += '\'';
    return statement_;
  }

 private:
  std::size_t beginning_;
  Value statement_;
};

// What moved in the period: issues of every kind, and transfers into the department, both counted as
// positive.
class Movements {
 public:
  Movements(Recordset& sums, const Connection& connection, const Stocktaking& stocktaking)
      : sums_(sums),
        connection_(connection),
        outgoing_(
            sql("Select SUM(STKTRANDT.QTY) AS QTY From STKTRANDT"
                " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOFR='{}'"
                " And STKTRANHD.TRANDT>{} And STKTRANHD.TRANDT<={} AND STKTRANDT.PARTNO='",
                stocktaking.department, stocktaking.after, stocktaking.until)),
        transfers_(
            sql("Select SUM(STKTRANDT.QTY) AS QTY From STKTRANDT"
                " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOTO='{}'"
                " And STKTRANHD.TRANDT>{} And STKTRANHD.TRANDT<={}"
                " And STKTRANHD.TRANTYPE='STK024MRPL' AND STKTRANDT.PARTNO='",
                stocktaking.department, stocktaking.after, stocktaking.until)) {}

  double of(std::string_view part) {
    const double issued = sum(outgoing_.of(part));
    return issued + sum(transfers_.of(part));
  }

 private:
  // A sum below zero counts as nothing.
  double sum(const Value& statement) {
    sums_.open(statement, connection_, CursorType::static_copy);
    sums_.detach();
    double quantity = 0;
    if (!sums_.at_end()) {
      const Value total = total_.value(sums_);
      if (automation::exceeds_number(total, 0)) quantity = automation::to_double(total);
    }
    sums_.close();
    return quantity;
  }

  Recordset& sums_;
  const Connection& connection_;
  PartStatement outgoing_;
  PartStatement transfers_;
  frame::RepeatedField total_{schema::column::quantity};
};

// The document that is made of the differences; it begins with the first of them.
class Posting {
 public:
  Posting(Connection& connection, const Stocktaking& stocktaking, const DateLiteral& literal)
      : connection_(connection),
        stocktaking_(stocktaking),
        written_(automation::now()),
        today_(literal.of_day(written_)),
        now_(literal.of_time_stamp(written_)) {}

  void write(std::string_view part, const frame::Field& department_name, double difference, Value price) {
    if (number_.empty()) begin(department_name);
    if (price.is_null()) price = std::int32_t{0};
    frame::append_sql(
        line_.restart_text(),
        "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,MONO,QTY,UPRICE,NOTES,ADDBY,ADDDT,EDITBY,EDITDT)"
        " Values('{}','{}',0,'{}','',{},{},'{}','SYSTEM',{},'SYSTEM',{})",
        number_, stocktaking_.number, part, difference, price, note(), today_, today_);
    connection_.execute(line_);
  }

 private:
  void begin(const frame::Field& department_name) {
    request_number();
    const Value name = department_name.value();
    const Value status = frame::collaborators().wording.get("StatusApproved");
    const Value notes = note();
    connection_.execute(
        sql("Insert Into STKTRANHD(TRANNO,TRANTYPE,REFERENCE,TRANDT,DEPTNOFR,DEPTNMFR,STATUS,STATUSSN,"
            "STATUSBY,STATUSDT,MAKEBY,NOTES,ADDBY,ADDDT,EDITBY,EDITDT)"
            " Values('{}','STKCHECKISS','{}',{},'{}','{}','{}',1,'SYSTEM',{},'SYSTEM','{}','SYSTEM',{},"
            "'SYSTEM',{})",
            number_, stocktaking_.number, stocktaking_.until, stocktaking_.department, name, status, now_,
            notes, now_, now_));
  }

  // A document whose number is not issued is written all the same, and asks again at its next line.
  void request_number() {
    const automation::CivilTime day = automation::civil_time(written_);
    Value number{std::string()};
    for (std::int16_t request = 0; request < most_key_requests && number_.empty(); ++request) {
      frame::collaborators().system.call(
          "GetTableKeyID", schema::number_series::posting, schema::column::document_number,
          automation::ref(number), static_cast<std::int16_t>(day.year), static_cast<std::int16_t>(day.month),
          static_cast<std::int16_t>(day.day));
      number_ = automation::to_text(number);
    }
  }

  Value note() { return note_.now().get(); }

  Connection& connection_;
  const Stocktaking& stocktaking_;
  automation::Date written_;
  std::string today_;
  std::string now_;
  std::string number_;
  frame::CollaboratorMember note_{&frame::Collaborators::wording, "NameCheck"};
  Value line_;
};

void open_lines(Recordset& lines, const Connection& connection, const std::string& number) {
  lines.open(sql("SELECT STKCHECKHD.CHECKDT,STKCHECKDT.*,STKCHECKHD.DEPTNO,DEPARTS.DEPTNM "
                 " FROM (STKCHECKDT Inner Join STKCHECKHD On (STKCHECKDT.CHECKNO=STKCHECKHD.CHECKNO))"
                 " Inner Join DEPARTS On (STKCHECKHD.DEPTNO=DEPARTS.DEPTNO) "
                 " WHERE STKCHECKDT.CHECKNO='{}' Order By STKCHECKDT.PARTNO",
                 number),
             connection, CursorType::static_copy);
  lines.detach();
}

void find_last_close(Recordset& closes, const Connection& connection, const DateLiteral& literal,
                     Stocktaking& stocktaking) {
  closes.open(
      sql("Select TOP 1 * From STKCLOSEHD  WHERE CLOSEDT<={} Order By CLOSEDT Desc", stocktaking.until),
      connection, CursorType::static_copy);
  if (!closes.at_end()) stocktaking.after = literal_of(literal, closes.value(schema::column::close_date));
  closes.close();
}

void write_differences(Recordset& lines, Movements& movements, Posting& posting) {
  const frame::Field part_field = lines.field(schema::column::part);
  const frame::Field quantity = lines.field(schema::column::quantity);
  const frame::Field price = lines.field(schema::column::unit_price);
  const frame::Field department_name = lines.field(schema::column::department_name);
  std::string part;
  for (; !lines.at_end(); lines.move_next()) {
    part.clear();
    automation::append_concatenated(part, part_field.value());
    const double movement = movements.of(part);
    const Value counted_value = quantity.value();
    if (counted_value.is_null()) continue;
    const double counted = automation::to_double(counted_value);
    if (counted < movement || counted > movement)
      posting.write(part, department_name, counted - movement, price.value());
  }
}

}  // namespace

void PostCheckIssue(const std::string& cCHECKNO, Connection& connection, const DateLiteral& literal) {
  Recordset lines;
  Recordset closes;
  Recordset sums;
  lines.set_cursor_location(CursorLocation::client);
  closes.set_cursor_location(CursorLocation::client);
  sums.set_cursor_location(CursorLocation::client);

  open_lines(lines, connection, cCHECKNO);
  if (lines.at_end()) return;
  lines.move_first();
  Stocktaking stocktaking{.number = cCHECKNO,
                          .department = automation::to_text(lines.value(schema::column::department)),
                          .after = literal.of_text(begin_without_a_close),
                          .until = literal_of(literal, lines.value(schema::column::check_date))};
  find_last_close(closes, connection, literal, stocktaking);

  Posting posting(connection, stocktaking, literal);
  Movements movements(sums, connection, stocktaking);
  write_differences(lines, movements, posting);
  connection.commit();
}

}  // namespace tallyra::stockcheck
