#include "TClassCommands.h"

#include <algorithm>
#include <string>
#include <utility>

#include "TClassDescription.h"
#include "TElementFinder.h"
#include "TPrinter.h"
#include "TTable.h"

namespace NZELVYR20 {
namespace {

/// What stands below a class; `margin` is what stands before each of its lines.
std::string Branches(ICIMClass& cimClass, const std::string& margin) {
  const TClassList subClasses = TClassTree::GetSubClasses(cimClass);
  std::string text;
  for (std::size_t index = 0; index < subClasses.size(); ++index) {
    const bool isLast = index + 1 == subClasses.size();
    text += margin + (isLast ? "└── " : "├── ") + TPrinter::ClassText(*subClasses[index]) + "\n" +
            Branches(*subClasses[index], margin + (isLast ? "    " : "│   "));
  }
  return text;
}

}  // namespace

TClassCommands::TClassCommands(boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(std::move(nameSpace)) {}

TClassList TClassCommands::FindStart(const std::string& className) const {
  if (className.empty()) {
    return TClassTree::GetTopClasses(*namespace_);
  }
  return {TElementFinder(namespace_).FindClass(className)};
}

std::string TClassCommands::List(const std::string& className) const {
  TClassList classes = TClassTree::Flatten(FindStart(className));
  std::sort(classes.begin(), classes.end(),
            [](const auto& left, const auto& right) { return *left < *right; });
  TTable table(0);
  for (const auto& cimClass : classes) {
    table.AddRow({cimClass->GetName({}), TPrinter::ClassMarks(*cimClass)});
  }
  return table.ToString();
}

std::string TClassCommands::Tree(const std::string& className) const {
  std::string text;
  for (const auto& cimClass : FindStart(className)) {
    text += TPrinter::ClassText(*cimClass) + "\n" + Branches(*cimClass, "");
  }
  return text;
}

std::string TClassCommands::Describe(const std::string& className) const {
  return TClassDescription(TElementFinder(namespace_).FindClass(className)).ToString();
}

}  // namespace NZELVYR20
