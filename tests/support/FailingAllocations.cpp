#include "support/FailingAllocations.h"

#include <execinfo.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <set>

namespace zav {
namespace {

// Deep enough to tell places of the component apart below the library's own functions.
constexpr int kFrames = 12;

struct Counter {
  bool counts = false;
  bool notes = false;
  std::size_t count = 0;
  std::size_t failing = 0;
  std::set<std::uint64_t> places;
  std::vector<std::size_t> first;
};

Counter& TheCounter() {
  static thread_local Counter counter;
  return counter;
}

// FNV-1a over the return addresses.
std::uint64_t PlaceOfCall() {
  std::array<void*, kFrames> frames{};
  const int found = backtrace(frames.data(), kFrames);
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (int i = 0; i < found; ++i) {
    hash ^= reinterpret_cast<std::uintptr_t>(frames.at(static_cast<std::size_t>(i)));
    hash *= 0x100000001B3U;
  }
  return hash;
}

void Count() {
  Counter& counter = TheCounter();
  if (!counter.counts) return;
  ++counter.count;
  if (counter.notes) {
    counter.counts = false;
    if (counter.places.insert(PlaceOfCall()).second) counter.first.push_back(counter.count);
    counter.counts = true;
  }
  if (counter.count == counter.failing) throw std::bad_alloc();
}

}  // namespace

FailingAllocations::FailingAllocations(std::size_t failing) {
  Counter& counter = TheCounter();
  counter = Counter{};
  counter.failing = failing;
  PlaceOfCall();  // takes memory of its own the first time
}

FailingAllocations::~FailingAllocations() { TheCounter() = Counter{}; }

void FailingAllocations::Pause() { TheCounter().counts = false; }
void FailingAllocations::Resume() { TheCounter().counts = true; }
void FailingAllocations::NotePlaces() { TheCounter().notes = true; }

const std::vector<std::size_t>& FailingAllocations::FirstOfPlaces() const {
  return TheCounter().first;
}

}  // namespace zav

void* operator new(std::size_t size) {
  zav::Count();
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
