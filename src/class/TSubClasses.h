#pragma once

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <set>
#include <string_view>
#include <utility>

#include "TOrderedTable.h"

namespace NZELVYR20 {

class TInmemClass;

/// The direct subclasses of a class in order of addition, which are found by their names.
class TSubClasses {
 public:
  using TTable = TOrderedTable<std::uint64_t, TInmemClass>;

 private:
  /// The names are those that the listed classes have.
  using TPlaces = std::set<std::pair<std::string_view, std::uint64_t>>;

 public:
  /// An entry made ahead: putting it in cannot fail.
  class TSpare {
   public:
    /// `name` is the subclass's own.
    TSpare(const boost::shared_ptr<TInmemClass>& subClass, std::string_view name)
        : element_(subClass) {
      TPlaces made{{name, 0}};
      place_ = made.extract(made.begin());
    }

   private:
    friend class TSubClasses;

    TTable::TSpare element_;
    TPlaces::node_type place_;
  };

  /// For walks.
  const TTable& Get() const { return table_; }

  bool IsEmpty() const { return table_.IsEmpty(); }

  /// Puts a subclass at the end; returns its position.
  std::uint64_t Add(TSpare spare) noexcept {
    spare.place_.value().second = end_;
    places_.insert(std::move(spare.place_));
    table_.Insert(end_, std::move(spare.element_));
    return end_++;
  }

  /// Takes out the first subclass of that name of which `matches(position, subClass)` is true.
  template <class TMatches>
  void EraseFirst(std::string_view name, TMatches matches) {
    auto place = places_.lower_bound({name, 0});
    for (; place != places_.end() && place->first == name; ++place) {
      const std::uint64_t position = place->second;
      if (!matches(position, *table_.Find(position))) continue;
      places_.erase(place);
      table_.Erase(position);
      return;
    }
  }

  void Clear() noexcept {
    places_.clear();
    table_.Clear();
  }

  /// Has the other's subclasses instead of its own. A failure changes nothing.
  void Assign(const TSubClasses& other) {
    TPlaces places(other.places_);
    auto taken = TTable().GetMissing(other.table_);
    Clear();
    places_.swap(places);
    table_.Insert(std::move(taken));
    end_ = other.end_;
  }

 private:
  TTable table_;
  TPlaces places_;
  std::uint64_t end_ = 0;  ///< the position of the next
};

}  // namespace NZELVYR20
