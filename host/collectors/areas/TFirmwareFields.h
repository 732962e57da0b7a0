#pragma once

#include <string>

#include "TCollection.h"
#include "TMachineFolder.h"

namespace NZELVYR20 {

/// What the kernel shows of the firmware's tables, a file for each field.
class TFirmwareFields {
 public:
  static constexpr auto kFolder = "/sys/class/dmi/id";

  /// `collection` outlives the object.
  explicit TFirmwareFields(TCollection& collection)
      : collection_(collection), folder_(collection.GetFiles(), kFolder) {}

  const TMachineFolder& GetFolder() const { return folder_; }

  /// Without what only holds the place of a text. Serial numbers are for the superuser only, and a
  /// refusal is worth a note; that a field is not there is not.
  std::string Read(const std::string& name) const;
  /// The same without a note: of what is for the superuser, one is enough.
  std::string ReadQuietly(const std::string& name) const;

 private:
  TCollection& collection_;
  TMachineFolder folder_;
};

}  // namespace NZELVYR20
