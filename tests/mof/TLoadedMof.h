#pragma once

#include <algorithm>
#include <string>
#include <utility>

#include "PluginNamespace.h"
#include "TMofLoader.h"
#include "TMofWriter.h"
#include "TRootObject.h"

namespace NZELVYR20 {

/// A fresh namespace of the plug-in, and what is loaded into it.
class TLoadedMof {
 public:
  explicit TLoadedMof(const std::string& text = "", TMofOptions options = {})
      : options_(std::move(options)), loader_(nameSpace, options_, [this](std::string message) {
          message.resize(std::min(message.find('\n'), message.size()));
          const bool isHere = message.rfind("t.mof:", 0) == 0;
          messages_ += (messages_.empty() ? "" : "\n") + message.substr(isHere ? 6 : 0);
        }) {
    TRootObject::SetLogThreshold(-1);  // What the loader reports is enough.
    LoadText(text);
  }

  /// Loads a further text, called t.mof, or a file or folder.
  TLoadedMof& LoadText(const std::string& text) {
    if (!text.empty()) loader_.ReadText("t.mof", text);
    loader_.Enter();
    return *this;
  }
  TLoadedMof& LoadFile(const std::string& path) {
    loader_.Read(path);
    return LoadText("");
  }

  /// The first line of each message, without the place in the text except its line and column.
  std::string TakeMessages() { return std::exchange(messages_, {}); }
  TMofSummary GetSummary() const { return loader_.GetSummary(); }

  std::string Write() const {
    return TMofWriter::WriteNamespace(nameSpace, *options_.referenceClasses);
  }

  const boost::shared_ptr<ICIMNamespace> nameSpace = AllocatePluginNamespace();

 private:
  TMofOptions options_;
  std::string messages_;
  TMofLoader loader_;
};

}  // namespace NZELVYR20
