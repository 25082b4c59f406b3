#include "support/WholeSession.h"

#include "form/FormCore.h"

namespace zav {

std::vector<std::function<void()>> WholeSession(ReferenceHost& host, Candidate& candidate) {
  const auto drag = [&](const char* from, const char* to) {
    return [=, &candidate] { candidate.Drag(*ReadSpot(from), *ReadSpot(to)); };
  };
  return {
      [&] { host.Init(); },
      [&] { host.Show(); },
      drag("source 1", "target A"),
      drag("source 2", "target B"),
      drag("source 3", "target A"),
      drag("target B", "target C"),
      drag("target C", "target A"),
      drag("source 4", "target D"),
      drag("target A", "nowhere"),
      [&] { candidate.Delete(*ReadSpot("target D")); },
      drag("source 5", "target E"),
      [&] { host.Wait(std::chrono::milliseconds(2000)); },
      [&] { candidate.ClickButton("btnInstructions"); },
      [&] { host.form().core().controls.ssWorkScroll.Show(); },
      [&] { host.Status(); },
      [&] { host.SetState("<State><Responses><Response>B2</Response></Responses></State>"); },
      [&] { host.Show(); },
      [&] { candidate.ClickButton("btnReset"); },
      [&] { host.Hide(); },
  };
}

}  // namespace zav
