#include "qt/questions/ScreenChoice.h"

#include <QStandardItemModel>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// A page that wants to see a screen or a window; what it was given comes as "screen 0", "window 1" or "nothing".
class ScreenChoiceTest : public testing::Test {
protected:
    ScreenChoiceTest() {
        for (const char* name : {"1", "2"}) screens.appendRow(new QStandardItem(QString::fromLatin1(name)));
        for (const char* name : {"News", "Mail"}) windows.appendRow(new QStandardItem(QString::fromLatin1(name)));
    }
    ScreenChoice Make() {
        const auto tell = [this](const char* what) {
            return [this, what](const QModelIndex& index) { given += what + std::to_string(index.row()) + ";"; };
        };
        return ScreenChoice({&screens, &windows, tell("screen "), tell("window "), [this] { given += "nothing;"; }});
    }
    static std::string Shown(ScreenChoice& choice) {
        const PageChoices choices = choice.Choices();
        std::string all;
        for (std::size_t i = 0; i < choices.Names.size(); ++i)
            all += (i == choices.Chosen ? "[" : "") + ToUtf8(choices.Names[i]) + (i == choices.Chosen ? "]" : "") + ";";
        return all;
    }

    QStandardItemModel screens, windows;
    std::string given;
};

TEST_F(ScreenChoiceTest, OffersScreensThenWindows) {
    auto choice = Make();
    EXPECT_EQ(Shown(choice), "[Screen: 1];Screen: 2;Window: News;Window: Mail;");
    choice.Choose(3);
    EXPECT_EQ(Shown(choice), "Screen: 1;Screen: 2;Window: News;[Window: Mail];");
    EXPECT_TRUE(choice.Share());
    EXPECT_EQ(given, "window 1;");
}

TEST_F(ScreenChoiceTest, GivesTheFirstScreenWhenNothingElseIsChosen) {
    auto choice = Make();
    choice.Choose(77);
    EXPECT_TRUE(choice.Share());
    EXPECT_EQ(given, "screen 0;");
}

TEST_F(ScreenChoiceTest, FollowsWhatIsChosenWhereverItMoves) {
    auto choice = Make();
    choice.Choose(2);
    windows.insertRow(0, new QStandardItem(QStringLiteral("New")));
    screens.removeRow(0);
    EXPECT_EQ(Shown(choice), "Screen: 2;Window: New;[Window: News];Window: Mail;");
    EXPECT_TRUE(choice.Share());
    EXPECT_EQ(given, "window 1;");
}

TEST_F(ScreenChoiceTest, ShowsNothingElseInsteadOfAWindowThatHasGone) {
    auto choice = Make();
    choice.Choose(3);
    windows.removeRow(1);
    EXPECT_FALSE(choice.Share());
    EXPECT_EQ(given, "nothing;") << "another one would be shown unseen";
}

TEST_F(ScreenChoiceTest, OffersTheFirstAgainWhenTheUserSeesWhatHasGone) {
    auto choice = Make();
    choice.Choose(3);
    windows.clear();
    EXPECT_EQ(Shown(choice), "[Screen: 1];Screen: 2;");
    EXPECT_TRUE(choice.Share());
    EXPECT_EQ(given, "screen 0;");
}

TEST_F(ScreenChoiceTest, IsEmptyWithoutScreensAndWindows) {
    screens.clear();
    windows.clear();
    auto choice = Make();
    EXPECT_TRUE(choice.Empty());
    EXPECT_EQ(Shown(choice), "");
    EXPECT_FALSE(choice.Share());
    EXPECT_EQ(given, "nothing;");
}

TEST_F(ScreenChoiceTest, NamesAreOneLineEach) {
    windows.appendRow(new QStandardItem(QStringLiteral("a\nb \u202E") + QString(200, u'x')));
    auto choice = Make();
    const Text name = choice.Choices().Names.back();
    EXPECT_EQ(name.substr(0, 13), u"Window: a b x");
    EXPECT_LT(name.size(), 100U);
}

} // namespace

} // namespace tessa::qt
