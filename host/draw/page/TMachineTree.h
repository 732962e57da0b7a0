#pragma once

#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

#include "TInventory.h"
#include "TLabels.h"
#include "TTerminal.h"
#include "TTreeLines.h"
#include "TWeb.h"

namespace NZELVYR20 {

/// The machine in a few lines, by the classes of the public schema: as many of these as there are,
/// and the rest by name and number only.
class TMachineTree {
 public:
  TMachineTree(TInventory& inventory, const TTerminal& terminal)
      : inventory_(inventory), terminal_(terminal) {}

  std::vector<TTreeLine> Make();

  /// The short path of what is most worth a look; empty where there is nothing.
  const std::string& GetSubject() const { return subject_; }

 private:
  void AddSystem();
  void AddProcessors();
  void AddDisks();
  void AddDisk(const boost::shared_ptr<ICIMInstance>& disk, const TWalk& walk);
  void AddPorts();
  void AddNames(const std::string& title, std::vector<std::string> names);
  void AddRest();
  void AddFold(std::size_t level, std::size_t shown, std::size_t all);
  void Add(std::size_t level, const std::string& text) { lines_.push_back({level, text}); }

  std::string DescribeStorage(ICIMInstance& storage);
  std::string DescribeDrive(const boost::shared_ptr<ICIMInstance>& disk);
  TInstanceList TakeUnlessBased(const std::string& className);

  TInventory& inventory_;
  TTerminal terminal_;
  TLabels labels_;
  std::vector<TTreeLine> lines_;
  std::string subject_;
  std::unordered_set<const ICIMInstance*> based_;  ///< what rests on storage
};

}  // namespace NZELVYR20
