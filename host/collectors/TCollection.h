#pragma once

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "TCIMReference.h"
#include "TInstanceDraft.h"
#include "TMachineCollector.h"
#include "TMachineFiles.h"
#include "TMachineFolder.h"

namespace NZELVYR20 {

/// One run over one machine: where to read, where to write, and what is noted on the way.
class TCollection {
 public:
  TCollection(const std::string& root, const boost::shared_ptr<ICIMNamespace>& nameSpace);

  const TMachineFiles& GetFiles() const { return files_; }

  /// Names the area that the notes from here on belong to.
  void BeginArea(const std::string& area);
  void Note(const std::string& what, const std::string& why);
  const std::vector<TCollectorNote>& GetNotes() const { return notes_; }

  /// A file, or a folder, whose absence is noted; empty then.
  std::string Read(const std::string& path);
  TMachineFolder Enter(const std::string& path);

  TInstanceDraft Draft(const std::string& className) const;
  /// A draft of something that belongs to the computer, with all its keys: a device, or an
  /// element that is known by its name.
  TInstanceDraft DraftDevice(const std::string& className, const std::string& deviceId) const;
  TInstanceDraft DraftElement(const std::string& className, const std::string& name) const;

  /// The same for a service, or where one can be reached.
  TInstanceDraft DraftAccessPoint(const std::string& className, const std::string& name) const;

  /// The same for what belongs to the operating system of that name.
  TInstanceDraft DraftOf(const std::string& operatingSystem, const std::string& className) const;

  /// Adds the instance, and notes it where the namespace refuses it.
  std::optional<TCIMReference> Add(const TInstanceDraft& draft);
  /// The same, with an association of that class that makes it a part of the computer.
  std::optional<TCIMReference> AddPart(const TInstanceDraft& draft, const std::string& association);
  /// Adds the computer, to which all that is drafted later belongs.
  void AddSystem(const TInstanceDraft& draft, const std::string& name);
  /// Adds an association, whose ends have been taken: that leaves nothing to refuse it for.
  void Link(const TInstanceDraft& draft);

  /// A draft of an association with two ends.
  TInstanceDraft DraftDependency(const std::string& className, const TCIMReference& antecedent,
                                 const TCIMReference& dependent) const;
  TInstanceDraft DraftComponent(const std::string& className, const TCIMReference& whole,
                                const TCIMReference& part) const;

  /// The computer; empty where it could not be added.
  const std::optional<TCIMReference>& GetSystem() const { return system_; }

 private:
  TMachineFiles files_;
  boost::shared_ptr<ICIMNamespace> namespace_;
  std::string area_;
  std::string systemName_;
  std::optional<TCIMReference> system_;
  std::vector<TCollectorNote> notes_;
};

}  // namespace NZELVYR20
