#include "TMachineTree.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "DrawTree.h"
#include "FoldName.h"
#include "ICIMProperty.h"
#include "ListAssociators.h"
#include "ReadValue.h"
#include "TShortPaths.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMostDisks = 10;
constexpr std::size_t kMostDiskLines = 12;
constexpr std::size_t kMostLinesOfDisk = 8;
constexpr std::size_t kMostPorts = 4;
constexpr std::size_t kMostNames = 3;
constexpr std::size_t kMostClasses = 10;

/// The property between two texts; nothing where it has no value.
std::string Text(ICIMInstance& instance, const std::string& name, const std::string& after = "",
                 const std::string& before = "") {
  const std::string text = TText::OneLine(ReadText(instance, name));
  return text.empty() ? text : before + text + after;
}

/// Those that say anything.
std::string List(std::vector<std::string> parts) {
  for (const char* const nothing : {"", "Unknown"}) {
    parts.erase(std::remove(parts.begin(), parts.end(), nothing), parts.end());
  }
  return TText::Join(parts, ", ");
}

std::string Row(const std::string& name, const std::vector<std::string>& facts) {
  const std::string text = List(facts);
  return name + (text.empty() ? "" : "  ") + text;
}

std::string FileSystemText(ICIMInstance& fileSystem) {
  return Row(Text(fileSystem, "Name"),
             {Text(fileSystem, "FileSystemType"), Text(fileSystem, "FileSystemSize"),
              Text(fileSystem, "AvailableSpace", " free")});
}

/// The addresses that a port has.
std::string AddressesText(const boost::shared_ptr<ICIMInstance>& port) {
  std::vector<std::string> addresses;
  for (const auto& address : ListAssociators(port, {"CIM_DeviceSAPImplementation", "", "", ""})) {
    addresses.push_back(Text(*address, "ElementName"));
  }
  if (addresses.size() > kMostNames) addresses.resize(kMostNames);
  return List(addresses);
}

std::string PortText(ICIMInstance& port, const std::string& addresses) {
  std::string state;
  if (const auto known = ReadAs<std::vector<TCIMValue>>(port, "OperationalStatus")) {
    const auto property = port.GetProperty("OperationalStatus", {});
    state = TText::OneLine(TText::Join(property->ToStringVector(), ", "));
  }
  const std::string technology = Text(port, "LinkTechnology");
  return Row(Text(port, "DeviceID"),
             {technology == "Other" ? Text(port, "OtherLinkTechnology") : technology,
              Text(port, "EnabledState"), state, Text(port, "Speed"), addresses});
}

}  // namespace

std::vector<TTreeLine> TMachineTree::Make() {
  AddSystem();
  AddProcessors();
  AddDisks();
  std::vector<std::string> others;
  for (const auto& fileSystem : TakeUnlessBased("CIM_FileSystem")) {
    others.push_back(Text(*fileSystem, "Name") + Text(*fileSystem, "FileSystemType", ")", " ("));
  }
  AddNames("Other file systems", others);
  AddPorts();
  AddRest();
  return std::move(lines_);
}

void TMachineTree::AddFold(std::size_t level, std::size_t shown, std::size_t all) {
  if (shown < all) {
    Add(level, std::string(Ellipsis(terminal_)) + " and " + std::to_string(all - shown) + " more");
  }
}

void TMachineTree::AddSystem() {
  const TInstanceList systems = inventory_.Take("CIM_ComputerSystem");
  const TInstanceList boxes = inventory_.Take("CIM_Chassis");
  std::vector<std::string> names;
  for (const auto& system : systems) names.push_back(labels_.Read(*system).name);
  if (names.size() > kMostNames) {
    names.resize(kMostNames);
    names.emplace_back("others");
  }
  if (!systems.empty()) subject_ = TShortPaths().For(*systems.front());
  std::string model;
  if (!boxes.empty()) {
    model = List({Text(*boxes.front(), "Manufacturer"), Text(*boxes.front(), "Model")});
  }
  const std::string kind = systems.empty() ? "" : Text(*systems.front(), "Description");
  Add(0, Row(names.empty() ? "Repository" : List(names), {model, kind}));
  const std::size_t count = inventory_.Take("CIM_PhysicalMemory").size();
  const std::string modules = count == 0 ? std::string() : TText::Count(count, "module");
  for (const auto& system : inventory_.Take("CIM_OperatingSystem")) {
    Add(1, Row(Text(*system, "Name"),
               {Text(*system, "Version"), Text(*system, "LastBootUpTime", "", "started ")}));
    const std::string memory =
        List({Text(*system, "TotalVisibleMemorySize"), Text(*system, "FreePhysicalMemory", " free"),
              Text(*system, "SizeStoredInPagingFiles", "", "swap "), modules});
    if (!memory.empty()) Add(1, "Memory  " + memory);
  }
}

void TMachineTree::AddProcessors() {
  const TInstanceList sockets = inventory_.Take("CIM_Processor");
  const std::size_t cores = inventory_.Take("CIM_ProcessorCore").size();
  const std::size_t threads = inventory_.Take("CIM_HardwareThread").size();
  const TInstanceList memories = inventory_.Take("CIM_Memory");
  const auto caches = static_cast<std::size_t>(std::count_if(
      memories.begin(), memories.end(),
      [](const auto& memory) { return Text(*memory, "Purpose") == "Processor cache"; }));
  if (sockets.empty()) return;
  std::set<std::string> models;
  for (const auto& socket : sockets) {
    const std::string fastest = Text(*socket, "MaxClockSpeed", " MHz");
    models.insert(List({Text(*socket, "Name"),
                        fastest.empty() ? Text(*socket, "CurrentClockSpeed", " MHz") : fastest}));
  }
  models.erase("");
  Add(1, Row(List({TText::Count(sockets.size(), "socket"), TText::Count(cores, "core"),
                   threads == cores ? std::string() : TText::Count(threads, "thread"),
                   caches == 0 ? std::string() : TText::Count(caches, "cache")}),
             {TText::Join({models.begin(), models.end()}, " + ")}));
}

/// Those that do not rest on others: the rest is drawn below what carries it.
TInstanceList TMachineTree::TakeUnlessBased(const std::string& className) {
  TInstanceList instances = inventory_.Take(className);
  instances.erase(
      std::remove_if(instances.begin(), instances.end(),
                     [this](const auto& instance) { return based_.count(instance.get()) > 0; }),
      instances.end());
  return instances;
}

std::string TMachineTree::DescribeStorage(ICIMInstance& storage) {
  if (!Text(storage, "FileSystemType").empty()) return FileSystemText(storage);
  const TLabel label = labels_.Read(storage);
  return Row(label.name, {label.title});
}

std::string TMachineTree::DescribeDrive(const boost::shared_ptr<ICIMInstance>& disk) {
  if (!inventory_.FindClass("CIM_MediaPresent")) return "";
  const TInstanceList drives = ListAssociators(disk, {"CIM_MediaPresent", "", "", ""});
  if (drives.empty()) return "";
  // A drive that has no name of its own is known by its size, as the disk in it is.
  const std::string title = labels_.Read(*drives.front()).title;
  return List({title == labels_.Read(*disk).title ? "" : title, Text(*drives.front(), "DiskType")});
}

void TMachineTree::AddDisk(const boost::shared_ptr<ICIMInstance>& disk, const TWalk& walk) {
  std::vector<TTreeLine> lines = LayOutTree(
      TWeb::Around(disk, walk), [this](ICIMInstance& storage) { return DescribeStorage(storage); },
      2, terminal_);
  lines.front().text = List({lines.front().text, DescribeDrive(disk)});
  const std::size_t shown = std::min(lines.size(), kMostLinesOfDisk);
  lines_.insert(lines_.end(), lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(shown));
  AddFold(3, shown, lines.size());
}

void TMachineTree::AddDisks() {
  TWalk walk;
  for (const char* const name : {"CIM_BasedOn", "CIM_ResidesOnExtent"}) {
    if (const auto association = inventory_.FindClass(name)) {
      walk.associations.push_back(association);
    }
    for (const auto& link : inventory_.List(name)) {
      for (const TAssociationEnd& end : ListEnds(*link)) {
        if (CompareFolded(end.role, "Dependent") == 0) based_.insert(end.instance.get());
      }
    }
  }
  const TInstanceList disks = TakeUnlessBased("CIM_StorageExtent");
  inventory_.Take("CIM_MediaAccessDevice");
  if (disks.empty() || walk.associations.empty()) return;
  Add(1, TText::Count(disks.size(), "disk"));
  const std::size_t end = lines_.size() + kMostDiskLines;
  std::size_t shown = 0;
  subject_ = TShortPaths().For(*disks.front());
  while (shown < std::min(disks.size(), kMostDisks) && (shown == 0 || lines_.size() < end)) {
    AddDisk(disks[shown++], walk);
  }
  AddFold(2, shown, disks.size());
}

void TMachineTree::AddPorts() {
  const TInstanceList ports = inventory_.Take("CIM_LogicalPort");
  if (ports.empty()) return;
  Add(1, TText::Count(ports.size(), "port"));
  const std::size_t shown = std::min(ports.size(), kMostPorts);
  const bool areKnown = inventory_.FindClass("CIM_DeviceSAPImplementation") != nullptr;
  for (std::size_t i = 0; i < shown; ++i) {
    Add(2, PortText(*ports[i], areKnown ? AddressesText(ports[i]) : std::string()));
  }
  for (const char* const told : {"CIM_ServiceAccessPoint", "CIM_StatisticalData"}) {
    inventory_.Take(told);
  }
  AddFold(2, shown, ports.size());
}

void TMachineTree::AddNames(const std::string& title, std::vector<std::string> names) {
  if (names.empty()) return;
  const std::size_t more = names.size() - std::min(names.size(), kMostNames);
  if (more > 0) {
    names.resize(kMostNames);
    names.push_back(std::string(Ellipsis(terminal_)) + " and " + std::to_string(more) + " more");
  }
  Add(1, title + "  " + TText::Join(names, ", "));
}

/// In one line beside a machine; line by line where it is everything.
void TMachineTree::AddRest() {
  std::vector<std::string> names;
  for (const auto& [count, name] : inventory_.CountRest()) {
    names.push_back(std::to_string(count) + ' ' + name);
  }
  if (lines_.size() > 1) return AddNames("Also", names);
  const std::size_t shown = std::min(names.size(), kMostClasses);
  for (std::size_t i = 0; i < shown; ++i) Add(1, names[i]);
  AddFold(1, shown, names.size());
}

}  // namespace NZELVYR20
