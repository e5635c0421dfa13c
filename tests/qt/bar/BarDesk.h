#pragma once
#include "qt/bar/ComboBox.h"
#include "qt/bar/CommandBarView.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace tessa::qt {

/// A window with a command bar, filled by each test, and what the bar has reported.
class BarDesk : public testing::Test {
protected:
    Tool* AddTool(TextView name, TextView caption) {
        return bar.Add(std::make_unique<Tool>(++lastId, Text(name), Text(caption)));
    }
    Tool* AddLabel(TextView name, TextView caption) {
        return bar.Add(std::make_unique<Tool>(++lastId, Text(name), Text(caption), ToolKind::Label));
    }
    ComboTool* AddCombo(TextView name) {
        return bar.Add(std::make_unique<ComboTool>(++lastId, Text(name), Text(name)));
    }

    Band* AddBand(TextView name, BandKind kind, const std::vector<TextView>& tools) {
        Band* band = bar.AddBand(Text(name), Text(name), kind);
        for (const TextView tool : tools) band->Append(bar.Share(tool));
        return band;
    }

    /// Shows the bar in the window, and the window. What was added before is there at once.
    void ShowWindow(int width = 900) {
        bar.Click.ConnectForLife([this](Tool& tool) { clicked += ToUtf8(tool.Name()) + ";"; });
        bar.MouseOver.ConnectForLife([this](const Tool* tool) { pointed = tool ? ToUtf8(tool->Name()) : ""; });
        shown = std::make_unique<CommandBarView>(bar, window, *gestures, *neighbours);
        window.setCentralWidget(new QWidget);
        window.resize(width, 400);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    ComboBox& Box(TextView name) { return *shown->Box(name); }
    QLineEdit& Field(TextView name) { return *Box(name).lineEdit(); }
    QToolBar& ToolBarOf(TextView band) { return *shown->ToolBar(band); }

    // What is told while the bar goes is written here.
    std::string clicked, pointed;
    CommandBar bar;
    QMainWindow window;
    EntryGestures* gestures = &EntryGestures::None();
    FocusRing::Neighbours* neighbours = &FocusRing::Neighbours::None();
    std::unique_ptr<CommandBarView> shown;
    std::int32_t lastId = 0;
};

} // namespace tessa::qt
