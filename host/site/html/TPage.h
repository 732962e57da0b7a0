#pragma once

#include <string>
#include <vector>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "THtml.h"
#include "Urls.h"

namespace NZELVYR20 {

/// A page of the site, which begins with what all have: the way to the others, and its heading.
class TPage {
 public:
  /// `search` is what stands in the search field.
  TPage(ICIMNamespace& nameSpace, const std::string& title, const std::string& search = {});

  THtml& GetHtml() { return html_; }

  /// Begins a section that Close() of the text ends; its heading names it.
  void OpenSection(const std::string& id, const std::string& heading);

  /// Begins a table within a frame that scrolls where it is too wide; CloseTable() ends both.
  void OpenTable(const std::string& caption, const THtml::TAttributes& attributes = {});
  /// The heads of its columns, after which rows are to come.
  void AddHead(const std::vector<std::string>& columns);
  void CloseTable();

  /// A word in small that says what kind of thing stands before it.
  void AddMark(const std::string& text);
  void AddClassLink(const std::string& className);
  /// "abstract" and "association", where it is that.
  void AddMarks(const ICIMClass& cimClass);

  std::string Finish() { return "<!DOCTYPE html>\n" + html_.Finish() + '\n'; }

 private:
  void AddHeader(const std::string& machine, const std::string& search);

  THtml html_;
};

}  // namespace NZELVYR20
