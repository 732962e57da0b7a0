#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "TMofOptions.h"
#include "TMofSummary.h"

namespace NZELVYR20 {

/// Receives each message: "name:line:column: error: text" and, below it, the line and a caret.
using TMofSink = std::function<void(const std::string& message)>;

/// Told now and then how far the work is: what is being done, how much of it, of how much (0 where
/// that is not known).
using TMofProgress = std::function<void(const char* what, std::size_t done, std::size_t all)>;

/// Loads files with what they include, and every *.mof file of folders, in an order in which
/// everything stands before what needs it. What is wrong is said to the sink and left out; the rest
/// is entered. Throws TKitError where a strict load stopped, which the sink has then been told.
TMofSummary LoadMof(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                    const std::vector<std::string>& filesOrFolders, const TMofSink& sink,
                    const TMofOptions& options = {}, const TMofProgress& progress = {});

/// Loads the classes of the machine's data, which TMachineCollector needs, from where they were
/// installed, or another schema from there. Of the options it takes `referenceClasses`. Throws
/// TKitError, which names the file.
void LoadSchema(const boost::shared_ptr<ICIMNamespace>& nameSpace, const TMofOptions& options = {},
                const std::string& name = "vyr.mof");

}  // namespace NZELVYR20
