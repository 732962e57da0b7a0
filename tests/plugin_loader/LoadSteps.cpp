// load_steps STEP...: loads, uses and closes shared libraries in the order given. It knows none of
// them itself, so the steps alone decide what comes first and what goes last. A step is a verb and
// a file: now:FILE, lazy:FILE, close:FILE, use:FILE; "twice" before the verb does it in two threads
// at once. The exit status says whether every step succeeded.

#include <dlfcn.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>

namespace {

bool Load(const std::string& file, int mode) {
  return dlopen(file.c_str(), mode | RTLD_LOCAL) != nullptr;
}

/// Calls `use` with the library's handle, if it is loaded.
bool With(const std::string& file, bool (*use)(void*)) {
  void* const handle = dlopen(file.c_str(), RTLD_LAZY | RTLD_NOLOAD | RTLD_LOCAL);
  return handle != nullptr && use(handle) && dlclose(handle) == 0;
}

bool Close(void* handle) { return dlclose(handle) == 0; }

bool Use(void* handle) {
  void* const use = dlsym(handle, "UseRepository");
  return use != nullptr && reinterpret_cast<bool (*)()>(use)();
}

bool Do(const std::string& verb, const std::string& file) {
  if (verb == "now") return Load(file, RTLD_NOW);
  if (verb == "lazy") return Load(file, RTLD_LAZY);
  return With(file, verb == "close" ? Close : Use);
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
