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
      : cimClass_(cimClass), table_(cimClass.instances_), index_(table_.index_) {}

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
    Expect(index_.walks_.IsEmpty() && table_.cursors_.IsEmpty(), "no walk is left behind");
    return faults_;
  }

 private:
  void Expect(bool holds, const char* rule) {
    if (!holds) faults_ += std::string("not true in ") + cimClass_.name_ + ": " + rule + '\n';
  }

  void CheckOrder() {
    const auto isBefore = [](const auto& left, const auto& right) {
      const auto order = left->GetPath().compare(right->GetPath());
      return order < 0 || (order == 0 && left->serial < right->serial);
    };
    const auto first = table_.order_.begin();
    const auto end = first + static_cast<std::ptrdiff_t>(table_.sorted_);
    Expect(std::is_sorted(first, end, isBefore), "what is called sorted is");
  }

  void CheckRemoved(const TInstanceEntry& entry) {
    Expect(!entry.references && entry.asEnd.IsEmpty(), "nothing is known of what was taken out");
    Expect(table_.FindEntry(entry.GetPath()) != &entry, "what was taken out is not found");
  }

  void CheckEntry(const TInstanceEntry& entry) {
    std::size_t places = 0;
    for (const TInstanceEntry& own : entry.instance->GetEntries()) places += &own == &entry ? 1 : 0;
    Expect(places == 1, "an instance knows its place, once");
    Expect(table_.FindEntry(entry.GetPath()) == &entry, "an instance is found under its path");
    if (!index_.isStale_ && index_.countReferences_(*entry.instance)) {
      Expect(index_.IsStale() || entry.references, "what may have references is in the index");
    }
    if (entry.references) CheckReferences(entry);
    std::set<const TReferenceIndex*> seen;
    for (const TLinkedEnd& end : entry.asEnd) {
      Expect(seen.insert(&end.index).second, "an entry is one end of an index");
      CheckEnd(end, entry);
    }
  }

  void CheckReferences(const TInstanceEntry& entry) {
    const TReferences& references = *entry.references;
    Expect(references.index == &index_, "references stand in the index of their table");
    const auto& unsettled = index_.unsettled_.GetSlots();
    if (references.IsSettled()) {
      Expect(index_.IsStale() || index_.AreAllLinked(entry),
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
    const auto& instance = static_cast<const TInmemInstance&>(*entry.instance);
    Expect(instance.FindReferencedClass(link.position) == link.referencedClass &&
               link.referencedClass != nullptr,
           "a link knows the class of its own value");
    const TInstanceEntry& end = link.end->entry;
    const auto isKnown = [&](const TLinkedEnd& known) { return &known == link.end; };
    Expect(std::any_of(end.asEnd.begin(), end.asEnd.end(), isKnown) && &link.end->index == &index_,
           "an entry knows the ends that it is");
    const auto& slots = link.end->referrers.GetSlots();
    Expect(link.slot < slots.size() && slots[link.slot] == &entry, "a link knows its slot");
    const TCIMReference path(instance.GetValueAt(link.position));
    const auto nameSpace = cimClass_.namespace_.lock();
    const auto endClass = nameSpace ? nameSpace->FindClass(path.GetClassName()) : nullptr;
    Expect(endClass && endClass->instances_.FindEntry(path.GetPath()) == &end,
           "a link leads where the namespace says");
  }

  void CheckEnd(const TLinkedEnd& end, const TInstanceEntry& entry) {
    Expect(&end.entry == &entry, "an end is that of its entry");
    Expect(!end.referrers.IsEmpty(), "an end has referrers");
    CheckReferrers(end.referrers, [&](const TReferences& references, std::uint32_t slot) {
      const auto* const link = references.FindLinkTo(end);
      return link != nullptr && link->slot == slot && references.index == &end.index;
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
