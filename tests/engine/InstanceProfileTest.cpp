// Tests: Profile
#include "qt/engine/PageView.h"
#include "qt/engine/StoredBrowsingData.h"
#include "tests/engine/EngineDesk.h"

#include <QDir>
#include <QFile>
#include <QWebEngineProfile>

namespace tessa::qt {

namespace {

class InstanceProfileTest : public testing::Test {
protected:
    void SetUp() override { server.Page(QStringLiteral("/page"), "<title>page</title><p>words</p>"); }
    void Load(EngineView& desk) { desk.Load(server.Address(QStringLiteral("/page"))); }

    ProfileFolder folder;
    QString first = folder.dir.filePath(QStringLiteral("engine"));
    LocalServer server;
};

TEST_F(InstanceProfileTest, AFurtherInstanceKeepsWhatPagesStoreTooApartFromTheFirst) {
    EngineView one(first), two(first);
    Load(one);
    Load(two);
    EXPECT_EQ(one.engine.Profiles().Get()->persistentStoragePath(), first);
    EXPECT_EQ(two.engine.Profiles().Get()->persistentStoragePath(), first + QStringLiteral("-2"));
    EXPECT_FALSE(two.engine.Profiles().Get()->isOffTheRecord());
    one.Script(QStringLiteral("document.cookie = 'whose=first; max-age=9999'; localStorage.whose = 'first'"));
    EXPECT_EQ(one.Script(QStringLiteral("document.cookie")), u"whose=first");
    Load(two);
    EXPECT_EQ(two.Script(QStringLiteral("document.cookie + (localStorage.whose || '')")), u"");
}

TEST_F(InstanceProfileTest, ClearingForgetsWhatThisInstanceKeepsAndNoOther) {
    StoredBrowsingData itsOwn;
    EngineView one(first), two(first);
    two.engine.Profiles().Made.ConnectForLife([&](QWebEngineProfile& made) { itsOwn.Watch(made); });
    for (EngineView* each : {&one, &two}) {
        Load(*each);
        each->Script(QStringLiteral("document.cookie = 'kept=1; max-age=9999'"));
        EXPECT_EQ(each->Script(QStringLiteral("document.cookie")), u"kept=1");
    }
    itsOwn.Clear({.cookies = true}, *two.engine.Profiles().Get(), [](Cleared) {});
    EXPECT_TRUE(WaitUntil([&] { return two.Script(QStringLiteral("document.cookie")).isEmpty(); }));
    EXPECT_EQ(one.Script(QStringLiteral("document.cookie")), u"kept=1");
    itsOwn.Save();
    EXPECT_TRUE(QFile::exists(first + QStringLiteral("-2/cookie-times")));
    EXPECT_FALSE(QFile::exists(first + QStringLiteral("/cookie-times")));
}

TEST_F(InstanceProfileTest, APrivatePageOfAFurtherInstanceKeepsNothing) {
    EngineView one(first), two(first);
    Load(one);
    two.Replace(Privacy::Private);
    Load(two);
    EXPECT_TRUE(two.engine.Profiles().Get(Privacy::Private)->isOffTheRecord());
}

TEST_F(InstanceProfileTest, WithoutAFolderPagesAreShownAndNothingIsKept) {
    QFile inTheWay(first);
    ASSERT_TRUE(inTheWay.open(QFile::WriteOnly));
    EngineView desk(first);
    Load(desk);
    EXPECT_TRUE(desk.engine.Profiles().Get()->isOffTheRecord());
    EXPECT_EQ(desk.ownProfile.Number(), 0);
    EXPECT_EQ(inTheWay.size(), 0);
}

} // namespace

} // namespace tessa::qt
