#include "TLoadedMof.h"

#include "PluginNamespace.h"
#include "TMofWriter.h"
#include "TRootObject.h"
#include "TVYRException.h"

namespace NZELVYR20 {

const char* const kQualifiers =
    "Qualifier Association : boolean = false, Scope(association), Flavor(DisableOverride);\n"
    "Qualifier Abstract : boolean = false, Scope(class), Flavor(Restricted);\n"
    "Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);\n"
    "Qualifier Override : string, Scope(property, method), Flavor(Restricted);\n"
    "Qualifier Description : string, Scope(any), Flavor(Translatable);\n"
    "Qualifier Units : string, Scope(property);\n"
    "Qualifier Local : string, Scope(any), Flavor(Restricted);\n"
    "Qualifier Values : string[], Scope(property);\n"
    "Qualifier In : boolean = true, Scope(parameter), Flavor(DisableOverride);\n";

namespace {

std::string GetFirstLine(const std::string& message) {
  const std::string line = message.substr(0, message.find('\n'));
  const std::string name = "t.mof:";
  return line.compare(0, name.size(), name) == 0 ? line.substr(name.size()) : line;
}

}  // namespace

TLoadedMof::TLoadedMof(const std::string& text, const TMofOptions& options)
    : namespace_(AllocatePluginNamespace()),
      classes_(options.referenceClasses),
      loader_(namespace_, options,
              [this](const std::string& message) { messages_.push_back(GetFirstLine(message)); }) {
  TRootObject::SetLogThreshold(-1);  // What the loader reports is enough.
  loader_.ReadText("qualifiers.mof", kQualifiers);
  loader_.Enter();
  LoadText(text);
}

TLoadedMof& TLoadedMof::LoadText(const std::string& text) {
  loader_.ReadText("t.mof", text);
  loader_.Enter();
  return *this;
}

TLoadedMof& TLoadedMof::LoadFile(const std::string& path) {
  loader_.Read(path);
  loader_.Enter();
  return *this;
}

std::string TLoadedMof::TakeMessages() {
  std::string all;
  for (const std::string& message : messages_) all += (all.empty() ? "" : "\n") + message;
  messages_.clear();
  return all;
}

std::string TLoadedMof::Write() const { return TMofWriter::WriteNamespace(namespace_, *classes_); }

bool TLoadedMof::Has(const std::string& className) const {
  try {
    return namespace_->GetClass(className, {}) != nullptr;
  } catch (const TVYRException&) {
    return false;
  }
}

}  // namespace NZELVYR20
