#include "form/StateRecorder.h"

#include "document/Records.h"

namespace zav {
namespace {

// Gives the cursor back; searches then start at the root again, whatever they did before.
class RecorderScope {
 public:
  explicit RecorderScope(DataIO& document)
      : document_(document), node_(document.GetCurrentNode()) {}
  RecorderScope(const RecorderScope&) = delete;
  RecorderScope& operator=(const RecorderScope&) = delete;
  ~RecorderScope() {
    document_.SetFromRoot(true);
    document_.SetCurrentNode(node_);
  }

 private:
  DataIO& document_;
  NodeHandle node_;
};

// Puts the cursor on the state section, with searches limited to it.
bool EnterState(DataIO& document) {
  document.SetFromRoot(true);
  if (!document.FindNode("State")) return false;
  document.SetFromRoot(false);
  return true;
}

}  // namespace

void StateRecorder::WriteStateResponse(std::string_view response) {
  DataIO& document = form_.Document();
  const RecorderScope keep(document);
  if (!EnterState(document)) {
    EnsureStateSection(document);
    EnterState(document);
  }
  if (!document.FindNode("Responses")) document.AddNode("State", "Responses");
  if (!document.AddNode("Responses", "Response")) {
    RaiseError(error_number::kObjectNotSet, "The item has no state section");
  }
  document.SetText(response);
}

void StateRecorder::RemoveStateResponse(std::string_view answerId) {
  // The empty text is in every response: it names none.
  if (answerId.empty()) return;
  form_.Trap("RemoveStateResponse", [&] {
    DataIO& document = form_.Document();
    const RecorderScope keep(document);
    if (!EnterState(document) || !document.FindNode("Responses")) return;
    if (document.MoveToChild(document.FindChildText(answerId))) document.RemoveNode("Response");
  });
}

void StateRecorder::WriteStateValue(std::string_view name, std::string_view value) {
  if (form_.layout.StatePending) return;
  form_.Trap("WriteStateValue", [&] {
    DataIO& document = form_.Document();
    const RecorderScope keep(document);
    if (!EnterState(document)) return;
    if (!document.FindNode(name)) document.AddNode("State", name);
    document.SetText(value);
  });
}

}  // namespace zav
