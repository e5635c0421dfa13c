#include "qt/program/DesktopWindowTools.h"

#include "qt/desktop/InstanceProfile.h"
#include "qt/engine/Engine.h"
#include "qt/page/DevTools.h"
#include "qt/window/FindBar.h"
#include "tests/engine/FakeEngineHost.h"

#include <QMainWindow>
#include <gtest/gtest.h>
#include <string>

namespace tessa::qt {

namespace {

class DesktopWindowToolsTest : public testing::Test {
protected:
    QMainWindow window;
    InstanceProfile ownProfile{{}, {}};
    FakeEngineHost host;
    Engine engine{&window, ownProfile, host};
    FindBar findBar{&window};
    DevTools devTools{window};
    DesktopWindowTools tools{engine, findBar, devTools};
};

TEST_F(DesktopWindowToolsTest, TellsWhatIsMadeLaterThanItself) {
    std::string told;
    tools.ListsTabs.ConnectForLife([&] { told += "tabs "; });
    tools.MovesDividers.ConnectForLife([&] { told += "dividers "; });
    tools.Customizes.ConnectForLife([&] { told += "customize "; });
    tools.ShowTabList();
    tools.MoveDividers();
    tools.Customize();
    EXPECT_EQ(told, "tabs dividers customize ");
}

TEST_F(DesktopWindowToolsTest, WithoutAPageThereAreNoDeveloperTools) {
    tools.ToggleDevTools();
    EXPECT_EQ(devTools.Inspected(), nullptr);
}

} // namespace

} // namespace tessa::qt
