#include "TWatch.h"

#include <string>
#include <utility>

#include "ApplyChanges.h"

namespace NZELVYR20 {

TWatch::TWatch(boost::shared_ptr<ICIMNamespace> kept, boost::shared_ptr<ICIMNamespace> present,
               TCollect collect)
    : kept_(std::move(kept)), present_(std::move(present)), collect_(std::move(collect)) {}

void TWatch::Look() {
  present_->ClearInstances();
  collect_();
}

void TWatch::Update(const TTell& tell) {
  const TComparison comparison = CompareNamespaces(*kept_, *present_, EMatch::kWithinMachine);
  tell(comparison);
  // With equal schemas nothing but another name of the machine is remarked on, and that is part of
  // the paths.
  ApplyChanges(kept_, comparison.remarks.empty()
                          ? comparison.changes
                          : CompareNamespaces(*kept_, *present_, EMatch::kPath).changes);
}

void TWatch::Round(const TChangeText& text, const std::string& lead, const TWriteText& write) {
  Look();
  Update([&](const TComparison& comparison) { text.WriteLines(comparison, lead, write); });
}

}  // namespace NZELVYR20
