#include "TJsonList.h"

#include <string>
#include <utility>

namespace NZELVYR20 {

TJsonList::TJsonList(bool isLines, TWriteText write)
    : isLines_(isLines), write_(std::move(write)) {}

void TJsonList::Add(const std::string& item) {
  if (isLines_) {
    write_(item + '\n');
  } else {
    write_((isEmpty_ ? "[\n" : ",\n") + item);
  }
  isEmpty_ = false;
}

void TJsonList::Finish() {
  if (!isLines_) write_(isEmpty_ ? "[]\n" : "\n]\n");
}

}  // namespace NZELVYR20
