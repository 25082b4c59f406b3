// Memory that runs out at a chosen moment: an allocation of this thread's raises std::bad_alloc.
#pragma once

#include <cstddef>
#include <vector>

namespace zav {

class FailingAllocations {
 public:
  // Lets the allocation of that number fail, counted from 1 while it counts; 0 lets none fail. One
  // at a time.
  explicit FailingAllocations(std::size_t failing);
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;
  ~FailingAllocations();

  // What is taken while it does not count does not fail. It begins without counting.
  void Resume();
  void Pause();

  // Notes which allocations are the first of their place, a place being the functions
  // that led there.
  void NotePlaces();
  [[nodiscard]] const std::vector<std::size_t>& FirstOfPlaces() const;
};

}  // namespace zav
