#pragma once

#include <string>
#include <string_view>

namespace NZELVYR20 {

/// What a unit file of systemd's tells.
struct TUnitFacts {
  std::string description;
  bool canBeEnabled = false;  ///< it says how: without, others start it or nothing does
};

/// Reads the lines of the sections Unit and Install.
TUnitFacts ParseUnit(std::string_view text);

/// "getty@.service" for "getty@tty1.service"; empty for what is made from no template.
std::string FindUnitTemplate(std::string_view name);

/// Whether it is such a template itself, which never runs.
bool IsUnitTemplate(std::string_view name);

/// The description with what stands between "@" and "." in the name in the places for it.
std::string FillUnitText(std::string text, std::string_view name);

}  // namespace NZELVYR20
