#include "qt/bar/ToolBarsMenu.h"

#include "tests/qt/bar/BarDesk.h"

#include <QMenu>
#include <QPointer>

namespace tessa::qt {

namespace {

class ToolBarsMenuTest : public BarDesk {
protected:
    void SetUp() override {
        AddBand(u"bndFile", BandKind::Toolbar, {});
        bar.FindBand(u"bndFile")->Caption = u"File & more";
        AddBand(u"bndGo", BandKind::Toolbar, {})->Visible = false;
        AddBand(u"bndFont", BandKind::Menu, {});
        customize = AddTool(u"mnuViewToolbars", u"Toolbars");
        ShowWindow();
    }
    QMenu& Open() {
        if (menu) menu->close();
        menu = ToolBarsMenu::Show(bar, window, window.mapToGlobal(QPoint(10, 10)));
        return *menu;
    }
    static std::string Entries(const QMenu& menu) {
        std::string all;
        for (const QAction* each : menu.actions())
            all += (each->isSeparator() ? "|" : each->text().toStdString() + (each->isChecked() ? "+" : "")) + " ";
        return all;
    }

    Tool* customize = nullptr;
    QPointer<QMenu> menu;
};

TEST_F(ToolBarsMenuTest, ListsTheToolbarsAndTheWayToArrangeThem) {
    EXPECT_EQ(Entries(Open()), "File && more+ bndGo | &Customize... ") << "no menu, and no access key";
}

TEST_F(ToolBarsMenuTest, ShowsAndHidesAToolbar) {
    Open().actions().at(1)->trigger();
    EXPECT_TRUE(bar.FindBand(u"bndGo")->Visible());
    Open().actions().at(0)->trigger();
    EXPECT_FALSE(bar.FindBand(u"bndFile")->Visible());
}

TEST_F(ToolBarsMenuTest, ArrangingIsTheToolsOwnCommand) {
    Open().actions().last()->trigger();
    EXPECT_EQ(clicked, "mnuViewToolbars;");
    customize->Enabled = false;
    EXPECT_EQ(Entries(Open()), "File && more+ bndGo ");
}

} // namespace

} // namespace tessa::qt
