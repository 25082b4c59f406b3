// Memory that runs out once, at each place of a whole session that takes some. Whatever fails, the
// process goes on, nothing but an automation error reaches the host, and the same component serves
// the next session as if nothing had been.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "hosting/InputError.h"
#include "support/FailingAllocations.h"
#include "support/SmallItem.h"
#include "support/WholeSession.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
// The HTML library loses what its parser made when memory runs out while it takes that over.
extern "C" const char* __lsan_default_suppressions();   // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
  return "leak:libgumbo";
}
#endif
#endif

namespace zav {
namespace {

class Session {
 public:
  // Gives, for failing 0, the numbers of the allocations that are worth failing.
  std::vector<std::size_t> Play(std::size_t failing) {
    FailingAllocations memory(failing);
    if (failing == 0) memory.NotePlaces();
    for (const auto& step : WholeSession(host_, candidate_)) {
      memory.Resume();
      Do(step);
      memory.Pause();
    }
    return memory.FirstOfPlaces();
  }

  void Check(std::size_t failing) {
    candidate_.Release();  // the hand may have stopped in mid-drag
    EXPECT_TRUE(host_.Init() && host_.Show()) << "allocation " << failing;
    candidate_.Drag(*ReadSpot("source 2"), *ReadSpot("target A"));
    candidate_.Drag(*ReadSpot("target A"), *ReadSpot("target B"));
    EXPECT_EQ(host_.Responses(), std::vector<std::string>{"B2"}) << "allocation " << failing;
    EXPECT_EQ(Faults(host_, false), "") << "allocation " << failing;
    EXPECT_TRUE(host_.Free()) << "allocation " << failing;
  }

 private:
  // The candidate and the host have no memory either.
  static void Do(const std::function<void()>& step) {
    try {
      step();
    } catch (const InputError&) {
    } catch (const AutomationError&) {
    } catch (const std::bad_alloc&) {
    }
  }

  ReferenceHost host_{SmallItem()};
  Candidate candidate_{host_};
};

// ZAV_MEMORY_FAULTS=1 tries every place; otherwise every seventh is.
TEST(MemoryFaults, EndNothingButTheStepThatTheyHit) {
  constexpr std::size_t kUsualStride = 7;
  const std::size_t stride = std::getenv("ZAV_MEMORY_FAULTS") != nullptr ? 1 : kUsualStride;
  Session().Play(1);  // what is made once for the process stands then
  const std::vector<std::size_t> places = Session().Play(0);
  EXPECT_GT(places.size(), 500U);
  for (std::size_t i = 0; i < places.size(); i += stride) {
    Session session;
    session.Play(places[i]);
    session.Check(places[i]);
  }
}

}  // namespace
}  // namespace zav
