#pragma once

#include <boost/shared_ptr.hpp>
#include <set>
#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "ListElements.h"
#include "TClassTable.h"
#include "TSqlDatabase.h"

namespace NZELVYR20 {

/// Fills an empty file with what a namespace holds, as SaveDatabase() says.
class TSavedDatabase {
 public:
  /// Throws TCommandError, which begins with `name`, as Fill() does.
  TSavedDatabase(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& file,
                 std::string name);

  /// When it returns, everything is on the disk.
  void Fill();

 private:
  void AddClass(const boost::shared_ptr<ICIMClass>& cimClass);
  void AddRows(const TClassTable& table, const std::string& name, const std::string& className);
  void AddTexts(const TInstanceList& instances);
  void AddText(const std::string& path, const ICIMProperty& property);

  void Run(const std::string& statement);
  void Check(int status) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
  std::string name_;
  TSqlDatabase database_;
  TSqlCompiled addText_{nullptr, sqlite3_finalize};
  std::set<const ICIMClass*> filled_;  ///< those with a table or a view
};

}  // namespace NZELVYR20
