// Windows of forms, hosts and programs.
#include <gtest/gtest.h>

#include <chrono>

#include "platform/headless/HeadlessPlatform.h"
#include "support/Raised.h"

namespace zav {
namespace {

using std::chrono::milliseconds;

TEST(Window, HasTheParentThatItWasGivenLast) {
  const auto platform = MakeHeadlessPlatform();
  const WindowHandle host = platform->CreateHostWindow("Test driver");
  const WindowHandle other = platform->CreateHostWindow("Case");
  const WindowHandle form = platform->CreateFormWindow("frmMain");
  const struct {
    const char* why;
    WindowHandle window;
    WindowHandle parent;
    WindowHandle wantPrevious;
  } rows[] = {
      {"at first it stands on the desktop", form, host, 0},
      {"moved on", form, other, host},
      {"a parent that is no window changes nothing", form, 999, 0},
      {"its own parent", form, form, 0},
      {"a window that stands in it", other, form, 0},
      {"back to the desktop; the three before changed nothing", form, 0, other},
      {"what is no window", 999, host, 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(platform->SetParent(row.window, row.parent), row.wantPrevious) << row.why;
  }
  platform->SetParent(form, host);
  platform->CloseWindow(host);
  EXPECT_EQ(platform->SetParent(form, other), 0) << "a parent that closed leaves it on the desktop";
}

TEST(Window, IsFoundOnTheDesktopByClassAndTitle) {
  const auto platform = MakeHeadlessPlatform();
  platform->RegisterProgram("dcalc.exe", {"SciCalc", "Calculator"});
  const WindowHandle host = platform->CreateHostWindow("Calculator");
  EXPECT_EQ(platform->FindWindow("SciCalc", "Calculator"), 0) << "of another class";
  platform->Shell("C:\\items\\DCALC.EXE");
  platform->Shell("/items/dcalc.exe");
  const WindowHandle calculator = platform->FindWindow("scicalc", "calculator");
  ASSERT_NE(calculator, 0);
  EXPECT_EQ(calculator, platform->windows().Order().back()) << "of two the one in front";
  EXPECT_FALSE(platform->windows().Find(calculator)->visible) << "programs start hidden";
  platform->RestoreWindow(calculator);
  EXPECT_TRUE(platform->windows().Find(calculator)->visible);

  platform->SetParent(calculator, host);
  const WindowHandle first = platform->FindWindow("SciCalc", "Calculator");
  EXPECT_NE(first, calculator) << "one that stands in another window is not on the desktop";
  platform->BringWindowToTop(host);
  EXPECT_EQ(platform->windows().Order().back(), host);
}

TEST(Window, OfAProgramComesWhenTheProgramHasStarted) {
  const auto platform = MakeHeadlessPlatform();
  platform->RegisterProgram("dcalc.exe", {"SciCalc", "Calculator", milliseconds(300)});
  platform->Shell("/items/dcalc.exe");
  platform->Advance(milliseconds(299));
  EXPECT_EQ(platform->FindWindow("SciCalc", "Calculator"), 0);
  platform->Advance(milliseconds(1));
  EXPECT_NE(platform->FindWindow("SciCalc", "Calculator"), 0);
  const Raised raised = Catch([&] { platform->Shell("/items/other.exe"); });
  EXPECT_EQ(raised.number, error_number::kFileNotFound);
  EXPECT_NE(raised.description.find("/items/other.exe"), std::string::npos);
}

TEST(Window, ClosesByWhomItBelongsTo) {
  const auto platform = MakeHeadlessPlatform();
  platform->RegisterProgram("dcalc.exe", {"SciCalc", "Calculator"});
  platform->Shell("dcalc.exe");
  const WindowHandle calculator = platform->FindWindow("SciCalc", "Calculator");
  const WindowHandle host = platform->CreateHostWindow("Test driver");
  const WindowHandle form = platform->CreateFormWindow("frmMain");
  for (const WindowHandle window : {calculator, host, form}) platform->SendClose(window);
  EXPECT_FALSE(platform->IsWindow(calculator)) << "a program does what it is asked";
  EXPECT_TRUE(platform->IsWindow(host));
  EXPECT_TRUE(platform->IsWindow(form));
  platform->CloseWindow(form);
  EXPECT_TRUE(platform->IsWindow(form)) << "a form that was never shown";
  ControlHost controls(platform->platform());
  Form dialog(controls, "frmInstructions");
  dialog.Show();
  int asked = 0;
  dialog.onClose = [&] { ++asked; };
  controls.RunHostCall([] {});
  platform->CloseWindow(dialog.hwnd());
  EXPECT_EQ(asked, 1) << "the candidate asks a form to close";
  EXPECT_TRUE(platform->IsWindow(dialog.hwnd()));
  platform->CloseWindow(host);
  EXPECT_FALSE(platform->IsWindow(host));
  EXPECT_NE(platform->CreateHostWindow("again"), host) << "handles are not used again";
}

}  // namespace
}  // namespace zav
