#include "TMofWriteOrder.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <queue>
#include <unordered_map>
#include <utility>

#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

/// Numbers elements by their place in the order that is wanted, and knows what each one needs.
class TNeeds {
 public:
  explicit TNeeds(std::size_t count) : neededBy_(count), missing_(count, 0) {}

  void Add(std::size_t element, std::size_t needed) {
    if (element == needed) return;
    neededBy_[needed].push_back(element);
    ++missing_[element];
  }

  /// Always the first element that has all it needs; where there is none, for elements that need
  /// each other, the first that is left.
  std::vector<std::size_t> Order() {
    std::vector<std::size_t> order;
    std::vector<bool> isTaken(missing_.size(), false);
    for (std::size_t element = 0; element < missing_.size(); ++element) {
      if (missing_[element] == 0) ready_.push(element);
    }
    for (std::size_t firstLeft = 0; order.size() < missing_.size();) {
      while (firstLeft < isTaken.size() && isTaken[firstLeft]) ++firstLeft;
      const std::size_t element = ready_.empty() ? firstLeft : ready_.top();
      if (!ready_.empty()) ready_.pop();
      if (isTaken[element]) continue;
      isTaken[element] = true;
      order.push_back(element);
      Satisfy(element);
    }
    return order;
  }

 private:
  void Satisfy(std::size_t needed) {
    for (const std::size_t element : neededBy_[needed]) {
      if (--missing_[element] == 0) ready_.push(element);
    }
  }

  std::vector<std::vector<std::size_t>> neededBy_;
  std::vector<std::size_t> missing_;
  std::priority_queue<std::size_t, std::vector<std::size_t>, std::greater<>> ready_;
};

template <class TElement>
std::vector<boost::shared_ptr<TElement>> Arrange(
    const std::vector<boost::shared_ptr<TElement>>& elements, TNeeds needs) {
  std::vector<boost::shared_ptr<TElement>> arranged;
  arranged.reserve(elements.size());
  for (const std::size_t element : needs.Order()) arranged.push_back(elements[element]);
  return arranged;
}

/// From elements to their numbers.
template <class TElement>
class TNumbers {
 public:
  explicit TNumbers(const std::vector<boost::shared_ptr<TElement>>& elements) {
    for (const auto& element : elements) numbers_.emplace(element.get(), numbers_.size());
  }

  void AddNeed(TNeeds& needs, std::size_t element, const TElement* needed) const {
    const auto found = numbers_.find(needed);
    if (found != numbers_.end()) needs.Add(element, found->second);
  }

 private:
  std::unordered_map<const TElement*, std::size_t> numbers_;
};

/// Every class before its subclasses and behind the whole tree of its elder siblings.
TClassList ListTree(ICIMNamespace& nameSpace) {
  TClassList classes;
  TClassList waiting = TClassTree::GetTopClasses(nameSpace);
  std::reverse(waiting.begin(), waiting.end());
  while (!waiting.empty()) {
    classes.push_back(waiting.back());
    waiting.pop_back();
    const TClassList below = TClassTree::GetSubClasses(*classes.back());
    waiting.insert(waiting.end(), below.rbegin(), below.rend());
  }
  return classes;
}

TClassList ListReferencedClasses(const ICIMClass& cimClass) {
  TClassList referenced;
  for (const auto& property :
       ListElements<ICIMPropertyDecl>([&cimClass](const TCIMPropertyDeclCallback& callback) {
         cimClass.EnumeratePropertyDecls(callback, {});
       })) {
    const auto target = property->GetDefaultValue({}).GetReferencedClass();
    if (target) referenced.push_back(target);
  }
  return referenced;
}

using TInstanceList = TMofWriteOrder::TInstanceList;

/// What a property refers to; nothing for other values and where the path leads nowhere.
boost::shared_ptr<ICIMElement> Follow(const TCIMValue& value) {
  try {
    return static_cast<TCIMReference>(value).GetCIMElement(false);
  } catch (const TVYRException&) {
    return {};
  }
}

std::vector<TCIMValue> ListReferences(ICIMInstance& instance) {
  std::vector<TCIMValue> references;
  instance.EnumerateProperties(
      [&references](const boost::shared_ptr<ICIMProperty>& property) {
        const TCIMValue& value = property->GetValue({});
        if (value.IsReference() && !value.IsNull()) references.push_back(value);
        return true;
      },
      {});
  return references;
}

}  // namespace

TClassList TMofWriteOrder::ListClasses(ICIMNamespace& nameSpace) {
  const TClassList classes = ListTree(nameSpace);
  const TNumbers<ICIMClass> numbers(classes);
  TNeeds needs(classes.size());
  std::unordered_map<const ICIMClass*, const ICIMClass*> elderSibling;
  for (std::size_t number = 0; number < classes.size(); ++number) {
    const ICIMClass& cimClass = *classes[number];
    const auto superClass = cimClass.GetSuperClass({});
    numbers.AddNeed(needs, number, superClass.get());
    numbers.AddNeed(needs, number, std::exchange(elderSibling[superClass.get()], &cimClass));
    for (const auto& target : ListReferencedClasses(cimClass)) {
      numbers.AddNeed(needs, number, target.get());
    }
  }
  return Arrange(classes, std::move(needs));
}

TInstanceList TMofWriteOrder::ListInstances(const TClassList& classes) {
  TInstanceList arranged;
  TInstanceList referring;
  for (const auto& cimClass : classes) {
    for (const auto& instance :
         ListElements<ICIMInstance>([&cimClass](const TCIMInstanceCallback& callback) {
           cimClass->EnumerateInstances(callback, false, {});
         })) {
      (ListReferences(*instance).empty() ? arranged : referring).push_back(instance);
    }
  }
  const TNumbers<ICIMInstance> numbers(referring);
  TNeeds needs(referring.size());
  for (std::size_t number = 0; number < referring.size(); ++number) {
    for (const TCIMValue& reference : ListReferences(*referring[number])) {
      const auto target = boost::dynamic_pointer_cast<ICIMInstance>(Follow(reference));
      numbers.AddNeed(needs, number, target.get());
    }
  }
  const TInstanceList rest = Arrange(referring, std::move(needs));
  arranged.insert(arranged.end(), rest.begin(), rest.end());
  return arranged;
}

}  // namespace NZELVYR20
