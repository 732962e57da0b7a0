#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <memory>
#include <string>

#include "ICIMNamespace.h"
#include "TMofDiagnostics.h"
#include "TMofOptions.h"
#include "TMofSummary.h"

namespace NZELVYR20 {

/// Enters MOF into a namespace, in two steps: Read() and ReadText() collect declarations from as
/// many files as there are, in any order; Enter() declares what was collected in an order in which
/// everything stands before what needs it.
///
/// What is wrong goes to the sink, with its place, and is left out; the rest is entered. In strict
/// mode the first error makes the operation throw TMofStrictStop. Every other exception is the
/// namespace's or the memory's own.
class TMofLoader {
 public:
  /// Told now and then how far the work is: what is being done, how much of it, of how much (0
  /// where that is not known).
  using TProgress = std::function<void(const char* what, std::size_t done, std::size_t all)>;

  TMofLoader(boost::shared_ptr<ICIMNamespace> nameSpace, TMofOptions options,
             TMofDiagnostics::TSink sink, TProgress progress = {});
  ~TMofLoader();

  /// Reads a file and what it includes, or every *.mof file directly in a folder.
  void Read(const std::string& fileOrFolder);
  /// The same for a text; `name` stands for it in messages.
  void ReadText(const std::string& name, const std::string& text);

  /// Declares what was read since the last time.
  void Enter();

  TMofSummary GetSummary() const;

 private:
  class TImpl;
  std::unique_ptr<TImpl> impl_;
};

}  // namespace NZELVYR20
