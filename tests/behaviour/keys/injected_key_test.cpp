#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "server/class_table.h"
#include "tests/behaviour/close/closing_company.h"

// A key stands in the statement as it is, so whoever gives one writes a part of the statement. Every text
// that any method takes is tried: none gets further than the database.
namespace tallyra::behaviour {
namespace {

using automation::Argument;
using automation::Object;
using automation::Value;
using server::ClassMember;
using server::ClassTable;
using server::MemberKind;
using server::Parameter;
using server::ParameterType;
using stage::Fields;

const double refused = stage::narrowed(-2147217911);

bool takes_text(const Parameter& parameter) {
  return parameter.type == ParameterType::text || parameter.type == ParameterType::variant;
}

class InjectedKey : public testing::TestWithParam<const char*> {
 protected:
  InjectedKey() {
#ifdef TALLYRA_NATIVE_EXTENSION
    setenv("TALLYRA_MARKER", marker().c_str(), 1);
#endif
  }

  std::string marker() const {
    return company.file().generic_string() + ".marker";
  }
  bool marked() const {
    return std::filesystem::exists(marker());
  }

  // Calls of functions that leave the file `marker`.
  std::vector<std::string> calls() const {
    const std::string arguments = "('x','" + marker() + "')";
    return {
        "blob_export" + arguments,
        "/* ' */ [BLOB_EXPORT]/**/" + arguments,
        "{fn blob_export" + arguments + "}",
#ifdef TALLYRA_NATIVE_EXTENSION
        "load_extension('" TALLYRA_NATIVE_EXTENSION "')",
        "\"Load_Extension\" ('" TALLYRA_NATIVE_EXTENSION "')",
#endif
    };
  }

  // Texts that bring them, or statements of their own, to where a text, a date or a number is expected.
  std::vector<std::string> attacks() const {
    std::vector<std::string> all{"x';vacuum into '" + marker(), "x';attach '" + marker() + "' as 'm"};
    for (const std::string& call : calls()) {
      all.push_back("x' Or " + call + " Or '1'='");
      all.push_back("2024/01/31' Or " + call + " Or '1'='");
      all.push_back("2024/01/31# Or " + call + " Or #2024/01/31");
      all.push_back("'2024/01/31' Or " + call);
      all.push_back("1 Or " + call);
    }
    return all;
  }

  // The error number that a client of the method sees when one of its arguments is the attack.
  double call(const Object& object, const ClassMember& member, std::size_t attacked, const Value& attack,
              Fields fields) const {
    std::vector<Value> values;
    for (const Parameter& parameter : member.parameters) {
      if (values.size() == attacked)
        values.push_back(attack);
      else if (parameter.type == ParameterType::collection)
        values.push_back(parameter.name == "colFieldName" ? fields.names : fields.values);
      else if (parameter.optional())
        values.push_back(parameter.when_omitted);
      else
        values.push_back(takes_text(parameter) ? Value("2024/01/31") : Value(1));
    }
    std::vector<Argument> arguments;
    for (std::size_t i = 0; i < values.size(); ++i)
      arguments.push_back(member.parameters[i].by_reference ? Argument::by_reference(values[i])
                                                            : Argument(values[i]));
    try {
      object.invoke(member.id, automation::Access::read, arguments);
    } catch (const automation::Error&) {
      // The guards of dates raise on purpose.
    }
    return automation::to_double(object.get("ErrNumber"));
  }

  template <class Use>
  void for_each_method(Use use) const {
    for (const ClassTable& table : server::classes())
      for (const ClassMember& member : table.members)
        if (member.kind == MemberKind::method) use(table, member);
  }

  const ClosingCompany company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, InjectedKey, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& kind) { return std::string(kind.param); });

// Where no attack is refused by its number, although a text is taken.
const std::set<std::string> quiet{
    "CPartCostSet.Update",          // its text only chooses a right
    "CStkrptFuns.GetCheckBalance",  // runs nothing
    "CStockClose.Delete",           // takes nothing but dates, and so do the next two
    "CStockClose.Insert",          "CStockClose.Update",
    "CTranDetail.IssuedOrRtnQty",  // tells no errors
    "CTranHead.ValidCloseDT",      // tells every error as a closed period
};

TEST_P(InjectedKey, OfAnyMethodReachesNoFileAndNoCode) {
  int calls = 0;
  int refusals = 0;
  for_each_method([&](const ClassTable& table, const ClassMember& member) {
    const std::string name = std::string(table.name) + "." + std::string(member.name);
    int refusals_here = 0;
    bool takes_any = false;
    for (std::size_t i = 0; i < member.parameters.size(); ++i) {
      if (!takes_text(member.parameters[i])) continue;
      takes_any = true;
      for (const std::string& attack : attacks()) {
        const double number = call(company.client(table.name), member, i, attack, {{"NOTES", "n"}});
        ASSERT_FALSE(marked()) << name << " " << member.parameters[i].name << " " << attack;
        refusals_here += number == refused ? 1 : 0;
        ++calls;
      }
    }
    EXPECT_EQ(takes_any && refusals_here == 0, quiet.contains(name)) << name;
    refusals += refusals_here;
  });
  std::cout << calls << " calls, " << refusals << " of them refused\n";
}

TEST_P(InjectedKey, InTheCollectionsOrTheNameOfTheUserReachesNoFileAndNoCode) {
  constexpr std::size_t no_argument = SIZE_MAX;
  int calls = 0;
  for_each_method([&](const ClassTable& table, const ClassMember& member) {
    for (const std::string& attack : attacks()) {
      if (!attack.starts_with("x'")) continue;
      const Object object = company.client(table.name);
      for (const Fields& fields :
           std::vector<Fields>{{{attack.c_str(), "n"}}, {{"NOTES", attack}}, {{"ADDDT", attack}}}) {
        call(object, member, no_argument, {}, fields);
        ASSERT_FALSE(marked()) << table.name << "." << member.name << " " << attack;
      }
      object.put("UserID", attack);
      call(object, member, no_argument, {}, {{"NOTES", "n"}});
      ASSERT_FALSE(marked()) << table.name << "." << member.name << " " << attack;
      calls += 4;
    }
  });
  std::cout << calls << " calls\n";
}

}  // namespace
}  // namespace tallyra::behaviour
