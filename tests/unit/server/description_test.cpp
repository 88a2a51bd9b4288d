#include "server/description.h"

#include <gtest/gtest.h>

#include "masterdata/rev_addr.h"

namespace tallyra::server {
namespace {

using automation::Value;
using masterdata::CRevAddr;

ClassMember delete_with(const NamedParameter& key) {
  return method<&CRevAddr::Delete>(14, "Delete", "Deletes", {key}, "100");
}

TEST(Description, TakesTypesAndDirectionsFromTheMethod) {
  const ClassMember member = delete_with({"cAddrNo", "Number"});
  EXPECT_EQ(member.kind, MemberKind::method);
  EXPECT_EQ(member.result, ResultType::single);
  EXPECT_EQ(member.help, "Deletes");
  EXPECT_EQ(member.result_help, "100");
  ASSERT_EQ(member.parameters.size(), 1U);
  EXPECT_EQ(member.parameters[0].name, "cAddrNo");
  EXPECT_EQ(member.parameters[0].help, "Number");
  EXPECT_EQ(member.parameters[0].type, ParameterType::text);
  EXPECT_TRUE(member.parameters[0].by_reference);
}

TEST(Description, WhatMayBeLeftOutIsANumberOrAText) {
  EXPECT_FALSE(delete_with({"cAddrNo", ""}).parameters[0].optional());
  EXPECT_EQ(delete_with({"cAddrNo", "", -1}).parameters[0].when_omitted, Value(-1));
  EXPECT_EQ(delete_with({"cAddrNo", "", ""}).parameters[0].when_omitted, Value(""));
}

TEST(Description, AClassHasTheSessionAndThenItsGroupsInTheirOrder) {
  ClassMember second = delete_with({"cAddrNo", ""});
  second.name = "Second";
  const ClassTable table = class_table<CRevAddr>("CRevAddr", {.help = "Addresses"},
                                                 {delete_with({"cAddrNo", ""})}, std::vector{second});
  const std::size_t session = session_properties().size();
  ASSERT_EQ(table.members.size(), session + 2);
  EXPECT_EQ(table.members[0].name, "Language");
  EXPECT_EQ(table.members[session].name, "Delete");
  EXPECT_EQ(table.members[session + 1].name, "Second");
  EXPECT_EQ(table.about.help, "Addresses");
  EXPECT_NE(dynamic_cast<CRevAddr*>(table.make().get()), nullptr);
}

}  // namespace
}  // namespace tallyra::server
