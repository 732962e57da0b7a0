#pragma once

#include <boost/shared_ptr.hpp>
#include <cctype>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "ICoreLogger.h"
#include "TRootObject.h"
#include "TShown.h"
#include "TVYRException.h"

/// @file
/// The model: what the contract says about a namespace, as plain as can be, behind the very
/// interfaces, so that one driver can speak to both sides. Who holds whom is what the contract
/// says, too: what goes when is compared.
namespace NZELVYR20 {

using TAny = TCIMContext;  ///< the call context, which nobody reads
using TText = const std::string&;
using EFlavor = ICIMQualifierDecl::EFlavor;

/// In place of the end of a thread, which nothing stops either.
struct TThreadEnd {};

inline void LogModel(int level, TText text) { TRootObject::GetCoreLogger()->Log(level, text); }

[[noreturn]] inline void Refuse(int status, int level, TText why) {
  LogModel(level, "Inmem: " + why);
  throw TVYRException(status);
}

inline std::string Normalize(TText name) {
  std::string folded;
  for (const unsigned char c : name) {
    const bool isAlpha = c == '_' || (c < 128 && isalpha(c) != 0);
    const bool isDigit = !folded.empty() && c < 128 && isdigit(c) != 0;
    if (!isAlpha && !isDigit) Refuse(25, 0, "CIM name '" + name + "' is invalid");
    folded += static_cast<char>(tolower(c));
  }
  return folded;
}

/// What nobody compares or assigns here.
template <class TInterface>
struct TModelOf : TInterface {
  TModelOf() = default;
  TModelOf(const TModelOf&) : TInterface() {}
  bool operator==(TInterface&) const override { return false; }
  bool operator<(TInterface&) const override { return false; }
  TInterface& operator=(const TInterface&) override { return *this; }
};

template <class T>
T Demand(const T& found) {
  if (!found) throw TVYRException(15);
  return found;
}

/// Runs the call; status 15 means that what it looked at does not count.
template <class TCallback>
bool Try(const TCallback& call) {
  try {
    return call();
  } catch (const TVYRException& failure) {
    if (failure.GetStatusCode() != 15) throw TVYRException(failure.GetStatusCode());
    return false;
  }
}

/// Shared elements in the order of their keys.
template <class TKey, class T>
struct TTable {
  struct TEntry {
    TPtr<T> element;
    unsigned serial = 0;  ///< tells a walk what came after its start
  };
  std::map<TKey, TEntry> entries = {};
  unsigned serial = 0;

  TPtr<T> FindKey(const TKey& key) const {
    const auto found = entries.find(key);
    return found == entries.end() ? TPtr<T>() : found->second.element;
  }
  TPtr<T> Find(TText name) const { return FindKey(Normalize(name)); }
  bool Insert(const TKey& key, const TPtr<T>& element) {
    return entries.insert({key, {element, ++serial}}).second;
  }
  void InsertAll(const TTable& others) {
    for (const auto& [key, entry] : others.entries) Insert(key, entry.element);
  }
  /// What takes another's place is visited in its turn.
  void Put(const TKey& key, TPtr<T> element) {
    if (!Insert(key, element)) entries[key].element.swap(element);
  }
  void Append(const TPtr<T>& element) { Insert(static_cast<TKey>(serial + 1), element); }
  bool Erase(const TKey& key) { return !entries.extract(key).empty(); }
  void Remove(TText name) {
    if (!Erase(Normalize(name))) throw TVYRException(15);
  }
  template <class TMatches>
  void EraseFirst(const TMatches& matches) {
    for (auto at = entries.begin(); at != entries.end(); ++at) {
      if (matches(*at->second.element)) return void(entries.extract(at));
    }
  }
  void Clear() { std::exchange(entries, {}); }

  /// Visits what is there from the start of the walk until its turn.
  template <class TCallback>
  void Walk(bool stops, bool passes, const TCallback& call) const {
    const unsigned last = serial;
    for (auto at = entries.begin(); at != entries.end();) {
      const TKey key = at->first;
      const TEntry entry = at->second;
      try {
        if (entry.serial <= last && !call(entry.element) && stops) return;
      } catch (const TThreadEnd&) {
        throw;
      } catch (...) {
        if (passes) throw;
      }
      at = entries.upper_bound(key);
    }
  }
};

}  // namespace NZELVYR20
