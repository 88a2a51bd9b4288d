#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <iostream>
#include <sstream>

#include "automation/clock.h"
#include "tests/behaviour/stage/company_database.h"
#include "tests/memory/failing_new.h"
#include "tests/memory/fresh_process.h"

// What a company's database holds after an allocation has failed anywhere in a writing method, the classes
// that stand in for ADO and the sibling libraries included, as the first error of a fresh process.
namespace tallyra {
namespace {

namespace fs = std::filesystem;

using automation::Error;
using automation::Object;
using automation::ref;
using automation::Value;
using behaviour::CompanyDatabase;
using memory::Shortage;
using stage::Fields;
using stage::Outcome;

// A key that no short text holds. What is a client's own is made while nothing fails.
const Value& long_key() {
  static const Value key = "A-NUMBER-WITH-MORE-THAN-A-FEW-LETTERS";
  return key;
}

Fields row(std::initializer_list<std::pair<const char*, Value>> entries) {
  return entries;
}

struct Deed {
  const char* name;
  const char* class_name;
  Fields fields;
  std::function<Value(const Object&, Fields&)> call;
  // What the client sees of it when nothing is in the way.
  Outcome undisturbed = stage::done;
  // Whether it commits more than once: what it has committed before an error stays.
  bool commits_step_by_step = false;
  // Whether it tells why it got no document number in the words of whoever issues them.
  bool asks_for_numbers = false;
};

auto with_key(const char* member) {
  return [member](const Object& object, Fields& fields) {
    return object.call(member, long_key(), ref(fields.names), ref(fields.values));
  };
}

auto update_check(const char* tag) {
  return [tag](const Object& object, Fields& fields) {
    Value operation = tag;
    return object.call("Update", "S1", ref(fields.names), ref(fields.values), ref(operation));
  };
}

std::vector<Deed> deeds() {
  return {
      {"insert_address", "CRevAddr", row({{"ADDRNO", long_key()}, {"ADDRNM", "Gate"}}), with_key("Insert")},
      {"update_controller", "CSTKController", row({{"CONTROLLERNM", "Bob"}}), with_key("Update")},
      {"delete_controller", "CSTKController", row({}),
       [](const Object& object, Fields&) { return object.call("Delete", long_key()); }},
      {"insert_note", "CStkShipNote", row({{"TRANNO", long_key()}, {"NOTES", "late"}}), with_key("Insert")},
      {"copy_header", "CTranHead", row({{"TRANNO", "T2"}, {"TRANTYPE", "STK010POREV"}}),
       [](const Object& object, Fields& fields) {
         Value type = "STK010POREV", copied = "T1";
         return object.call("Insert", "T2", ref(type), ref(fields.names), ref(fields.values), ref(copied));
       }},
      {"delete_header", "CTranHead", row({}),
       [](const Object& object, Fields&) {
         Value type = "STK010POREV";
         return object.call("Delete", "T1", ref(type));
       }},
      {"insert_return_line", "CTranDetail",
       row({{"TRANNO", "T1"}, {"REFERENCE", ""}, {"SN", 1}, {"PARTNO", "P2"}, {"QTY", -1}}),
       [](const Object& object, Fields& fields) {
         Value number = 1, kind = 0;
         return object.call("InsertRTN", "T1", ref(number), ref(fields.names), ref(fields.values), ref(kind));
       }},
      {"approve_check", "CCheckHead", row({{"STATUS", "approved"}, {"STATUSSN", 1}}),
       update_check("APPROVED"), stage::trapped(-2147168242, "No transaction is active.")},
      {"unapprove_check", "CCheckHead", row({{"STATUS", "open"}, {"STATUSSN", 0}}),
       update_check("UNAPPROVED")},
      {"insert_check_line", "CCheckDetail", row({{"CHECKNO", "S1"}, {"PARTNO", "P3"}, {"QTY", 2}}),
       [](const Object& object, Fields& fields) {
         Value check = "S1", part = "P3";
         return object.call("Insert", ref(check), ref(part), ref(fields.names), ref(fields.values));
       }},
      {"insert_cost_setting", "CPartCostSet", row({{"MTYPESN", 7}, {"COSTMETHOD", 1}}),
       [](const Object& object, Fields& fields) {
         return object.call("Insert", 7, ref(fields.names), ref(fields.values));
       }},
      {"close_month", "CStockClose", row({{"CLOSEDT", "2024/03/31"}, {"STATUSSN", 0}}),
       [](const Object& object, Fields& fields) {
         return object.call("Insert", "2024/03/31", ref(fields.names), ref(fields.values));
       },
       stage::done, true, true},
      {"delete_close", "CStockClose", row({}),
       [](const Object& object, Fields&) { return object.call("Delete", "2024/02/29"); }},
  };
}

// A company with something for every deed, and a copy of its files to go back to.
class Company : public CompanyDatabase {
 public:
  Company() {
    run({"BEGIN", "INSERT INTO DEPARTS(DEPTNO,DEPTNM) VALUES('10','Store'),('20','Assembly')",
         "INSERT INTO PARTS(PARTNO,PARTNM,MTYPESN,PRICETYPESN) VALUES('P1','Bolt',1,1),('P2','Nut',1,2),"
         "('P3','Plate',2,2)",
         "INSERT INTO STKCONTROLLER(CONTROLLERNO,CONTROLLERNM) VALUES('" + automation::to_text(long_key()) +
             "','Ann')",
         "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,DEPTNOTO,STATUSSN) VALUES"
         "('T1','STK010POREV','2024-03-10 00:00:00','10','S1',1),"
         "('K1','STK027CLOSE','2024-03-01 00:00:00','10','',1)",
         "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,REFERENCE) VALUES('I1','STKCHECKISS','2024-03-20 "
         "00:00:00','S1')",
         "INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,VQTY) VALUES('T1','',1,'P1',5,2,0),"
         "('T1','',2,'P2',3,4,0),('T1','',3,'P3',1,9,0),('K1','',0,'P1',5,2,0)",
         "INSERT INTO STKCLOSEHD(CLOSEDT,STATUSSN) VALUES('2024-02-29 00:00:00',1)",
         "INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO,STATUSSN) VALUES('S1','2024-03-20 00:00:00','10',0)",
         "INSERT INTO STKCHECKDT(CHECKNO,PARTNO,QTY,UPRICE) VALUES('S1','P1',4,1.5),('S1','P2',9,2)",
         "COMMIT"});
    fs::copy(folder(), kept(), fs::copy_options::recursive);
  }
  ~Company() { fs::remove_all(kept()); }

  void go_back() const {
    for (const auto& file : fs::directory_iterator(folder())) fs::remove(file);
    fs::copy(kept(), folder());
  }

  // Every table that a deed writes, without the numbers that are issued anew each time.
  std::string content() const {
    return rows(
        "SELECT 'REVADDR',ADDRNO,ADDRNM FROM REVADDR UNION ALL "
        "SELECT 'STKCONTROLLER',CONTROLLERNO,CONTROLLERNM FROM STKCONTROLLER UNION ALL "
        "SELECT 'STKSHIPNOTE',TRANNO,NOTES FROM STKSHIPNOTE UNION ALL "
        "SELECT 'STKTRANHD',TRANTYPE,DEPTNOFR||STATUSSN FROM STKTRANHD UNION ALL "
        "SELECT 'STKTRANDT',SN||PARTNO,QTY||' '||UPRICE FROM STKTRANDT UNION ALL "
        "SELECT 'STKCHECKHD',CHECKNO,STATUSSN FROM STKCHECKHD UNION ALL "
        "SELECT 'STKCHECKDT',CHECKNO,PARTNO||QTY FROM STKCHECKDT UNION ALL "
        "SELECT 'PARTCOSTSET',MTYPESN,COSTMETHOD FROM PARTCOSTSET UNION ALL "
        "SELECT 'STKCLOSEHD',CLOSEDT,STATUSSN FROM STKCLOSEHD ORDER BY 1,2,3");
  }

 private:
  fs::path folder() const { return file().parent_path(); }
  fs::path kept() const { return folder().string() + "-kept"; }

  automation::ScopedClock clock_{[] { return *automation::parse_date("2024/04/05 14:05:09"); }};
};

std::string text_of(const Outcome& outcome) {
  std::ostringstream text;
  text << outcome;
  return text.str();
}

struct Seen {
  std::string outcome;
  std::string content;
};

class Play {
 public:
  explicit Play(const Deed& deed) : deed_(deed), object_(company_.client(deed.class_name)) {}

  Seen run(std::optional<Shortage> shortage) {
    Fields fields = deed_.fields;
    std::optional<Value> result;
    std::int32_t raised = 0;
    shortage ? memory::begin(*shortage) : memory::begin_counting();
    try {
      result = deed_.call(object_, fields);
    } catch (const Error& error) {
      raised = error.number();
    }
    allocations_ = memory::end();
    return {result ? text_of(stage::outcome_of(object_, *result)) : "raised " + std::to_string(raised),
            company_.content()};
  }
  long allocations() const { return allocations_; }
  const Company& company() const { return company_; }

 private:
  const Deed& deed_;
  Company company_;
  Object object_;
  long allocations_ = 0;
};

struct Expectation {
  Deed deed;
  std::string before;
  std::string after;
};

// What is wrong with a call that the shortage has struck; nothing when all is well.
std::string fault_of(Play& play, const Expectation& expected, Shortage shortage) {
  const Seen seen = play.run(shortage);
  if (memory::failures() == 0) return "nothing has failed";
  const std::string told = seen.outcome + " with\n" + seen.content;
  if (seen.outcome == text_of(expected.deed.undisturbed))
    return seen.content == expected.after ? "" : "success: " + told;
  const bool own_error =
      seen.outcome == text_of(stage::trapped(7, "Out of memory")) || seen.outcome == "raised 7";
  if (!own_error && !expected.deed.asks_for_numbers) return told;
  if (seen.content != expected.before && !expected.deed.commits_step_by_step) return "failure: " + told;
  const Seen next = play.run(std::nullopt);
  if (next.outcome != text_of(expected.deed.undisturbed)) return "the next call: " + next.outcome;
  return next.content == expected.after ? "" : "after the next call:\n" + next.content;
}

// As many allocations as fit a test's time, at even distances, and all of the last ones, among which the
// transaction ends. All, when TALLYRA_ALL_ALLOCATIONS is set in the environment.
std::vector<long> chosen(long allocations) {
  const long spread = std::getenv("TALLYRA_ALL_ALLOCATIONS") ? allocations + 1 : 40;
  constexpr long last = 8;
  std::vector<long> list;
  for (long n = 1; n <= allocations; ++n)
    if (n > allocations - last || n % (1 + allocations / spread) == 0) list.push_back(n);
  return list;
}

class DatabaseSweep : public testing::TestWithParam<Deed> {};

INSTANTIATE_TEST_SUITE_P(Methods, DatabaseSweep, testing::ValuesIn(deeds()),
                         [](const auto& param) { return std::string(param.param.name); });

TEST_P(DatabaseSweep, HoldsWhatItHeldUnlessTheCallSucceedsAndTheNextCallDoes) {
  Expectation expected{GetParam(), {}, {}};
  Play play(expected.deed);
  long allocations = 0;
  expected.before = memory::in_fresh_process([&] { return play.company().content(); });
  expected.after = memory::in_fresh_process([&] { return play.run(std::nullopt).content; });
  play.company().go_back();
  allocations = std::stol(memory::in_fresh_process([&] {
    const Seen seen = play.run(std::nullopt);
    return seen.outcome == text_of(expected.deed.undisturbed) ? std::to_string(play.allocations())
                                                              : "0 because of " + seen.outcome;
  }));
  ASSERT_GT(allocations, 100);
  ASSERT_NE(expected.before, expected.after);
  int cases = 0;
  for (const auto length : {Shortage::Length::once, Shortage::Length::from_then_on})
    for (const long first : chosen(allocations)) {
      play.company().go_back();
      ++cases;
      EXPECT_EQ(memory::in_fresh_process([&] {
                  return fault_of(play, expected, {first, length});
                }),
                "")
          << "allocation " << first << (length == Shortage::Length::once ? "" : " and all after it");
    }
  std::cout << "cases: " << cases << " of " << 2 * allocations << '\n';
}

}  // namespace
}  // namespace tallyra
