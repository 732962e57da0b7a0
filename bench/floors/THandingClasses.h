#pragma once

#include <boost/function.hpp>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "TClassRows.h"

namespace NZELVYR20 {

/// A bare tree of classes, walked as the contract has it: a callback gets a pointer of its own to
/// each.
class THandingClasses {
 public:
  explicit THandingClasses(const TClassRows& rows) {
    for (const auto& row : rows.classes) {
      const auto made = boost::make_shared<TClass>();
      made->name = row.name;
      if (!classes_.empty()) classes_[row.parent]->subClasses.push_back(made);
      classes_.push_back(made);
    }
  }

  /// Nothing walks them here.
  void AddInstances(const TClassRows&) {}

  std::size_t CountSubClasses() const {
    std::size_t count = 0;
    WalkDown(*classes_.front(), [&count](const TPointer&) { return ++count != 0; });
    return count;
  }

 private:
  struct TClass;
  using TPointer = boost::shared_ptr<TClass>;
  using TCallback = boost::function<bool(TPointer)>;

  struct TClass {
    std::string name;
    std::vector<TPointer> subClasses;
  };

  static void WalkDown(const TClass& top, const TCallback& callback) {
    for (const TPointer& subClass : top.subClasses) {
      if (callback(subClass)) WalkDown(*subClass, callback);
    }
  }

  std::vector<TPointer> classes_;
};

}  // namespace NZELVYR20
