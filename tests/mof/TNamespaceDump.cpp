#include "TNamespaceDump.h"

#include <algorithm>
#include <boost/algorithm/string/split.hpp>

#include "ICIMParameterDecl.h"
#include "ListElements.h"
#include "TClassTree.h"
#include "TShown.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

void ShowParameters(TShown& world, const boost::shared_ptr<ICIMMethodDecl>& method) {
  TCIMParameterDeclCallback show = [&world](const auto& parameter) {
    world.ShowNamed(parameter);
    world.out << ' ' << parameter->GetType({});
    return true;
  };
  method->EnumerateParameterDecls(show, {});
}

void ShowInstance(TShown& world, const boost::shared_ptr<ICIMInstance>& instance) {
  world.out << "\ninstance " << instance->GetReference({}).GetPath();
  instance->EnumerateProperties(
      [&world](const boost::shared_ptr<ICIMProperty>& property) {
        world.ShowProperty(property);
        return true;
      },
      {});
}

}  // namespace

TNamespaceDump::TNamespaceDump(const boost::shared_ptr<ICIMNamespace>& nameSpace) {
  TShown world;
  nameSpace->EnumerateQualifierDecls(
      [&world](const boost::shared_ptr<ICIMQualifierDecl>& declared) {
        world.out << "\nqualifier " << world.Text(declared) << ' '
                  << world.Text(declared->GetDefaultValue({})) << " scope "
                  << declared->GetScope({}) << " flavor " << declared->GetFlavor({});
        return true;
      },
      {});
  const TClassList classes = TClassTree::Flatten(TClassTree::GetTopClasses(*nameSpace));
  for (const auto& cimClass : classes) {
    try {
      world.ShowClass(cimClass);
    } catch (const TVYRException& failure) {
      world.out << " status " << failure.GetStatusCode();
    }
    cimClass->EnumerateMethodDecls(
        [&world](const auto& method) { return ShowParameters(world, method), true; }, {});
  }
  for (const auto& cimClass : classes) {
    cimClass->EnumerateInstances(
        [&world](const auto& instance) { return ShowInstance(world, instance), true; }, false, {});
  }
  boost::algorithm::split(lines_, world.out.str(), [](char c) { return c == '\n'; });
}

std::string TNamespaceDump::GetLine(std::size_t number) const {
  return number < lines_.size() ? lines_[number] : "(end)";
}

std::string TNamespaceDump::Compare(const TNamespaceDump& other) const {
  const auto different =
      std::mismatch(lines_.begin(), lines_.end(), other.lines_.begin(), other.lines_.end()).first;
  const auto number = static_cast<std::size_t>(different - lines_.begin());
  if (number == lines_.size() && number == other.lines_.size()) return {};
  return (number == 0 ? "" : GetLine(number - 1)) + "\n- " + GetLine(number) + "\n+ " +
         other.GetLine(number);
}

}  // namespace NZELVYR20
