#pragma once

#include <random>

#include "Operations.h"

namespace NZELVYR20 {

/// Draws scripts: operations with whatever stands in the registers, and recipes for what they alone
/// would meet too seldom.
class TGenerator {
 public:
  explicit TGenerator(unsigned seed) : random_(seed), isStarved_(Draw(2) == 0) {}

  /// Each walk of the table, from anywhere.
  TScript MakeWalks() {
    for (const TOperation& operation : kOperations) {
      Add(static_cast<int>(&operation - kOperations), Draw(8), Draw(8), 0, 0, 0);
      if (!IsWalk(script_.back().operation)) script_.pop_back();
    }
    return script_;
  }

  TScript Make(std::size_t size) {
    for (space_ = 0; space_ < 2; ++space_) MakeSpace();
    const std::size_t setUp = script_.size();
    std::vector<int> lots;
    for (const TOperation& operation : kOperations) {
      const int row = static_cast<int>(&operation - kOperations);
      lots.insert(lots.end(), operation.weight, row);
      if (IsWalk(row)) walks_.push_back(row);
    }
    while (script_.size() < size) {
      space_ = Draw(4) == 0 ? 1 : 0;
      const int recipe = Draw(60);
      if (recipe == 0) DefineClass(Draw(8));
      if (recipe > 0 && recipe < 4) PutInstance(Draw(8));
      if (recipe == 4) WalkAndRelink();
      if (recipe == 5) Draw(3) == 0 ? UseRoot(Draw(8)) : WalkAndAct();
      const int operation = lots[Draw(static_cast<unsigned>(lots.size()))];
      const int name = Draw(3) == 0 ? Draw(1000) : Draw(6);
      if (recipe > 5) {
        Add(operation, Draw(8), Draw(8), name, Draw(3) == 0 ? 0 : Draw(768), Draw(32));
      }
      if (recipe > 5 && Draw(8) == 0) script_.back().inner = 1 + Draw(2);
    }
    if (isStarved_) AddFaults(setUp);
    return script_;
  }

 private:
  int Draw(unsigned below) { return static_cast<int>(random_() % below); }
  void Add(const char* part, int a, int b, int name, int value, int flag) {
    Add(FindRow(part), a, b, name, value, flag);
  }
  void Add(int operation, int a, int b, int name, int value, int flag) {
    script_.push_back({operation, a, b, name, value, flag, space_, 0, 0});
  }

  /// Nothing is given up before there is something.
  void AddFaults(std::size_t setUp) {
    for (std::size_t at = 0; at < script_.size(); ++at) {
      if (Draw(2) != 0) continue;
      const int n = 1 + Draw(Draw(4) == 0 ? 100 : 8);
      script_[at].fault = 8 * n + 2 * Draw(4) + (at > setUp && Draw(2) == 0 ? 1 : 0);
    }
  }

  void MakeSpace() {
    Add("allocate(", 0, 0, 0, 0, 1 + Draw(2));
    for (int q = 0; q < 8; ++q) {
      Add("AllocateQualifierDecl", q, 0, q, 0, q < 4 && Draw(4) != 0 ? 3 : Draw(8));
      Add("Q()->AddToNamespace", q, 0, 0, 0, 0);
    }
    if (Draw(2) == 0) Redefine();
    for (int c = 0; c < 8; ++c) {
      if (space_ == 0 || Draw(2) == 0) DefineClass(c);
    }
    for (int i = 0; i < 8; ++i) {
      if (space_ == 0 || Draw(2) == 0) PutInstance(i);
    }
  }

  void AddProperty(int c, int name, int value, bool isKey) {
    Add("AllocatePropertyDecl", c, 0, name, value, 0);
    if (isKey) Add("AllocateQualifier(", 0, 1, 0, 0, 0);
    if (Draw(3) == 0) {
      Add("AllocateQualifier(", 0, 1, 0, Draw(kConstants), Draw(6) == 0 ? 1 : 4 + Draw(4));
    }
    Add("D()->AddToClass", c, 0, 0, 0, 0);
  }

  /// The last three registers are for associations.
  void DefineClass(int c) {
    const int super = Draw(4) == 0 ? Draw(c + 1) : 0;
    const int name = Draw(4) == 0 ? Draw(15) : c;
    Add("AllocateClass", c, super, name, 0, c < 5 ? 1 : Draw(6));
    if (Draw(6) == 0) Add("AllocateQualifier(", c, 0, 0, 0, 3);
    AddProperty(c, 0, 1, true);
    if (c >= 5) {
      Add("AllocateQualifier(", c, 0, 0, 0, 2);
      AddProperty(c, 1, kConstants + 32 * (Draw(4) == 0 ? Draw(5) : 0), Draw(2) == 0);
      AddProperty(c, 2, kConstants + 32 * (Draw(4) == 0 ? Draw(5) : 0), Draw(2) == 0);
    }
    if (c >= 5 && Draw(3) == 0) AddProperty(c, 5, kConstants + 32 * Draw(3), false);
    const int again = 7 + Draw(6);
    for (int i = 0; i < Draw(3); ++i) AddProperty(c, again, 1 + Draw(3), false);
    Add("AllocateMethodDecl", c, 0, Draw(4), 0, Draw(2));
    if (Draw(2) == 0) Add("AllocateQualifier(", 0, 2, 0, 0, 1);
    for (int i = 0; i < Draw(4); ++i) {
      Add("AllocateParameterDecl", c, 0, i, 0, Draw(2));
      for (int q = Draw(3); q < 3; ++q) Add("AllocateQualifier(", c, 3, 0, Draw(3), 4 + q);
      Add("AddToMethod", c, 0, 0, 0, 0);
    }
    Add("M()->AddToClass", c, 0, 0, 0, 0);
    Add("C()->AddToNamespace", c, 0, 0, 0, 0);
  }

  /// Only a class that was made before its namesake was added can take its place. It has other
  /// subclasses then and gets more.
  void Redefine() {
    const int name = 3 + Draw(2);
    for (const int c : {1, 2}) {
      Add("AllocateClass", c, 0, Draw(3) == 0 ? 9 + 5 * (name - 3) : name, 0, Draw(2));
      AddProperty(c, 0, 1, true);
    }
    for (int i = 0; i < 6; ++i) {
      const int c = 1 + Draw(2);
      Add("C()->AddToNamespace", c, 0, 0, 0, 0);
      Add("AllocateClass", 3, c, 5 + Draw(5), 0, 1);
      if (Draw(3) != 0) Add("C()->AddToNamespace", 3, 0, 0, 0, 0);
      Add("EnumerateSubClasses", c, Draw(2), 0, 0, 0);
    }
  }

  /// The last three registers are for instances of associations.
  void PutInstance(int i) {
    if (i < 5) return AddInstance(i, Draw(5), 1 + Draw(2));
    const int near = Draw(5);
    PutAssociation(i, 5 + Draw(3), 1 + Draw(2), near);
    Add("EnumerateAssociationInstances", 0, near, Sometimes(32), Sometimes(16), Draw(8));
    Add("EnumerateAssociatedInstances", Draw(8), near, Sometimes(32), Sometimes(16), Sometimes(32));
  }
  void PutAssociation(int i, int c, int name, int near) {
    const int far = Draw(5);
    for (const int end : {near, far}) Add("GetInstance", 0, end, 0, kReference + 32 * end, 0);
    AddInstance(i, c, name);
    Add("SetPropertyValue", 0, i, 1, Reference(near), 0);
    Add("SetPropertyValue", 0, i, 2, Reference(far), 0);
    Add("I()->AddToNamespace", 0, i, 0, 0, 0);
  }
  void AddInstance(int i, int c, int name) {
    Add("AllocateInstance", c, i, 0, 0, 0);
    Add("SetPropertyValue", 0, i, 0, name, 0);
    Add("I()->AddToNamespace", 0, i, 0, 0, 0);
  }
  int Sometimes(unsigned below) { return Draw(3) == 0 ? Draw(below) : 0; }
  int Reference(int i) {
    if (Draw(12) == 0) return 29 + Draw(2) + 32 * (16 + Draw(5));  // a path of the host's own
    return kReference + (Draw(8) == 0 ? Draw(8) : 0) + 32 * i;
  }

  /// A walk that takes out, puts in again or changes what it visits, or something else.
  void WalkAndAct() {
    static constexpr const char* kActs[] = {"I()->Delete",         "I()->AddToNamespace",
                                            "SetPropertyValue",    "RemoveFromNamespace",
                                            "C()->AddToNamespace", "EnumerateAssociatedInstances",
                                            "D()->AddToClass",     "Forget",
                                            "RemovePropertyDecl"};
    const int walk = walks_[Draw(static_cast<unsigned>(walks_.size()))];
    const int b = Draw(8);
    Add(walk, Draw(8), b, Draw(2) * Draw(32), Draw(2) * Draw(512), Draw(4) == 0 ? Draw(8) : 0);
    script_.back().inner = 1 + Draw(2);
    for (int act = 0; act < 2; ++act) {
      Add(kActs[Draw(9)], b, b, Draw(3), Reference(Draw(8)), Draw(8));
    }
  }

  /// A walk along several instances of one association, which lead elsewhere meanwhile.
  void WalkAndRelink() {
    const int near = Draw(5);
    const int c = 5 + Draw(3);
    for (const int i : {5, 6, 7}) {
      PutAssociation(i, c, i < 7 ? i - 4 : 14, Draw(i == 6 ? 2 : 6) == 0 ? Draw(5) : near);
    }
    Add(Draw(3) == 0 ? "EnumerateAssociatedInstances" : "EnumerateAssociationInstances", 0, near, 0,
        0, 0);
    script_.back().inner = 4;
    const int i = 5 + Draw(3);
    const bool sweeps = Draw(3) == 0;  // more than half are taken out, and others come
    for (int act = 0; act < 4; ++act) {
      const char* const acts[] = {"I()->Delete", "I()->AddToNamespace", "SetPropertyValue"};
      const int to = Draw(2) == 0 ? near : Draw(5);
      const char* const operation = sweeps ? acts[act / 2] : acts[Draw(3)];
      const int at = sweeps ? 6 + act % 2 : Draw(2) == 0 ? i : 5 + Draw(3);
      Add(operation, 0, at, 1 + Draw(2), Reference(to), 1);
    }
  }

  void UseRoot(int c) {
    Add("GetClass(", c, 0, 10, 0, 0);
    AddProperty(c, Draw(2) * Draw(20), 1 + Draw(2), Draw(2) == 0);
    Add("AllocateQualifier(", c, 0, 0, 0, Draw(4));
    Add("AllocateInstance", c, Draw(5), 0, 0, 0);
    Add("I()->AddToNamespace", 0, script_.back().b, 0, 0, 0);
    if (Draw(2) == 0) Add("AllocateClass", c, 0, 10 + 2 * Draw(2), 0, 0);
  }

  std::mt19937 random_;
  const bool isStarved_;  ///< there are faults
  int space_ = 0;
  std::vector<int> walks_;
  TScript script_;
};
}  // namespace NZELVYR20
