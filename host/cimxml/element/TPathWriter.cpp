#include "TPathWriter.h"

#include <utility>

#include "ICIMPropertyDecl.h"
#include "ScalarText.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// A number for half of a surrogate pair, which has no text of its own.
std::string CharacterKeyText(const TPathPart& key) {
  return key.isQuoted ? key.value : "\xEF\xBF\xBD";
}

std::string KeyText(TType type, const TPathPart& key) {
  if (type == TType::kChar16) return CharacterKeyText(key);
  return type == TType::kReal32 || type == TType::kReal64 ? RealText(key.value) : key.value;
}

/// What the protocol tells of a value where it tells no type.
const char* KindOf(TType type) {
  if (type == TType::kBoolean) return "boolean";
  return type >= TType::kUInt8 && type <= TType::kReal64 ? "numeric" : "string";
}

}  // namespace

TPathWriter::TPathWriter(TXmlWriter& xml, TPathPlace place) : xml_(xml), place_(std::move(place)) {}

void TPathWriter::WriteClassName(const std::string& name) {
  xml_.WriteEmpty("CLASSNAME", {{"NAME", name}});
}

void TPathWriter::WriteClassPath(const std::string& name) {
  xml_.WriteElement("CLASSPATH", [&] {
    WriteNamespacePath();
    WriteClassName(name);
  });
}

void TPathWriter::WriteInstanceName(const TCIMReference& path) {
  WriteInstanceName(SplitPath(path.ToString()));
}

void TPathWriter::WriteInstancePath(const TCIMReference& path) {
  xml_.WriteElement("INSTANCEPATH", [&] {
    WriteNamespacePath();
    WriteInstanceName(path);
  });
}

void TPathWriter::WriteReference(const TCIMReference& path) { WriteReference(path.ToString()); }

void TPathWriter::WriteReference(const std::string& path) {
  const TPathParts parts = SplitPath(path);
  const char* const kind = parts.keys.empty() ? "LOCALCLASSPATH" : "LOCALINSTANCEPATH";
  const auto writePath = [&] {
    WriteLocalNamespacePath();
    if (parts.keys.empty()) {
      WriteClassName(parts.className);
    } else {
      WriteInstanceName(parts);
    }
  };
  xml_.WriteElement("VALUE.REFERENCE", [&] { xml_.WriteElement(kind, writePath); });
}

void TPathWriter::WriteInstanceName(const TPathParts& path) {
  xml_.WriteElement("INSTANCENAME", {{"CLASSNAME", path.className}}, [&] {
    for (const TPathPart& key : path.keys) {
      xml_.WriteElement("KEYBINDING", {{"NAME", key.name}}, [&] { WriteKey(path.className, key); });
    }
  });
}

void TPathWriter::WriteKey(const std::string& className, const TPathPart& key) {
  const TType type = FindKeyType(className, key);
  if (type == TType::kReference) return WriteReference(key.value);
  xml_.WriteElement("KEYVALUE", {{"VALUETYPE", KindOf(type)}, {"TYPE", XmlTypeOf(type)}},
                    [&] { xml_.WriteText(KeyText(type, key)); });
}

void TPathWriter::WriteNamespacePath() {
  xml_.WriteElement("NAMESPACEPATH", [&] {
    xml_.WriteTextElement("HOST", place_.host);
    WriteLocalNamespacePath();
  });
}

void TPathWriter::WriteLocalNamespacePath() {
  const std::string& name = place_.namespaceName;
  xml_.WriteElement("LOCALNAMESPACEPATH", [&] {
    for (std::size_t start = 0; start <= name.size();) {
      const std::size_t end = std::min(name.find('/', start), name.size());
      xml_.WriteEmpty("NAMESPACE", {{"NAME", name.substr(start, end - start)}});
      start = end + 1;
    }
  });
}

/// A path may be of a class, or have a key, that the namespace does not know any more.
TType TPathWriter::FindKeyType(const std::string& className, const TPathPart& key) const {
  try {
    return place_.nameSpace->GetClass(className, {})->GetPropertyDecl(key.name, {})->GetType({});
  } catch (const TVYRException&) {
    if (key.isQuoted) return TType::kString;
    return key.value == "TRUE" || key.value == "FALSE" ? TType::kBoolean : TType::kSInt64;
  }
}

}  // namespace NZELVYR20
