#include "TInmemNamespace.h"

#include <clocale>
#include <cstdlib>
#include <filesystem>

#include "INamespaceProviderManager.h"
#include "TCIMReference.h"
#include "TInmemNamespaceProvider.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TInmemNamespaceTest = TRepositoryTest;

TEST_F(TInmemNamespaceTest, ComesFromTheProviderAndKnowsNoOther) {
  const auto provider = TInmemNamespaceProvider::GetInstance();
  EXPECT_EQ(TInmemNamespaceProvider::Initialize(), 0);
  EXPECT_EQ(TRootObject::GetNamespaceProviderManager()->FindNamespaceProvider("inmem"), provider);
  EXPECT_EQ(space->GetNamespaceProvider({}), provider);

  const auto path = AddInstance(DefineClass("CIM_Port"), "1")->GetReference({});
  const auto other = NewNamespace(false);
  EXPECT_EQ(&(*other = *space), other.get());
  EXPECT_EQ(Try([&] { other->GetInstance(path, {}); }), Quiet(15));
}

TEST_F(TInmemNamespaceTest, NormalizesNames) {
  EXPECT_EQ(TInmemNamespace::NormalizeName(""), "");
  EXPECT_EQ(TInmemNamespace::NormalizeName("_X9_ManagedElement"), "_x9_managedelement");
  for (const std::string& name :
       TNames{"9x", "A-b", "a.", {"a\0b", 3}, "\xe9t\xe9", "caf\xc3\xa9"}) {
    EXPECT_EQ(Try([&] { TInmemNamespace::NormalizeName(name); }), InvalidName(name));
  }
}

/// Turkish, where the small form of I is another letter, with one of the character sets for it.
class TInmemNamespaceTurkishTest : public TRepositoryTest,
                                   public ::testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    std::string folder = ::testing::TempDir() + "/vyrXXXXXX";
    ASSERT_TRUE(mkdtemp(folder.data()));
    const std::string name = std::string("tr_TR.") + GetParam();
    const std::string build = std::string("localedef --no-archive -c -i tr_TR -f ") + GetParam() +
                              " " + folder + "/" + name + " >/dev/null 2>&1";
    const bool isBuilt = std::system(build.c_str()) == 0;
    setenv("LOCPATH", folder.c_str(), 1);
    const bool isSet = isBuilt && std::setlocale(LC_ALL, name.c_str()) != nullptr;
    unsetenv("LOCPATH");
    std::filesystem::remove_all(folder);
    if (!isSet) GTEST_SKIP() << "the package locales is not installed";
    ASSERT_NE(std::tolower('I'), 'i');
  }

  void TearDown() override { std::setlocale(LC_ALL, "C"); }
};

TEST_P(TInmemNamespaceTurkishTest, NamesAreTheSame) {
  const auto disk = DefineClass("DISK");
  const auto drive = NewClass("DRIVE", disk);
  DeclareProperty(drive, "ID", TCIMValue::Null(TCIMValue::TCIMType::kString), {"OVERRIDE", "KEY"});
  const auto size = DeclareProperty(drive, "SIZE", 1536U, {"ABBREVIATEUNITS"});
  Qualify(*size, "UNITS", "Bytes");
  drive->AddToNamespace({});
  const auto instance = PutInstance(drive, {{"id", "a"}});
  EXPECT_EQ(instance->GetReference({}).GetPath(), "DRIVE.id=\"a\"");
  EXPECT_EQ(instance->GetProperty("size", {})->ToString(), "1.5 KB");
  EXPECT_EQ(space->GetClass("disk", {}), disk);
  const auto holding = NewClass("HOLDING");
  Qualify(*holding, "ASSOCIATION");
  EXPECT_TRUE(holding->IsAssociation({}));
}

INSTANTIATE_TEST_SUITE_P(Locales, TInmemNamespaceTurkishTest,
                         ::testing::Values("ISO-8859-9", "UTF-8"));

TEST_F(TInmemNamespaceTest, RejectsWhatItDoesNotSupport) {
  const TCIMReference path({}, {});
  std::string text;
  const std::function<void()> operations[] = {
      [&] { space->AddUnderlyingNamespace({}, {}); }, [&] { space->Subscribe({}, {}, {}); },
      [&] { space->DeleteInstance(path, {}); }, [&] { space->ModifyInstance(path, {}, {}); },
      [&] { space->ExecuteQuery({}, text, text, {}); }};
  for (const auto& operation : operations) EXPECT_EQ(Try(operation), Quiet(1));
  const auto key = space->AllocateQualifierDecl("Key", true, ICIMQualifierDecl::kAny, {}, {});
  key->AddToNamespace({});
  key->RemoveQualifierDecl({});
  EXPECT_EQ(space->GetQualifierDecl("kEY", {}), key) << "it stays";
}

}  // namespace
}  // namespace NZELVYR20
