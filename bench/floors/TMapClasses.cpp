#include "TMapClasses.h"

#include <cctype>

#include "TDiskRow.h"

namespace NZELVYR20 {
namespace {

std::string Fold(const std::string& name) {
  std::string folded(name);
  for (char& character : folded) {
    character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
  }
  return folded;
}

}  // namespace

TFloorRecord TMapClasses::DescribeAndMark() {
  return {{Fold(kDescription), std::make_shared<TFloorValue>(kDescriptionText)},
          {Fold(kMark), std::make_shared<TFloorValue>(true)}};
}

TMapClasses::TMapClasses(const TClassRows& rows) {
  for (const auto& row : rows.classes) {
    const auto made = std::make_shared<TClass>();
    made->name = row.name;
    made->qualifiers = DescribeAndMark();
    if (top_) {
      const auto parent = classes_.find(Fold(rows.classes[row.parent].name))->second;
      made->declarations = parent->declarations;
      parent->subClasses.push_back(made);
    } else {
      top_ = made;
    }
    for (const std::string& name : row.properties) {
      made->declarations[Fold(name)] =
          std::make_shared<TDeclaration>(TDeclaration{name, {}, DescribeAndMark()});
    }
    classes_[Fold(row.name)] = made;
  }
}

void TMapClasses::AddInstances(const TClassRows& rows) {
  for (const auto& row : rows.classes) {
    const auto& cimClass = classes_.find(Fold(row.name))->second;
    for (const std::string& key : row.keys) {
      const auto record = std::make_shared<TFloorRecord>();
      (*record)["key"] = std::make_shared<TFloorValue>(key);
      cimClass->instances[MakePathText((row.name + ".key").c_str(), key)] = record;
    }
  }
}

bool TMapClasses::Has(const std::string& name) const {
  return classes_.find(Fold(name)) != classes_.end();
}

std::size_t TMapClasses::CountSubClasses(const TClass& top) {
  std::size_t count = top.subClasses.size();
  for (const auto& subClass : top.subClasses) count += CountSubClasses(*subClass);
  return count;
}

std::size_t TMapClasses::CountInstances(const TClass& top) {
  std::size_t count = 0;
  for (const auto& [path, record] : top.instances) count += record->empty() ? 0 : 1;
  for (const auto& subClass : top.subClasses) count += CountInstances(*subClass);
  return count;
}

std::size_t TMapClasses::CountSubClasses() const { return CountSubClasses(*top_); }
std::size_t TMapClasses::CountInstances() const { return CountInstances(*top_); }

}  // namespace NZELVYR20
