#include "qt/program/QtWindowTools.h"

#include "qt/desktop/QtInstanceProfile.h"
#include "qt/engine/QtEngine.h"
#include "qt/page/QtDevTools.h"
#include "qt/window/QtFindBar.h"
#include "tests/engine/FakeEngineHost.h"

#include <QMainWindow>
#include <gtest/gtest.h>
#include <string>

namespace tessa::qt {

namespace {

class QtWindowToolsTest : public testing::Test {
protected:
    QMainWindow window;
    QtInstanceProfile ownProfile{{}, {}};
    FakeEngineHost host;
    QtEngine engine{&window, ownProfile, host};
    QtFindBar findBar{&window};
    QtDevTools devTools{window};
    QtWindowTools tools{engine, findBar, devTools};
};

TEST_F(QtWindowToolsTest, TellsWhatIsMadeLaterThanItself) {
    std::string told;
    tools.ListsTabs.ConnectForLife([&] { told += "tabs "; });
    tools.Customizes.ConnectForLife([&] { told += "customize "; });
    tools.ShowTabList();
    tools.Customize();
    EXPECT_EQ(told, "tabs customize ");
}

TEST_F(QtWindowToolsTest, WithoutAPageThereAreNoDeveloperTools) {
    tools.ToggleDevTools();
    EXPECT_EQ(devTools.Inspected(), nullptr);
}

} // namespace

} // namespace tessa::qt
