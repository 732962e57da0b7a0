#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// What a parameter of an operation holds.
enum class EForm : unsigned char {
  kClass,     ///< CLASSNAME
  kInstance,  ///< INSTANCENAME
  kObject,    ///< either
  kText,      ///< VALUE
  kNumber,    ///< VALUE, a uint32
  kFlag,      ///< VALUE, TRUE or FALSE
  kNames,     ///< VALUE.ARRAY of VALUE
};

/// A parameter of an operation.
struct TParameter {
  const char* name = "";
  EForm form = EForm::kText;
  bool isRequired = false;
};

/// What a call gives for the parameters of its operation; a parameter without content counts as
/// left out. Asking for one by a name is for names of that operation, by their spelling there.
class TArguments {
 public:
  /// Reads the IPARAMVALUEs of an IMETHODCALL, whose document outlives the object. Throws a
  /// TCimFailure of an invalid parameter for one that is unknown, there twice, of another form, or
  /// missing though required.
  TArguments(const std::vector<TParameter>& parameters, const pugi::xml_node& call);

  /// What the parameter holds; an empty node where it was left out.
  pugi::xml_node Get(const std::string& name) const;

  bool Flag(const std::string& name, bool otherwise) const;
  std::optional<std::uint32_t> Number(const std::string& name) const;
  std::optional<std::string> Text(const std::string& name) const;
  /// Folded names.
  std::optional<std::set<std::string>> Names(const std::string& name) const;

 private:
  std::map<std::string, pugi::xml_node> values_;
};

}  // namespace NZELVYR20
