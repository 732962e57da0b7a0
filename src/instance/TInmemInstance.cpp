#include "TInmemInstance.h"

#include <boost/make_shared.hpp>

#include "Enumerate.h"
#include "Failures.h"
#include "InMemory.h"
#include "TCIMDateTime.h"
#include "TInmemClass.h"
#include "TInmemNamespace.h"
#include "TOSSpecific.h"

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
    const auto property = instance->GetProperty(*keyName, TCIMContext());
    path->AddKeyValue(*keyName, property->GetValue(TCIMContext()));
    return true;
  }
};

/// A property, and the declaration that it knows only weakly: what a consumer holds of a property
/// that no instance keeps.
struct TDerivedProperty {
  boost::shared_ptr<const ICIMPropertyDecl> declaration;
  TInmemProperty property;

  explicit TDerivedProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declared)
      : declaration(declared), property(declared) {}
};

bool Contains(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

/// Names of status properties that every instance answers for, letter case counting.
bool IsStatusName(const std::string& name) {
  for (const char* part : {"CommunicationStatus", "DetailedStatus", "HealthState",
                           "OperatingStatus", "PrimaryStatus"}) {
    if (Contains(name, part)) return true;
  }
  return false;
}

}  // namespace

TInmemInstance::TInmemInstance(const boost::shared_ptr<ICIMClass>& cimClass, int validationFlags)
    : validationFlags_(validationFlags),
      class_(cimClass),
      declared_(InMemory<TInmemClass>(cimClass)->GetDeclaredProperties()) {
  properties_.reserve(declared_->GetEntries().size());
  for (const auto& entry : declared_->GetEntries()) InsertProp(entry.declaration);
  StampCollectionTime();
}

TInmemInstance::~TInmemInstance() = default;

bool TInmemInstance::InsertProp(const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
  const boost::shared_ptr<const ICIMPropertyDecl> declared(declaration);
  properties_.push_back(boost::make_shared<TInmemProperty>(declared));
  return true;
}

/// A class that declares no time of collection, or one of another type, has instances without.
void TInmemInstance::StampCollectionTime() {
  if (declared_->Find(kCollectionTimeKey) == properties_.size()) return;
  try {
    const TCIMValue now(TOSSpecific::GetLocalTime());
    TInmemInstance::SetPropertyValue(kCollectionTime, now, TCIMContext());
  } catch (const TVYRException&) {
  }
}

bool TInmemInstance::ValidateKeyNonNull(const std::string* keyName) const {
  const auto property = GetProperty(*keyName, TCIMContext());
  if (!property->GetValue(TCIMContext()).IsNull()) return true;
  LogValidationFailure("Inmem: Instance " + class_->GetName(TCIMContext()) + ": key property " +
                       *keyName + " is NULL");
  throw Failure::NullKey();
}

void TInmemInstance::Validate(TCIMContext) const {
  if ((validationFlags_ & kValidateKeys) != 0) {
    class_->EnumerateKeyNames([this](const std::string* key) { return ValidateKeyNonNull(key); },
                              TCIMContext());
  }
  if ((validationFlags_ & kValidateReferences) == 0) return;
  if (class_->IsAssociation(TCIMContext())) ValidateReferences();
}

void TInmemInstance::ValidateReferences() const {
  for (const auto& property : properties_) {
    const TCIMValue& value = property->GetValue(TCIMContext());
    if (!value.IsReference()) continue;
    const TCIMReference reference(value);
    try {
      reference.GetCIMElement(false);
    } catch (const TVYRException& failure) {
      if (Failure::IsNotFound(failure)) {
        LogValidationFailure("Inmem: Reference " + reference.GetPath() +
                             " doesn't point to anything!");
      }
      throw Failure::SameStatus(failure);
    }
  }
}

void TInmemInstance::AddToNamespace(TCIMContext) {
  try {
    Validate(TCIMContext());
  } catch (const TVYRException&) {
    // One message for every cause, and no failure for the caller: collectors add what they have
    // and go on.
    LogValidationFailure("Inmem: Instance " + class_->GetName(TCIMContext()) +
                         ": invalid references");
    return;
  }
  InMemory<TInmemClass>(class_)->AddInstance(shared_from_this());
}

void TInmemInstance::Delete(TCIMContext) {
  InMemory<TInmemClass>(class_)->RemoveInstance(shared_from_this());
}

void TInmemInstance::ModifyInstance(boost::shared_ptr<ICIMInstance>, TCIMContext) {}

TCIMReference TInmemInstance::GetReference(TCIMContext) const {
  TCIMReference path({}, TCIMContext());
  path.SetClass(class_);
  class_->EnumerateKeyNames(TBuildPathCallback{&path, shared_from_this()}, TCIMContext());
  return path;
}

boost::shared_ptr<ICIMClass> TInmemInstance::GetClass(TCIMContext) const { return class_; }

boost::shared_ptr<TInmemProperty> TInmemInstance::FindProperty(const std::string& name) const {
  const std::size_t position = declared_->Find(TInmemNamespace::NormalizeName(name));
  return position == properties_.size() ? boost::shared_ptr<TInmemProperty>()
                                        : properties_[position];
}

boost::shared_ptr<ICIMProperty> TInmemInstance::GetProperty(const std::string& name,
                                                            TCIMContext) const {
  if (auto property = FindProperty(name)) return property;
  if (Contains(name, kSpeedDuplex)) return DeriveProperty(kSpeedDuplex, std::string("Unknown"));
  if (Contains(name, "Description")) return DeriveProperty("Description", std::string(" "));
  if (IsStatusName(name)) return DeriveProperty(name, TCIMValue(static_cast<unsigned short>(0)));
  throw Failure::NotFound();
}

/// Declares the property on the class, whose later instances then have it. This instance does not
/// keep the property: every read makes a fresh one.
boost::shared_ptr<ICIMProperty> TInmemInstance::DeriveProperty(
    const std::string& declaredName, const TCIMValue& defaultValue) const {
  const auto cimClass = InMemory<TInmemClass>(class_);
  const auto added = boost::make_shared<TInmemPropertyDecl>(cimClass, declaredName, defaultValue);
  auto derived = boost::make_shared<TDerivedProperty>(added);  // before the class changes
  const auto declared = cimClass->Declare(added);
  if (declared != added) derived = boost::make_shared<TDerivedProperty>(declared);
  return boost::shared_ptr<ICIMProperty>(derived, &derived->property);
}

void TInmemInstance::SetPropertyValue(const std::string& name, const TCIMValue& value,
                                      TCIMContext) {
  if (const auto property = FindProperty(name)) {
    property->SetValue(value, TCIMContext());
    return;
  }
  // Only this one of the derived names may be set in vain.
  if (!Contains(name, kSpeedDuplex)) throw Failure::NotFound();
}

void TInmemInstance::EnumerateProperties(const TCIMPropertyCallback& callback, TCIMContext) {
  const auto self = shared_from_this();
  for (const auto& property : properties_) {
    CallBack(kVisitsAllAndPasses, [&] { return callback(property); });
  }
}

TCIMValue TInmemInstance::InvokeMethod(const std::string&, TCIMContext&, TCIMContext) {
  return TCIMValue();
}

bool TInmemInstance::operator==(ICIMInstance& other) const {
  return other.GetClass(TCIMContext()) == class_;
}

bool TInmemInstance::operator<(ICIMInstance& other) const {
  return class_ < other.GetClass(TCIMContext());
}

ICIMInstance& TInmemInstance::operator=(const ICIMInstance&) { return *this; }
TInmemInstance& TInmemInstance::operator=(const TInmemInstance&) { return *this; }

}  // namespace NZELVYR20
