#include "LoadMof.h"

#include "FindInstalled.h"
#include "TKitError.h"
#include "TMofLoader.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

std::string FindSchema(const std::string& name) {
  const std::string schema = "schema/" + name;
  const auto file = FindInstalled({schema, "../share/vyr/" + schema});
  if (!file) throw TKitError(schema + ": neither beside the program nor in ../share/vyr");
  return *file;
}

}  // namespace

TMofSummary LoadMof(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                    const std::vector<std::string>& filesOrFolders, const TMofSink& sink,
                    const TMofOptions& options, const TMofProgress& progress) {
  TMofLoader loader(nameSpace, options, sink, progress);
  try {
    for (const std::string& file : filesOrFolders) loader.Read(file);
    loader.Enter();
  } catch (const TMofStrictStop&) {
    throw TKitError("stopped at the first error");
  }
  return loader.GetSummary();
}

void LoadSchema(const boost::shared_ptr<ICIMNamespace>& nameSpace, const TMofOptions& options,
                const std::string& name) {
  const std::string file = FindSchema(name);
  TMofOptions strict;
  strict.isStrict = true;
  strict.isQuiet = true;
  strict.referenceClasses = options.referenceClasses;
  std::string wrong;
  const auto note = [&wrong](const std::string& message) {
    wrong = message.substr(0, message.find('\n'));
  };
  try {
    if (LoadMof(nameSpace, {file}, note, strict).IsWhole()) return;
  } catch (const TKitError&) {  // has been noted
  } catch (const TVYRException& error) {
    wrong = error.what();
  }
  throw TKitError("cannot load the schema " + file + ": " + wrong);
}

}  // namespace NZELVYR20
