// load_steps STEP...: loads, uses and closes shared libraries in the order given. It knows none of
// them itself, so the steps alone decide what comes first and what goes last. A step is a verb and
// a file: now:FILE, lazy:FILE, close:FILE, use:FILE; "twice" before the verb does it in two threads
// at once. The exit status says whether every step succeeded.

#include <dlfcn.h>

#include <atomic>
#include <cstdio>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace {

/// The handles that a file was opened with; one is given back by each closing.
std::multimap<std::string, void*> handles;
std::mutex handlesMutex;

bool Load(const std::string& file, int mode) {
  void* const handle = dlopen(file.c_str(), mode | RTLD_LOCAL);
  if (handle == nullptr) return false;
  const std::lock_guard<std::mutex> lock(handlesMutex);
  handles.emplace(file, handle);
  return true;
}

void* FindHandle(const std::string& file, bool remove) {
  const std::lock_guard<std::mutex> lock(handlesMutex);
  const auto found = handles.find(file);
  if (found == handles.end()) return nullptr;
  void* const handle = found->second;
  if (remove) handles.erase(found);
  return handle;
}

bool Close(const std::string& file) {
  void* const handle = FindHandle(file, true);
  return handle != nullptr && dlclose(handle) == 0;
}

bool Use(const std::string& file) {
  void* const handle = FindHandle(file, false);
  if (handle == nullptr) return false;
  void* const use = dlsym(handle, "UseRepository");
  return use != nullptr && reinterpret_cast<bool (*)()>(use)();
}

bool Do(const std::string& verb, const std::string& file) {
  if (verb == "now") return Load(file, RTLD_NOW);
  if (verb == "lazy") return Load(file, RTLD_LAZY);
  if (verb == "close") return Close(file);
  return verb == "use" && Use(file);
}

/// Both threads wait for each other, so that they meet in what they do.
bool DoTwice(const std::string& verb, const std::string& file) {
  std::atomic<int> waiting{2};
  std::atomic<bool> good{true};
  const auto work = [&] {
    --waiting;
    while (waiting > 0) std::this_thread::yield();
    if (!Do(verb, file)) good = false;
  };
  std::thread other(work);
  work();
  other.join();
  return good;
}

bool DoStep(const std::string& step) {
  const std::string twice = "twice:";
  const bool isTwice = step.compare(0, twice.size(), twice) == 0;
  const std::string once = isTwice ? step.substr(twice.size()) : step;
  const auto colon = once.find(':');
  const std::string verb = once.substr(0, colon);
  const std::string file = once.substr(colon + 1);
  return isTwice ? DoTwice(verb, file) : Do(verb, file);
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (DoStep(argv[i])) continue;
    const char* const reason = dlerror();
    std::fprintf(stderr, "%s failed: %s\n", argv[i], reason == nullptr ? "see above" : reason);
    return 1;
  }
  return 0;
}
