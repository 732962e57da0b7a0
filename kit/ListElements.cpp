#include "ListElements.h"

namespace NZELVYR20 {

namespace {

template <class TElement, class TEnumerate>
std::vector<boost::shared_ptr<TElement>> List(const TEnumerate& enumerate) {
  return ListElements<boost::shared_ptr<TElement>>(enumerate);
}

}  // namespace

TClassList ListTopClasses(ICIMNamespace& nameSpace) {
  return List<ICIMClass>(
      [&](const TCIMClassCallback& callback) { nameSpace.EnumerateRootClasses(callback, {}); });
}

std::vector<boost::shared_ptr<ICIMQualifierDecl>> ListQualifierDecls(ICIMNamespace& nameSpace) {
  return List<ICIMQualifierDecl>([&](const TCIMQualifierDeclCallback& callback) {
    nameSpace.EnumerateQualifierDecls(callback, {});
  });
}

TClassList ListSubClasses(ICIMClass& cimClass, bool deep) {
  return List<ICIMClass>(
      [&](const TCIMClassCallback& callback) { cimClass.EnumerateSubClasses(callback, deep, {}); });
}

TInstanceList ListInstances(ICIMClass& cimClass, bool deep) {
  return List<ICIMInstance>([&](const TCIMInstanceCallback& callback) {
    cimClass.EnumerateInstances(callback, deep, {});
  });
}

std::vector<boost::shared_ptr<ICIMPropertyDecl>> ListPropertyDecls(const ICIMClass& cimClass) {
  return List<ICIMPropertyDecl>([&](const TCIMPropertyDeclCallback& callback) {
    cimClass.EnumeratePropertyDecls(callback, {});
  });
}

std::vector<boost::shared_ptr<ICIMMethodDecl>> ListMethodDecls(const ICIMClass& cimClass) {
  return List<ICIMMethodDecl>(
      [&](const TCIMMethodDeclCallback& callback) { cimClass.EnumerateMethodDecls(callback, {}); });
}

std::vector<std::string> ListKeyNames(ICIMClass& cimClass) {
  std::vector<std::string> names;
  cimClass.EnumerateKeyNames(
      [&names](const std::string* name) {
        names.push_back(*name);
        return true;
      },
      {});
  return names;
}

std::vector<boost::shared_ptr<ICIMParameterDecl>> ListParameterDecls(ICIMMethodDecl& method) {
  return List<ICIMParameterDecl>(
      [&](TCIMParameterDeclCallback callback) { method.EnumerateParameterDecls(callback, {}); });
}

std::vector<boost::shared_ptr<ICIMQualifier>> ListQualifiers(const ICIMNamedElement& element) {
  return List<ICIMQualifier>(
      [&](const TCIMQualifierCallback& callback) { element.EnumerateQualifiers(callback, {}); });
}

std::vector<boost::shared_ptr<ICIMProperty>> ListProperties(ICIMInstance& instance) {
  return List<ICIMProperty>(
      [&](const TCIMPropertyCallback& callback) { instance.EnumerateProperties(callback, {}); });
}

}  // namespace NZELVYR20
