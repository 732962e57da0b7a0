#include "TWatch.h"

#include <string>
#include <utility>

#include "ApplyChanges.h"
#include "CompareNamespaces.h"

namespace NZELVYR20 {

TWatch::TWatch(boost::shared_ptr<ICIMNamespace> kept, boost::shared_ptr<ICIMNamespace> present,
               TCollect collect)
    : kept_(std::move(kept)), present_(std::move(present)), collect_(std::move(collect)) {}

void TWatch::Round(const TChangeText& text, const std::string& lead, const TWriteText& write) {
  present_->ClearInstances();
  collect_();
  const TComparison comparison = CompareNamespaces(*kept_, *present_, EMatch::kWithinMachine);
  text.WriteLines(comparison, lead, write);
  // With equal schemas nothing but another name of the machine is remarked on, and that is part of
  // the paths.
  ApplyChanges(kept_, comparison.remarks.empty()
                          ? comparison.changes
                          : CompareNamespaces(*kept_, *present_, EMatch::kPath).changes);
}

}  // namespace NZELVYR20
