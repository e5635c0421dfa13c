// Tests: Dictionaries
#include "qt/desktop/Dictionaries.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QApplication>
#include <QDir>
#include <QTest>
#include <QWebEngineProfile>

namespace tessa::qt {

namespace {

/// A computer with a small dictionary of another program's.
class Spelling : public testing::Test {
protected:
    Spelling() {
        QDir().mkpath(QString::fromStdString(folder.Path("hunspell")));
        folder.Write("hunspell/en_US.aff", "SET UTF-8\nTRY abcdefghijklmnopqrstuvwxyz\n");
        folder.Write("hunspell/en_US.dic", "3\nthorn\nrose\ngarden\n");
        folder.Write("hunspell/fr_FR.aff", "SET UTF-8\n");
        folder.Write("hunspell/fr_FR.dic", "1\nmot\n");
    }
    [[nodiscard]] Dictionaries::Places Places() const {
        Dictionaries::Places places = Dictionaries::OfThisComputer({});
        places.ready.clear();
        places.hunspell = QStringList{QString::fromStdString(folder.Path("hunspell"))};
        // The engine looks for the folder once in a run.
        places.kept = QString::fromUtf8(qgetenv("TESSAVIEW_TEST_DICTIONARIES"));
        places.languages = QStringList{QStringLiteral("en-GB"), QStringLiteral("tlh")};
        return places;
    }
    TemporaryFolder folder;
};

TEST_F(Spelling, AMisspelledWordIsToldWithWhatWasMeant) {
    Dictionaries dictionaries(Places());
    ASSERT_TRUE(WaitUntil([&] { return dictionaries.Names() == QStringList{QStringLiteral("en_US")}; }));
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<p>words</p><input id=field spellcheck=true style='width: 60px'>");
    EngineView desk;
    desk.engine.Profiles().Made.ConnectForLife([&](QWebEngineProfile& made) { dictionaries.Follow(made); });
    desk.Load(server.Address(QStringLiteral("/page")));
    desk.ClickOn(QStringLiteral("field"));
    ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("document.activeElement.id")) == u"field"; }));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("thron rose "));
    ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("field.value")) == u"thron rose "; }));
    desk.Script(QStringLiteral("field.style.textIndent = '0'; field.style.width = '20px'; field.scrollLeft = 0; 1"));
    ASSERT_TRUE(WaitUntil([&] {
        desk.events.menu.reset();
        desk.ClickOn(QStringLiteral("field"), Qt::RightButton);
        return WaitUntil([&] { return desk.events.menu.has_value(); }) && !desk.events.menu->MisspelledWord.empty();
    }));
    EXPECT_EQ(desk.events.menu->MisspelledWord, u"thron");
    EXPECT_EQ(desk.events.menu->Suggestions, std::vector<Text>{u"thorn"});
    EXPECT_EQ(desk.view->Tools()->ReplaceWord(u"thorn"), Outcome::Done);
    EXPECT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("field.value")) == u"thorn rose "; }));
}

TEST_F(Spelling, WithoutADictionaryOfTheUsersLanguagesNothingIsChecked) {
    auto places = Places();
    places.languages = QStringList{QStringLiteral("tlh")};
    const Dictionaries dictionaries(places);
    EXPECT_TRUE(dictionaries.Names().isEmpty());
}

TEST_F(Spelling, WithoutTheEnginesToolNothingIsChecked) {
    auto places = Places();
    places.kept = QString::fromStdString(folder.Path("other"));
    places.converter = QStringLiteral("/no/such/tool");
    const Dictionaries dictionaries(places);
    QCoreApplication::processEvents();
    EXPECT_TRUE(dictionaries.Names().isEmpty());
    EXPECT_TRUE(QDir(places.kept).isEmpty());
}

TEST_F(Spelling, WhatTheEngineCanReadIsTakenAsItIs) {
    const QByteArray before = qgetenv("QTWEBENGINE_DICTIONARIES_PATH");
    folder.Write("de_AT.bdic", "");
    folder.Write("en_US.bdic", "");
    auto places = Places();
    places.ready = QStringList{QString::fromStdString(folder.Path("nowhere")), QString::fromStdString(folder.Path(""))};
    places.languages = QStringList{QStringLiteral("de-DE"), QStringLiteral("de"), QStringLiteral("en-US")};
    const Dictionaries dictionaries(places);
    EXPECT_EQ(dictionaries.Names(), (QStringList{QStringLiteral("de_AT"), QStringLiteral("en_US")}));
    qputenv("QTWEBENGINE_DICTIONARIES_PATH", before);
}

} // namespace

} // namespace tessa::qt
