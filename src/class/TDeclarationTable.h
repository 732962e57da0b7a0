#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <utility>

#include "TNameTable.h"

namespace NZELVYR20 {

/// The declarations of one class, own and inherited, each of which is told that it is used.
template <class TDeclaration>
class TDeclarationTable : private TNameTable<TDeclaration> {
  using TTable = TNameTable<TDeclaration>;

 public:
  using typename TTable::EAdded;
  using typename TTable::TDraft;
  using typename TTable::TPointer;

  class TCursor : public TTable::TCursor {
   public:
    explicit TCursor(const TDeclarationTable& table, EAdded added = EAdded::kSkipped)
        : TTable::TCursor(table, added) {}
  };

  TDeclarationTable() = default;
  TDeclarationTable(const TDeclarationTable&) = delete;
  TDeclarationTable& operator=(const TDeclarationTable&) = delete;
  ~TDeclarationTable() {
    ForEach([this](const std::string&, const TPointer& declaration) { End(*declaration); });
  }

  using TTable::Find;
  using TTable::ForEach;

  TDraft GetMissing(const TDeclarationTable& other) const { return TTable::GetMissing(other); }

  void Insert(TDraft draft) {
    draft.ForEach([this](TDeclaration& declaration) { Begin(declaration); });
    TTable::Insert(std::move(draft));
  }

  bool Insert(const std::string& key, const TPointer& declaration) {
    const bool inserted = TTable::Insert(key, declaration);
    if (inserted) Begin(*declaration);
    return inserted;
  }

  void Put(const std::string& key, const TPointer& declaration) {
    const TPointer replaced = Find(key);
    TTable::Put(key, declaration);
    Begin(*declaration);
    if (replaced) End(*replaced);
  }

  bool Erase(const std::string& key) {
    const TPointer erased = Find(key);
    if (!TTable::Erase(key)) return false;
    End(*erased);
    return true;
  }

  /// The class has lost its namespace. What goes then may have the host change the table.
  void Retire() {
    isRetired_ = true;
    ForEach([](const std::string&, const TPointer& declaration) { declaration->Retire(); });
    TCursor cursor(*this);
    while (const auto& declaration = cursor.Next()) declaration->ReleaseUnused();
  }

 private:
  void Begin(TDeclaration& declaration) {
    isRetired_ ? declaration.BeginRemaining() : declaration.BeginUse();
  }
  void End(TDeclaration& declaration) {
    isRetired_ ? declaration.EndRemaining() : declaration.EndUse();
  }

  bool isRetired_ = false;
};

}  // namespace NZELVYR20
