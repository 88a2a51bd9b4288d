#include "automation/com/registry_tree.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace tallyra::tests::com {
namespace {

using namespace automation::com;

class RegistryTreeTest : public testing::Test {
 protected:
  ~RegistryTreeTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str()); }

  static HKEY made(const std::wstring& path) {
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                              nullptr),
              ERROR_SUCCESS);
    return key;
  }

  const std::wstring path_ = L"Software\\Tallyra tree test " + std::to_wstring(GetCurrentProcessId());
  const OpenKey key_{made(path_)};
};

// A tree with values of every kind, two keys deep.
RegistryTree example() {
  RegistryTree tree;
  tree.values[L""] = {REG_SZ, {'a', 0, 0, 0}};
  tree.values[L"number"] = {REG_DWORD, {1, 2, 3, 4}};
  tree.values[L"nothing"] = {REG_BINARY, {}};
  tree.keys[L"below"].values[L"bytes"] = {REG_BINARY, std::vector<BYTE>(70'000, 0x7F)};
  tree.keys[L"below"].keys[L"deeper"] = {};
  return tree;
}

void expect_same(const RegistryTree& one, const RegistryTree& other) {
  ASSERT_EQ(one.values.size(), other.values.size());
  for (const auto& [name, content] : one.values) {
    ASSERT_TRUE(other.values.contains(name)) << testing::PrintToString(name);
    EXPECT_EQ(content.type, other.values.at(name).type);
    EXPECT_EQ(content.bytes, other.values.at(name).bytes);
  }
  ASSERT_EQ(one.keys.size(), other.keys.size());
  for (const auto& [name, child] : one.keys) {
    ASSERT_TRUE(other.keys.contains(name)) << testing::PrintToString(name);
    expect_same(child, other.keys.at(name));
  }
}

TEST_F(RegistryTreeTest, IsReadAsItWasWritten) {
  write_tree(key_, example());
  expect_same(read_tree(key_), example());
}

TEST_F(RegistryTreeTest, WhatItDoesNotHoldGoes) {
  write_tree(key_, example());
  RegistryTree smaller = example();
  smaller.values.erase(L"number");
  smaller.keys[L"below"].keys.clear();
  smaller.keys[L"other"] = {};
  write_tree(key_, smaller);
  expect_same(read_tree(key_), smaller);
  write_tree(key_, {});
  expect_same(read_tree(key_), {});
}

TEST_F(RegistryTreeTest, KeysThatStayAreTheKeysTheyWere) {
  write_tree(key_, example());
  const OpenKey held(made(path_ + L"\\below"));
  RegistryTree changed = example();
  changed.keys[L"below"].values[L"bytes"] = {REG_BINARY, {1}};
  write_tree(key_, changed);
  expect_same(read_tree(held), changed.keys[L"below"]);
}

TEST_F(RegistryTreeTest, OfAKeyThatIsClosedIsAnError) {
  EXPECT_THROW(read_tree(nullptr), automation::Error);
}

}  // namespace
}  // namespace tallyra::tests::com
