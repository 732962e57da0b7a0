#include "TCIMReference.h"

#include <algorithm>

#include "FoldName.h"
#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "PathText.h"
#include "TCIMPathParser.h"
#include "TVYRException.h"

namespace NZELVYR20 {

namespace {

using TKey = std::pair<std::string, TCIMValue>;

std::string PathText(const ICIMClass* cimClass, const std::vector<const TKey*>& keys,
                     EPathForm form) {
  constexpr std::size_t kUsualKey = 48;
  std::string text;
  text.reserve(kUsualKey * (keys.size() + 1));
  if (cimClass) text += cimClass->GetName({});
  char separator = '.';
  for (const TKey* key : keys) {
    text += separator;
    AppendKeyName(text, key->first, form);
    text += '=';
    AppendKeyValue(text, key->second, form);
    separator = ',';
  }
  return text;
}

std::vector<const TKey*> ListKeys(const std::vector<TKey>& keys) {
  std::vector<const TKey*> listed;
  listed.reserve(keys.size());
  for (const TKey& key : keys) listed.push_back(&key);
  return listed;
}

// Look-ups answer a miss with status 15 or with an empty pointer; from a path it is always 15.
template <class TElement>
boost::shared_ptr<ICIMElement> Found(const boost::shared_ptr<TElement>& element) {
  if (!element) throw TVYRException(TVYRStatusCode::kNotFound);
  return element;
}

}  // namespace

TCIMReference::TCIMReference(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                             const TCIMContext& /*context*/)
    : namespace_(nameSpace) {}

void TCIMReference::SetClass(const boost::shared_ptr<ICIMClass>& cimClass) {
  path_.clear();
  class_ = cimClass;
}

void TCIMReference::AddKeyValue(const std::string& name, const TCIMValue& value) {
  path_.clear();
  const auto present = std::find_if(keys_.begin(), keys_.end(), [&name](const TKey& key) {
    return CompareFolded(key.first, name) == 0;
  });
  if (present == keys_.end()) {
    constexpr std::size_t kUsualKeys = 4;
    if (keys_.empty()) keys_.reserve(kUsualKeys);
    keys_.emplace_back(name, value);
  } else {
    present->second = value;
  }
}

boost::shared_ptr<ICIMClass> TCIMReference::GetClass() const { return class_; }

std::string TCIMReference::GetClassName() const {
  return class_ ? class_->GetName({}) : std::string();
}

const std::string& TCIMReference::GetPath() const {
  if (!path_.empty()) return path_;
  std::vector<const TKey*> keys = ListKeys(keys_);
  std::sort(keys.begin(), keys.end(), [](const TKey* left, const TKey* right) {
    return CompareFolded(left->first, right->first) < 0;
  });
  path_ = PathText(class_.get(), keys, EPathForm::kCanonical);
  return path_;
}

std::string TCIMReference::ToString() const {
  return PathText(class_.get(), ListKeys(keys_), EPathForm::kDeclared);
}

boost::shared_ptr<ICIMElement> TCIMReference::GetCIMElement(bool wantsClass) const {
  if (!class_) throw TVYRException(TVYRStatusCode::kNotFound);
  boost::shared_ptr<ICIMNamespace> nameSpace = namespace_.lock();
  if (!nameSpace) nameSpace = class_->GetNamespace({});
  if (wantsClass) return nameSpace ? Found(nameSpace->GetClass(GetClassName(), {})) : Found(class_);
  if (!nameSpace) throw TVYRException(TVYRStatusCode::kNotFound);
  return Found(nameSpace->GetInstance(*this, {}));
}

TCIMReference TCIMReference::Parse(const std::string& text,
                                   const boost::shared_ptr<ICIMNamespace>& nameSpace) {
  return TCIMPathParser::ParseText(text, nameSpace);
}

}  // namespace NZELVYR20
