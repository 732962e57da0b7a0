#include "TSqlPaths.h"

#include <boost/pointer_cast.hpp>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

#include "FindTarget.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

/// A later one takes the place of an earlier, so that memory stays what it is.
constexpr std::size_t kRemembered = 1024;

}  // namespace

TSqlPaths::TSqlPaths(boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(std::move(nameSpace)), byInstance_(kRemembered), byText_(kRemembered) {}

TSqlPaths::TEntry& TSqlPaths::EntryOf(const ICIMInstance* instance) {
  // The low bits of addresses are all alike, and so are the steps between neighbours.
  constexpr std::uint64_t kScatter = 0x9E3779B97F4A7C15;
  const std::uint64_t number = reinterpret_cast<std::uintptr_t>(instance) * kScatter;
  return byInstance_[(number >> 32U) % kRemembered];
}

TSqlPaths::TEntry& TSqlPaths::EntryOf(const std::string& text) {
  return byText_[std::hash<std::string>()(text) % kRemembered];
}

const std::string& TSqlPaths::TextOf(const boost::shared_ptr<ICIMInstance>& instance) {
  TEntry& known = EntryOf(instance.get());
  if (known.instance != instance) {
    std::string text = instance->GetReference({}).ToString();
    EntryOf(text) = {instance, text};
    known = {instance, std::move(text)};
  }
  return known.text;
}

std::string TSqlPaths::TextOf(const TCIMReference& reference) {
  const auto instance = FindTarget(reference);
  return instance ? TextOf(instance) : reference.ToString();
}

boost::shared_ptr<ICIMInstance> TSqlPaths::Find(const std::string& text) {
  TEntry& known = EntryOf(text);
  if (known.instance && known.text == text) return known.instance;
  try {
    auto found = namespace_->GetInstance(TCIMReference::Parse(text, namespace_), {});
    if (found) known = {found, text};
    return found;
  } catch (const std::invalid_argument&) {
    return {};
  } catch (const TVYRException&) {
    return {};
  }
}

}  // namespace NZELVYR20
