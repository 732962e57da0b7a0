#include "GivePiece.h"

#include <utility>

namespace NZELVYR20 {
namespace {

void WriteInForm(TElementWriter& elements, ICIMInstance& instance, EPulled pulled,
                 const TElementForm& form) {
  switch (pulled) {
    case EPulled::kInstancesWithPath:
      return elements.WriteInstanceWithPath(instance, form);
    case EPulled::kPaths:
      return elements.WriteInstancePath(instance);
    case EPulled::kInstances:
      return elements.WriteInstance(instance, form);
  }
}

/// The two parameters that every piece has; the name of an enumeration at its end is empty.
void WriteState(TXmlWriter& xml, const std::string& name) {
  const auto write = [&](const char* parameter, const std::string& value) {
    xml.WriteElement("PARAMVALUE", {{"NAME", parameter}},
                     [&] { xml.WriteTextElement("VALUE", value); });
  };
  write("EnumerationContext", name);
  write("EndOfSequence", name.empty() ? "TRUE" : "FALSE");
}

TResult PieceOf(TInstanceList piece, EPulled pulled, const TElementForm& form,
                const std::string& name) {
  TResult result = ResultOf(std::move(piece), [pulled, form](auto& elements, auto& instance) {
    WriteInForm(elements, instance, pulled, form);
  });
  result.parameters = [name](TXmlWriter& xml, TElementWriter&) { WriteState(xml, name); };
  return result;
}

}  // namespace

TResult GiveFirstPiece(TEnumerations& enumerations, TEnumeration enumeration, std::size_t most) {
  const EPulled pulled = enumeration.form;
  const TElementForm form = enumeration.elementForm;
  TInstanceList piece = enumerations.Take(enumeration, most);
  const bool isAtEnd = enumeration.IsAtEnd();
  const std::string name = isAtEnd ? std::string() : enumerations.Add(std::move(enumeration));
  return PieceOf(std::move(piece), pulled, form, name);
}

TResult GiveNextPiece(TEnumerations& enumerations, const std::string& name, std::size_t most) {
  TEnumeration& enumeration = enumerations.Find(name);
  const EPulled pulled = enumeration.form;
  const TElementForm form = enumeration.elementForm;
  TInstanceList piece = enumerations.Take(enumeration, most);
  const bool isAtEnd = enumeration.IsAtEnd();
  if (isAtEnd) enumerations.Remove(name);
  return PieceOf(std::move(piece), pulled, form, isAtEnd ? std::string() : name);
}

}  // namespace NZELVYR20
