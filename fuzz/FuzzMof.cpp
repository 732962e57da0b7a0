#include <boost/algorithm/string/predicate.hpp>
#include <cstddef>
#include <cstdint>
#include <locale>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "MofUnicode.h"
#include "TFuzzCheck.h"
#include "TFuzzNamespace.h"
#include "TMofDiagnostics.h"
#include "TMofLoader.h"
#include "TMofParser.h"
#include "TMofSource.h"
#include "TMofWriter.h"

namespace NZELVYR20 {
namespace {

/// Looks at every node of what was read of a source.
class TNodeCheck {
 public:
  explicit TNodeCheck(const TMofSource& source) : source_(source) {}

  void CheckPlace(const TMofPlace& place) const {
    const std::string& text = source_.GetText();
    const auto offset = static_cast<std::size_t>(place.byte - text.data());
    Require(place.byte != nullptr && offset <= text.size(), "a place lies in its text");
    const TMofPosition position = source_.Locate(place);
    Require(position.line > 0 && position.column > 0, "positions count from 1");
  }

  void CheckName(const TMofName& name) const {
    CheckPlace(name.GetPlace());
    CheckPlace({name.text.data() + name.text.size()});
    Require(!name.text.empty(), "a name is not empty");
  }

  void CheckNames(const std::vector<TMofName>& names) const {
    for (const TMofName& name : names) CheckName(name);
  }

  void CheckValue(const TMofValue& value) const {
    CheckPlace(value.GetPlace());
    Require(value.IsArray() || value.GetSize() == 1, "a scalar is one literal");
    for (const TMofLiteral& literal : value) {
      CheckPlace(literal.place);
      Require(literal.text.find('\0') == std::string_view::npos, "no literal has a NUL");
    }
  }

  void CheckType(const TMofType& type) const {
    CheckPlace(type.place);
    if (type.type.GetElementType() == TCIMValue::TCIMType::kReference) {
      CheckName(type.referencedClass);
    }
  }

  void CheckQualifiers(const std::vector<TMofQualifier>& qualifiers) const {
    for (const TMofQualifier& qualifier : qualifiers) {
      CheckName(qualifier.name);
      if (qualifier.value) CheckValue(*qualifier.value);
      CheckNames(qualifier.flavors);
    }
  }

  template <class TElement>
  void CheckElement(const TElement& element) const {
    CheckName(element.name);
    CheckType(element.type);
    CheckQualifiers(element.qualifiers);
  }

  void CheckFeature(const TMofProperty& property) const {
    CheckElement(property);
    if (property.defaultValue) CheckValue(*property.defaultValue);
  }

  void CheckFeature(const TMofMethod& method) const {
    CheckElement(method);
    for (const TMofParameter& parameter : method.parameters) CheckElement(parameter);
  }

  void Check(const TMofPragma& pragma) const {
    CheckName(pragma.name);
    CheckPlace(pragma.argument.place);
  }

  void Check(const TMofQualifierDeclaration& declaration) const {
    CheckName(declaration.name);
    CheckType(declaration.type);
    if (declaration.defaultValue) CheckValue(*declaration.defaultValue);
    CheckNames(declaration.scopes);
    CheckNames(declaration.flavors);
  }

  void Check(const TMofClass& declared) const {
    CheckName(declared.name);
    if (declared.superClass) CheckName(*declared.superClass);
    CheckQualifiers(declared.qualifiers);
    for (const auto& feature : declared.features) {
      std::visit([this](const auto& one) { CheckFeature(one); }, feature);
    }
  }

  void Check(const TMofInstanceRun& instances) const {
    for (const TMofInstance& instance : instances) CheckInstance(instance);
  }

  void CheckInstance(const TMofInstance& instance) const {
    CheckName(instance.className);
    if (instance.alias) CheckName(*instance.alias);
    for (const TMofAssignment& assignment : instance.assignments) {
      CheckName(assignment.property);
      CheckValue(assignment.value);
    }
  }

 private:
  const TMofSource& source_;
};

void Parse(const std::string& text) {
  const TMofSource source("input", text);
  TMofDiagnostics diagnostics({}, [](const std::string& message) {
    Require(!message.empty(), "a message says something");
    DecodeMofText(message);
  });
  const std::vector<TMofDeclaration> declarations = TMofParser(diagnostics).Parse(source);
  for (const TMofDeclaration& declaration : declarations) {
    std::visit([&](const auto& one) { TNodeCheck(source).Check(one); }, declaration);
  }
}

/// An input must not lead to files of the machine.
bool NamesFiles(const std::string& text) {
  return boost::algorithm::icontains(text, "include", std::locale::classic());
}

/// Whatever was entered can be written, and what is written can be read.
void LoadAndWrite(const std::string& text) {
  const boost::shared_ptr<ICIMNamespace> nameSpace = TFuzzNamespace::MakeEmpty();
  const TMofOptions options;
  TMofLoader loader(nameSpace, options, [](const std::string&) {});
  loader.ReadText("input", text);
  loader.Enter();
  const TMofSource written("written",
                           TMofWriter::WriteNamespace(nameSpace, *options.referenceClasses));
  TMofDiagnostics diagnostics({}, [](const std::string&) {});
  TMofParser(diagnostics).Parse(written);
  Require(diagnostics.GetErrorCount() == 0, "what is written can be read");
}

}  // namespace
}  // namespace NZELVYR20

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::string text;
  try {
    text = NZELVYR20::DecodeMofText(std::string(bytes, bytes + size));
  } catch (const std::invalid_argument&) {
    return 0;
  }
  NZELVYR20::Parse(text);
  if (!NZELVYR20::NamesFiles(text)) NZELVYR20::LoadAndWrite(text);
  return 0;
}
