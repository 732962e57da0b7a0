#include "TNamespaceDump.h"

#include <algorithm>
#include <sstream>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ListElements.h"
#include "TClassTree.h"

namespace NZELVYR20 {
namespace {

template <class... TParts>
std::string Line(const TParts&... parts) {
  std::ostringstream line;
  (line << ... << parts);
  return line.str();
}

std::string NameOf(const boost::shared_ptr<ICIMClass>& cimClass) {
  return cimClass ? cimClass->GetName({}) : "-";
}

/// Everything but letters, digits and the like as a number.
std::string Printable(const std::string& text) {
  std::string printable;
  for (const char byte : text) {
    const bool isPlain = byte > ' ' && byte < 0x7F && byte != '%';
    printable +=
        isPlain ? std::string(1, byte) : Line('%', static_cast<unsigned char>(byte) + 0, ';');
  }
  return printable;
}

std::string Content(const TCIMValue& value) {
  if (value.IsNull()) return "null";
  if (value.GetType() == TCIMValue::TCIMType::kChar16) {
    return std::to_string(static_cast<unsigned>(static_cast<char16_t>(value)));
  }
  if (!value.IsArray()) return Line('<', Printable(value.ToString(10)), '>');
  std::string text;
  for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
    text += ' ' + Content(element);
  }
  return '{' + text + " }";
}

std::string Typed(const TCIMValue& value) { return Line(value.GetType(), ' ', Content(value)); }

}  // namespace

TNamespaceDump::TNamespaceDump(const boost::shared_ptr<ICIMNamespace>& nameSpace) {
  for (const auto& declaration :
       ListElements<ICIMQualifierDecl>([&nameSpace](const TCIMQualifierDeclCallback& callback) {
         nameSpace->EnumerateQualifierDecls(callback, {});
       })) {
    lines_.push_back(Line("qualifier ", declaration->GetName({}), ": ",
                          Typed(declaration->GetDefaultValue({})), ", scope ",
                          declaration->GetScope({}), ", flavor ", declaration->GetFlavor({})));
  }
  const TClassList classes = TClassTree::Flatten(TClassTree::GetTopClasses(*nameSpace));
  for (const auto& cimClass : classes) AddClass(*cimClass);
  for (const auto& cimClass : classes) {
    for (const auto& instance :
         ListElements<ICIMInstance>([&cimClass](const TCIMInstanceCallback& callback) {
           cimClass->EnumerateInstances(callback, false, {});
         })) {
      AddInstance(*instance);
    }
  }
}

void TNamespaceDump::AddClass(ICIMClass& cimClass) {
  const std::string& name = cimClass.GetName({});
  lines_.push_back(Line("class ", name, ": ", NameOf(cimClass.GetSuperClass({}))));
  AddQualifiers(name, cimClass);
  for (const auto& property :
       ListElements<ICIMPropertyDecl>([&cimClass](const TCIMPropertyDeclCallback& callback) {
         cimClass.EnumeratePropertyDecls(callback, {});
       })) {
    const std::string member = name + '.' + property->GetName({});
    const TCIMValue& value = property->GetDefaultValue({});
    lines_.push_back(Line(member, ": ", Typed(value), " to ", NameOf(value.GetReferencedClass()),
                          ", declared by ", NameOf(property->GetClass({}))));
    AddQualifiers(member, *property);
  }
  for (const auto& method :
       ListElements<ICIMMethodDecl>([&cimClass](const TCIMMethodDeclCallback& callback) {
         cimClass.EnumerateMethodDecls(callback, {});
       })) {
    AddMethod(name, *method);
  }
}

void TNamespaceDump::AddMethod(const std::string& className, ICIMMethodDecl& method) {
  const std::string name = className + '.' + method.GetName({}) + "()";
  lines_.push_back(
      Line(name, ": ", method.GetReturnType({}), ", declared by ", NameOf(method.GetClass({}))));
  AddQualifiers(name, method);
  for (const auto& parameter :
       ListElements<ICIMParameterDecl>([&method](TCIMParameterDeclCallback callback) {
         method.EnumerateParameterDecls(callback, {});
       })) {
    const std::string parameterName = name + ' ' + parameter->GetName({});
    lines_.push_back(Line(parameterName, ": ", parameter->GetType({})));
    AddQualifiers(parameterName, *parameter);
  }
}

void TNamespaceDump::AddQualifiers(const std::string& name, const ICIMNamedElement& element) {
  for (const auto& qualifier :
       ListElements<ICIMQualifier>([&element](const TCIMQualifierCallback& callback) {
         element.EnumerateQualifiers(callback, {});
       })) {
    lines_.push_back(Line(name, " [", qualifier->GetName({}), "]: ", Typed(qualifier->GetValue({})),
                          ", flavor ", qualifier->GetFlavor({}),
                          qualifier->GetPropagated({}) ? ", propagated" : ""));
  }
}

void TNamespaceDump::AddInstance(ICIMInstance& instance) {
  const std::string path = Printable(instance.GetReference({}).GetPath());
  lines_.push_back("instance " + path);
  for (const auto& property :
       ListElements<ICIMProperty>([&instance](const TCIMPropertyCallback& callback) {
         instance.EnumerateProperties(callback, {});
       })) {
    lines_.push_back(Line(path, ' ', property->GetDeclaration({})->GetName({}), ": ",
                          Typed(property->GetValue({})),
                          property->IsDefaultValue({}) ? ", default" : ""));
  }
}

std::string TNamespaceDump::GetLine(std::size_t number) const {
  return number < lines_.size() ? lines_[number] : "(end)";
}

std::string TNamespaceDump::Compare(const TNamespaceDump& other) const {
  const auto different =
      std::mismatch(lines_.begin(), lines_.end(), other.lines_.begin(), other.lines_.end()).first;
  const auto number = static_cast<std::size_t>(different - lines_.begin());
  if (number == lines_.size() && number == other.lines_.size()) return {};
  return Line(number == 0 ? "" : GetLine(number - 1), "\n- ", GetLine(number), "\n+ ",
              other.GetLine(number));
}

}  // namespace NZELVYR20
