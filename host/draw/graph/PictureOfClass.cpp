#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ICIMPropertyDecl.h"
#include "ListClasses.h"
#include "Pictures.h"
#include "TEndOrder.h"
#include "TPrinter.h"

namespace NZELVYR20 {
namespace {

/// A reference that an association declares, and the class to whose instances it leads.
struct TClassEnd {
  std::string reference;
  boost::shared_ptr<ICIMClass> cimClass;
};

std::vector<TClassEnd> ListClassEnds(ICIMClass& association) {
  std::vector<TClassEnd> ends;
  for (const auto& declaration : ListPropertyDecls(association)) {
    if (declaration->GetType({}) != TCIMValue::TCIMType::kReference) continue;
    const auto cimClass = declaration->GetDefaultValue({}).GetReferencedClass();
    if (cimClass) ends.push_back({declaration->GetName({}), cimClass});
  }
  return ends;
}

class TClassPicture {
 public:
  TPicture Make(const boost::shared_ptr<ICIMClass>& top);

 private:
  std::size_t GetBox(ICIMClass& cimClass, TPicture::EBox form);
  void AddAssociation(const boost::shared_ptr<ICIMClass>& association);

  TPicture picture_;
  std::unordered_map<const ICIMClass*, std::size_t> boxes_;
  std::size_t ownCount_ = 0;  ///< of the boxes that are not outside
  TEndOrder order_;
};

std::size_t TClassPicture::GetBox(ICIMClass& cimClass, TPicture::EBox form) {
  const auto [place, isNew] = boxes_.emplace(&cimClass, picture_.boxes.size());
  if (isNew) {
    picture_.boxes.push_back(
        {TPrinter::ClassMarks(cimClass), {cimClass.GetName({})}, TPicture::kNowhere, form});
  }
  return place->second;
}

void TClassPicture::AddAssociation(const boost::shared_ptr<ICIMClass>& association) {
  const std::vector<TClassEnd> ends = ListClassEnds(*association);
  const auto isOwn = [this](const TClassEnd& end) {
    const auto found = boxes_.find(end.cimClass.get());
    return found != boxes_.end() && found->second < ownCount_;
  };
  for (const TClassEnd& from : ends) {
    for (const TClassEnd& to : ends) {
      const auto way = order_.FindWay(association, from.reference, to.reference);
      const bool isDrawn = way == EWay::kDown || (way == EWay::kLevel && &from < &to);
      if (!isDrawn || !(isOwn(from) || isOwn(to))) continue;
      const std::size_t first = GetBox(*from.cimClass, TPicture::EBox::kOutside);
      picture_.arrows.push_back({first, GetBox(*to.cimClass, TPicture::EBox::kOutside),
                                 association->GetName({}), TPicture::EArrow::kAside});
    }
  }
}

TPicture TClassPicture::Make(const boost::shared_ptr<ICIMClass>& top) {
  const TClassList classes = WithDescendants({top});
  for (const auto& cimClass : classes) GetBox(*cimClass, TPicture::EBox::kPlain);
  picture_.boxes.front().form = TPicture::EBox::kMain;
  ownCount_ = classes.size();
  for (std::size_t box = 1; box < classes.size(); ++box) {
    const auto above = boxes_.find(classes[box]->GetSuperClass({}).get());
    picture_.arrows.push_back({above->second, box, "", TPicture::EArrow::kSubclass});
  }
  if (const auto nameSpace = top->GetNamespace({})) {
    for (const auto& cimClass : ListAllClasses(*nameSpace)) {
      if (cimClass->IsAssociation({})) AddAssociation(cimClass);
    }
  }
  picture_.JoinArrows();
  return std::move(picture_);
}

}  // namespace

TPicture PictureOfClass(const boost::shared_ptr<ICIMClass>& top) {
  return TClassPicture().Make(top);
}

}  // namespace NZELVYR20
