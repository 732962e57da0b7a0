#include <gtest/gtest.h>

#include <cstdlib>

#include "PluginNamespace.h"
#include "TMofLoader.h"
#include "TMofWriter.h"
#include "TNamespaceDump.h"
#include "TRandomModel.h"

namespace NZELVYR20 {
namespace {

using TNamespacePtr = boost::shared_ptr<ICIMNamespace>;

TNamespacePtr LoadText(const std::string& text) {
  TNamespacePtr nameSpace = AllocatePluginNamespace();
  TMofLoader loader(nameSpace, {}, [](const std::string& message) { ADD_FAILURE() << message; });
  loader.ReadText("text", text);
  loader.Enter();
  return nameSpace;
}

TNamespacePtr LoadFile(const std::string& file) {
  TNamespacePtr nameSpace = AllocatePluginNamespace();
  TMofLoader loader(nameSpace, {}, [](const std::string&) {});
  loader.Read(file);
  loader.Enter();
  return nameSpace;
}

void ExpectRoundTrip(const TNamespacePtr& nameSpace) {
  const std::string text = TMofWriter::WriteNamespace(nameSpace);
  const TNamespacePtr loaded = LoadText(text);
  EXPECT_EQ(TNamespaceDump(nameSpace).Compare(TNamespaceDump(loaded)), "");
  EXPECT_TRUE(TMofWriter::WriteNamespace(loaded) == text);
}

TEST(TMofRoundTripTest, RandomModels) {
  std::size_t facts = 0;
  for (unsigned seed = 1; seed <= 60 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    const TNamespacePtr nameSpace = AllocatePluginNamespace();
    const TRandomModel model(nameSpace, seed);
    facts += TNamespaceDump(nameSpace).GetSize();
    ExpectRoundTrip(nameSpace);
  }
  EXPECT_GT(facts, 60 * 300U);
}

TEST(TMofRoundTripTest, BundledSchema) {
  const TNamespacePtr nameSpace = LoadFile(VYR_SCHEMA_DIR "/vyr.mof");
  EXPECT_GT(TNamespaceDump(nameSpace).GetSize(), 500U);
  ExpectRoundTrip(nameSpace);
}

TEST(TMofRoundTripTest, PublicSchema) {
  const char* const file = std::getenv("VYR_CIM_SCHEMA");
  if (file == nullptr) GTEST_SKIP() << "VYR_CIM_SCHEMA names no schema";
  const TNamespacePtr nameSpace = LoadFile(file);
  EXPECT_GT(TNamespaceDump(nameSpace).GetSize(), 10000U);
  ExpectRoundTrip(nameSpace);
}

}  // namespace
}  // namespace NZELVYR20
