#include "CheckIndex.h"

#include <algorithm>
#include <map>
#include <set>

#include "TCIMReference.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"
#include "TReferrerWalk.h"

// This file alone is compiled without access control.
namespace NZELVYR20 {
namespace {

class TIndexCheck {
 public:
  explicit TIndexCheck(const TInmemClass& cimClass)
      : cimClass_(cimClass), table_(cimClass.instances_), index_(table_.references_) {}

  std::string Run() {
    std::size_t removed = 0;
    for (const auto& entry : table_.order_) {
      removed += entry->instance ? 0 : 1;
      entry->instance ? CheckEntry(*entry) : CheckRemoved(*entry);
    }
    Expect(removed == table_.removed_, "as many are marked removed as there are");
    CheckOrder();
    CheckReferrers(index_.unsettled_, [](const TReferences& references, std::uint32_t slot) {
      return references.unsettledSlot == slot;
    });
    if (!index_.isStale_) CheckMakes();
    Expect(index_.walks_ == nullptr && table_.cursors_ == nullptr, "no walk is left behind");
    return faults_;
  }

 private:
  void Expect(bool holds, const char* rule) {
    if (!holds) faults_ += std::string("not true in ") + cimClass_.name_ + ": " + rule + '\n';
  }

  void CheckOrder() {
    const auto isBefore = [](const auto& left, const auto& right) {
      return std::tie(left->path, left->serial) < std::tie(right->path, right->serial);
    };
    const auto first = table_.order_.begin();
    const auto end = first + static_cast<std::ptrdiff_t>(table_.sorted_);
    Expect(std::is_sorted(first, end, isBefore), "what is called sorted is");
  }

  void CheckRemoved(const TInstanceEntry& entry) {
    Expect(!entry.references && entry.targets == nullptr, "nothing is known of what was taken out");
    Expect(table_.FindEntry(entry.path) != &entry, "what was taken out is not found");
  }

  void CheckEntry(const TInstanceEntry& entry) {
    std::size_t places = 0;
    for (const auto* own = entry.instance->entries_; own != nullptr; own = own->nextOfInstance) {
      places += own == &entry ? 1 : 0;
    }
    Expect(places == 1, "an instance knows its place, once");
    Expect(table_.FindEntry(entry.path) == &entry, "an instance is found under its path");
    if (!index_.isStale_ && entry.instance->MayHaveReferences()) {
      Expect(index_.IsStale() || entry.references, "what may have references is in the index");
    }
    if (entry.references) CheckReferences(entry);
    std::set<const TReferenceIndex*> seen;
    for (const auto* target = entry.targets; target != nullptr; target = target->nextOfEntry_) {
      Expect(seen.insert(target->index_).second, "an index has one target for an entry");
      CheckTarget(*target, entry);
    }
  }

  void CheckReferences(const TInstanceEntry& entry) {
    const TReferences& references = *entry.references;
    Expect(references.index == &index_, "references stand in the index of their table");
    const auto& unsettled = index_.unsettled_.GetSlots();
    if (references.IsSettled()) {
      Expect(index_.IsStale() || entry.instance->AreAllLinked(references),
             "what is settled has links for all references");
    } else {
      Expect(references.unsettledSlot < unsettled.size() &&
                 unsettled[references.unsettledSlot] == &entry,
             "what is unsettled stands among the unsettled");
    }
    const TReferences::TLink* before = nullptr;
    for (const TReferences::TLink& link : references.links) {
      Expect(before == nullptr || before->position < link.position, "links stand in order");
      CheckLink(link, entry);
      before = &link;
    }
  }

  void CheckLink(const TReferences::TLink& link, const TInstanceEntry& entry) {
    Expect(entry.instance->FindReferencedClass(link.position) == link.referencedClass &&
               link.referencedClass != nullptr,
           "a link knows the class of its own value");
    const TInstanceEntry& end = link.target->GetEntry();
    const TReferenceTarget* known = end.targets;
    while (known != nullptr && known != link.target) known = known->nextOfEntry_;
    Expect(known != nullptr && link.target->index_ == &index_,
           "an entry knows the targets that it is");
    const auto& slots = link.target->referrers.GetSlots();
    Expect(link.slot < slots.size() && slots[link.slot] == &entry, "a link knows its slot");
    const TCIMReference path(entry.instance->properties_[link.position].GetValue({}));
    const auto nameSpace = cimClass_.namespace_.lock();
    const auto endClass = nameSpace ? nameSpace->FindClass(path.GetClassName()) : nullptr;
    Expect(endClass && endClass->FindEntry(path) == &end, "a link leads where the namespace says");
  }

  void CheckTarget(const TReferenceTarget& target, const TInstanceEntry& entry) {
    Expect(target.entry_ == &entry, "a target is that of its entry");
    Expect(!target.referrers.IsEmpty(), "a target has referrers");
    CheckReferrers(target.referrers, [&](const TReferences& references, std::uint32_t slot) {
      const auto* const link = references.FindLinkTo(target);
      return link != nullptr && link->slot == slot && references.index == target.index_;
    });
  }

  template <class TKnows>
  void CheckReferrers(const TReferrers& referrers, TKnows knows) {
    std::uint32_t count = 0;
    const auto& slots = referrers.GetSlots();
    for (std::uint32_t slot = 0; slot < slots.size(); ++slot) {
      if (!slots[slot]) continue;
      ++count;
      Expect(slots[slot]->references && knows(*slots[slot]->references, slot),
             "a referrer knows where it stands");
    }
    Expect(count == referrers.count_ && referrers.sorted_ <= slots.size(), "referrers are counted");
  }

  void CheckMakes() {
    std::map<const TDeclaredProperties*, std::size_t> counts;
    for (const auto& entry : table_.order_) {
      if (entry->instance) ++counts[entry->instance->GetDeclared().get()];
    }
    Expect(counts.size() == index_.makes_.size(), "the makes of instances are known");
    for (const auto& make : index_.makes_) {
      Expect(counts[make.declared.get()] == make.count, "the instances of a make are counted");
    }
  }

  const TInmemClass& cimClass_;
  const TInstanceTable& table_;
  const TReferenceIndex& index_;
  std::string faults_;
};

}  // namespace

std::string CheckIndex(const TInmemClass& cimClass) { return TIndexCheck(cimClass).Run(); }

}  // namespace NZELVYR20
