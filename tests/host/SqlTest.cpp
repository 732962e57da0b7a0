#include <gtest/gtest.h>

#include <algorithm>
#include <boost/algorithm/string.hpp>
#include <iterator>
#include <set>
#include <utility>

#include "ListAssociators.h"
#include "ListClasses.h"
#include "SelectInstances.h"
#include "TCIMDateTime.h"
#include "THostNamespace.h"
#include "TSampleMachine.h"
#include "TSqlStatement.h"

namespace NZELVYR20 {
namespace {

using TTexts = std::vector<std::string>;
using TType = TCIMValue::TCIMType;

std::string PathOf(ICIMInstance& instance) { return instance.GetReference({}).ToString(); }

/// The value as text, in the form in which a row has it.
std::string Expected(const TCIMValue& value) {
  if (value.IsNull()) return "NULL";
  if (value.IsArray()) {
    std::string text;
    for (const TCIMValue& one : static_cast<const std::vector<TCIMValue>&>(value)) {
      const char* const quote = one.GetType() == TType::kString ? "\"" : "";
      text += (text.empty() ? "" : ",") + (quote + one.ToString(10) + quote);
    }
    return "string [" + text + ']';
  }
  switch (value.GetType()) {
    case TType::kBoolean:
      return static_cast<bool>(value) ? "sint64 1" : "sint64 0";
    case TType::kString:
      return "string " + value.ToString(10);
    case TType::kDateTime:
      return "string " + static_cast<TCIMDateTime>(value).ToCIMString();
    case TType::kReference:
      return "string " + PathOf(dynamic_cast<ICIMInstance&>(
                             *static_cast<TCIMReference>(value).GetCIMElement(false)));
    default:
      return "sint64 " + value.ToString(10);
  }
}

std::string Found(const TCIMValue& value) {
  if (value.IsNull()) return "NULL";
  return (value.GetType() == TType::kString ? "string " : "sint64 ") + value.ToString(10);
}

std::vector<TTexts> Ask(const boost::shared_ptr<ICIMNamespace>& space, const std::string& text) {
  TSqlStatement statement(space, text);
  std::vector<TTexts> rows;
  for (std::vector<TCIMValue> row; statement.Next(row);) {
    TTexts texts;
    std::transform(row.begin(), row.end(), std::back_inserter(texts), Found);
    rows.push_back(texts);
  }
  return rows;
}

/// The rows of the class's table, as the interfaces tell them.
std::vector<TTexts> ListRows(ICIMClass& cimClass) {
  std::vector<TTexts> rows;
  for (const auto& instance : ListInstances(cimClass, true)) {
    rows.push_back(
        {"string " + PathOf(*instance), "string " + instance->GetClass({})->GetName({})});
    for (const auto& declaration : ListPropertyDecls(cimClass)) {
      const auto property = instance->GetProperty(declaration->GetName({}), {});
      rows.back().push_back(Expected(property->GetValue({})));
    }
  }
  return rows;
}

TEST(SqlOfAMachine, EveryClassIsATableOfItsInstances) {
  const TSampleMachine machine;
  const THostNamespace host(machine.GetRoot());
  std::size_t count = 0;
  for (const auto& cimClass : ListAllClasses(*host.Get())) {
    const std::string name = cimClass->GetName({});
    SCOPED_TRACE(name);
    TTexts columns = {"path", "class"};
    for (const auto& one : ListPropertyDecls(*cimClass)) columns.push_back(one->GetName({}));
    EXPECT_EQ(TSqlStatement(host.Get(), "SELECT * FROM " + name).GetColumns(), columns);
    const std::vector<TTexts> rows = ListRows(*cimClass);
    EXPECT_EQ(Ask(host.Get(), "SELECT * FROM " + name), rows);
    EXPECT_EQ(SelectInstances(host.Get(), name, true, "1"), ListInstances(*cimClass, true));
    EXPECT_EQ(SelectInstances(host.Get(), name, false, "1"), ListInstances(*cimClass, false));
    for (const TTexts& row : rows) {
      const std::string path = row[0].substr(std::string("string ").size());
      std::string same = "SELECT * FROM " + name + " WHERE path = '";
      for (const char letter : path) same += letter == '\'' ? "''" : std::string(1, letter);
      EXPECT_EQ(Ask(host.Get(), same + "'"), std::vector<TTexts>{row});
    }
    count += rows.size();
  }
  EXPECT_GT(count, 300U);
}

using TPairs = std::multiset<TTexts>;

/// As a row shows a text.
std::string AsText(const std::string& text) { return "string " + text; }

/// Every reference of an association with every other.
std::vector<std::pair<std::string, std::string>> ListRolePairs(ICIMClass& association) {
  std::vector<std::pair<std::string, std::string>> pairs;
  for (const auto& near : ListPropertyDecls(association)) {
    for (const auto& far : ListPropertyDecls(association)) {
      if (near == far || near->GetType({}) != TType::kReference) continue;
      if (far->GetType({}) == TType::kReference) {
        pairs.emplace_back(near->GetName({}), far->GetName({}));
      }
    }
  }
  return pairs;
}

TEST(SqlOfAMachine, EveryAssociationJoins) {
  const TSampleMachine machine;
  const THostNamespace host(machine.GetRoot());
  const auto& space = host.Get();
  TInstanceList instances;
  for (const auto& top : ListTopClasses(*space)) {
    const TInstanceList some = ListInstances(*top, true);
    instances.insert(instances.end(), some.begin(), some.end());
  }
  std::size_t count = 0;
  for (const auto& cimClass : ListAllClasses(*space)) {
    if (!cimClass->IsAssociation({})) continue;
    const std::string name = cimClass->GetName({});
    for (const auto& [near, far] : ListRolePairs(*cimClass)) {
      SCOPED_TRACE(boost::join(TTexts{name, near, far}, " "));
      TPairs expected;
      for (const auto& from : instances) {
        for (const auto& to : ListAssociators(from, {name, "", near, far})) {
          expected.insert({AsText(PathOf(*from)), AsText(PathOf(*to))});
        }
      }
      std::string statement =
          "SELECT s.path, t.path FROM CIM_ManagedElement s JOIN ASSOCIATION a ON a.NEAR = s.path "
          "JOIN CIM_ManagedElement t ON t.path = a.FAR";
      boost::replace_all(statement, "ASSOCIATION", name);
      boost::replace_all(statement, "NEAR", near);
      boost::replace_all(statement, "FAR", far);
      const auto rows = Ask(space, statement);
      EXPECT_EQ(TPairs(rows.begin(), rows.end()), expected);
      count += expected.size();
    }
  }
  EXPECT_GT(count, 100U);
}

}  // namespace
}  // namespace NZELVYR20
