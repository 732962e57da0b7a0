#include "TInmemInstance.h"

#include <algorithm>
#include <boost/make_shared.hpp>
#include <utility>

#include "Enumerate.h"
#include "Failures.h"
#include "Names.h"
#include "NormalizedNames.h"
#include "TCIMDateTime.h"
#include "TInmemClass.h"
#include "TInmemNamespace.h"
#include "TInmemProperty.h"
#include "TOSSpecific.h"
#include "TOneBlock.h"

namespace NZELVYR20 {

namespace {

constexpr const char* kCollectionTime = "DateTimeOfCollection";
constexpr const char* kCollectionTimeKey = "datetimeofcollection";
constexpr const char* kSpeedDuplex = "speedDuplex";

/// Adds the value of one key after the other to the path.
struct TBuildPathCallback {
  TCIMReference* path;
  boost::shared_ptr<const TInmemInstance> instance;

  bool operator()(const std::string* keyName) const {
    instance->AddKeyTo(*path, *keyName);
    return true;
  }
};

/// What a consumer holds of a property that no instance keeps: it holds its declaration.
class TDerivedProperty : public TInmemProperty,
                         public boost::enable_shared_from_this<TDerivedProperty> {
 public:
  explicit TDerivedProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declaration)
      : TInmemProperty(declaration), declaration_(declaration) {}
  TDerivedProperty(const TDerivedProperty&) = delete;
  ~TDerivedProperty() override = default;

  using TInmemProperty::operator=;
  TDerivedProperty& operator=(const TDerivedProperty&) { return *this; }

 protected:
  boost::shared_ptr<const void> Hold() override { return shared_from_this(); }

 private:
  const boost::shared_ptr<const ICIMPropertyDecl> declaration_;
};

/// Names of status properties that every instance answers for, letter case counting.
bool IsStatusName(const std::string& name) {
  for (const char* part : {"CommunicationStatus", "DetailedStatus", "HealthState",
                           "OperatingStatus", "PrimaryStatus"}) {
    if (HasPart(name, part)) return true;
  }
  return false;
}

}  // namespace

TInmemInstance::TInmemInstance(const boost::shared_ptr<TInmemClass>& cimClass,
                               TDeclaredPointer declared, int validationFlags)
    : TInstanceClass{cimClass},
      TIndexedInstance(std::move(declared)),
      validationFlags_(validationFlags),
      values_(CountProperties()) {
  StampCollectionTime();
}

TInmemInstance::~TInmemInstance() = default;

boost::shared_ptr<TInmemInstance> TInmemInstance::Make(
    const boost::shared_ptr<TInmemClass>& cimClass, int validationFlags) {
  TDeclaredPointer declared = cimClass->GetDeclaredProperties();
  const std::size_t room = TInmemValues::GetRoom(declared->GetEntries().size());
  return TOneBlock<TInmemInstance>::Make(room, cimClass, std::move(declared), validationFlags);
}

void TInmemInstance::LetGo() noexcept {
  isLetGo_ = true;
  if (held_.IsEmpty()) this->~TInmemInstance();
}

void TInmemInstance::NoteLetGo(THeldProperty& property) noexcept {
  held_.Remove(property);
  if (!isLetGo_ || !held_.IsEmpty()) return;
  const auto block = weak_from_this();  // outlasts the one of its own
  this->~TInmemInstance();
}

boost::shared_ptr<const ICIMPropertyDecl> TInmemInstance::GetDeclarationOf(
    std::size_t position) const {
  return GetDeclared()->GetEntries()[position].declaration;
}

const TCIMValue& TInmemInstance::GetValueAt(std::size_t position) const {
  const TCIMValue* const own = FindOwnValue(position);
  return own ? *own : GetDeclared()->GetEntries()[position].declaration->GetDefaultValue({});
}

/// What an index knows of the value that goes is forgotten before that, and the class to which it
/// refers, may be gone.
void TInmemInstance::KeepOwnValue(std::size_t position, const TCIMValue& value) {
  const TCIMValue* const own = FindOwnValue(position);
  if (value.IsReference() || (own && own->IsReference())) NoteReferenceChange(position);
  values_.Set(position, value);
}

const TCIMValue* TInmemInstance::FindPreviousValue(std::size_t position) const {
  if (!previousValues_) return nullptr;
  const auto value = previousValues_->find(position);
  return value == previousValues_->end() ? nullptr : &value->second;
}

void TInmemInstance::KeepPreviousValue(std::size_t position, const TCIMValue& value) {
  if (!previousValues_) previousValues_ = std::make_unique<std::map<std::size_t, TCIMValue>>();
  const auto [kept, isNew] = previousValues_->emplace(position, value);
  if (!isNew) kept->second = value;
}

/// A class that declares no time of collection, or one of another type, has instances without.
void TInmemInstance::StampCollectionTime() {
  if (GetDeclared()->Find(kCollectionTimeKey) == CountProperties()) return;
  try {
    const TCIMValue now(TOSSpecific::GetLocalTime());
    TInmemInstance::SetPropertyValue(kCollectionTime, now, {});
  } catch (const TVYRException&) {
  }
}

/// Calls `use` with the value of the key of that name. A property that the instance lacks may
/// be declared on the spot, or is status 15.
template <class TUse>
auto TInmemInstance::UseValue(const std::string& name, TUse use) const {
  const std::size_t position = GetDeclared()->FindKeyName(name);
  if (position != CountProperties()) return use(GetValueAt(position));
  NormalizeName(name);
  const auto derived = DeriveProperty(name);
  return use(derived->GetValue({}));
}

bool TInmemInstance::ValidateKeyNonNull(const std::string* keyName) const {
  const bool isNull = UseValue(*keyName, [](const TCIMValue& value) { return value.IsNull(); });
  if (!isNull) return true;
  LogValidationFailure("Inmem: Instance " + class_->GetName({}) + ": key property " + *keyName +
                       " is NULL");
  throw Failure::NullKey();
}

void TInmemInstance::Validate(TCIMContext) const {
  const auto self = shared_from_this();
  ValidateAndFind();
}

TFoundReferences TInmemInstance::ValidateAndFind() const {
  if ((validationFlags_ & kValidateKeys) != 0) {
    class_->EnumerateKeyNames([this](const std::string* key) { return ValidateKeyNonNull(key); },
                              {});
  }
  if ((validationFlags_ & kValidateReferences) == 0) return {};
  return class_->IsAssociation({}) ? ValidateReferences() : TFoundReferences();
}

void TInmemInstance::AddToNamespace(TCIMContext) {
  const auto self = shared_from_this();
  TFoundReferences found;
  try {
    found = ValidateAndFind();
  } catch (const TVYRException&) {
    // One message for every cause, and no failure for the caller: collectors add what they have
    // and go on.
    LogValidationFailure("Inmem: Instance " + class_->GetName({}) + ": invalid references");
    return;
  }
  class_->AddInstance(self, found);
}

void TInmemInstance::Delete(TCIMContext) { class_->RemoveInstance(shared_from_this()); }

void TInmemInstance::ModifyInstance(boost::shared_ptr<ICIMInstance>, TCIMContext) {}

TCIMReference TInmemInstance::GetReference(TCIMContext) const {
  TCIMReference path({}, {});
  path.SetClass(class_);
  class_->EnumerateKeyNames(TBuildPathCallback{&path, shared_from_this()}, {});
  return path;
}

void TInmemInstance::AddKeyTo(TCIMReference& path, const std::string& keyName) const {
  UseValue(keyName, [&](const TCIMValue& value) { path.AddKeyValue(keyName, value); });
}

boost::shared_ptr<ICIMClass> TInmemInstance::GetClass(TCIMContext) const { return class_; }

/// Of the property of that name; the number of properties where there is none. Status 25.
std::size_t TInmemInstance::FindPosition(const std::string& name) const {
  const std::size_t position = GetDeclared()->FindName(name);
  if (position == CountProperties()) NormalizeName(name);
  return position;
}

boost::shared_ptr<ICIMProperty> TInmemInstance::ShareProperty(std::size_t position) const {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): who reads an instance gets what sets it
  auto& instance = const_cast<TInmemInstance&>(*this);
  for (THeldProperty& held : instance.held_) {
    if (held.GetPosition() == position) return held.Share();
  }
  return THeldProperty::Make(instance, position);
}

boost::shared_ptr<ICIMProperty> TInmemInstance::GetProperty(const std::string& name,
                                                            TCIMContext) const {
  const std::size_t position = FindPosition(name);
  return position == CountProperties() ? DeriveProperty(name) : ShareProperty(position);
}

/// A property that the instance lacks.
boost::shared_ptr<ICIMProperty> TInmemInstance::DeriveProperty(const std::string& name) const {
  if (HasPart(name, kSpeedDuplex)) return DeriveProperty(kSpeedDuplex, std::string("Unknown"));
  if (HasPart(name, "Description")) return DeriveProperty("Description", std::string(" "));
  if (IsStatusName(name)) return DeriveProperty(name, TCIMValue(static_cast<unsigned short>(0)));
  throw Failure::NotFound();
}

/// Declares the property on the class, whose later instances then have it. This instance does not
/// keep the property: every read makes a fresh one.
boost::shared_ptr<ICIMProperty> TInmemInstance::DeriveProperty(
    const std::string& declaredName, const TCIMValue& defaultValue) const {
  const auto& cimClass = class_;
  const auto added = boost::make_shared<TInmemPropertyDecl>(cimClass, declaredName, defaultValue);
  auto derived = boost::make_shared<TDerivedProperty>(added);  // before the class changes
  const auto declared = cimClass->Declare(added);
  if (declared != added) derived = boost::make_shared<TDerivedProperty>(declared);
  return derived;
}

void TInmemInstance::SetPropertyValue(const std::string& name, const TCIMValue& value,
                                      TCIMContext) {
  const std::size_t position = FindPosition(name);
  if (position != CountProperties()) {
    TInmemInstanceProperty(*this, position).SetValue(value, {});
    return;
  }
  // Only this one of the derived names may be set in vain.
  if (!HasPart(name, kSpeedDuplex)) throw Failure::NotFound();
}

void TInmemInstance::EnumerateProperties(const TCIMPropertyCallback& callback, TCIMContext) {
  const auto self = shared_from_this();
  for (std::size_t i = 0; i < CountProperties(); ++i) {
    CallBack(kVisitsAllAndPasses, [&] { return callback(ShareProperty(i)); });
  }
}

TCIMValue TInmemInstance::InvokeMethod(const std::string&, TCIMContext&, TCIMContext) {
  return TCIMValue();
}

bool TInmemInstance::operator==(ICIMInstance& other) const { return other.GetClass({}) == class_; }

bool TInmemInstance::operator<(ICIMInstance& other) const { return class_ < other.GetClass({}); }

ICIMInstance& TInmemInstance::operator=(const ICIMInstance&) { return *this; }
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): it copies nothing
TInmemInstance& TInmemInstance::operator=(const TInmemInstance&) { return *this; }

}  // namespace NZELVYR20
