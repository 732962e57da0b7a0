#include "TLoadedMof.h"

#include <utility>

#include "ICIMParameterDecl.h"
#include "TClassTree.h"
#include "TMofWriter.h"
#include "TRootObject.h"
#include "TShown.h"

namespace NZELVYR20 {

TLoadedMof::TLoadedMof(const std::string& text, TMofOptions options)
    : options_(std::move(options)), loader_(namespace_, options_, [this](std::string message) {
        message.resize(std::min(message.find('\n'), message.size()));
        const bool isHere = message.rfind("t.mof:", 0) == 0;
        messages_ += (messages_.empty() ? "" : "\n") + message.substr(isHere ? 6 : 0);
      }) {
  TRootObject::SetLogThreshold(-1);  // What the loader reports is enough.
  LoadText(text);
}

TLoadedMof& TLoadedMof::LoadText(const std::string& text) {
  if (!text.empty()) loader_.ReadText("t.mof", text);
  loader_.Enter();
  return *this;
}

TLoadedMof& TLoadedMof::LoadFile(const std::string& path) {
  loader_.Read(path);
  loader_.Enter();
  return *this;
}

std::string TLoadedMof::TakeMessages() { return std::exchange(messages_, {}); }

std::string TLoadedMof::Write() const {
  return TMofWriter::WriteNamespace(namespace_, *options_.referenceClasses);
}

std::string TLoadedMof::Dump() const {
  TShown world;
  const auto showDeclaration = [&](const boost::shared_ptr<ICIMQualifierDecl>& declared) {
    world.out << "\nqualifier " << world.Text(declared) << world.Text(declared->GetDefaultValue({}))
              << " scope " << declared->GetScope({}) << " flavor " << declared->GetFlavor({});
    return true;
  };
  TCIMParameterDeclCallback showParameter = [&](const auto& parameter) {
    world.ShowNamed(parameter);
    world.out << ' ' << parameter->GetType({});
    return true;
  };
  const auto showProperty = [&](const auto& one) { return world.ShowProperty(one), true; };
  const auto showMethod = [&](const auto& one) {
    return one->EnumerateParameterDecls(showParameter, {}), true;
  };
  const auto showInstance = [&](const auto& instance) {
    world.out << "\ninstance " << instance->GetReference({}).GetPath();
    instance->EnumerateProperties(showProperty, {});
    return true;
  };
  namespace_->EnumerateQualifierDecls(showDeclaration, {});
  for (const auto& cimClass : TClassTree::Flatten(TClassTree::GetTopClasses(*namespace_))) {
    world.ShowClass(cimClass);
    cimClass->EnumerateMethodDecls(showMethod, {});
    cimClass->EnumerateInstances(showInstance, false, {});
  }
  return world.out.str();
}

}  // namespace NZELVYR20
