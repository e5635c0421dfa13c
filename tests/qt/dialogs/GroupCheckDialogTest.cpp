#include "qt/dialogs/GroupCheckDialog.h"

#include "tests/fakes/TemporaryFolder.h"

#include <QPushButton>
#include <QTreeWidget>
#include <functional>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace tessa::qt {

namespace {

/// Says of every address that it has moved.
class MovingProbe final : public AddressProbe {
public:
    void Ask(const Text& address, std::function<void(const ProbeAnswer&)> answered) override {
        const ProbeAnswer fine{.status = 200}, moved{.status = 301, .location = u"http://new/"};
        m_waiting.push_back([answered, answer = address == u"http://new/" ? fine : moved] { answered(answer); });
    }
    void StopAll() override {}

    /// Servers answer later than they are asked.
    void AnswerAll() {
        while (!m_waiting.empty()) std::exchange(m_waiting, {}).front()();
    }

private:
    std::vector<std::function<void()>> m_waiting;
};

class GroupCheckDialogTest : public testing::Test {
protected:
    GroupCheckDialogTest() { probe.AnswerAll(); }

    static const TemporaryFolder& Written(const TemporaryFolder& folder) {
        folder.Write("News.tvg", "[TessaGroup]\r\nurl1=http://old/\r\nurl2=mailto:a@b\r\n");
        return folder;
    }

    TemporaryFolder folder;
    MovingProbe probe;
    frmGroupCheck form{probe, {Written(folder).PathText("News.tvg")}};
    GroupCheckDialog dialog{form};
    QTreeWidget* list = dialog.findChild<QTreeWidget*>(QStringLiteral("lstLines"));
};

TEST_F(GroupCheckDialogTest, ShowsAddressAnswerAndGroup) {
    ASSERT_EQ(list->topLevelItemCount(), 2);
    const auto* moved = list->topLevelItem(0);
    EXPECT_EQ(moved->text(0), QStringLiteral("http://old/"));
    EXPECT_EQ(moved->text(1), QStringLiteral("Moved for good to http://new/"));
    EXPECT_EQ(moved->text(2), QStringLiteral("News"));
    EXPECT_EQ(moved->checkState(0), Qt::Checked);
    EXPECT_FALSE(list->topLevelItem(1)->data(0, Qt::CheckStateRole).isValid()) << "there is nothing to mend";
}

TEST_F(GroupCheckDialogTest, TicksReachTheForm) {
    list->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(form.lstLines.Rows().front().Ticked);
    EXPECT_FALSE(dialog.findChild<QPushButton*>(QStringLiteral("cmdReplace"))->isEnabled());
}

TEST_F(GroupCheckDialogTest, ReplaceChangesTheFileAndTheList) {
    dialog.findChild<QPushButton*>(QStringLiteral("cmdReplace"))->click();
    EXPECT_EQ(list->topLevelItem(0)->text(0), QStringLiteral("http://new/"));
    EXPECT_EQ(folder.Read("News.tvg"), "[TessaGroup]\r\nurl1=http://new/\r\nurl2=mailto:a@b\r\n");
}

} // namespace

} // namespace tessa::qt
