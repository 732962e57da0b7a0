#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "ApplyChanges.h"
#include "Cases.h"
#include "CompareNamespaces.h"
#include "TCIMReference.h"
#include "TChangeText.h"
#include "TLoadedMof.h"
#include "TWatch.h"

namespace NZELVYR20 {
namespace {

const char* const kHistorySchema =
    "class T { [Key] string Id; uint32 N; string Text; string Many[]; [Units(\"Bytes\")] uint64 "
    "Size;"
    " [Gauge] uint32 Free; [Momentary] datetime Now; };"
    "[Association] class L { [Key] T ref A; [Key] T ref B; T ref Other; uint8 Rank; };"
    "class CIM_ComputerSystem { [Key] string Name; };";

/// A namespace with that schema, and the text in it.
struct TSide : TLoadedMof {
  explicit TSide(const std::string& text) {
    LoadFile(VYR_SCHEMA_DIR "/qualifiers.mof").LoadText(kHistorySchema + text);
    EXPECT_EQ(TakeMessages(), "");
  }
};

std::string Report(const TComparison& comparison, bool withMomentary) {
  TTerminal terminal;
  terminal.isUnicode = false;
  std::string report;
  const bool isAnything =
      TChangeText(terminal, withMomentary).WriteBlocks(comparison, [&](const auto& text) {
        report += text;
      });
  EXPECT_EQ(isAnything, !report.empty());
  return report;
}

TEST(History, WhatChangedIsToldAndCanBeApplied) {
  CheckCases("history.txt", [](const std::string& given) {
    const std::size_t middle = given.find("=>\n");
    const TSide before(given.substr(0, middle));
    const TSide after(given.substr(middle + 3));
    ICIMNamespace& kept = *before.nameSpace;
    ICIMNamespace& present = *after.nameSpace;
    const std::string report =
        Report(CompareNamespaces(kept, present, EMatch::kWithinMachine), false);
    if (given.rfind("class ", 0) != 0) {  // with the same schema
      ApplyChanges(before.nameSpace, CompareNamespaces(kept, present, EMatch::kPath).changes);
      EXPECT_EQ(Report(CompareNamespaces(kept, present, EMatch::kPath), true), "") << given;
    }
    return report.substr(0, report.find_last_not_of('\n') + 1);
  });
}

TEST(History, WatchedInstancesStayAndKnowTheirPreviousValues) {
  const TSide kept("instance of T { Id = \"a\"; N = 1; };");
  TSide present("");
  const auto path = TCIMReference::Parse("T.Id=\"a\"", kept.nameSpace);
  const auto instance = kept.nameSpace->GetInstance(path, {});
  std::string machine = "instance of T { Id = \"a\"; N = 2; Free = 3; };";
  TWatch watch(kept.nameSpace, present.nameSpace, [&] { present.LoadText(machine); });
  std::string lines;
  const auto round = [&] {
    watch.Round({{}, false}, "now ", [&](const auto& text) { lines += text; });
    return std::exchange(lines, {});
  };
  EXPECT_EQ(round(), "now changed T.Id=\"a\": N: 1 \u2192 2\n");
  EXPECT_EQ(kept.nameSpace->GetInstance(path, {}), instance);
  const auto number = instance->GetProperty("N", {});
  EXPECT_EQ(number->GetValue({}), TCIMValue(2U));
  EXPECT_EQ(number->GetPrevValue(), TCIMValue(1U));
  EXPECT_TRUE(instance->GetProperty("Free", {})->GetPrevValue().IsNull());
  EXPECT_EQ(round(), "");
  machine = "instance of T { Id = \"b\"; };";
  EXPECT_EQ(round(), "now removed T.Id=\"a\"\nnow added T.Id=\"b\"\n");
  EXPECT_EQ(kept.nameSpace->GetInstance(path, {}), nullptr);
}

}  // namespace
}  // namespace NZELVYR20
