#include "stockcheck/check_head_posting.h"

#include "automation/clock.h"
#include "frame/collaborator_member.h"
#include "frame/collaborators.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"

namespace tallyra::stockcheck {
namespace {

using automation::Object;
using automation::Value;
using frame::Connection;
using frame::CursorLocation;
using frame::CursorType;
using frame::DateLiteral;
using frame::Recordset;
using frame::sql;
namespace schema = frame::schema;

// Where the period begins as long as there is no close.
constexpr std::string_view day_before_all_closes = "2004/01/01";
constexpr std::int16_t most_key_requests = 3;

std::string literal_of(const DateLiteral& literal, const Value& date) {
  std::string text;
  automation::append_concatenated(text, date);
  return literal.of_text(text);
}

// A check has its lines counted in one department on one day; the period goes from the last close to that
// day.
struct Count {
  std::string check_number;
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
  Movements(Recordset& sums, const Connection& connection, const Count& count)
      : sums_(sums),
        connection_(connection),
        outgoing_(
            sql("Select SUM(STKTRANDT.QTY) AS QTY From STKTRANDT"
                " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOFR='{}'"
                " And STKTRANHD.TRANDT>{} And STKTRANHD.TRANDT<={} AND STKTRANDT.PARTNO='",
                count.department, count.after, count.until)),
        requisitioned_(
            sql("Select SUM(STKTRANDT.QTY) AS QTY From STKTRANDT"
                " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOTO='{}'"
                " And STKTRANHD.TRANDT>{} And STKTRANHD.TRANDT<={}"
                " And STKTRANHD.TRANTYPE='STK024MRPL' AND STKTRANDT.PARTNO='",
                count.department, count.after, count.until)) {}

  double of(std::string_view part) {
    const double issued = sum(outgoing_.of(part));
    return issued + sum(requisitioned_.of(part));
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
  PartStatement requisitioned_;
  frame::RepeatedField total_{schema::column::quantity};
};

// The document that is made of the differences; it begins with the first of them.
class Adjustment {
 public:
  Adjustment(Connection& connection, const Count& count, const DateLiteral& literal)
      : connection_(connection),
        count_(count),
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
        number_, count_.check_number, part, difference, price, note(), today_, today_);
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
            number_, count_.check_number, count_.until, count_.department, name, status, now_, notes, now_,
            now_));
  }

  // A document whose number is not issued is written all the same, and asks again at its next line.
  void request_number() {
    const automation::CivilTime day = automation::civil_time(written_);
    Value number{std::string()};
    for (std::int16_t request = 0; request < most_key_requests && number_.empty(); ++request) {
      frame::collaborators().system.call(
          "GetTableKeyID", schema::number_series::stock_check_posting, schema::column::transaction_number,
          automation::ref(number), static_cast<std::int16_t>(day.year), static_cast<std::int16_t>(day.month),
          static_cast<std::int16_t>(day.day));
      number_ = automation::to_text(number);
    }
  }

  Value note() { return note_.now().get(); }

  Connection& connection_;
  const Count& count_;
  automation::Date written_;
  std::string today_;
  std::string now_;
  std::string number_;
  frame::CollaboratorMember note_{&frame::Collaborators::wording, "NameCheck"};
  Value line_;
};

}  // namespace

void PostCheckIssue(const std::string& cCHECKNO, Connection& connection, const DateLiteral& literal) {
  Recordset lines;
  Recordset closes;
  Recordset sums;
  lines.set_cursor_location(CursorLocation::client);
  closes.set_cursor_location(CursorLocation::client);
  sums.set_cursor_location(CursorLocation::client);

  lines.open(sql("SELECT STKCHECKHD.CHECKDT,STKCHECKDT.*,STKCHECKHD.DEPTNO,DEPARTS.DEPTNM "
                 " FROM (STKCHECKDT Inner Join STKCHECKHD On (STKCHECKDT.CHECKNO=STKCHECKHD.CHECKNO))"
                 " Inner Join DEPARTS On (STKCHECKHD.DEPTNO=DEPARTS.DEPTNO) "
                 " WHERE STKCHECKDT.CHECKNO='{}' Order By STKCHECKDT.PARTNO",
                 cCHECKNO),
             connection, CursorType::static_copy);
  lines.detach();
  if (lines.at_end()) return;
  lines.move_first();

  Count count{.check_number = cCHECKNO,
              .department = automation::to_text(lines.value(schema::column::department)),
              .after = literal.of_text(day_before_all_closes),
              .until = literal_of(literal, lines.value(schema::column::check_date))};
  closes.open(sql("Select TOP 1 * From STKCLOSEHD  WHERE CLOSEDT<={} Order By CLOSEDT Desc", count.until),
              connection, CursorType::static_copy);
  if (!closes.at_end()) count.after = literal_of(literal, closes.value(schema::column::close_date));
  Adjustment adjustment(connection, count, literal);
  closes.close();

  Movements movements(sums, connection, count);
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
      adjustment.write(part, department_name, counted - movement, price.value());
  }
  connection.commit();
}

}  // namespace tallyra::stockcheck
