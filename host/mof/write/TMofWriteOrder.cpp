#include "TMofWriteOrder.h"

#include <cstddef>
#include <unordered_map>

#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "OrderByNeeds.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

/// The elements, each after those that `getNeeded` names for it.
template <class TElement, class TGetNeeded>
std::vector<boost::shared_ptr<TElement>> Arrange(
    const std::vector<boost::shared_ptr<TElement>>& elements, const TGetNeeded& getNeeded) {
  std::unordered_map<const TElement*, std::size_t> numbers;
  for (const auto& element : elements) numbers.emplace(element.get(), numbers.size());
  const auto getNeeds = [&](std::size_t number) {
    std::vector<std::size_t> needs;
    for (const TElement* needed : getNeeded(*elements[number])) {
      const auto found = numbers.find(needed);
      if (found != numbers.end()) needs.push_back(found->second);
    }
    return needs;
  };
  std::vector<boost::shared_ptr<TElement>> arranged;
  arranged.reserve(elements.size());
  for (const std::size_t number : OrderByNeeds(elements.size(), getNeeds)) {
    arranged.push_back(elements[number]);
  }
  return arranged;
}

using TNeededClasses = std::vector<const ICIMClass*>;

/// A namespace's classes, each before its subclasses and after the whole tree of its elder
/// sibling.
class TTree {
 public:
  explicit TTree(ICIMNamespace& nameSpace) {
    Push(ListTopClasses(nameSpace));
    while (!waiting_.empty()) {
      classes_.push_back(waiting_.back());
      waiting_.pop_back();
      Push(ListSubClasses(*classes_.back(), false));
    }
  }

  const TClassList& GetClasses() const { return classes_; }

  TNeededClasses GetElders(const ICIMClass& cimClass) const {
    TNeededClasses elders{cimClass.GetSuperClass({}).get()};
    const auto found = elderSiblings_.find(&cimClass);
    if (found != elderSiblings_.end()) elders.push_back(found->second);
    return elders;
  }

 private:
  void Push(const TClassList& siblings) {
    for (std::size_t number = 1; number < siblings.size(); ++number) {
      elderSiblings_.emplace(siblings[number].get(), siblings[number - 1].get());
    }
    waiting_.insert(waiting_.end(), siblings.rbegin(), siblings.rend());
  }

  TClassList classes_;
  TClassList waiting_;
  std::unordered_map<const ICIMClass*, const ICIMClass*> elderSiblings_;
};

void AppendReferencedClasses(TNeededClasses& needed, const ICIMClass& cimClass) {
  for (const auto& property : ListPropertyDecls(cimClass)) {
    needed.push_back(property->GetDefaultValue({}).GetReferencedClass().get());
  }
}

/// What a path leads to, if anything.
const ICIMInstance* Follow(const TCIMReference& path) {
  try {
    return dynamic_cast<const ICIMInstance*>(path.GetCIMElement(false).get());
  } catch (const TVYRException&) {
    return nullptr;
  }
}

std::vector<TCIMReference> ListReferences(ICIMInstance& instance) {
  std::vector<TCIMReference> references;
  instance.EnumerateProperties(
      [&references](const boost::shared_ptr<ICIMProperty>& property) {
        const TCIMValue& value = property->GetValue({});
        if (value.IsReference() && !value.IsNull()) {
          references.push_back(static_cast<TCIMReference>(value));
        }
        return true;
      },
      {});
  return references;
}

std::vector<const ICIMInstance*> ListReferredInstances(ICIMInstance& instance) {
  std::vector<const ICIMInstance*> referred;
  for (const TCIMReference& path : ListReferences(instance)) referred.push_back(Follow(path));
  return referred;
}

}  // namespace

TClassList TMofWriteOrder::ListClasses(ICIMNamespace& nameSpace) {
  const TTree tree(nameSpace);
  return Arrange(tree.GetClasses(), [&tree](const ICIMClass& cimClass) {
    TNeededClasses needed = tree.GetElders(cimClass);
    AppendReferencedClasses(needed, cimClass);
    return needed;
  });
}

TInstanceList TMofWriteOrder::ListInstances(const TClassList& classes) {
  TInstanceList instances;
  TInstanceList referring;
  for (const auto& cimClass : classes) {
    for (const auto& instance : NZELVYR20::ListInstances(*cimClass, false)) {
      (ListReferences(*instance).empty() ? instances : referring).push_back(instance);
    }
  }
  const TInstanceList arranged = Arrange(referring, ListReferredInstances);
  instances.insert(instances.end(), arranged.begin(), arranged.end());
  return instances;
}

}  // namespace NZELVYR20
