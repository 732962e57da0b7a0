// Threads: each has a namespace of its own, and so needs no lock.
#include <ICIMClass.h>
#include <ListElements.h>
#include <OpenNamespace.h>
#include <TClassDraft.h>
#include <TInstanceDraft.h>

#include <array>
#include <exception>
#include <iostream>
#include <string>
#include <thread>

namespace vyr = NZELVYR20;

namespace {

constexpr int kThreads = 4;
constexpr int kLamps = 1000;

std::size_t FillAndCount() {
  const auto nameSpace = vyr::OpenNamespace();
  vyr::DeclareStandardQualifiers(*nameSpace);
  const auto lamp =
      vyr::TClassDraft(nameSpace, "Demo_Lamp").AddProperty("Number", 0, {{"Key", true}}).Add();
  for (int number = 0; number < kLamps; ++number) {
    vyr::TInstanceDraft(nameSpace, "Demo_Lamp").Set("Number", number).Add();
  }
  return vyr::ListInstances(*lamp, /*deep=*/false).size();
}

}  // namespace

int main() try {
  std::array<std::size_t, kThreads> counts = {};
  std::array<std::thread, kThreads> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads[i] = std::thread([&count = counts[i]] { count = FillAndCount(); });
  }
  for (auto& thread : threads) thread.join();
  for (const std::size_t count : counts) std::cout << count << " lamps\n";
  return 0;
} catch (const std::exception& error) {
  std::cerr << "threads: " << error.what() << '\n';
  return 1;
}
