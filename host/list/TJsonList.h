#pragma once

#include <string>

#include "TWriteText.h"

namespace NZELVYR20 {

/// Writes JSON documents as they come: all of them as one list, or each on a line.
class TJsonList {
 public:
  TJsonList(bool isLines, TWriteText write);

  /// A document without a line end after it; one for a line has none within.
  void Add(const std::string& item);
  void Finish();

 private:
  bool isLines_;
  bool isEmpty_ = true;
  TWriteText write_;
};

}  // namespace NZELVYR20
