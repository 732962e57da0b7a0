#include <gtest/gtest.h>

#include <algorithm>
#include <boost/shared_ptr.hpp>
#include <deque>
#include <pugixml.hpp>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Cases.h"
#include "ICIMProperty.h"
#include "LoadMof.h"
#include "PluginNamespace.h"
#include "TInstanceDraft.h"
#include "TSampleTree.h"
#include "TSite.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

constexpr auto kHostile = "<script>alert(1)</script>'\"&amp;\x1b[31m\xff/?#%41\xC2\x85";

/// The sample, and instances with texts that MOF has no word for.
boost::shared_ptr<ICIMNamespace> LoadSample() {
  const TSampleTree folder;
  folder.Write("/model.mof", ReadData("model.mof"));
  auto space = AllocatePluginNamespace();
  LoadMof(space, {folder.GetRoot() + "/model.mof"},
          [](const std::string& message) { ADD_FAILURE() << message; });
  const TCIMReference hostile = TInstanceDraft(space, "MY_Odd")
                                    .Set("Id", TCIMValue(kHostile))
                                    .Set("Text", TCIMValue("two\nlines ]]> <b>"))
                                    .Add();
  const TCIMReference other = TInstanceDraft(space, "MY_Odd").Set("Id", TCIMValue("")).Add();
  const auto target = space->GetClass("MY_Odd", {});
  space->GetInstance(hostile, {})->GetProperty("Text", {})->SetPrevValue(TCIMValue("<old>"));
  TInstanceDraft(space, "MY_Near")
      .Set("One", TCIMValue(hostile, target))
      .Set("Other", TCIMValue(other, target))
      .Add();
  return space;
}

std::string Decode(const std::string& text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isCode = text[i] == '%';
    decoded += isCode ? static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16)) : text[i];
    if (isCode) i += 2;
  }
  return decoded;
}

TSiteAnswer Get(const TSite& site, const std::string& url) {
  const std::size_t mark = std::min(url.find('?'), url.size());
  TSiteRequest request{Decode(url.substr(0, mark)), {}};
  std::istringstream query(url.substr(std::min(mark + 1, url.size())));
  for (std::string part; std::getline(query, part, '&');) {
    const std::size_t sign = part.find('=');
    request.query.emplace_back(part.substr(0, sign), Decode(part.substr(sign + 1)));
  }
  return site.Answer(request);
}

pugi::xml_document Parse(const TSiteAnswer& answer) {
  pugi::xml_document page;
  const auto result =
      page.load_string(answer.body.c_str(), pugi::parse_full | pugi::parse_ws_pcdata);
  EXPECT_TRUE(result) << result.description() << " at " << answer.body.substr(result.offset, 80);
  return page;
}

std::string TextOf(const pugi::xml_node& node) {
  std::string text = node.value();
  for (const auto& child : node.children()) text += TextOf(child);
  return text;
}

std::string Select(const pugi::xml_node& node, const char* path) {
  std::vector<std::string> texts;
  for (const auto& found : node.select_nodes(path)) {
    const std::string text = found.node() ? TextOf(found.node()) : found.attribute().value();
    texts.push_back(text.empty() ? "-" : text);
  }
  return TText::Join(texts, " | ");
}

/// What all pages promise: that a browser may be told to run and to obey nothing that stands in
/// them, and that people find their way without eyes.
void CheckPage(const pugi::xml_node& page, std::set<std::string>& ids) {
  EXPECT_EQ(
      page.select_nodes("//script[not(@src='/script.js')] | //script[node()] | //style").size(),
      0U);
  EXPECT_EQ(page.select_nodes("//@style | //@*[starts-with(name(), 'on')]").size(), 0U);
  EXPECT_EQ(page.select_nodes("//@src[not(starts-with(., '/'))]").size(), 0U);
  EXPECT_EQ(page.select_nodes("//main[@id='main']/h1").size(), 1U);
  EXPECT_EQ(page.select_nodes("//table[not(caption)] | //th[not(@scope)]").size(), 0U);
  for (const auto& found : page.select_nodes("//@id")) {
    EXPECT_TRUE(ids.insert(found.attribute().value()).second) << found.attribute().value();
  }
  for (const auto& row : page.select_nodes("//tbody/tr")) {
    EXPECT_EQ(row.node().select_nodes("td | th").size(),
              row.node().select_nodes("../../thead/tr/th").size());
  }
}

TEST(SiteTest, EveryLinkOfEveryPageLeadsSomewhere) {
  const TSite site(LoadSample());
  const TSite again(LoadSample());
  std::deque<std::string> waiting{"/", "/search?q=o"};
  std::set<std::string> met(waiting.begin(), waiting.end());
  std::vector<std::pair<std::string, std::string>> anchors;
  std::set<std::string> ids;
  for (; !waiting.empty(); waiting.pop_front()) {
    const std::string& url = waiting.front();
    SCOPED_TRACE(url);
    const TSiteAnswer answer = Get(site, url);
    ASSERT_EQ(answer.status, 200) << answer.body;
    ASSERT_EQ(answer.body, Get(again, url).body);
    if (answer.type != "text/html; charset=utf-8") continue;
    const pugi::xml_document page = Parse(answer);
    std::set<std::string> pageIds;
    CheckPage(page, pageIds);
    for (const std::string& id : pageIds) ids.insert(std::string(url).append("#").append(id));
    for (const auto& found : page.select_nodes("//@href | //@src")) {
      std::string link = found.attribute().value();
      if (link.front() == '#') link.insert(0, url);
      if (link.find('#') != std::string::npos) anchors.emplace_back(url, link);
      link = link.substr(0, link.find('#'));
      if (met.insert(link).second) waiting.push_back(link);
    }
  }
  for (const auto& [from, anchor] : anchors) EXPECT_EQ(ids.count(anchor), 1U) << from << anchor;
  EXPECT_GT(met.size(), 80U);
  EXPECT_LT(met.size(), 2000U);
}

TEST(SiteTest, WhateverAnInstanceHoldsIsTextOnItsPage) {
  const TSite site(LoadSample());
  const pugi::xml_document found = Parse(Get(site, "/search?q=%3Cscript%3E"));
  const std::string url = found.select_node("//li/a/@href").attribute().value();
  const pugi::xml_document page = Parse(Get(site, url));
  const std::string shown = TText::OneLine(kHostile);
  EXPECT_EQ(Select(page, "//h1"), shown);
  EXPECT_EQ(Select(page, "//tr[starts-with(th, 'Text')]/td[position() < 3]"),
            "two\nlines ]]> <b> | <old>");
  const pugi::xml_document around = Parse(Get(site, Select(page, "//svg//a/@href")));
  EXPECT_EQ(Select(around, "//svg//a/g/title"), shown + ", MY_Odd");
}

TEST(SiteTest, WhatIsFoundByItsPathIsFoundOnce) {
  const auto space = LoadSample();
  TInstanceDraft(space, "MY_Odd").Set("Id", TCIMValue("a.b")).Add();
  EXPECT_EQ(Select(Parse(Get(TSite(space), "/search?q=a.b")), "//ul[@class='hits']//a"), "a.b");
}

TEST(SiteTest, ManyInstancesComeInPages) {
  const auto space = LoadSample();
  for (unsigned i = 0; i < 1000; ++i) {
    const std::string name = i == 9 ? std::string(9000, '9') : std::to_string(i);
    TInstanceDraft(space, "MY_Odd").Set("Id", TCIMValue('n' + name)).Add();
  }
  const TSite site(space);
  std::string url = "/class/MY_Odd/instances?sort=Id";
  std::set<std::string> names;
  for (unsigned page = 1; page <= 11; ++page) {
    const TSiteAnswer answer = Get(site, url + "&page=" + std::to_string(page));
    EXPECT_LT(answer.body.size(), 60000U);
    const pugi::xml_document document = Parse(answer);
    EXPECT_TRUE(document.select_nodes("//a[string-length(@href) > 8000]").empty());
    EXPECT_TRUE(document.select_node(("//a[@href='" + url + "&page=1']").c_str()) || page == 1);
    for (const auto& row : document.select_nodes("//tbody/tr/th")) {
      names.insert(TextOf(row.node()));
    }
  }
  EXPECT_EQ(names.size(), 1002U);
  const std::string last = Get(site, url + "&page=11").body;
  EXPECT_NE(last.find("1001 to 1002 of 1002"), std::string::npos);
  for (const char* none : {"&page=0", "&page=99999999999999999999999"}) {
    EXPECT_EQ(Get(site, url + none).body, Get(site, url + "&page=1").body);
  }
  EXPECT_EQ(Get(site, url + "&page=12").body, last);
}

/// What a page says: its status, its heading, its first words, and the rows of its tables and
/// lists.
std::string Outline(const TSiteAnswer& answer) {
  const pugi::xml_document page = Parse(answer);
  std::string text = std::to_string(answer.status) + ' ' + Select(page, "//h1") + '\n';
  const std::string lead = Select(page, "//*[@class='lead']");
  if (!lead.empty()) text += lead + '\n';
  for (const auto& found : page.select_nodes(
           "//tr | //main//li[not(.//li)] | //svg//text[@class='role'] | //nav[@class='pages']")) {
    const bool isRow = found.node().name() == std::string("tr");
    text += TText::OneLine(isRow ? Select(found.node(), "th | td") : TextOf(found.node())) + '\n';
  }
  text.pop_back();
  return text;
}

TEST(SiteTest, PagesSayWhatThereIs) {
  const TSite site(LoadSample());
  CheckCases("pages.txt", [&](const std::string& url) { return Outline(Get(site, url)); });
}

}  // namespace
}  // namespace NZELVYR20
